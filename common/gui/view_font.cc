#include "common/gui/view_font.h"

#include <cstring>

#include <cairo-ft.h>
#include <fontconfig/fcfreetype.h>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/cairo_handles.h"

using font_pattern_ptr = z_ptr<FcPattern, FcPatternDestroy>;
using font_face_ptr = z_ptr<cairo_font_face_t, cairo_font_face_destroy>;

static const char full_name[] = "Liberation Sans Bold";

static font_face_ptr view_font_face;

static bool is_file(const char *path)
{
    z_fs_info info;
    return z_fs_utils_get_info(path, info) && info.is_file;
}

// An absolute path, as the file is opened again when the face is first used.
static z_utf8_ptr find_font_file(const char *installation_folder)
{
    for (const char *folder : {"", installation_folder}) {
        const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder, "fonts", "LiberationSans-Bold.ttf");
        if (is_file(path.get()))
            return z_utf8_ptr(g_canonicalize_filename(path.get(), nullptr));
    }
    return nullptr;
}

static bool has_full_name(const FcPattern *pattern)
{
    FcChar8 *name;
    for (int i = 0; FcPatternGetString(pattern, FC_FULLNAME, i, &name) == FcResultMatch; ++i) {
        if (std::strcmp(reinterpret_cast<const char *>(name), full_name) == 0)
            return true;
    }
    return false;
}

static font_face_ptr create_face(const char *path)
{
    int face_count;
    const font_pattern_ptr pattern(
        FcFreeTypeQuery(reinterpret_cast<const FcChar8 *>(path), 0, nullptr, &face_count));
    if (pattern == nullptr || !has_full_name(pattern.get()))
        return nullptr;
    FcPatternAddBool(pattern.get(), FC_ANTIALIAS, FcTrue);
    font_face_ptr face(cairo_ft_font_face_create_for_pattern(pattern.get()));
    return cairo_font_face_status(face.get()) == CAIRO_STATUS_SUCCESS ? std::move(face) : nullptr;
}

bool z_resources_load_view_font(const char *installation_folder)
{
    const z_utf8_ptr path = find_font_file(installation_folder);
    view_font_face = path != nullptr ? create_face(path.get()) : nullptr;
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
