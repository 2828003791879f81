// The interface of the translation library, as far as the libraries of the stack use it. Nothing is
// translated: the texts come back as they were given.
#ifndef LIBINTL_H
#define LIBINTL_H

#include <locale.h>

#ifndef LC_MESSAGES
#define LC_MESSAGES 1729
#endif

#define FORMAT_OF(position) __attribute__((__format_arg__(position)))

#ifdef __cplusplus
extern "C" {
#endif

char *gettext(const char *text) FORMAT_OF(1);
char *dgettext(const char *domain, const char *text) FORMAT_OF(2);
char *dcgettext(const char *domain, const char *text, int category) FORMAT_OF(2);
char *ngettext(const char *one, const char *many, unsigned long count) FORMAT_OF(1) FORMAT_OF(2);
char *dngettext(const char *domain, const char *one, const char *many, unsigned long count) FORMAT_OF(2)
    FORMAT_OF(3);
char *dcngettext(const char *domain, const char *one, const char *many, unsigned long count, int category)
    FORMAT_OF(2) FORMAT_OF(3);
char *textdomain(const char *domain);
char *bindtextdomain(const char *domain, const char *folder);
char *bind_textdomain_codeset(const char *domain, const char *codeset);

#ifdef __cplusplus
}
#endif

#undef FORMAT_OF

#endif
