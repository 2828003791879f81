#pragma once

// The entries of z_platform that deal with other programs; see there.

#include "common/workspace/platform_system.h"

bool z_system_start_process(const char *command_line, z_platform_environment environment,
                            z_platform_process *process);
z_platform_wait z_system_wait_for_process(z_platform_process *process, int timeout_ms);
void z_system_terminate_process(z_platform_process *process);
void z_system_close_process(z_platform_process *process);
bool z_system_open_file(const char *path, z_platform_environment environment);
