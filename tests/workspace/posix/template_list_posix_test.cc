#include "common/workspace/template_list.h"

#include <sys/stat.h>

#include "common/workspace/settings.h"
#include "tests/support/user_sandbox.h"

namespace {

using PosixTemplateListTest = UserSandboxTest;

TEST_F(PosixTemplateListTest, WhatLooksLikeAFileIsLeftOut)
{
    std::filesystem::create_symlink("gone", root / "dangling.template");
    ASSERT_EQ(mkfifo(path("fifo.template").c_str(), 0600), 0);
    const z_settings_ptr settings = z_settings_new(path().c_str());
    const z_template_list_ptr list = z_template_list_load_folder(path().c_str(), settings.get());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(z_template_list_get_entry(list.get(), 0), nullptr);
}

} // namespace
