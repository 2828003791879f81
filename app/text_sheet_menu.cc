#include "app/text_sheet_menu.h"

#include "app/text_sheet_action.h"
#include "common/base/error.h"
#include "common/gui/gui_menu.h"

// One run of the menu, a local of the function that runs it.
struct menu_run {
    const z_text_sheet_target *target;
    bool changed;
};

static void activate_callback(GtkMenuItem *item, gpointer data) noexcept
{
    auto *self = static_cast<menu_run *>(data);
    z_error_clear();
    self->changed = z_text_sheet_action_run(self->target,
                                            static_cast<z_text_sheet_action>(z_gui_menu_get_item_data(item)));
}

static GtkWidget *create_menu(menu_run *self)
{
    GtkWidget *menu = gtk_menu_new();
    for (const z_text_sheet_menu_entry &entry : z_text_sheet_action_get_menu(self->target)) {
        if (entry.is_shown != nullptr && !entry.is_shown(self->target))
            continue;
        if (entry.label == nullptr) {
            z_gui_menu_append_separator(menu);
            continue;
        }
        const bool is_sensitive = entry.is_sensitive == nullptr || entry.is_sensitive(self->target);
        z_gui_menu_append_item_with_activate_callback(
            menu, entry.label, static_cast<int>(entry.action),
            is_sensitive ? z_menu_item::sensitive : z_menu_item::insensitive, activate_callback, self);
    }
    return menu;
}

bool z_text_sheet_menu_run_for_template(const z_text_sheet_target *target)
{
    menu_run self = {target, false};
    z_gui_menu_run_and_destroy(create_menu(&self), nullptr);
    return self.changed;
}
