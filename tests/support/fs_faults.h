#pragma once

// Makes the system's file calls fail. While one of these lives, every call is counted and the chosen one,
// from 0, fails with the given number; the real calls come back at its end. Entries of z_fs can also be
// replaced by hand meanwhile.
//
//     for (int step = 0;; ++step) {
//         const FsFaults faults(step);
//         const bool done = operation();
//         if (!faults.has_struck())
//             break;
//         ...
//     }

#include <cerrno>
#include <type_traits>

#include "common/base/fs_system.h"

class FsFaults {
public:
    static constexpr int never = -1;

    explicit FsFaults(int step = never, int reason = ENOSPC) : saved(z_fs)
    {
        state = {z_fs, step, reason, false, false};
        wrap<&z_fs_calls::open_file, &z_fs_calls::create_file, &z_fs_calls::read, &z_fs_calls::write,
             &z_fs_calls::skip, &z_fs_calls::flush, &z_fs_calls::sync, &z_fs_calls::close,
             &z_fs_calls::get_status, &z_fs_calls::check_writable, &z_fs_calls::follow_links,
             &z_fs_calls::delete_file, &z_fs_calls::rename, &z_fs_calls::replace, &z_fs_calls::create_folder,
             &z_fs_calls::delete_folder, &z_fs_calls::open_folder, &z_fs_calls::read_folder,
             &z_fs_calls::close_folder>();
        z_fs.has_error = [](FILE *file) { return state.read_failed || state.real.has_error(file); };
    }
    FsFaults(const FsFaults &) = delete;
    FsFaults &operator=(const FsFaults &) = delete;
    ~FsFaults()
    {
        z_fs = saved;
    }

    [[nodiscard]] bool has_struck() const
    {
        return state.has_struck;
    }

private:
    struct State {
        z_fs_calls real;
        int calls_left;
        int reason;
        bool has_struck;
        bool read_failed;
    };
    inline static State state = {};
    z_fs_calls saved;

    template <auto entry>
    static bool strikes_now()
    {
        if (state.calls_left-- != 0)
            return false;
        state.has_struck = true;
        state.read_failed =
            std::is_same_v<std::integral_constant<decltype(entry), entry>,
                           std::integral_constant<decltype(&z_fs_calls::read), &z_fs_calls::read>>;
        return true;
    }

    template <auto entry, typename Result, typename... Arguments>
    static Result call(Arguments... arguments)
    {
        if (!strikes_now<entry>())
            return (state.real.*entry)(arguments...);
        // What fails to close is closed all the same.
        if constexpr (std::is_same_v<decltype(entry), decltype(&z_fs_calls::close_folder)>)
            state.real.close_folder(arguments...);
        else if constexpr (std::is_same_v<
                               std::integral_constant<decltype(entry), entry>,
                               std::integral_constant<decltype(&z_fs_calls::close), &z_fs_calls::close>>)
            state.real.close(arguments...);
        errno = state.reason;
        if constexpr (std::is_same_v<Result, int>)
            return -1;
        else
            return Result{};
    }

    template <auto entry, typename Result, typename... Arguments>
    static void wrap_one(Result (*z_fs_calls::*)(Arguments...))
    {
        z_fs.*entry = call<entry, Result, Arguments...>;
    }

    template <auto... entries>
    static void wrap()
    {
        (wrap_one<entries>(entries), ...);
    }
};
