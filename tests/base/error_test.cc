#include "common/base/error.h"

#include <string>

#include <cairo.h>
#include <gtest/gtest.h>

namespace {

TEST(ErrorTest, NewestContextStandsFirst)
{
    z_error_set("File not found error.");
    z_error_append("Error reading data.");
    z_error_append_utf8_printf("Error writing %s.", "data");
    EXPECT_STREQ(z_error_get(), "Error writing data.\n\nError reading data.\n\nFile not found error.");
    z_error_set("caf\xE9.");
    z_error_set(z_error_get());
    z_error_append(z_error_get());
    EXPECT_STREQ(z_error_get(), "caf\xEF\xBF\xBD.\n\ncaf\xEF\xBF\xBD.");
}

TEST(ErrorTest, TheOutOfMemoryFlagOutlivesAppendsOnly)
{
    z_error_set_from_cairo_status(CAIRO_STATUS_NO_MEMORY);
    z_error_append("Context.");
    EXPECT_TRUE(z_error_did_run_out_of_memory());
    EXPECT_TRUE(z_error_make_more_informative_if_out_of_memory());
    EXPECT_TRUE(std::string(z_error_get()).starts_with("The program has run out of memory.\n\nSuggestion: "));
    EXPECT_TRUE(z_error_did_run_out_of_memory());
    z_error_set("Other.");
    EXPECT_FALSE(z_error_make_more_informative_if_out_of_memory());
    EXPECT_STREQ(z_error_get(), "Other.");
}

TEST(ErrorTest, LongTextsAreCutAtALine)
{
    const struct {
        const char *text, *expected;
    } cases[] = {
        {"1\n2\n3\n4", "1\n2\n3\n\n(Error message truncated.)"},
        {"1\n2\n3", "1\n2\n3"},
        {"1\n\n\n4", "1\n\n(Error message truncated.)"},
    };
    for (const auto &each : cases) {
        z_error_set(each.text);
        z_error_limit_line_count(3);
        EXPECT_STREQ(z_error_get(), each.expected);
    }
}

} // namespace
