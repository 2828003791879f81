#include "app/report_type_tab.h"

#include "app/application.h"
#include "app/tab_menu_icon.h"
#include "app/text_sheet_editor.h"
#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/gui_menu.h"
#include "common/gui/langstr_window.h"
#include "common/gui/message.h"
#include "common/model/template.h"
#include "common/workspace/settings.h"

// The numbers are the menu items' own.
enum menu_code { code_erase = 0, code_move_left = 1, code_move_right = 2, code_rename = 3 };

// One run of the menu, a local of the function that runs it.
struct menu_run {
    z_application_context *context;
    GtkNotebook *notebook;
    GtkWidget *page;
    GtkWidget *label;
    z_template_report_type *report_type;
};

z_template_report_type *report_type_tab_get_report_type(GtkWidget *page)
{
    return text_sheet_editor_get_report_type(TEXT_SHEET_EDITOR(gtk_bin_get_child(GTK_BIN(page))));
}

static z_utf8_ptr get_name(const z_application_context *context, const z_template_report_type *report_type)
{
    const char *name = z_util_get_langstr_string(context->settings, report_type->name.get());
    return z_convert_latin1_to_utf8(name != nullptr ? name : "");
}

static void rename_report_type(const menu_run *self)
{
    z_langstr_ptr name = z_langstr_clone(self->report_type->name.get());
    if (!z_langstr_window_run(self->context->window_stack, self->context->settings->preferred_languages, name,
                              {.title = "Rename the report type", .label = "Report type"}))
        return;
    self->report_type->name = std::move(name);
    const z_utf8_ptr text = get_name(self->context, self->report_type);
    z_gui_set_tab_label_text(self->label, text.get());
    z_gui_set_notebook_menu_label_text(GTK_WIDGET(self->notebook), self->page, text.get());
}

// Only the pages move; the template takes their order when it is saved.
static void move_page(const menu_run *self, int distance)
{
    const int page_number = gtk_notebook_page_num(self->notebook, self->page);
    gtk_notebook_reorder_child(self->notebook, self->page, page_number + distance);
}

// The page's editor borrows the report type, so the page goes first.
static void erase_report_type(const menu_run *self)
{
    if (!z_message_ask_yes_no_question(self->context->window_stack, z_answer_if_closed::no,
                                       z_question_icon::question,
                                       "Do you really want to delete this entire report type?"))
        return;
    gtk_notebook_remove_page(self->notebook, gtk_notebook_page_num(self->notebook, self->page));
    z_template_report_type_destroy(self->report_type);
}

static void activate_callback(GtkMenuItem *item, gpointer data) noexcept
{
    const auto *self = static_cast<menu_run *>(data);
    z_error_clear();
    switch (z_gui_menu_get_item_data(item)) {
    case code_rename:
        rename_report_type(self);
        break;
    case code_move_left:
        move_page(self, -1);
        break;
    case code_move_right:
        move_page(self, 1);
        break;
    case code_erase:
        erase_report_type(self);
        break;
    }
}

// The basic data stay the first page.
static void run_report_type_menu(menu_run *self)
{
    const int page_number = gtk_notebook_page_num(self->notebook, self->page);
    const auto sensitive_if = [](bool condition) {
        return condition ? z_menu_item::sensitive : z_menu_item::insensitive;
    };
    GtkWidget *menu = gtk_menu_new();
    const auto append = [&](const char *label, int code, z_menu_item state) {
        z_gui_menu_append_item_with_activate_callback(menu, label, code, state, activate_callback, self);
    };
    append("Rename", code_rename, z_menu_item::sensitive);
    z_gui_menu_append_separator(menu);
    append("Move left", code_move_left, sensitive_if(page_number >= 2));
    append("Move right", code_move_right,
           sensitive_if(page_number < gtk_notebook_get_n_pages(self->notebook) - 1));
    append("Erase", code_erase, z_menu_item::sensitive);
    z_gui_menu_run_and_destroy(menu, nullptr);
}

// The page whose tab holds the icon, or null.
static GtkWidget *find_page(GtkNotebook *notebook, GtkWidget *icon)
{
    const int page_count = gtk_notebook_get_n_pages(notebook);
    for (int number = 1; number < page_count; ++number) {
        GtkWidget *page = gtk_notebook_get_nth_page(notebook, number);
        if (gtk_widget_get_parent(icon) == gtk_notebook_get_tab_label(notebook, page))
            return page;
    }
    return nullptr;
}

static void tab_menu_icon_clicked_callback(TabMenuIcon *icon, gpointer data) noexcept
{
    menu_run self = {};
    self.context = static_cast<z_application_context *>(data);
    self.notebook = GTK_NOTEBOOK(gtk_widget_get_ancestor(GTK_WIDGET(icon), GTK_TYPE_NOTEBOOK));
    self.page = find_page(self.notebook, GTK_WIDGET(icon));
    if (self.page == nullptr) {
        z_message_show_error(self.context->window_stack, "Report type menu error.");
        return;
    }
    self.label = static_cast<GtkWidget *>(g_object_get_data(G_OBJECT(icon), "label"));
    self.report_type = report_type_tab_get_report_type(self.page);
    run_report_type_menu(&self);
}

void report_type_tab_attach(z_application_context *context, GtkWidget *notebook, GtkWidget *page)
{
    const z_utf8_ptr text = get_name(context, report_type_tab_get_report_type(page));
    GtkWidget *box = z_gui_create_hbox(z_spacing::normal);
    GtkWidget *label = z_gui_create_tab_label(text.get());
    gtk_box_pack_start(GTK_BOX(box), label, FALSE, FALSE, 0);
    GtkWidget *icon = tab_menu_icon_new();
    gtk_widget_show(icon);
    gtk_box_pack_start(GTK_BOX(box), icon, FALSE, FALSE, 0);
    g_object_set_data(G_OBJECT(icon), "label", label);
    g_signal_connect(icon, "clicked", G_CALLBACK(tab_menu_icon_clicked_callback), context);
    gtk_notebook_set_tab_label(GTK_NOTEBOOK(notebook), page, box);
    z_gui_set_notebook_menu_label_text(notebook, page, text.get());
}
