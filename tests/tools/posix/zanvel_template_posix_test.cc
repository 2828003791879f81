#include <sys/prctl.h>
#include <sys/stat.h>

#include "tests/support/tool_sandbox.h"

namespace {

const std::string report = "<report-type><name lang='en'>R</name></report-type>";
const std::string good = "<template><name lang='en'>Old</name>" + report + "</template>";

const std::vector<std::string> on_a_full_disk = {"/bin/sh", "-c",
                                                 "trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""};

// So that the tests meet the same refusals when they are run by the administrator.
void forget_privileges(gpointer)
{
    const unsigned long override_permissions = 1, override_reading = 2;
    prctl(PR_CAPBSET_DROP, override_permissions);
    prctl(PR_CAPBSET_DROP, override_reading);
}

struct ZanvelTemplatePosixTest : ToolSandboxTest {
    ZanvelTemplatePosixTest()
    {
        set_up_child = forget_privileges;
    }
};

TEST_F(ZanvelTemplatePosixTest, RefusesWhatIsNoTextAndNoFile)
{
    EXPECT_EQ(run({"check", "a.template", "\xff.template"}),
              (outcome{2, "", "Cannot parse command line argument 3.\n"}));
    write_file("forbidden.template", good);
    ASSERT_EQ(chmod(path("forbidden.template").c_str(), 0), 0);
    ASSERT_EQ(mkfifo(path("fifo.template").c_str(), 0600), 0);
    const std::string loading = ".template: Error loading template file. Cannot open file. Error ";
    EXPECT_EQ(run({"check", "fifo.template", "forbidden.template"}),
              (outcome{1, "",
                       "fifo" + loading + "95: Operation not supported\n" + "forbidden" + loading +
                           "13: Permission denied\n"}));
}

TEST_F(ZanvelTemplatePosixTest, WhatCannotBeWrittenLeavesTheTarget)
{
    write_file("in.template", good);
    write_file("a.png", "what was there");
    write_file("out.template", "what was there");
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

TEST_F(ZanvelTemplatePosixTest, DrawsInTheUsersLanguage)
{
    write_file("a.template",
               "<template><name lang='en'>N</name><report-type><name lang='en'>R</name><segment>"
               "<header lang='en'>Segment</header><header lang='sv'>Avdelning</header>"
               "</segment></report-type></template>");
    for (const std::vector<std::string> &options :
         {std::vector<std::string>{"a.svg"}, {"b.svg", "--language", "sv"}}) {
        std::vector<std::string> arguments = {"render", "a.template", "-o"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(run(arguments), (outcome{0, "", ""}));
    }
    EXPECT_EQ(read_file("a.svg"), read_file("b.svg"));
}

} // namespace
