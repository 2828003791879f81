#pragma once

// Builds a langstr out of many translations, with the result that z_langstr_set_translation gives for one
// after the other. That walks the langstr each time: fine for the languages there are, but a file may bring a
// hundred thousand. From some length on this looks entries up instead.

#include <memory>

#include "common/model/langstr.h"

class z_langstr_builder {
public:
    z_langstr_builder();
    ~z_langstr_builder();

    // Both are copied.
    void set_translation(const char *tag, const char *text_latin1);

    // The builder is empty afterwards.
    [[nodiscard]] z_langstr_ptr take();

private:
    struct index;

    z_langstr_ptr langstr;
    int call_count = 0;
    std::unique_ptr<index> entries; // Null while the langstr is short.
};
