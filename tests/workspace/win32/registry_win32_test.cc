#include <string>

#include "common/workspace/win32/registry_calls.h"
#include "tests/support/open_handles.h"
#include "tests/support/user_sandbox.h"

namespace {

// Lets the call with the given number from 1 answer with a failure.
struct Win32RegistryTest : RegistrySandboxTest {
    static inline z_registry_calls real;
    static inline int calls_left;
    static inline LSTATUS failure;

    Win32RegistryTest()
    {
        real = z_registry;
    }
    ~Win32RegistryTest() override
    {
        z_registry = real;
    }
    template <auto call, typename... Arguments>
    static LSTATUS make(Arguments... arguments)
    {
        return --calls_left == 0 ? failure : (real.*call)(arguments...);
    }
    static void fail_at(int number, LSTATUS status)
    {
        calls_left = number;
        failure = status;
        z_registry = {make<&z_registry_calls::open_key>,     make<&z_registry_calls::create_key>,
                      make<&z_registry_calls::query_value>,  make<&z_registry_calls::set_value>,
                      make<&z_registry_calls::delete_value>, real.close_key};
    }
    static void store(DWORD type, const void *data, DWORD byte_count)
    {
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Zanvel", L"Path", type, data, byte_count),
                  ERROR_SUCCESS);
    }
};

TEST_F(Win32RegistryTest, ReadsNothingButWholeTexts)
{
    const struct {
        DWORD type;
        std::string bytes;
        std::string result;
    } cases[] = {
        {REG_SZ, std::string("a\0b\0\0\0", 6), "ab"},
        {REG_SZ, std::string("a\0b\0", 4), "ab"}, // not every program stores the end
        {REG_SZ, std::string("a\0\0\0b\0", 6), "a"},
        {REG_SZ, "a", "failed: Error parsing value in the Windows registry."},
        {REG_DWORD, "abcd", "failed: Error parsing value in the Windows registry."},
        {REG_EXPAND_SZ, std::string("a\0\0\0", 4), "failed: Error parsing value in the Windows registry."},
    };
    for (const auto &[type, bytes, result] : cases) {
        const OpenHandles handles;
        store(type, bytes.data(), static_cast<DWORD>(bytes.size()));
        EXPECT_EQ(read("Path"), result);
    }
    store(REG_SZ, "\x41\x00\x00\xD8\x42\x00", 6);
    EXPECT_EQ(read("Path").find("failed: Error parsing UTF-16 value from the Windows registry.\n\n"), 0u)
        << read("Path");
}

TEST_F(Win32RegistryTest, EachCallSaysThatItFailed)
{
    ASSERT_TRUE(write("Path", "old"));
    const auto read_it = +[] { return read("Path"); };
    const auto write_it = +[] { return std::string(write("Path", "old") ? "done" : z_error_get()); };
    const auto remove_it = +[] { return std::string(remove("Path") ? "done" : z_error_get()); };
    const struct {
        std::string (*work)();
        int call;
        LSTATUS status;
        const char *result;
    } cases[] = {
        {read_it, 1, ERROR_FILE_NOT_FOUND, "none"},
        {read_it, 1, ERROR_ACCESS_DENIED, "failed: Error opening key in the Windows registry."},
        {read_it, 2, ERROR_FILE_NOT_FOUND, "none"},
        {read_it, 2, ERROR_ACCESS_DENIED, "failed: Error querying value in the Windows registry."},
        {read_it, 3, ERROR_FILE_NOT_FOUND, "none"},
        {read_it, 3, ERROR_MORE_DATA, "failed: Error reading value in the Windows registry."},
        {write_it, 1, ERROR_ACCESS_DENIED, "Error creating/opening key in the Windows registry."},
        {write_it, 2, ERROR_ACCESS_DENIED, "Error storing value in the Windows registry."},
        {remove_it, 1, ERROR_FILE_NOT_FOUND, "done"},
        {remove_it, 1, ERROR_ACCESS_DENIED, "Error opening key in the Windows registry."},
        {remove_it, 2, ERROR_FILE_NOT_FOUND, "done"},
        {remove_it, 2, ERROR_ACCESS_DENIED, "Error deleting value in the Windows registry."},
    };
    for (const auto &[work, call, status, result] : cases) {
        const OpenHandles handles;
        fail_at(call, status);
        EXPECT_EQ(work(), result) << call;
    }
    z_registry = real;
    EXPECT_EQ(read("Path"), "old");
}

TEST_F(Win32RegistryTest, AValueMayChangeWhileItIsRead)
{
    static DWORD type;
    static std::string bytes;
    const struct {
        DWORD type;
        std::string bytes;
    } cases[] = {{REG_SZ, std::string("n\0\0\0", 4)}, {REG_DWORD, "12345678"}};
    for (const auto &c : cases) {
        ASSERT_TRUE(write("Path", "old"));
        type = c.type;
        bytes = c.bytes;
        z_registry.query_value = [](HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD kind, LPBYTE data,
                                    LPDWORD byte_count) {
            if (data != nullptr)
                store(type, bytes.data(), static_cast<DWORD>(bytes.size()));
            return real.query_value(key, name, reserved, kind, data, byte_count);
        };
        EXPECT_EQ(read("Path"), "failed: Error parsing value read from the Windows registry.");
        z_registry = real;
    }
}

TEST_F(Win32RegistryTest, ANameThatIsNoTextFailsWithItsConversion)
{
    z_utf8_ptr value;
    EXPECT_FALSE(z_platform_read_string_from_registry(value, "Software\\Zanvel", "\xFF"));
    EXPECT_FALSE(z_platform_write_string_to_registry("\xFF", "Path", "x"));
    EXPECT_FALSE(z_platform_write_string_to_registry("Software\\Zanvel", "Path", "\xFF"));
    EXPECT_FALSE(z_platform_delete_value_in_registry("\xFF", "Path"));
    EXPECT_NE(std::string(z_error_get()), "");
    EXPECT_EQ(read("Path"), "none");
}

} // namespace
