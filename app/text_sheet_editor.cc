#include "app/text_sheet_editor.h"

#include <algorithm>

#include "app/application.h"
#include "app/text_sheet_action.h"
#include "app/text_sheet_menu.h"
#include "common/gui/gfx_form.h"
#include "common/gui/gui_font.h"
#include "common/gui/gui_widget_window.h"

// The vertical adjustment follows the height of the content; the form never scrolls sideways, as it is always
// as wide as the widget. `content_height` is the height that the adjustment was last updated for.

enum text_sheet_editor_property {
    property_hadjustment = 1,
    property_hscroll_policy,
    property_vadjustment,
    property_vscroll_policy,
};

struct _TextSheetEditor {
    GtkWidget parent_instance;
    GtkAdjustment *hadjustment;
    GtkScrollablePolicy hscroll_policy;
    GtkAdjustment *vadjustment;
    GtkScrollablePolicy vscroll_policy;
    z_application_context *context;
    z_gfx_text_sheet_context *draw_context;
    z_gfx_form *form;
    int content_height;
};

G_DEFINE_FINAL_TYPE_WITH_CODE(TextSheetEditor, text_sheet_editor, GTK_TYPE_WIDGET,
                              G_IMPLEMENT_INTERFACE(GTK_TYPE_SCROLLABLE, nullptr))

// The handler that also moves the widget's own window.
static void (*base_size_allocate)(GtkWidget *widget, GtkAllocation *allocation);

static void update_horizontal_adjustment(TextSheetEditor *self)
{
    if (self->hadjustment == nullptr)
        return;
    const double width = gtk_widget_get_allocated_width(GTK_WIDGET(self));
    gtk_adjustment_configure(self->hadjustment, 0.0, 0.0, width, width * 0.1, width * 0.9, width);
}

static void update_vertical_adjustment(TextSheetEditor *self)
{
    if (self->vadjustment == nullptr)
        return;
    const double page = gtk_widget_get_allocated_height(GTK_WIDGET(self));
    const double upper = std::max<double>(page, self->content_height);
    const double value = std::min(gtk_adjustment_get_value(self->vadjustment), upper - page);
    gtk_adjustment_configure(self->vadjustment, value, 0.0, upper, page * 0.1, page * 0.9, page);
}

static void value_changed_callback(GtkAdjustment *, gpointer data) noexcept
{
    gtk_widget_queue_draw(GTK_WIDGET(data));
}

// Lets go of the adjustment that the slot holds.
static void release_adjustment(TextSheetEditor *self, GtkAdjustment **slot)
{
    if (*slot == nullptr)
        return;
    g_signal_handlers_disconnect_by_data(*slot, self);
    g_clear_object(slot);
}

static bool replace_adjustment(TextSheetEditor *self, GtkAdjustment **slot, GtkAdjustment *adjustment)
{
    if (adjustment != nullptr && adjustment == *slot)
        return false;
    release_adjustment(self, slot);
    if (adjustment == nullptr)
        adjustment = gtk_adjustment_new(0.0, 0.0, 0.0, 0.0, 0.0, 0.0);
    g_signal_connect(adjustment, "value-changed", G_CALLBACK(value_changed_callback), self);
    *slot = GTK_ADJUSTMENT(g_object_ref_sink(adjustment));
    return true;
}

static void set_hadjustment(TextSheetEditor *self, GtkAdjustment *adjustment)
{
    if (!replace_adjustment(self, &self->hadjustment, adjustment))
        return;
    update_horizontal_adjustment(self);
    g_object_notify(G_OBJECT(self), "hadjustment");
}

static void set_vadjustment(TextSheetEditor *self, GtkAdjustment *adjustment)
{
    if (!replace_adjustment(self, &self->vadjustment, adjustment))
        return;
    update_vertical_adjustment(self);
    g_object_notify(G_OBJECT(self), "vadjustment");
}

static void set_policy(TextSheetEditor *self, GtkScrollablePolicy *slot, int policy,
                       const char *property_name)
{
    if (*slot == policy)
        return;
    *slot = static_cast<GtkScrollablePolicy>(policy);
    gtk_widget_queue_resize(GTK_WIDGET(self));
    g_object_notify(G_OBJECT(self), property_name);
}

static void text_sheet_editor_get_property(GObject *object, guint id, GValue *value,
                                           GParamSpec *pspec) noexcept
{
    const TextSheetEditor *self = TEXT_SHEET_EDITOR(object);
    switch (id) {
    case property_hadjustment:
        g_value_set_object(value, self->hadjustment);
        break;
    case property_hscroll_policy:
        g_value_set_enum(value, self->hscroll_policy);
        break;
    case property_vadjustment:
        g_value_set_object(value, self->vadjustment);
        break;
    case property_vscroll_policy:
        g_value_set_enum(value, self->vscroll_policy);
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
    }
}

static void text_sheet_editor_set_property(GObject *object, guint id, const GValue *value,
                                           GParamSpec *pspec) noexcept
{
    TextSheetEditor *self = TEXT_SHEET_EDITOR(object);
    switch (id) {
    case property_hadjustment:
        set_hadjustment(self, static_cast<GtkAdjustment *>(g_value_get_object(value)));
        break;
    case property_hscroll_policy:
        set_policy(self, &self->hscroll_policy, g_value_get_enum(value), "hscroll-policy");
        break;
    case property_vadjustment:
        set_vadjustment(self, static_cast<GtkAdjustment *>(g_value_get_object(value)));
        break;
    case property_vscroll_policy:
        set_policy(self, &self->vscroll_policy, g_value_get_enum(value), "vscroll-policy");
        break;
    default:
        G_OBJECT_WARN_INVALID_PROPERTY_ID(object, id, pspec);
    }
}

// Everything that the form is drawn with can have changed since the last draw: the theme's font, the
// desktop's text size, the room there is.
static void draw_form(TextSheetEditor *self, cairo_t *cr)
{
    GtkWidget *widget = GTK_WIDGET(self);
    z_gfx_text_sheet_context *draw_context = self->draw_context;
    const z_font_description_ptr font = z_gui_get_font_description(widget, z_font_style::normal, 12.0);
    const double resolution = gdk_screen_get_resolution(gtk_widget_get_screen(widget));
    draw_context->base_font = font.get();
    draw_context->font_resolution = resolution > 0.0 ? resolution : 96.0;
    draw_context->cr = cr;
    draw_context->width = gtk_widget_get_allocated_width(widget);

    // The scroll position is put right before drawing, so that no frame shows room below a form that has
    // shrunk.
    const int height = z_gfx_form_get_height(draw_context, self->form);
    if (height != self->content_height) {
        self->content_height = height;
        update_vertical_adjustment(self);
    }
    const double scroll = self->vadjustment != nullptr ? gtk_adjustment_get_value(self->vadjustment) : 0.0;
    z_gfx_form_draw(draw_context, self->form, static_cast<int>(scroll));
    draw_context->base_font = nullptr;
    draw_context->cr = nullptr;
}

static gboolean text_sheet_editor_draw(GtkWidget *widget, cairo_t *cr) noexcept
{
    draw_form(TEXT_SHEET_EDITOR(widget), cr);
    return GDK_EVENT_PROPAGATE;
}

// The row stands out while its menu is open. After the run nothing that was clicked is touched: it may be
// gone.
static void run_menu(TextSheetEditor *self, const z_gfx_form_hit &hit)
{
    const z_text_sheet_target target = {self->context->window_stack,
                                        self->context->workspace,
                                        self->form->tmpl,
                                        self->form->report_type,
                                        hit.segment,
                                        hit.block,
                                        hit.row};
    self->draw_context->highlighted_row = hit.row;
    if (hit.row != nullptr)
        gtk_widget_queue_draw(GTK_WIDGET(self));
    const bool changed = z_text_sheet_menu_run_for_template(&target);
    self->draw_context->highlighted_row = nullptr;
    if (changed || hit.row != nullptr)
        gtk_widget_queue_draw(GTK_WIDGET(self));
}

// Only a plain press opens a menu, not the second one of a double click.
static gboolean text_sheet_editor_button_press_event(GtkWidget *widget, GdkEventButton *event) noexcept
{
    TextSheetEditor *self = TEXT_SHEET_EDITOR(widget);
    if (event->type != GDK_BUTTON_PRESS || event->button != GDK_BUTTON_PRIMARY)
        return GDK_EVENT_PROPAGATE;
    const z_gfx_form_hit hit =
        z_gfx_form_hit_test(self->form, static_cast<int>(event->x), static_cast<int>(event->y));
    if (hit.part == z_gfx_form_part::none)
        return GDK_EVENT_PROPAGATE;
    const z_ref<GtkWidget> held = z_share(widget);
    run_menu(self, hit);
    return GDK_EVENT_STOP;
}

static void text_sheet_editor_destroy(GtkWidget *widget) noexcept
{
    TextSheetEditor *self = TEXT_SHEET_EDITOR(widget);
    release_adjustment(self, &self->hadjustment);
    release_adjustment(self, &self->vadjustment);
    GTK_WIDGET_CLASS(text_sheet_editor_parent_class)->destroy(widget);
}

static void text_sheet_editor_finalize(GObject *object) noexcept
{
    TextSheetEditor *self = TEXT_SHEET_EDITOR(object);
    delete self->draw_context;
    delete self->form;
    G_OBJECT_CLASS(text_sheet_editor_parent_class)->finalize(object);
}

// Whatever the form holds, it can be scrolled, so it asks for little room.
static void text_sheet_editor_get_preferred_size(GtkWidget *, int *minimum_px, int *natural_px) noexcept
{
    *minimum_px = *natural_px = 100;
}

static void text_sheet_editor_size_allocate(GtkWidget *widget, GtkAllocation *allocation) noexcept
{
    base_size_allocate(widget, allocation);
    update_horizontal_adjustment(TEXT_SHEET_EDITOR(widget));
    update_vertical_adjustment(TEXT_SHEET_EDITOR(widget));
}

static void text_sheet_editor_class_init(TextSheetEditorClass *klass)
{
    GObjectClass *object_class = G_OBJECT_CLASS(klass);
    GtkWidgetClass *widget_class = GTK_WIDGET_CLASS(klass);
    object_class->get_property = text_sheet_editor_get_property;
    object_class->set_property = text_sheet_editor_set_property;
    object_class->finalize = text_sheet_editor_finalize;
    widget_class->button_press_event = text_sheet_editor_button_press_event;
    widget_class->destroy = text_sheet_editor_destroy;
    widget_class->draw = text_sheet_editor_draw;
    widget_class->get_preferred_width = text_sheet_editor_get_preferred_size;
    widget_class->get_preferred_height = text_sheet_editor_get_preferred_size;
    // A touchpad may send smooth scrolling only.
    z_gui_widget_attach_window_callbacks(
        widget_class,
        static_cast<GdkEventMask>(GDK_BUTTON_PRESS_MASK | GDK_SCROLL_MASK | GDK_SMOOTH_SCROLL_MASK),
        z_event_compression::on);
    base_size_allocate = widget_class->size_allocate;
    widget_class->size_allocate = text_sheet_editor_size_allocate;

    g_object_class_override_property(object_class, property_hadjustment, "hadjustment");
    g_object_class_override_property(object_class, property_hscroll_policy, "hscroll-policy");
    g_object_class_override_property(object_class, property_vadjustment, "vadjustment");
    g_object_class_override_property(object_class, property_vscroll_policy, "vscroll-policy");
}

static void text_sheet_editor_init(TextSheetEditor *self)
{
    self->draw_context = new z_gfx_text_sheet_context;
    self->draw_context->record_rects = true;
    self->draw_context->editing = true;
    self->form = new z_gfx_form;
}

GtkWidget *text_sheet_editor_new_for_report_type(z_application_context *context, z_template *tmpl,
                                                 z_template_report_type *report_type)
{
    TextSheetEditor *self = TEXT_SHEET_EDITOR(g_object_new(text_sheet_editor_get_type(), nullptr));
    self->context = context;
    self->draw_context->settings = context->settings;
    self->form->tmpl = tmpl;
    self->form->report_type = report_type;
    return GTK_WIDGET(self);
}

GtkWidget *text_sheet_editor_new_for_basic_data(z_application_context *context, z_template *tmpl)
{
    return text_sheet_editor_new_for_report_type(context, tmpl, nullptr);
}

z_template_report_type *text_sheet_editor_get_report_type(TextSheetEditor *editor)
{
    return editor->form->report_type;
}
