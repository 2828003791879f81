#pragma once

// The user's strings of a test: an empty place of its own, so that none of the real user's is seen or
// changed.

#include <string>

void own_registry_begin(const std::string &user_folder_path);
void own_registry_end();
// Makes the value "WorkspaceFolderPath" one that cannot be read.
void own_registry_break();
