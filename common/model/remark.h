#pragma once

// Remarks: short codes, each with a multilingual description, with which reports classify what was found.
// They are kept in codesets and among the user's most recent ones.

#include "common/base/list.h"
#include "common/model/langstr.h"

struct z_remark;
void z_remark_destroy(z_remark *remark);
using z_remark_ptr = z_ptr<z_remark, z_remark_destroy>;

struct z_remark : z_link {
    z_latin1_ptr code; // Null in a new remark; never empty in one that was read.
    z_langstr_ptr description;
};

using z_remark_list = z_list<z_remark>;
void z_remark_list_destroy(z_remark_list *list);
using z_remark_list_ptr = z_ptr<z_remark_list, z_remark_list_destroy>;

// New, cloned and removed remarks are in no list.
[[nodiscard]] z_remark_ptr z_remark_new();
[[nodiscard]] z_remark_ptr z_remark_clone(const z_remark *remark);
[[nodiscard]] z_remark_ptr z_remark_remove(z_remark *remark);
[[nodiscard]] int z_remark_get_index(const z_remark *remark);

[[nodiscard]] z_remark_list_ptr z_remark_list_new();

// Codes are compared byte by byte. Null if there is none; remarks without a code are never found.
[[nodiscard]] z_remark *z_remark_list_get_remark_for_code(const z_remark_list *list, const char *code_latin1);

void z_remark_list_add_remark_last(z_remark_list *list, z_remark_ptr remark);

// Keeps a sorted list sorted by code, the way a reader counts: 2, 9, 10, and A2 before a10. A remark without
// a code goes to the end.
void z_remark_list_add_remark_sorted(z_remark_list *list, z_remark_ptr remark);
