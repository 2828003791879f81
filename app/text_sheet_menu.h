#pragma once

// The context menu of a form.

struct z_text_sheet_target;

// Pops the menu of what was clicked up at the pointer and returns, once it has closed and its action is
// through, whether the form was changed. The clicked elements may be gone then.
[[nodiscard]] bool z_text_sheet_menu_run_for_template(const z_text_sheet_target *target);
