#include "app/text_sheet_fields_gui.h"

#include <memory>
#include <vector>

#include <gtk/gtk.h>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/strip.h"
#include "common/gui/gui.h"
#include "common/gui/langstr_window.h"
#include "common/gui/list_control_panel.h"
#include "common/gui/window_stack.h"
#include "common/model/text_sheet.h"
#include "common/workspace/settings.h"

enum list_column { column_type, column_contents, column_line, column_count };

// A line of the list: a field of the row, or one that is not in it yet.
struct field_line {
    z_text_sheet_field *field;
    z_text_sheet_field_ptr new_field; // Owns `field` until OK puts it into the row.
    z_langstr_ptr new_label;          // Given in this window to a checkbox of the row; Cancel drops it.
};

// One run of the window, a local of the function that runs it.
struct fields_window {
    z_window_stack *window_stack;
    const z_settings *settings;
    z_text_sheet_row *row;
    std::vector<std::unique_ptr<field_line>> lines; // Those of the list, and those that have left it.
    z_ref<GtkListStore> list_store;
    GtkWidget *window;
    GtkWidget *tree_view;
    GtkWidget *edit_button;
    bool saved;
};

static const size_t longest_contents = 52;
static const size_t cut_contents = 50;

static GtkTreeSelection *get_selection(const fields_window *self)
{
    return gtk_tree_view_get_selection(GTK_TREE_VIEW(self->tree_view));
}

static const z_langstr *get_label(const field_line *line)
{
    return line->new_label != nullptr ? line->new_label.get() : line->field->text.get();
}

static z_utf8_ptr get_full_contents(const fields_window *self, const field_line *line)
{
    const char *text = z_util_get_langstr_string(self->settings, get_label(line));
    return z_convert_latin1_to_utf8(text != nullptr ? text : "");
}

// A long text is no use in a narrow list.
static z_utf8_ptr get_short_contents(const fields_window *self, const field_line *line)
{
    const char *text = z_util_get_langstr_string(self->settings, get_label(line));
    if (text == nullptr)
        return z_utf8_ptr(g_strdup(""));
    z_latin1_ptr contents = z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(text);
    if (strlen(contents.get()) > longest_contents)
        contents.reset(g_strdup_printf("%.*s...", static_cast<int>(cut_contents), contents.get()));
    return z_convert_latin1_to_utf8(contents.get());
}

static field_line *get_line(const fields_window *self, GtkTreeIter *row)
{
    field_line *line;
    gtk_tree_model_get(GTK_TREE_MODEL(self->list_store.get()), row, column_line, &line, -1);
    return line;
}

static field_line *get_selected_line(const fields_window *self, GtkTreeIter *row)
{
    return gtk_tree_selection_get_selected(get_selection(self), nullptr, row) ? get_line(self, row) : nullptr;
}

// Appends a line to the list, where it shows `contents`.
static void add_line(fields_window *self, std::unique_ptr<field_line> line, const char *contents,
                     GtkTreeIter *row)
{
    const char *type = line->field->kind == Z_TEXT_SHEET_CHECKBOX ? "Checkbox" : "Text field";
    gtk_list_store_insert_with_values(self->list_store.get(), row, -1, column_type, type, column_contents,
                                      contents, column_line, line.get(), -1);
    self->lines.push_back(std::move(line));
}

static void add_new_line(fields_window *self, z_text_sheet_field_ptr field)
{
    auto line = std::make_unique<field_line>();
    line->field = field.get();
    line->new_field = std::move(field);
    const z_utf8_ptr contents = get_full_contents(self, line.get());
    GtkTreeIter row;
    add_line(self, std::move(line), contents.get(), &row);
    gtk_tree_selection_select_iter(get_selection(self), &row);
    const z_ptr<GtkTreePath, gtk_tree_path_free> path(
        gtk_tree_model_get_path(GTK_TREE_MODEL(self->list_store.get()), &row));
    gtk_tree_view_scroll_to_cell(GTK_TREE_VIEW(self->tree_view), path.get(), nullptr, FALSE, 0.0F, 0.0F);
}

static bool ask_for_label(const fields_window *self, const char *title, z_langstr_ptr &label)
{
    return z_langstr_window_run(self->window_stack, self->settings->preferred_languages, label,
                                {.title = title, .label = "Enter checkbox label"});
}

static void add_text_callback(GtkButton *, gpointer data) noexcept
{
    add_new_line(static_cast<fields_window *>(data), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
}

static void add_checkbox_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<fields_window *>(data);
    z_error_clear();
    z_langstr_ptr label;
    if (!ask_for_label(self, "Add checkbox", label))
        return;
    z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
    z_text_sheet_field_set_text(field.get(), std::move(label));
    add_new_line(self, std::move(field));
}

static void edit_selected(fields_window *self)
{
    GtkTreeIter row;
    field_line *line = get_selected_line(self, &row);
    if (line == nullptr || line->field->kind != Z_TEXT_SHEET_CHECKBOX)
        return;
    z_langstr_ptr label = z_langstr_clone(get_label(line));
    if (!ask_for_label(self, "Edit checkbox", label))
        return;
    line->new_label = std::move(label);
    gtk_list_store_set(self->list_store.get(), &row, column_contents, get_full_contents(self, line).get(),
                       -1);
}

static void edit_callback(GtkButton *, gpointer data) noexcept
{
    z_error_clear();
    edit_selected(static_cast<fields_window *>(data));
}

static void row_activated_callback(GtkTreeView *, GtkTreePath *, GtkTreeViewColumn *, gpointer data) noexcept
{
    edit_callback(nullptr, data);
}

static void fields_selection_change_callback(GtkTreeSelection *, gpointer data) noexcept
{
    auto *self = static_cast<fields_window *>(data);
    GtkTreeIter row;
    const field_line *line = get_selected_line(self, &row);
    z_gui_set_sensitivity(self->edit_button, line != nullptr && line->field->kind == Z_TEXT_SHEET_CHECKBOX);
}

// Takes the line's field out of the row, or out of the line if it is new, with the label that it got here.
static z_text_sheet_field_ptr take_field(field_line *line)
{
    z_text_sheet_field_ptr field =
        line->new_field != nullptr ? std::move(line->new_field) : z_text_sheet_field_remove(line->field);
    if (line->new_label != nullptr)
        z_text_sheet_field_set_text(field.get(), std::move(line->new_label));
    return field;
}

// What is left in the row once the list's fields are out of it has been deleted in this window.
static void replace_fields(fields_window *self)
{
    GtkTreeModel *model = GTK_TREE_MODEL(self->list_store.get());
    std::vector<z_text_sheet_field_ptr> fields;
    GtkTreeIter row;
    for (gboolean valid = gtk_tree_model_get_iter_first(model, &row); valid;
         valid = gtk_tree_model_iter_next(model, &row))
        fields.push_back(take_field(get_line(self, &row)));
    while (z_text_sheet_field *deleted = self->row->fields.get_first())
        z_text_sheet_field_destroy(deleted);
    for (z_text_sheet_field_ptr &field : fields)
        z_text_sheet_row_add_field(self->row, std::move(field));
}

static void ok_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<fields_window *>(data);
    replace_fields(self);
    self->saved = true;
    gtk_widget_destroy(self->window);
}

static void fill_list(fields_window *self)
{
    for (z_text_sheet_field *field : self->row->fields) {
        auto line = std::make_unique<field_line>();
        line->field = field;
        const z_utf8_ptr contents = get_short_contents(self, line.get());
        GtkTreeIter row;
        add_line(self, std::move(line), contents.get(), &row);
    }
}

static void create_list(fields_window *self, GtkWidget *box)
{
    GtkWidget *scrolled_window = z_gui_pack_scrolled_window(
        box, z_expand::yes, 450, 150, GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC, GTK_SHADOW_IN);
    self->tree_view = z_gui_add_tree_view(scrolled_window, GTK_TREE_MODEL(self->list_store.get()),
                                          z_tree_view_headers::visible, z_tree_view_height::by_row,
                                          z_tree_view_selection::single);
    gtk_tree_view_insert_column_with_attributes(GTK_TREE_VIEW(self->tree_view), -1, "Type",
                                                gtk_cell_renderer_text_new(), "text", column_type, nullptr);
    gtk_tree_view_insert_column_with_attributes(GTK_TREE_VIEW(self->tree_view), -1, "Contents",
                                                gtk_cell_renderer_text_new(), "text", column_contents,
                                                nullptr);
    atk_object_set_name(gtk_widget_get_accessible(self->tree_view), "Fields in this row");
    g_signal_connect(self->tree_view, "row-activated", G_CALLBACK(row_activated_callback), self);
}

static GtkWidget *pack_button(fields_window *self, GtkWidget *box, const char *label,
                              void (*clicked_callback)(GtkButton *, gpointer))
{
    GtkWidget *button = z_gui_pack_button(box, z_default_button::no, label);
    g_signal_connect(button, "clicked", G_CALLBACK(clicked_callback), self);
    return button;
}

static void create_buttons(fields_window *self, GtkWidget *box)
{
    pack_button(self, box, "Add text field", add_text_callback);
    pack_button(self, box, "Add checkbox", add_checkbox_callback);
    self->edit_button = pack_button(self, box, "Edit", edit_callback);
    z_gui_set_sensitivity(self->edit_button, false);
    g_signal_connect(get_selection(self), "changed", G_CALLBACK(fields_selection_change_callback), self);
    GtkWidget *panel =
        g_gui_pack_list_control_panel(box, self->list_store.get(), GTK_TREE_VIEW(self->tree_view));
    z_list_control_panel_pack_remove_button(Z_LIST_CONTROL_PANEL(panel), "Delete", nullptr, nullptr);
}

static void create_window(fields_window *self)
{
    self->window = z_gui_create_window("Set up fields");
    GtkWidget *vbox = z_gui_add_vbox(self->window, z_spacing::normal);
    GtkWidget *hbox = z_gui_pack_hbox_in_frame(vbox, z_expand::yes, "Fields in this row", z_spacing::normal);
    create_list(self, hbox);
    create_buttons(self, z_gui_pack_vbox(hbox, z_expand::no, z_spacing::normal));

    z_gui_pack_ok_and_cancel_buttons(vbox, self->window, "OK", ok_callback, self);
}

bool z_text_sheet_fields_gui_run(z_window_stack *window_stack, const z_settings *settings,
                                 z_text_sheet_row *row)
{
    fields_window self = {};
    self.window_stack = window_stack;
    self.settings = settings;
    self.row = row;
    self.list_store = z_take(gtk_list_store_new(column_count, G_TYPE_STRING, G_TYPE_STRING, G_TYPE_POINTER));
    fill_list(&self);
    create_window(&self);
    z_gui_unselect_when_idle(self.tree_view);
    z_window_stack_run_window(window_stack, self.window, z_opening_size::as_set, self.tree_view);
    return self.saved;
}
