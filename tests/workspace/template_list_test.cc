#include "common/workspace/template_list.h"

#include "common/workspace/workspace.h"
#include "common/workspace/workspace_codeset.h"
#include "tests/support/user_sandbox.h"

namespace {

struct TemplateListTest : UserSandboxTest {
    const z_settings_ptr settings = z_settings_new(path().c_str());

    std::string write_template(const std::string &name, const std::string &top) const
    {
        return write_file(name, "<template>" + top +
                                    "<report-type><name lang='en'>R</name></report-type></template>");
    }
    std::string show(const z_template_list *list) const
    {
        std::string text;
        for (const z_template_list_entry *entry : list->entries)
            text += to_path(entry->path.get()).lexically_relative(root).generic_string() + ": " +
                    entry->text.get() + "\n";
        return text;
    }
};

TEST_F(TemplateListTest, ALineNamesTheTemplateItsAuthorAndVersion)
{
    const struct {
        const char *top, *line;
    } cases[] = {
        {"<name lang='en'>Inspection</name>", "Inspection"},
        {"<name lang='en'>Inspection</name><version>2.0</version>", "Inspection 2.0"},
        {"<name lang='en'>Inspection</name><author lang='en'>Ann</author>", "Inspection (Ann)"},
        {"<name lang='en'>A</name><name lang='sv'>\u00d6versyn</name><author lang='en'>M\u00e5ns</author>"
         "<version>1</version>",
         "\u00d6versyn (M\u00e5ns) 1"},
    };
    for (const auto &c : cases) {
        const std::string file = write_template("x.template", c.top);
        EXPECT_STREQ(z_template_io_get_ui_text(settings.get(), file.c_str()).get(), c.line);
    }
    EXPECT_EQ(z_template_io_get_ui_text(settings.get(), path("none.template").c_str()), nullptr);
    EXPECT_NE(std::string(z_error_get()).find("Error loading template file."), std::string::npos);
}

TEST_F(TemplateListTest, ListsTheReadableTemplatesOfAFolder)
{
    write_template("w/templates/a.template", "<name lang='en'>Inspection 10</name>");
    write_template("w/templates/B.TEMPLATE", "<name lang='en'>inspection 9</name>");
    write_template("w/templates/c.template.bak", "<name lang='en'>Backup</name>");
    write_template("w/templates/notes.txt", "<name lang='en'>Notes</name>");
    write_file("w/templates/broken.template", "<template>");
    std::filesystem::create_directory(root / "w/templates/folder.template");

    ASSERT_TRUE(z_workspace_save_folder_path(path("w").c_str()));
    const z_workspace_ptr workspace = z_workspace_open();
    ASSERT_NE(workspace, nullptr) << z_error_get();
    std::filesystem::copy_file(ZANVEL_TEST_DATA "/fuzz/seeds/current.codeset", root / "w/codesets/a.codeset");
    EXPECT_NE(z_codeset_io_read_from_file_in_workspace("a.codeset", workspace.get()), nullptr);
    const z_template_list_ptr list = z_template_list_load(workspace.get());
    EXPECT_EQ(show(list.get()),
              "w/templates/B.TEMPLATE: inspection 9\nw/templates/a.template: Inspection 10\n");
    EXPECT_STREQ(z_template_list_get_entry(list.get(), 1)->text.get(), "Inspection 10");
    EXPECT_EQ(z_template_list_get_entry(list.get(), 2), nullptr);

    std::filesystem::remove_all(root / "w/templates");
    EXPECT_EQ(show(z_template_list_load(workspace.get()).get()), "");
    EXPECT_EQ(z_template_list_load_folder(path("w/templates").c_str(), settings.get()), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open folder.\n\nError 2: No such file or directory");
}

} // namespace
