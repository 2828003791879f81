#pragma once

// One instance for each login of a user: the first one serves a private pipe, and a later one asks it through
// that to come to the front. Every exchange is one byte, which the server sends back:
//
//     'p'  present yourself
//     'x'  stop serving; only from the server's own process
//
// Any other byte only comes back; anything but a single byte gets no answer. An application whose
// configuration has no `present` uses none of this.

#include "common/base/handles.h"

struct z_application_configuration;

// Null if the pipe has no place.
[[nodiscard]] z_utf8_ptr get_pipe_name(const z_application_configuration *configuration);

// Whether a running instance has answered, within five seconds.
[[nodiscard]] bool send_pipe_command(const z_application_configuration *configuration, char command);

// Serves until stopped, unless another instance does; `present` is called by the main loop. An application
// that cannot serve runs all the same. Stopping without having started is allowed.
void z_single_instance_start(const z_application_configuration *configuration);
void z_single_instance_stop();
