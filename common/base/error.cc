#include "common/base/error.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>

#include <cairo.h>
#include <zip.h>

static z_utf8_ptr error_text;
static bool ran_out_of_memory = false;

static const char informative_out_of_memory_text[] =
    "The program has run out of memory.\n\n"
    "Suggestion: Consider increasing memory by adding more RAM to the computer or by\n"
    "manually increasing the size of the Microsoft Windows page file.\n\n"
    "Alternatively, it could be that you have too many things open/running on your\n"
    "computer simultaneously.";

void z_error_set(const char *text)
{
    error_text.reset(g_utf8_make_valid(text, -1));
    ran_out_of_memory = false;
}

void z_error_set_utf8_printf(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text(g_strdup_vprintf(format, arguments));
    va_end(arguments);
    z_error_set(text.get());
}

void z_error_append(const char *text)
{
    z_utf8_ptr valid(g_utf8_make_valid(text, -1));
    if (error_text == nullptr)
        error_text = std::move(valid);
    else
        error_text.reset(g_strconcat(valid.get(), "\n\n", error_text.get(), nullptr));
}

void z_error_append_utf8_printf(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    z_error_append_utf8_vprintf(format, arguments);
    va_end(arguments);
}

void z_error_append_utf8_vprintf(const char *format, va_list arguments)
{
    const z_utf8_ptr text(g_strdup_vprintf(format, arguments));
    z_error_append(text.get());
}

void z_error_clear()
{
    error_text.reset();
    ran_out_of_memory = false;
}

const char *z_error_get()
{
    return error_text != nullptr ? error_text.get() : "";
}

void z_error_set_file_io_reading()
{
    z_error_set("File I/O error when reading file.");
}

void z_error_set_file_io_reading_broken_file()
{
    z_error_set("File I/O error when reading file: The file is broken.");
}

void z_error_set_file_io_writing()
{
    z_error_set("File I/O error when writing to file.");
}

void z_error_set_not_enough_diskspace()
{
    z_error_set("There is not enough disk space on this computer.");
}

void z_error_set_unknown()
{
    z_error_set("An unknown program error has occured.");
}

void z_error_set_from_cairo_status(int cairo_status)
{
    switch (cairo_status) {
    case CAIRO_STATUS_NO_MEMORY:
        z_error_set_out_of_memory();
        break;
    case CAIRO_STATUS_READ_ERROR:
        z_error_set("Error reading data.");
        break;
    case CAIRO_STATUS_WRITE_ERROR:
        z_error_set("Error writing data.");
        break;
    case CAIRO_STATUS_FILE_NOT_FOUND:
        z_error_set("File not found error.");
        break;
    case CAIRO_STATUS_PNG_ERROR:
        z_error_set("PNG error.");
        break;
    default:
        z_error_set("An internal error in the graphics subsystem occurred.");
    }
}

void z_error_set_from_errno()
{
    const int number = errno;
    z_error_set_utf8_printf("Error %d: %s", number, g_strerror(number));
}

void z_error_set_from_gerror_and_free(z_gerror_ptr error)
{
    z_error_set_utf8_printf("GError %d: %s", error->code, error->message);
}

void z_error_set_from_zip_error(zip_error *error)
{
    z_error_set(zip_error_strerror(error));
}

void z_error_set_from_zip_error_code(int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    z_error_set_from_zip_error(&error);
    zip_error_fini(&error);
}

void z_error_set_out_of_memory()
{
    z_error_set("The program has run out of memory.");
    ran_out_of_memory = true;
}

void z_error_set_informative_out_of_memory()
{
    z_error_set(informative_out_of_memory_text);
    ran_out_of_memory = true;
}

bool z_error_did_run_out_of_memory()
{
    return ran_out_of_memory;
}

bool z_error_make_more_informative_if_out_of_memory()
{
    if (ran_out_of_memory)
        z_error_set_informative_out_of_memory();
    return ran_out_of_memory;
}

void z_error_limit_line_count(int max_lines)
{
    if (error_text == nullptr || max_lines < 0)
        return;
    const char *cut = error_text.get();
    for (int count = 0; count < max_lines; ++count) {
        cut = std::strchr(cut, '\n');
        if (cut == nullptr)
            return;
        ++cut;
    }
    while (cut > error_text.get() && cut[-1] == '\n')
        --cut;
    const auto kept_length = static_cast<int>(cut - error_text.get());
    error_text.reset(g_strdup_printf("%.*s\n\n(Error message truncated.)", kept_length, error_text.get()));
}
