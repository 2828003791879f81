#include "common/workspace/template_list.h"
#include "tools/zanvel_template/commands.h"

int z_command_list(z_arguments arguments)
{
    if (!z_take_operands(arguments, 1))
        return Z_EXIT_WRONG_USAGE;
    const char *folder_path = arguments[0];
    const z_settings_ptr settings = z_load_language_settings();
    const z_template_list_ptr list = z_template_list_load_folder(folder_path, settings.get());
    if (list == nullptr) {
        z_print_error(folder_path);
        return Z_EXIT_REFUSED;
    }
    for (const z_template_list_entry *entry : list->entries)
        z_print_line(stdout, entry->text.get());
    return Z_EXIT_DONE;
}
