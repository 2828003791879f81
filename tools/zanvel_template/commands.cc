#include "tools/zanvel_template/commands.h"

#include <cstring>

#include "common/base/error.h"
#include "common/base/strip.h"
#include "common/workspace/workspace.h"

bool z_take_operands_or_more(z_arguments &arguments, size_t count)
{
    if (!arguments.empty() && std::strcmp(arguments.front(), "--") == 0)
        arguments = arguments.subspan(1);
    else
        for (const char *argument : arguments)
            if (argument[0] == '-')
                return false;
    return arguments.size() >= count;
}

bool z_take_operands(z_arguments &arguments, size_t count)
{
    return z_take_operands_or_more(arguments, count) && arguments.size() == count;
}

void z_print_line(FILE *output, const char *utf8)
{
    for (const char *c = utf8; *c != '\0'; c = g_utf8_next_char(c)) {
        if (g_unichar_iscntrl(g_utf8_get_char(c)))
            std::fputs("\uFFFD", output);
        else
            std::fwrite(c, 1, static_cast<size_t>(g_utf8_next_char(c) - c), output);
    }
    std::fputc('\n', output);
}

void z_print_error(const char *subject)
{
    const z_utf8_ptr message = z_strip_surrounding_and_spacify_compactly_in_new_for_utf8(z_error_get());
    const z_utf8_ptr line(g_strconcat(subject, ": ", message.get(), nullptr));
    std::fflush(stdout);
    z_print_line(stderr, line.get());
}

z_settings_ptr z_load_language_settings()
{
    z_utf8_ptr workspace_path;
    if (!z_workspace_get_saved_folder_path(workspace_path) || workspace_path == nullptr)
        return z_settings_new("");
    z_settings_ptr settings = z_settings_new(workspace_path.get());
    // Settings that cannot be read leave the languages of the system, which is no reason to refuse a file.
    (void)z_settings_load(settings.get(), Z_SETTINGS_PREFERRED_LANGUAGES);
    return settings;
}
