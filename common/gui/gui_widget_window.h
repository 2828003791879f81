#pragma once

// Custom widgets that draw and take events in a window of their own.

#include <gtk/gtk.h>

enum class z_event_compression { on, off };

// Called in the class's initialisation: gives the class realize, map, unmap, unrealize and size-allocate
// handlers that keep a child window at the widget's allocation. The window's event mask is the widget's
// events, exposure and the extra ones. A class with a size_allocate of its own sets it afterwards and chains
// up to its parent class, whose handler moves the window as well.
void z_gui_widget_attach_window_callbacks(GtkWidgetClass *widget_class, GdkEventMask extra_event_mask,
                                          z_event_compression compression);
