#include "common/model/remark.h"

#include <cstring>

#include "common/base/strnatcmp.h"

static bool comes_after(const z_remark *a, const z_remark *b)
{
    return a->code == nullptr || strnatcmp_cascade(a->code.get(), b->code.get()) > 0;
}

z_remark_ptr z_remark_new()
{
    return z_remark_ptr(new z_remark);
}

z_remark_ptr z_remark_clone(const z_remark *remark)
{
    z_remark_ptr copy = z_remark_new();
    copy->code.reset(g_strdup(remark->code.get()));
    copy->description = z_langstr_clone(remark->description.get());
    return copy;
}

z_remark_ptr z_remark_remove(z_remark *remark)
{
    z_link_remove(remark);
    return z_remark_ptr(remark);
}

void z_remark_destroy(z_remark *remark)
{
    if (remark != nullptr)
        z_link_remove(remark);
    delete remark;
}

int z_remark_get_index(const z_remark *remark)
{
    return z_link_get_index(remark);
}

z_remark_list_ptr z_remark_list_new()
{
    return z_remark_list_ptr(new z_remark_list);
}

void z_remark_list_destroy(z_remark_list *list)
{
    delete list;
}

z_remark *z_remark_list_get_remark_for_code(const z_remark_list *list, const char *code_latin1)
{
    for (z_remark *remark : *list)
        if (remark->code != nullptr && std::strcmp(remark->code.get(), code_latin1) == 0)
            return remark;
    return nullptr;
}

void z_remark_list_add_remark_last(z_remark_list *list, z_remark_ptr remark)
{
    list->add_last(std::move(remark));
}

// Files are mostly sorted already, so the search begins at the end.
void z_remark_list_add_remark_sorted(z_remark_list *list, z_remark_ptr remark)
{
    z_remark *previous = list->get_last();
    if (remark->code != nullptr)
        while (previous != nullptr && comes_after(previous, remark.get()))
            previous = z_link_get_previous(previous);
    if (previous == nullptr)
        list->add_first(std::move(remark));
    else
        z_link_insert_after(remark.release(), previous);
}
