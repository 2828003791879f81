#include "tests/support/known_warnings.h"

bool is_known_warning(const char *)
{
    return false;
}
