#include <windows.h>

#include <process.h>

#include "tests/support/tool_sandbox.h"

namespace {

const std::string good = "<template><name lang='en'>N</name>"
                         "<report-type><name lang='en'>R</name></report-type></template>";

// The handle to a file that nobody else may do `share`'s complement with, as another program would have it.
using held_file_ptr = std::unique_ptr<void, decltype(&CloseHandle)>;

struct ZanvelTemplateWin32Test : ToolSandboxTest {
    [[nodiscard]] held_file_ptr hold(const char *name, DWORD share) const
    {
        const std::filesystem::path place = root / name;
        return {CreateFileW(place.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr),
                CloseHandle};
    }
};

TEST_F(ZanvelTemplateWin32Test, SaysWhyAPathIsRefused)
{
    write_file("in.template", good);
    const std::string invalid = "Error 22: Invalid argument", missing = "Error 2: No such file or directory";
    const struct {
        std::string path, reason;
    } cases[] = {
        {"con.template", invalid},
        {"NUL", invalid},
        {"out.template.", invalid},
        {"out.template ", invalid},
        {"folder \\out.template", invalid},
        {R"(\\.\pipe\out.template)", invalid},
        {R"(\\server\pipe\out.template)", invalid},
        {R"(Y:\out.template)", missing},
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

TEST_F(ZanvelTemplateWin32Test, LosesNoFileThatIsHeldOrForbidden)
{
    write_file("in.template", good);
    write_file("out.template", "what was there");
    const outcome refused = {1, "", "out.template: Cannot open file. Error 13: Permission denied\n"};
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const held_file_ptr held = hold("out.template", share);
        EXPECT_EQ(run({"convert", "in.template", "out.template"}), refused) << share;
    }
    const std::filesystem::path place = root / "out.template";
    EXPECT_TRUE(SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(run({"convert", "in.template", "out.template"}), refused);
    EXPECT_TRUE(SetFileAttributesW(place.c_str(), FILE_ATTRIBUTE_HIDDEN));
    EXPECT_EQ(read_file("out.template"), "what was there");

    const held_file_ptr held = hold("in.template", 0);
    EXPECT_EQ(run({"check", "in.template"}),
              (outcome{1, "",
                       "in.template: Error loading template file. Cannot open file. "
                       "Error 13: Permission denied\n"}));
    EXPECT_EQ(list(), (std::set<std::string>{"in.template", "out.template"}));
}

TEST_F(ZanvelTemplateWin32Test, RefusesAnArgumentThatIsNoText)
{
    EXPECT_EQ(_wspawnl(_P_WAIT, to_path(ZANVEL_TEMPLATE_PROGRAM).c_str(), L"zanvel-template", L"check",
                       L"\xD800.template", nullptr),
              2);
}

} // namespace
