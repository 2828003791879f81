#pragma once

// Owning handles. Whoever owns a thing shows in its type: an owned result comes back as one of these, a
// borrowed thing as a plain pointer. Texts in different encodings are owned by different types, so that the
// compiler keeps them apart.

#include <memory>
#include <utility>

#include <glib-object.h>
#include <glib.h>

// A stateless deleter that calls `fn`.
template <auto fn>
struct z_deleter {
    template <typename T>
    void operator()(T *pointer) const noexcept
    {
        fn(pointer);
    }
};

// Owns a T that `fn` frees.
template <typename T, auto fn>
using z_ptr = std::unique_ptr<T, z_deleter<fn>>;

struct z_utf8_deleter {
    void operator()(void *text) const noexcept
    {
        g_free(text);
    }
};

struct z_latin1_deleter {
    void operator()(void *text) const noexcept
    {
        g_free(text);
    }
};

struct z_utf16_deleter {
    void operator()(void *text) const noexcept
    {
        g_free(text);
    }
};

// A NUL-terminated text in the encoding that the name says, or none, in memory of GLib's allocator. ASCII
// tags and numbers are kept in whichever of the two byte encodings their neighbours have.
using z_utf8_ptr = std::unique_ptr<char, z_utf8_deleter>;
using z_latin1_ptr = std::unique_ptr<char, z_latin1_deleter>;
using z_utf16_ptr = std::unique_ptr<gunichar2, z_utf16_deleter>;

// Plain bytes of GLib's allocator.
using z_bytes_ptr = z_ptr<guint8, g_free>;

using z_gerror_ptr = z_ptr<GError, g_error_free>;

// Passes a handle where a C function wants the address of a pointer: z_out(handle). The handle takes what the
// function has stored when the full expression ends, and frees what it held before.
template <typename Handle>
class z_out_argument {
public:
    explicit z_out_argument(Handle &target) noexcept : handle(target) {}
    z_out_argument(const z_out_argument &) = delete;
    z_out_argument &operator=(const z_out_argument &) = delete;
    ~z_out_argument()
    {
        handle.reset(pointer);
    }
    operator typename Handle::pointer *() noexcept
    {
        return &pointer;
    }

private:
    Handle &handle;
    typename Handle::pointer pointer = nullptr;
};

template <typename Handle>
[[nodiscard]] z_out_argument<Handle> z_out(Handle &handle) noexcept
{
    return z_out_argument<Handle>(handle);
}

// One reference to a GObject. Made only by z_take, z_share and z_sink, whose names say what becomes of the
// reference count.
template <typename T>
class z_ref {
public:
    z_ref() noexcept = default;
    z_ref(std::nullptr_t) noexcept {}
    z_ref(z_ref &&other) noexcept : object(std::exchange(other.object, nullptr)) {}
    z_ref(const z_ref &other) noexcept : object(other.object)
    {
        if (object != nullptr)
            g_object_ref(object);
    }
    z_ref &operator=(z_ref other) noexcept
    {
        std::swap(object, other.object);
        return *this;
    }
    ~z_ref()
    {
        if (object != nullptr)
            g_object_unref(object);
    }

    [[nodiscard]] T *get() const noexcept
    {
        return object;
    }
    [[nodiscard]] T *release() noexcept
    {
        return std::exchange(object, nullptr);
    }
    explicit operator bool() const noexcept
    {
        return object != nullptr;
    }

private:
    explicit z_ref(T *adopted) noexcept : object(adopted) {}
    template <typename U>
    friend z_ref<U> z_take(U *object) noexcept;

    T *object = nullptr;
};

// Adopts a reference that the caller owns.
template <typename T>
[[nodiscard]] z_ref<T> z_take(T *object) noexcept
{
    return z_ref<T>(object);
}

// Adds a reference to a borrowed object.
template <typename T>
[[nodiscard]] z_ref<T> z_share(T *object) noexcept
{
    if (object != nullptr)
        g_object_ref(object);
    return z_take(object);
}

// Sinks the floating reference of a new object, or adds one.
template <typename T>
[[nodiscard]] z_ref<T> z_sink(T *object) noexcept
{
    if (object != nullptr)
        g_object_ref_sink(object);
    return z_take(object);
}

// The id of a timeout or idle source, removed with the handle. A callback that ends its source by returning
// G_SOURCE_REMOVE first calls forget().
class z_source {
public:
    z_source() noexcept = default;
    explicit z_source(guint new_id) noexcept : id(new_id) {}
    z_source(z_source &&other) noexcept : id(std::exchange(other.id, 0)) {}
    z_source &operator=(z_source &&other) noexcept
    {
        reset(std::exchange(other.id, 0));
        return *this;
    }
    ~z_source()
    {
        reset();
    }

    void reset(guint new_id = 0) noexcept
    {
        const guint old_id = std::exchange(id, new_id);
        if (old_id != 0)
            g_source_remove(old_id);
    }
    void forget() noexcept
    {
        id = 0;
    }
    explicit operator bool() const noexcept
    {
        return id != 0;
    }

private:
    guint id = 0;
};
