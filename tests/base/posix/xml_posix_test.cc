#include "common/base/xml.h"

#include <sys/stat.h>

#include "tests/support/sandbox.h"

namespace {

using XmlPosixTest = SandboxTest;

TEST_F(XmlPosixTest, PipesAreNotWaitedFor)
{
    const std::string pipe = path("pipe.dtd");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(z_xml_parse_file(pipe.c_str()), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 95: Operation not supported");

    const std::string document = "<!DOCTYPE r SYSTEM '" + pipe + "'><r/>";
    EXPECT_EQ(z_xml_parse_memory(document.data(), document.size()), nullptr);
    EXPECT_EQ(z_error_get(), "Could not parse XML data.\n\nRefused to load external entity: " + pipe);
}

} // namespace
