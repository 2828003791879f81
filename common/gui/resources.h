#pragma once

// What the program carries inside its own executable: a zip archive of icons and a style sheet, and the
// images that several parts draw with. Opened and loaded once at start, on the user-interface thread; only
// read until the clean-up.

#include "common/base/xml_handles.h"
#include "common/gui/gfx.h"

[[nodiscard]] bool z_resources_open();
// Also frees the shared images; nothing need have been loaded.
void z_resources_clean_up();

// Both fail while the archive is not open. The image is a PNG member.
[[nodiscard]] z_gfx_image_ptr z_resources_load_image(const char *member_name);
[[nodiscard]] z_xml_doc_ptr z_resources_load_xml_doc(const char *member_name);

// All or none of the images that the getters lend; they lend null before.
[[nodiscard]] bool z_resources_load_shared_images();
[[nodiscard]] const z_gfx_image *z_get_checkbox_icon_image(bool checked);
[[nodiscard]] const z_gfx_image *z_get_text_tab_menu_icon_image();
