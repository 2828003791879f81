#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "tests/support/user_sandbox.h"

namespace {

using PosixRegistryTest = RegistrySandboxTest;

TEST_F(PosixRegistryTest, LeavesAFileAloneThatItCannotRead)
{
    const std::string parsing = "failed: Error parsing value in the Windows registry.\n\n";
    const char *const file = "home/.config/Zanvel/registry.ini", *bytes = "[Software\\Zanvel]\nOther=1\n[";
    write_file(file, bytes);
    EXPECT_EQ(read("Path").find(parsing), 0u) << read("Path");
    EXPECT_FALSE(write("Path", "x"));
    EXPECT_FALSE(remove("Path"));
    EXPECT_EQ(read_file(file), bytes);
    write_file(file, "[Software\\Zanvel]\nPath=bad \\q escape\n");
    EXPECT_EQ(read("Path").find(parsing), 0u);
    EXPECT_EQ(read("Other"), "none");
}

TEST_F(PosixRegistryTest, WaitsForAnotherProgramButNotForEver)
{
    ASSERT_TRUE(write("Path", "1"));
    const int other = open(path("home/.config/Zanvel").c_str(), O_RDONLY);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_FALSE(write("Path", "2"));
    EXPECT_EQ(std::string(z_error_get()).find("Error creating/opening key in the Windows registry.\n\n"), 0u);
    EXPECT_EQ(read("Path"), "1");
    close(other);
    EXPECT_TRUE(write("Path", "3"));
}

} // namespace
