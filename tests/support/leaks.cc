// What the leak checker leaves unmentioned in both test programs, however they are started: fontconfig loses
// a little while it reads the system's font settings.

extern "C" const char *__lsan_default_suppressions();

const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}
