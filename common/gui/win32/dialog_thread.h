#pragma once

// A dialog of the system blocks the thread that runs it, so it gets one of its own, while the windows of the
// program go on painting.

#include <functional>

// Returns what `dialog` returned on its thread: whether the user has accepted. Until then the caller's thread
// lets events through, and shares nothing with the dialog's but what that was handed.
[[nodiscard]] bool z_dialog_thread_run(const std::function<bool()> &dialog);
