#pragma once

// Handles for what the toolkit hands out as owned and that is no GObject.

#include <gtk/gtk.h>

#include "common/gui/cairo_handles.h"

using z_gdk_event_ptr = z_ptr<GdkEvent, gdk_event_free>;
using z_tree_path_ptr = z_ptr<GtkTreePath, gtk_tree_path_free>;
