#include "common/gui/view_font_system.h"

#include <cstring>

#include <cairo-ft.h>
#include <fontconfig/fcfreetype.h>

using font_pattern_ptr = z_ptr<FcPattern, FcPatternDestroy>;

static bool has_full_name(const FcPattern *pattern, const char *full_name)
{
    FcChar8 *name;
    for (int i = 0; FcPatternGetString(pattern, FC_FULLNAME, i, &name) == FcResultMatch; ++i) {
        if (std::strcmp(reinterpret_cast<const char *>(name), full_name) == 0)
            return true;
    }
    return false;
}

z_font_face_ptr z_view_font_create_face(const char *path, const char *full_name)
{
    int face_count;
    const font_pattern_ptr pattern(
        FcFreeTypeQuery(reinterpret_cast<const FcChar8 *>(path), 0, nullptr, &face_count));
    if (pattern == nullptr || !has_full_name(pattern.get(), full_name))
        return nullptr;
    FcPatternAddBool(pattern.get(), FC_ANTIALIAS, FcTrue);
    z_font_face_ptr face(cairo_ft_font_face_create_for_pattern(pattern.get()));
    return cairo_font_face_status(face.get()) == CAIRO_STATUS_SUCCESS ? std::move(face) : nullptr;
}
