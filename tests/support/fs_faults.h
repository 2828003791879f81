#pragma once

// Makes the system's file calls fail. While one of these lives, every call is counted and the chosen one,
// from 0, fails with the given number. Entries of z_fs may also be replaced by hand meanwhile; the real ones
// come back at the end.
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

    explicit FsFaults(int step = never, int reason_number = ENOSPC)
    {
        real = z_fs;
        calls_left = step;
        reason = reason_number;
        struck = read_failed = false;
        wrap<&z_fs_calls::open_file, &z_fs_calls::create_file, &z_fs_calls::read, &z_fs_calls::write,
             &z_fs_calls::skip, &z_fs_calls::flush, &z_fs_calls::sync, &z_fs_calls::close,
             &z_fs_calls::get_status, &z_fs_calls::check_replaceable, &z_fs_calls::follow_links,
             &z_fs_calls::delete_file, &z_fs_calls::rename, &z_fs_calls::replace, &z_fs_calls::create_folder,
             &z_fs_calls::delete_folder, &z_fs_calls::open_folder, &z_fs_calls::read_folder,
             &z_fs_calls::get_entry_status, &z_fs_calls::close_folder>();
        z_fs.has_error = [](FILE *file) { return read_failed || real.has_error(file); };
    }
    FsFaults(const FsFaults &) = delete;
    FsFaults &operator=(const FsFaults &) = delete;
    ~FsFaults()
    {
        z_fs = real;
    }

    [[nodiscard]] bool has_struck() const
    {
        return struck;
    }

private:
    static inline z_fs_calls real;
    static inline int calls_left, reason;
    static inline bool struck, read_failed;

    template <auto entry>
    struct Call;

    template <typename Result, typename... Arguments, Result (*z_fs_calls::*entry)(Arguments...)>
    struct Call<entry> {
        template <auto other>
        static constexpr bool is = std::is_same_v<Call, Call<other>>;

        static Result make(Arguments... arguments)
        {
            if (calls_left-- != 0)
                return (real.*entry)(arguments...);
            struck = true;
            read_failed = is<&z_fs_calls::read>;
            // What fails to close is closed all the same.
            if constexpr (is<&z_fs_calls::close> || is<&z_fs_calls::close_folder>)
                (real.*entry)(arguments...);
            errno = reason;
            if constexpr (std::is_same_v<Result, int>)
                return -1;
            else
                return Result{};
        }
    };

    template <auto... entries>
    static void wrap()
    {
        ((z_fs.*entries = Call<entries>::make), ...);
    }
};
