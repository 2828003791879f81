#include "common/gui/input_bell.h"

static z_input_bell current_bell = gtk_widget_error_bell;

void z_input_bell_ring(GtkWidget *input)
{
    current_bell(input);
}

void z_input_bell_replace(z_input_bell bell)
{
    current_bell = bell != nullptr ? bell : gtk_widget_error_bell;
}
