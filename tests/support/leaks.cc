// What the leak checker leaves unmentioned in every program that is tested, however it is started: fontconfig
// loses a little while it reads the system's font settings, and GLib the first block of its quarks, which it
// makes as it is loaded, when there are more than fit.

extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_options();

const char *__lsan_default_options()
{
    return "print_suppressions=0";
}

const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\nleak:_dl_init\n";
}
