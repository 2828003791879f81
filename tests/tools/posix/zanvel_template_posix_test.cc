#include "tests/support/tool_sandbox.h"

namespace {

const std::string report = "<report-type><name lang='en'>R</name></report-type>";
const std::string good = "<template><name lang='en'>Old</name>" + report + "</template>";

using ZanvelTemplatePosixTest = ToolSandboxTest;

TEST_F(ZanvelTemplatePosixTest, RefusesWhatIsNoText)
{
    EXPECT_EQ(run({"check", "a.template", "\xff.template"}),
              (outcome{2, "", "Cannot parse command line argument 3.\n"}));
}

TEST_F(ZanvelTemplatePosixTest, WhatCannotBeWrittenLeavesTheTarget)
{
    write_file("in.template", good);
    write_file("a.png", "what was there");
    write_file("out.template", "what was there");
    const std::vector<std::string> on_a_full_disk = {"/bin/sh", "-c",
                                                     "trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""};
    EXPECT_EQ(run({"convert", "in.template", "out.template"}, on_a_full_disk),
              (outcome{1, "", "out.template: Cannot close file. Error 27: File too large\n"}));
    EXPECT_EQ(run({"render", "in.template", "-o", "a.png", "--basic-data"}, on_a_full_disk),
              (outcome{1, "", "a.png: Cannot close file. Error 27: File too large\n"}));
    EXPECT_EQ(read_file("a.png") + read_file("out.template"), "what was therewhat was there");
    EXPECT_EQ(list().size(), 3U);

    const std::vector<std::string> to_a_full_disk = {"/bin/sh", "-c", "exec \"$0\" \"$@\" >/dev/full"};
    EXPECT_EQ(run({"check", "in.template"}, to_a_full_disk),
              (outcome{1, "", "zanvel-template: Cannot write to standard output.\n"}));
}

TEST_F(ZanvelTemplatePosixTest, ListsInTheUsersLanguage)
{
    const std::string names = "<template><name lang='en'>Door</name><name lang='sv'>D\u00f6rr\u009b2J</name>"
                              "<name lang='fr'>Porte</name><version>1</version>" +
                              report + "</template>";
    write_file("templates/a.template", names);
    EXPECT_EQ(run({"list", "templates"}), (outcome{0, "D\u00f6rr\uFFFD2J 1\n", ""}));

    write_file("settings.xml",
               "<settings><preferred-languages><language tag='fr'/></preferred-languages></settings>");
    write_file("config/Zanvel/registry.ini", "[Software\\Zanvel]\nWorkspaceFolderPath=" + path() + "\n");
    EXPECT_EQ(run({"list", "templates"}), (outcome{0, "Porte 1\n", ""}));
}

} // namespace
