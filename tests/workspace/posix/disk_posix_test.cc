#include <csignal>
#include <functional>
#include <map>

#include <sys/resource.h>

#include "common/base/stream.h"
#include "common/model/template_io.h"
#include "common/workspace/settings.h"
#include "common/workspace/workspace.h"
#include "tests/support/user_sandbox.h"

namespace {

struct DiskPosixTest : UserSandboxTest {
    // Every file and folder; folders have no content.
    [[nodiscard]] std::map<std::string, std::string> get_contents() const
    {
        std::map<std::string, std::string> contents;
        for (const std::string &name : list())
            contents[name] = std::filesystem::is_regular_file(root / name) ? read_file(name) : "";
        return contents;
    }
};

// All that the program does for the user to files, which can be made, but cannot take a byte. That is seen, as
// on a full disk, when they are flushed.
TEST_F(DiskPosixTest, AFullDiskIsReportedAndLosesNothing)
{
    write_file("install/templates/a.template", "bundled");
    ASSERT_TRUE(z_workspace_create(path("home/own").c_str())) << z_error_get();
    const std::string file = write_file("home/own/templates/a.template", "old");
    write_file("home/own/settings.xml", "<settings/>");
    const z_template_ptr tmpl = z_template_new();
    const z_settings_ptr settings = z_settings_new(path("home/own").c_str());
    z_settings_set_left_handed(settings.get(), true);
    const std::function<bool()> operations[] = {
        [&] { return z_template_io_put_file(tmpl.get(), file.c_str()); },
        [&] {
            return z_stream_put_copy_of_file(path("install/templates/a.template").c_str(), file.c_str(),
                                             z_fs_existing::replace);
        },
        [&] { return z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING); },
        [&] { return z_workspace_save_folder_path("/elsewhere"); },
        [&] { return z_workspace_create(path("home/other").c_str()); },
    };
    const auto before = get_contents();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit none = {0, limit.rlim_max};
    for (const auto &operation : operations) {
        SCOPED_TRACE(&operation - operations);
        z_error_clear();
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
        EXPECT_FALSE(operation());
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_NE(std::string(z_error_get()).find("File too large"), std::string::npos) << z_error_get();
        EXPECT_EQ(get_contents(), before);
    }
    for (const auto &operation : operations)
        EXPECT_TRUE(operation()) << z_error_get();
}

} // namespace
