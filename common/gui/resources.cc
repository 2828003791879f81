#include "common/gui/resources.h"

#include "common/base/error.h"
#include "common/base/stream.h"
#include "common/base/xml.h"
#include "common/base/zip.h"
#include "common/gui/resources_archive.h"

static z_zip_archive_ptr archive;
static z_zip_archive_ptr doubled_archive;

static z_gfx_image_ptr checkbox_off_image;
static z_gfx_image_ptr checkbox_on_image;
static z_gfx_image_ptr text_tab_menu_image;

bool z_resources_open()
{
    archive =
        z_zip_open_archive_for_reading_from_buffer(z_resources_archive.data(), z_resources_archive.size());
    if (archive == nullptr)
        return false;
    doubled_archive = z_zip_open_archive_for_reading_from_buffer(z_resources_doubled_archive.data(),
                                                                 z_resources_doubled_archive.size());
    return doubled_archive != nullptr;
}

void z_resources_clean_up()
{
    checkbox_off_image.reset();
    checkbox_on_image.reset();
    text_tab_menu_image.reset();
    archive.reset();
    doubled_archive.reset();
}

static z_gfx_image_ptr load_image_from(zip_t *source, const char *member_name)
{
    z_bytes_ptr data;
    size_t length;
    return z_stream_copy_from_zip_file_path_to_memory(source, member_name, data, length)
               ? z_gfx_image_new_from_png(data.get(), length)
               : nullptr;
}

z_gfx_image_ptr z_resources_load_image(const char *member_name)
{
    g_return_val_if_fail(archive != nullptr, nullptr);
    z_gfx_image_ptr image = load_image_from(archive.get(), member_name);
    z_gfx_image_ptr doubled =
        image != nullptr ? load_image_from(doubled_archive.get(), member_name) : nullptr;
    if (doubled == nullptr) {
        z_error_append("Could not load image resource.");
        return nullptr;
    }
    z_gfx_image_take_doubled(image.get(), std::move(doubled));
    return image;
}

z_xml_doc_ptr z_resources_load_xml_doc(const char *member_name)
{
    g_return_val_if_fail(archive != nullptr, nullptr);
    z_xml_doc_ptr doc = z_xml_parse_zip_file(archive.get(), member_name);
    if (doc == nullptr)
        z_error_append("Could not open XML resource.");
    return doc;
}

bool z_resources_load_shared_images()
{
    z_gfx_image_ptr off = z_resources_load_image("checkbox_off.png");
    z_gfx_image_ptr on = off != nullptr ? z_resources_load_image("checkbox_on.png") : nullptr;
    z_gfx_image_ptr menu = on != nullptr ? z_resources_load_image("text_tab_menu.png") : nullptr;
    if (menu == nullptr)
        return false;
    checkbox_off_image = std::move(off);
    checkbox_on_image = std::move(on);
    text_tab_menu_image = std::move(menu);
    return true;
}

const z_gfx_image *z_get_checkbox_icon_image(bool checked)
{
    return checked ? checkbox_on_image.get() : checkbox_off_image.get();
}

const z_gfx_image *z_get_text_tab_menu_icon_image()
{
    return text_tab_menu_image.get();
}
