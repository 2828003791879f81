#include "common/model/template_io.h"

#include "common/base/xml.h"
#include "tests/support/form_text.h"
#include "tests/support/fs_faults.h"
#include "tests/support/sandbox.h"

namespace {

// The format in short, for tables of cases: forms of one template around what differs.
std::string with_root(const std::string &children)
{
    return "<template><name lang='en'>T</name>" + children + "</template>";
}

std::string with_segment(const std::string &blocks)
{
    return with_root("<report-type><name lang='en'>R</name><segment>" + blocks + "</segment></report-type>");
}

std::string with_details(const std::string &blocks)
{
    return with_root("<details>" + blocks + "</details><report-type><name lang='en'>R</name></report-type>");
}

struct TemplateIoTest : SandboxTest {
    // As the writer prints it, with everything that a template may hold.
    const std::string golden = read_file(ZANVEL_TEST_DATA "/fuzz/seeds/current.template");

    static z_template_ptr read(const std::string &document)
    {
        return z_template_io_read_from_document(z_xml_parse_memory(document.data(), document.size()));
    }

    // What follows the name "en=T", or the failure.
    static std::string show(const std::string &document)
    {
        const z_template_ptr tmpl = read(document);
        if (tmpl == nullptr)
            return z_error_get();
        return text_from_template(tmpl.get()).substr(std::string("en=T").size());
    }
};

TEST_F(TemplateIoTest, WriteReadWrite)
{
    const z_template_ptr tmpl = z_template_io_read_from_file(write_file("a", golden).c_str());
    ASSERT_NE(tmpl, nullptr) << z_error_get();
    EXPECT_EQ(text_from_langstr(tmpl->name.get()), "en-uk=Survey & report|sv=Unders\xf6kning|=Untagged");
    EXPECT_EQ(text_from_segment(&tmpl->details), "{(en-uk=Owner _ _en-uk=one\ntwo xen-uk=Loan oen-uk=Gift)}");
    EXPECT_STREQ(tmpl->codesets.get_last()->file_name.get(), "R&D.codeset");
    EXPECT_TRUE(z_template_io_write_to_file(tmpl.get(), path("b").c_str()));
    EXPECT_EQ(read_file("b"), golden);

    EXPECT_TRUE(z_template_io_check_readable(tmpl.get()));
    EXPECT_STREQ(z_error_get(), "");
}

TEST_F(TemplateIoTest, ContentsAreCopiedWithTheirValuesEvenIntoTheirOwnSource)
{
    const z_template_ptr tmpl = read(golden);
    const std::string contents = text_from_segment(&tmpl->details);
    z_text_sheet_segment_copy_contents(&tmpl->details, &tmpl->details);
    EXPECT_EQ(text_from_segment(&tmpl->details), contents + contents);
}

TEST_F(TemplateIoTest, FormsOfTheFormat)
{
    const std::string row = "<row><header lang='en'>H</header>", end = "</row>";
    const struct {
        std::string document, expected;
    } cases[] = {
        // Any order, several of everything, unknown elements.
        {"<template><condition/><x><name/></x><details><block/></details><name "
         "lang='en'>T</name><details><block>"
         "<header lang='en'>2</header></block></details><report-type><name lang='en'>R</name></report-type>"
         "</template>",
         "{}{en=2}/en-uk=Condition Report|sv=Tillst\xe5ndsrapport:/en=R"},
        // Values belong to details only.
        {with_details("<block>" + row +
                      "<checkbox selected='true'><label lang='en'>L</label></checkbox>"
                      "<checkbox selected='false'><label lang='en'>L</label></checkbox>"
                      "<textfield><contents lang='en'> a \n\tb </contents></textfield>" +
                      end + "</block>"),
         "{(en=H xen=L oen=L _en=a \n b)}/en=R"},
        {with_segment("<block>" + row +
                      "<checkbox selected='maybe'><label lang='en'>L</label></checkbox>"
                      "<textfield><contents/></textfield>" +
                      end + "</block>"),
         "/en=R:{(en=H oen=L _)}"},
        // Legacy spellings, each with its own header; an item has one text field.
        {with_details("<group/><details-group><header lang='en'>H</header><details-group-header lang='en'>L"
                      "</details-group-header></details-group><block><details-item><details-item-header "
                      "lang='en'>I</details-item-header><details-item-text lang='en'> a \n b "
                      "</details-item-text></details-item><condition-item/></block><condition-group/>"),
         "{}{en=H}{(en=I _en=a b)}/en=R"},
        {with_root("<condition><condition-group><condition-group-header lang='en'>L</condition-group-header>"
                   "<condition-item><condition-item-header lang='en'>I</condition-item-header>"
                   "<condition-item-text/></condition-item></condition-group><group/></condition>"),
         "/en-uk=Condition Report|sv=Tillst\xe5ndsrapport:{en=L(en=I _)}{}"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(show(c.document), c.expected) << c.document;
}

TEST_F(TemplateIoTest, RefusedFiles)
{
    const std::string parsing = "Error parsing template file.\n\n";
    const std::string duplicate = "Duplicate XML nodes found where not allowed.";
    const std::string empty_text = parsing + "Empty text content in XML where not allowed.";
    const std::string not_latin1 =
        "Invalid XML node content.\n\nCharacter incompatible with ISO-8859-1 found where not allowed.";
    const auto in_row = [](const std::string &fields) {
        return with_details("<block><row><header lang='en'>H</header>" + fields + "</row></block>");
    };
    const struct {
        std::string document, failure;
    } cases[] = {
        {"<Template/>", "Not a template file."},
        {"<template/>", parsing + "Missing XML node: name"},
        {with_root(""), parsing + "Missing report types."},
        {with_root("<version>1</version><version>1</version>"), parsing + duplicate},
        {with_root("<codesets><codeset/></codesets>"), parsing + "Missing XML attribute: filename"},
        {with_root("<author>A</author>"), parsing + "Missing XML attribute: lang"},
        {with_root("<author lang=' '> </author>"), empty_text},
        {with_root("<author lang='en'>&#x20AC;</author>"), parsing + not_latin1},
        {with_segment("<block><condition-item/></block>"),
         parsing + "Missing XML node: condition-item-header"},
        {with_details("<block><details-item><details-item-header lang='en'>I</details-item-header>"
                      "<details-item-text lang='en'/></details-item></block>"),
         empty_text},
        {in_row("<checkbox selected='yes'><label lang='en'>L</label></checkbox>"),
         parsing + "Invalid boolean value in XML attribute: selected"},
        // What comes first in the reader's order is reported, wherever it stands.
        {"<template><report-type/><version/></template>", parsing + "Missing XML node: name"},
    };
    for (const auto &c : cases) {
        z_error_set("older");
        EXPECT_EQ(read(c.document), nullptr);
        EXPECT_EQ(z_error_get(), c.failure) << c.document;
    }
}

TEST_F(TemplateIoTest, WhatTheWriterPrintsAndTheReaderRefuses)
{
    const auto expect = [this](const std::function<void(z_template *)> &change, const std::string &failure) {
        const z_template_ptr tmpl = read(golden);
        change(tmpl.get());
        EXPECT_FALSE(z_template_io_check_readable(tmpl.get()));
        EXPECT_EQ(z_error_get(), failure);
    };
    const auto first_row = [](z_template *tmpl) {
        return tmpl->details.blocks.get_first()->rows.get_first();
    };
    const std::string parsing = "Error parsing template file.\n\n";
    expect([&](z_template *tmpl) { first_row(tmpl)->fields.get_last()->text.reset(); },
           parsing + "Missing XML node: label");
    expect([](z_template *tmpl) { tmpl->report_types.destroy_all(); }, parsing + "Missing report types.");
    expect([](z_template *tmpl) { tmpl->name->text.reset(g_strdup("")); },
           parsing + "Empty text content in XML where not allowed.");
    expect([&](z_template *tmpl) { first_row(tmpl)->fields.get_last()->kind = 7; },
           "An unknown program error has occured.");
    const z_template_ptr tmpl = read(golden);
    tmpl->name->text.reset(g_strdup("a\x01"));
    EXPECT_FALSE(z_template_io_check_readable(tmpl.get()));
    EXPECT_TRUE(
        std::string(z_error_get())
            .starts_with("Error loading template file.\n\nCould not parse XML data.\n\nEntity: line 5: "));

    const z_template_ptr good = read(golden);
    good->name->tag.reset(g_strdup("x\"<y"));
    good->version.reset(g_strdup(""));
    EXPECT_TRUE(z_template_io_check_readable(good.get())) << z_error_get();
}

// Whatever fails, no half file is left: of one writer none at all once the new file has been begun, of the
// other the old one.
TEST_F(TemplateIoTest, AFailureAtAnyStepOfAWriteLeavesNoHalfFile)
{
    const z_template_ptr tmpl = read(golden);
    z_text_sheet_field *field = tmpl->details.blocks.get_first()->rows.get_first()->fields.get_first();
    for (const auto write : {z_template_io_write_to_file, z_template_io_put_file}) {
        const bool is_put = write == z_template_io_put_file;
        std::set<std::string> failures;
        bool has_struck = true;
        for (int step = 0; has_struck; ++step) {
            write_file("t", "old");
            z_error_clear();
            const FsFaults faults(step);
            const bool is_written = write(tmpl.get(), path("t").c_str());
            const std::string left = exists("t") ? read_file("t") : "none";
            EXPECT_TRUE(is_written ? left == golden : left == "old" || (!is_put && left == "none")) << step;
            EXPECT_EQ(list().size(), left == "none" ? 0U : 1U) << step;
            if (!is_written)
                failures.insert(z_error_get());
            has_struck = faults.has_struck();
        }
        const std::string reason = "\n\nError 28: No space left on device";
        std::set<std::string> expected = {
            "Cannot access file.\n\nCannot unlink file." + reason,
            "Cannot close file." + reason,
            "Cannot create file.\n\nCannot open file." + reason,
            "File write error.",
        };
        if (is_put)
            expected.insert("Cannot rename file/folder." + reason);
        EXPECT_EQ(failures, expected);
        const uint32_t kind = std::exchange(field->kind, 7);
        EXPECT_FALSE(write(tmpl.get(), path("t").c_str()));
        EXPECT_STREQ(z_error_get(), "An unknown program error has occured.");
        EXPECT_EQ(exists("t"), is_put);
        field->kind = kind;
    }
}

} // namespace
