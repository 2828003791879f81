#pragma once

// Keeps multilingual editors from making their window higher than the screen: what the scroller holds is
// shown in full up to a height, beyond which it scrolls. A row that was just added is brought into view.

#include "common/gui/gui_form.h"

// `content` is an editor, or holds some. The scroller starts with the height as its limit.
GtkWidget *z_langstr_scroller_pack(GtkWidget *box, z_expand expand, GtkWidget *content, int max_height_px);
void z_langstr_scroller_set_max_height(GtkWidget *scroller, int max_height_px);

// For each editor. Handlers of "grown" and "shrunk" that are connected later find the new height in effect.
void z_langstr_scroller_follow(GtkWidget *scroller, GtkWidget *editor);
