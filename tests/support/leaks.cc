// What the leak checker leaves unmentioned in every program that is tested, however it is started: fontconfig
// loses a little while it reads the system's font settings, and libraries keep to themselves what they take as
// they are loaded, as GLib does with its first block of quarks, which it gives up when they outgrow it.

extern "C" void __lsan_disable();
extern "C" void __lsan_enable();
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_options();

const char *__lsan_default_options()
{
    return "print_suppressions=0";
}

const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

// The system calls this before the libraries' own beginnings.
[[gnu::section(".preinit_array"), gnu::used]] static void (*const before_libraries)() = __lsan_disable;

[[gnu::constructor]] static void after_libraries()
{
    __lsan_enable();
}
