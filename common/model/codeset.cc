#include "common/model/codeset.h"

z_codeset_ptr z_codeset_new()
{
    return z_codeset_ptr(new z_codeset);
}

z_codeset_ptr z_codeset_clone(const z_codeset *codeset)
{
    z_codeset_ptr copy = z_codeset_new();
    copy->name = z_langstr_clone(codeset->name.get());
    copy->author = z_langstr_clone(codeset->author.get());
    copy->version.reset(g_strdup(codeset->version.get()));
    for (const z_remark *remark : codeset->remarks)
        z_remark_list_add_remark_last(&copy->remarks, z_remark_clone(remark));
    copy->value = codeset->value;
    return copy;
}

z_codeset_ptr z_codeset_remove(z_codeset *codeset)
{
    z_link_remove(codeset);
    return z_codeset_ptr(codeset);
}

void z_codeset_destroy(z_codeset *codeset)
{
    if (codeset != nullptr)
        z_link_remove(codeset);
    delete codeset;
}

int z_codeset_get_index(const z_codeset *codeset)
{
    return z_link_get_index(codeset);
}
