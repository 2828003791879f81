#pragma once

// G_DEFINE_FINAL_TYPE for code that is compiled with warnings about C's casts: the macro's own casts, which
// carry the names given here, would otherwise count as ours.

#include <glib-object.h>

#define Z_DEFINE_FINAL_TYPE(TypeName, type_name, PARENT_TYPE)                                                \
    _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wold-style-cast\"")                    \
        G_DEFINE_FINAL_TYPE(TypeName, type_name, PARENT_TYPE) _Pragma("GCC diagnostic pop")
