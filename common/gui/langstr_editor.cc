#include "common/gui/langstr_editor.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/langstr_row.h"
#include "common/gui/message.h"
#include "common/model/supported_languages.h"

// Row i of the list stands in line i of the table, and the add button in the last line. Once somebody else
// has destroyed a row's input or combo box, the table cannot be read any more.

struct z_langstr_editor_impl {
    z_window_stack *window_stack = nullptr;
    const z_list<z_preferred_language> *languages = nullptr;
    z_input_lines lines = z_input_lines::single;
    z_list<z_langstr_row> rows;
    bool is_broken = false;
};

struct _ZLangstrEditor {
    GtkBox parent_instance;

    GtkWidget *table;
    GtkWidget *add_button;
    GtkWidget *label; // a weak pointer
    z_langstr_editor_impl *impl;
};

G_DEFINE_FINAL_TYPE(ZLangstrEditor, z_langstr_editor, GTK_TYPE_BOX)

enum { signal_grown, signal_shrunk, signal_count };
static guint signals[signal_count];

// The table

static void place_rows(ZLangstrEditor *self)
{
    const z_list<z_langstr_row> &rows = self->impl->rows;
    const bool may_be_deleted = rows.get_first() != rows.get_last();
    int line = 0;
    for (z_langstr_row *row : rows) {
        z_langstr_row_move(row, self->table, line++);
        z_langstr_row_set_sensitivity(row, may_be_deleted);
    }
    if (self->add_button != nullptr)
        gtk_container_child_set(GTK_CONTAINER(self->table), self->add_button, "top-attach",
                                std::max(line - 1, 0), nullptr);
}

static void destroy_row(z_langstr_row *row)
{
    z_langstr_row_destroy_widgets(row);
    z_link_remove(row);
    delete row;
}

static void tie_to_label(ZLangstrEditor *self, const z_langstr_row *row)
{
    if (self->label == nullptr || row->input == nullptr)
        return;
    AtkObject *label = gtk_widget_get_accessible(self->label);
    AtkObject *input = gtk_widget_get_accessible(row->input);
    atk_object_add_relationship(input, ATK_RELATION_LABELLED_BY, label);
    atk_object_add_relationship(label, ATK_RELATION_LABEL_FOR, input);
}

// Callbacks of the rows

static void language_changed_callback(GtkComboBox *, gpointer data) noexcept
{
    auto *row = static_cast<z_langstr_row *>(data);
    if (row->input == nullptr)
        return;
    z_langstr_row_apply_language(row);
    z_langstr_row_focus_input(row);
}

static void delete_callback(GtkButton *, gpointer data) noexcept
{
    auto *row = static_cast<z_langstr_row *>(data);
    ZLangstrEditor *self = row->editor;
    z_langstr_row *neighbour = z_link_is_last(row) ? z_link_get_previous(row) : z_link_get_next(row);
    if (neighbour == nullptr) {
        z_message_show(self->impl->window_stack, "There must be at least one row.");
        return;
    }
    z_langstr_row_focus_input(neighbour);
    destroy_row(row);
    place_rows(self);
    g_signal_emit(self, signals[signal_shrunk], 0);
}

static void row_widget_destroy_callback(GtkWidget *widget, gpointer data) noexcept
{
    auto *row = static_cast<z_langstr_row *>(data);
    for (GtkWidget **place : {&row->combo, &row->input, &row->cell, &row->delete_button}) {
        if (*place == widget)
            *place = nullptr;
    }
    if (row->combo == nullptr || row->input == nullptr)
        row->editor->impl->is_broken = true;
}

static z_langstr_row *add_row(ZLangstrEditor *self, const char *tag, const char *text_latin1, bool is_locked)
{
    z_langstr_row *row = self->impl->rows.add_last(std::make_unique<z_langstr_row>());
    row->editor = self;
    row->locked = row->input_locked = is_locked;
    z_langstr_row_create_widgets(row, self->impl->lines, tag, text_latin1);
    z_langstr_row_attach(row, self->table, z_link_get_index(row));
    tie_to_label(self, row);
    g_signal_connect(row->combo, "changed", G_CALLBACK(language_changed_callback), row);
    g_signal_connect(row->delete_button, "clicked", G_CALLBACK(delete_callback), row);
    g_signal_connect(row->combo, "destroy", G_CALLBACK(row_widget_destroy_callback), row);
    g_signal_connect(row->delete_button, "destroy", G_CALLBACK(row_widget_destroy_callback), row);
    g_signal_connect(row->input, "destroy", G_CALLBACK(row_widget_destroy_callback), row);
    if (row->cell != row->input)
        g_signal_connect(row->cell, "destroy", G_CALLBACK(row_widget_destroy_callback), row);
    return row;
}

static bool has_language(const ZLangstrEditor *self, const char *tag)
{
    for (const z_langstr_row *row : self->impl->rows) {
        if (g_str_equal(z_langstr_row_get_tag(row), tag))
            return true;
    }
    return false;
}

// The first preferred language that no row has yet, or null.
static const char *find_language_for_new_row(const ZLangstrEditor *self)
{
    for (const z_preferred_language *language : *self->impl->languages) {
        const char *tag = language->tag.get();
        if (z_supported_languages_get_index_for_tag(tag) >= 0 && !has_language(self, tag))
            return tag;
    }
    return nullptr;
}

static z_langstr_row *add_empty_row(ZLangstrEditor *self)
{
    z_langstr_row *row = add_row(self, find_language_for_new_row(self), "", false);
    place_rows(self);
    return row;
}

static void add_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<ZLangstrEditor *>(data);
    z_langstr_row *row = add_empty_row(self);
    g_signal_emit(self, signals[signal_grown], 0);
    z_langstr_row_focus_input(row);
}

// The keyboard

// The geometry would put the delete button before a text of several lines, which reaches further down.
static std::vector<GtkWidget *> get_focus_order(const ZLangstrEditor *self)
{
    std::vector<GtkWidget *> order;
    for (const z_langstr_row *row : self->impl->rows)
        order.insert(order.end(), {row->combo, row->cell, row->delete_button});
    order.push_back(self->add_button);
    order.erase(std::remove(order.begin(), order.end(), nullptr), order.end());
    return order;
}

static gboolean focus(GtkWidget *widget, GtkDirectionType direction) noexcept
{
    if (direction != GTK_DIR_TAB_FORWARD && direction != GTK_DIR_TAB_BACKWARD)
        return GTK_WIDGET_CLASS(z_langstr_editor_parent_class)->focus(widget, direction);
    auto *self = Z_LANGSTR_EDITOR(widget);
    std::vector<GtkWidget *> order = get_focus_order(self);
    if (direction == GTK_DIR_TAB_BACKWARD)
        std::reverse(order.begin(), order.end());
    // The widget that has the focus is asked first: it may have more places inside.
    GtkWidget *current = gtk_container_get_focus_child(GTK_CONTAINER(self->table));
    auto next = std::find(order.begin(), order.end(), current);
    if (next == order.end())
        next = order.begin();
    return std::any_of(next, order.end(), [direction](GtkWidget *candidate) {
        return gtk_widget_child_focus(candidate, direction) != FALSE;
    });
}

static void grab_focus(GtkWidget *widget) noexcept
{
    for (const z_langstr_row *row : Z_LANGSTR_EDITOR(widget)->impl->rows) {
        if (row->input != nullptr && gtk_widget_is_sensitive(row->input))
            return gtk_widget_grab_focus(row->input);
    }
}

// The class

static void destroy(GtkWidget *widget) noexcept
{
    auto *self = Z_LANGSTR_EDITOR(widget);
    for (z_langstr_row *row : self->impl->rows)
        z_langstr_row_release_widgets(row);
    self->impl->rows.destroy_all();
    g_clear_weak_pointer(&self->label);
    GTK_WIDGET_CLASS(z_langstr_editor_parent_class)->destroy(widget);
}

static void finalize(GObject *object) noexcept
{
    delete Z_LANGSTR_EDITOR(object)->impl;
    G_OBJECT_CLASS(z_langstr_editor_parent_class)->finalize(object);
}

static guint create_signal(const char *name)
{
    return g_signal_new(name, Z_TYPE_LANGSTR_EDITOR, G_SIGNAL_RUN_LAST, 0, nullptr, nullptr, nullptr,
                        G_TYPE_NONE, 0);
}

static void z_langstr_editor_class_init(ZLangstrEditorClass *klass)
{
    G_OBJECT_CLASS(klass)->finalize = finalize;
    auto *widget_class = GTK_WIDGET_CLASS(klass);
    widget_class->destroy = destroy;
    widget_class->focus = focus;
    widget_class->grab_focus = grab_focus;
    signals[signal_grown] = create_signal("grown");
    signals[signal_shrunk] = create_signal("shrunk");
}

static void z_langstr_editor_init(ZLangstrEditor *self)
{
    self->impl = new z_langstr_editor_impl;
    gtk_orientable_set_orientation(GTK_ORIENTABLE(self), GTK_ORIENTATION_VERTICAL);
    self->table = z_gui_place_in_box(GTK_WIDGET(self), z_expand::no, z_gui_create_grid(z_spacing::normal));
    self->add_button = z_gui_create_button(" + ");
    gtk_widget_set_tooltip_text(self->add_button, "Add a language");
    atk_object_set_name(gtk_widget_get_accessible(self->add_button), "Add a language");
    z_gui_place_in_grid(self->table, 3, 0, 1, 1, self->add_button);
    g_signal_connect(self->add_button, "clicked", G_CALLBACK(add_callback), self);
    g_signal_connect(self->add_button, "destroy", G_CALLBACK(gtk_widget_destroyed), &self->add_button);
}

static void set_langstr(ZLangstrEditor *self, const z_langstr *langstr, const z_langstr *locked)
{
    for (const z_langstr *entry = langstr; entry != nullptr; entry = entry->next.get()) {
        const char *tag = entry->tag.get();
        const bool is_locked = z_langstr_get_string(locked, tag, z_dialect_fallback::refused) != nullptr;
        add_row(self, tag, entry->text.get(), is_locked);
    }
    if (langstr == nullptr)
        add_empty_row(self);
    place_rows(self);
}

GtkWidget *z_langstr_editor_new(z_window_stack *window_stack, const z_list<z_preferred_language> &languages,
                                z_input_lines lines, const z_langstr *langstr, const z_langstr *locked)
{
    auto *self = static_cast<ZLangstrEditor *>(g_object_new(Z_TYPE_LANGSTR_EDITOR, nullptr));
    self->impl->window_stack = window_stack;
    self->impl->languages = &languages;
    self->impl->lines = lines;
    gtk_widget_set_valign(self->add_button, z_langstr_row_get_alignment(lines));
    set_langstr(self, langstr, locked);
    gtk_widget_show(GTK_WIDGET(self));
    return GTK_WIDGET(self);
}

void z_langstr_editor_set_label(ZLangstrEditor *self, GtkWidget *label)
{
    g_set_weak_pointer(&self->label, label);
    for (const z_langstr_row *row : self->impl->rows)
        tie_to_label(self, row);
}

// Adds what the row holds to the langstr.
static bool read_row(const z_langstr_row *row, z_langstr_ptr &langstr)
{
    const z_latin1_ptr text = z_langstr_row_get_text(row);
    if (!text)
        return false;
    if (*text.get() == '\0')
        return true;
    // Texts without a language may be several.
    const char *tag = z_langstr_row_get_tag(row);
    if (*tag != '\0' && z_langstr_get_string(langstr.get(), tag, z_dialect_fallback::refused) != nullptr) {
        z_error_set_utf8_printf("Each language may only appear once. Language \"%s\" appears several times.",
                                tag);
        return false;
    }
    z_langstr_set_translation(langstr, tag, text.get());
    return true;
}

bool z_langstr_editor_get_text(ZLangstrEditor *self, z_langstr_ptr &langstr)
{
    langstr.reset();
    if (self->impl->is_broken) {
        z_error_set("An error occured with the user interface.");
        return false;
    }
    z_langstr_ptr result;
    for (const z_langstr_row *row : self->impl->rows) {
        if (!read_row(row, result))
            return false;
    }
    langstr = std::move(result);
    return true;
}

bool z_langstr_editor_has_locked_texts(ZLangstrEditor *self)
{
    for (const z_langstr_row *row : self->impl->rows) {
        if (row->locked)
            return true;
    }
    return false;
}

void z_langstr_editor_clear(ZLangstrEditor *self)
{
    z_langstr_row *next = nullptr;
    for (z_langstr_row *row = self->impl->rows.get_first(); row != nullptr; row = next) {
        next = z_link_get_next(row);
        if (!row->locked)
            destroy_row(row);
    }
    if (self->impl->rows.is_empty())
        add_empty_row(self);
    place_rows(self);
    g_signal_emit(self, signals[signal_shrunk], 0);
}
