#include "common/model/codeset.h"

#include <gtest/gtest.h>

#include "tests/support/langstr_text.h"

namespace {

z_remark_ptr make_remark(const char *code)
{
    z_remark_ptr remark = z_remark_new();
    remark->code.reset(g_strdup(code));
    remark->description = langstr_from_text("en=Crack");
    return remark;
}

std::string show(const z_remark_list &list)
{
    std::string codes;
    for (const z_remark *remark : list)
        codes += std::string(codes.empty() ? "" : " ") + (remark->code ? remark->code.get() : "-");
    return codes;
}

TEST(CodesetTest, ACloneIsDeep)
{
    const z_codeset_ptr codeset = z_codeset_new();
    codeset->name = langstr_from_text("en=Damages");
    codeset->version.reset(g_strdup("1.0"));
    codeset->value = 7;
    for (const char *code : std::initializer_list<const char *>{"2", nullptr, "1"})
        z_remark_list_add_remark_sorted(&codeset->remarks, make_remark(code));

    const z_codeset_ptr clone = z_codeset_clone(codeset.get());
    EXPECT_EQ(z_remark_list_get_remark_for_code(&codeset->remarks, "01"), nullptr);
    z_remark_destroy(z_remark_list_get_remark_for_code(&codeset->remarks, "1"));
    EXPECT_EQ(show(codeset->remarks), "2 -");
    EXPECT_EQ(show(clone->remarks), "1 2 -");
    EXPECT_EQ(text_from_langstr(clone->name.get()), "en=Damages");
    EXPECT_EQ(text_from_langstr(clone->remarks.get_last()->description.get()), "en=Crack");
    EXPECT_EQ(clone->author, nullptr);
    EXPECT_STREQ(clone->version.get(), "1.0");
    EXPECT_EQ(clone->value, 7);
}

} // namespace
