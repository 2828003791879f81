#pragma once

// Disks that refuse, for as long as one of these lives.

#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

// The superuser may write everything; what is refused to others shows only as one of them.
class AsOrdinaryUser {
public:
    AsOrdinaryUser()
    {
        EXPECT_TRUE(geteuid() != 0 || seteuid(65534) == 0);
    }
    AsOrdinaryUser(const AsOrdinaryUser &) = delete;
    AsOrdinaryUser &operator=(const AsOrdinaryUser &) = delete;
    ~AsOrdinaryUser()
    {
        EXPECT_EQ(seteuid(getuid()), 0);
    }
};

// Files can be made, but none can take a byte. That is seen, as on a full disk, when they are flushed.
class OnAFullDisk {
public:
    OnAFullDisk() : old_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &old_limit), 0);
        const rlimit none{0, old_limit.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    }
    OnAFullDisk(const OnAFullDisk &) = delete;
    OnAFullDisk &operator=(const OnAFullDisk &) = delete;
    ~OnAFullDisk()
    {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &old_limit), 0);
        std::signal(SIGXFSZ, old_handler);
    }

private:
    rlimit old_limit = {};
    void (*const old_handler)(int);
};
