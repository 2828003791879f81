#pragma once

// Codesets: named lists of remarks. Templates refer to them by file name; the programs that fill in reports
// read them.

#include <cstdint>

#include "common/model/remark.h"

struct z_codeset;
void z_codeset_destroy(z_codeset *codeset);
using z_codeset_ptr = z_ptr<z_codeset, z_codeset_destroy>;

struct z_codeset : z_link {
    z_langstr_ptr name;
    z_langstr_ptr author;
    z_latin1_ptr version;  // Null when there is none.
    z_remark_list remarks; // Sorted by code.
    int32_t value = 0;     // The reporting programs' own mark; no file holds it.
};

// New, cloned and removed codesets are in no list.
[[nodiscard]] z_codeset_ptr z_codeset_new();
[[nodiscard]] z_codeset_ptr z_codeset_clone(const z_codeset *codeset);
[[nodiscard]] z_codeset_ptr z_codeset_remove(z_codeset *codeset);
[[nodiscard]] int z_codeset_get_index(const z_codeset *codeset);
