#include "common/gui/view_font.h"

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/view_font_system.h"

static z_font_face_ptr view_font_face;

static bool is_file(const char *path)
{
    z_fs_info info;
    return z_fs_utils_get_info(path, info) && info.is_file;
}

static z_utf8_ptr find_font_file(const char *installation_folder)
{
    for (const char *folder : {"", installation_folder}) {
        const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder, "fonts", "LiberationSans-Bold.ttf");
        if (is_file(path.get()))
            return z_utf8_ptr(g_canonicalize_filename(path.get(), nullptr));
    }
    return nullptr;
}

bool z_resources_load_view_font(const char *installation_folder)
{
    const z_utf8_ptr path = find_font_file(installation_folder);
    view_font_face = path != nullptr ? z_view_font_create_face(path.get(), "Liberation Sans Bold") : nullptr;
    if (view_font_face == nullptr)
        z_error_set("Couldn't load required fonts. The program installation is broken.");
    return view_font_face != nullptr;
}

void z_resources_clean_up_view_font()
{
    view_font_face.reset();
}

cairo_font_face_t *z_get_view_font_face()
{
    return view_font_face.get();
}
