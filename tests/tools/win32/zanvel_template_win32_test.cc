#include <windows.h>

#include <process.h>

#include "tests/support/tool_sandbox.h"

namespace {

const std::string good = "<template><name lang='en'>N</name>"
                         "<report-type><name lang='en'>R</name></report-type></template>";

using ZanvelTemplateWin32Test = ToolSandboxTest;

TEST_F(ZanvelTemplateWin32Test, SaysWhyAPathIsRefused)
{
    write_file("in.template", good);
    const std::string invalid = "Error 22: Invalid argument", missing = "Error 2: No such file or directory";
    const struct {
        std::string path, reason;
    } cases[] = {
        {"con.template", invalid},
        {"out.template.", invalid},
        {"folder \\out.template", invalid},
        {R"(\\server\pipe\out.template)", invalid},
        {R"(\\nowhere.invalid\share\out.template)", missing},
    };
    for (const auto &[path, reason] : cases) {
        const outcome writing = run({"convert", "in.template", path});
        EXPECT_EQ(writing.status, 1) << path;
        EXPECT_EQ(writing.errors.find(path + ": Cannot open file. " + reason), 0u) << writing.errors;
        const outcome reading = run({"check", path});
        const std::string message = path + ": Error loading template file. Cannot open file. " + reason;
        EXPECT_EQ(reading.errors.find(message), 0u) << reading.errors;
    }
    EXPECT_EQ(list(), std::set<std::string>{"in.template"});
}

// This process is the other program that has the file open.
TEST_F(ZanvelTemplateWin32Test, LosesNoFileThatAnotherProgramHasOpen)
{
    write_file("in.template", good);
    const std::filesystem::path place = to_path(write_file("out.template", good));
    const std::string denied = "Cannot open file. Error 13: Permission denied\n";
    const HANDLE held =
        CreateFileW(place.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(run({"convert", "in.template", "out.template"}), (outcome{1, "", "out.template: " + denied}));
    EXPECT_EQ(run({"check", "out.template"}), (outcome{0, "out.template: ok\n", ""}));
    CloseHandle(held);
    EXPECT_EQ(read_file("out.template"), good);
    EXPECT_EQ(list(), (std::set<std::string>{"in.template", "out.template"}));
}

TEST_F(ZanvelTemplateWin32Test, RefusesAnArgumentThatIsNoText)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(_wspawnl(_P_WAIT, to_path(ZANVEL_TEMPLATE_PROGRAM).c_str(), L"zanvel-template", L"check",
                       L"\xD800.template", nullptr),
              2);
    EXPECT_EQ(testing::internal::GetCapturedStderr().find("Cannot parse command line argument 2.\n"), 0u);
}

} // namespace
