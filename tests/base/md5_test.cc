#include "common/base/md5.h"

#include "tests/support/sandbox.h"

namespace {

using Md5Test = SandboxTest;

TEST_F(Md5Test, DigestsOfWholeFiles)
{
    const struct {
        std::string content;
        const char *digest;
    } cases[] = {
        {"", "d41d8cd98f00b204e9800998ecf8427e"},
        {"old", "149603e6c03516362a8da23f624db945"},
        {std::string(100000, 'x'), "d5816f35916d1d9482fb0f1ec201101d"},
    };
    for (const auto &[content, digest] : cases) {
        const std::string file = write_file("file", content);
        EXPECT_STREQ(z_util_get_file_md5sum(file.c_str()).get(), digest);
        EXPECT_TRUE(z_util_verify_md5sum(file.c_str(), digest));
        EXPECT_FALSE(z_util_verify_md5sum(file.c_str(), "149603e6c03516362a8da23f624db946"));
    }
    for (const std::string &nothing : {path("missing"), root.string()}) {
        EXPECT_EQ(z_util_get_file_md5sum(nothing.c_str()), nullptr);
        EXPECT_STRNE(z_error_get(), "");
        EXPECT_FALSE(z_util_verify_md5sum(nothing.c_str(), cases[0].digest));
    }
}

} // namespace
