#pragma once

// Watches what a test leaves open: while one of these lives, every file, folder and other thing of the
// system's that is opened must be closed again.

#include <cstddef>

#include <gtest/gtest.h>

// Of this process, of every kind that the system counts. Defined for each system.
[[nodiscard]] size_t count_open_handles();

class OpenHandles {
public:
    OpenHandles() = default;
    OpenHandles(const OpenHandles &) = delete;
    OpenHandles &operator=(const OpenHandles &) = delete;
    ~OpenHandles()
    {
        EXPECT_EQ(count_open_handles(), count_before);
    }

private:
    const size_t count_before = count_open_handles();
};
