#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include <glib.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/support/sandbox.h"

namespace {

struct outcome {
    int status;
    std::string output;
    std::string errors;

    bool operator==(const outcome &) const = default;
    friend std::ostream &operator<<(std::ostream &stream, const outcome &value)
    {
        return stream << "status " << value.status << "\n--- output\n"
                      << value.output << "--- errors\n"
                      << value.errors;
    }
};

const std::string report = "<report-type><name lang='en'>R</name></report-type>";
const std::string good = "<template><name lang='en'>Old</name>" + report + "</template>";
const std::string remark = "<remark><code>1</code><description lang='en'>d</description></remark>";

const std::vector<std::string> on_a_full_disk = {"/bin/sh", "-c",
                                                 "trap '' XFSZ; ulimit -f 0; exec \"$0\" \"$@\""};

// Runs the built program in the sandbox, as an ordinary user of a Swedish computer.
struct ZanvelTemplateTest : SandboxTest {
    outcome run(std::vector<std::string> arguments, std::vector<std::string> before = {}) const
    {
        before.push_back(ZANVEL_TEMPLATE_PROGRAM);
        before.insert(before.end(), arguments.begin(), arguments.end());
        std::vector<char *> argv;
        for (std::string &argument : before)
            argv.push_back(argument.data());
        argv.push_back(nullptr);

        char **environment = g_get_environ();
        environment = g_environ_setenv(environment, "XDG_CONFIG_HOME", path("config").c_str(), TRUE);
        environment = g_environ_setenv(environment, "LANGUAGE", "sv", TRUE);
        environment = g_environ_setenv(environment, "LC_ALL", "C", TRUE); // For the system's reasons.
        char *output = nullptr, *errors = nullptr;
        int wait_status = -1;
        EXPECT_TRUE(g_spawn_sync(root.c_str(), argv.data(), environment, G_SPAWN_DEFAULT, forget_privileges,
                                 nullptr, &output, &errors, &wait_status, nullptr));
        outcome result = {WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : -1, output, errors};
        g_free(output);
        g_free(errors);
        g_strfreev(environment);
        return result;
    }
    // So that the tests meet the same refusals when they are run by the administrator.
    static void forget_privileges(gpointer)
    {
        const unsigned long override_permissions = 1, override_reading = 2;
        prctl(PR_CAPBSET_DROP, override_permissions);
        prctl(PR_CAPBSET_DROP, override_reading);
    }
};

TEST_F(ZanvelTemplateTest, RefusesWrongUsage)
{
    const outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.find("Usage:\n  zanvel-template check FILE...\n"), 0u);
    EXPECT_EQ(run({"check", "--help"}), help);

    const std::vector<std::string> cases[] = {
        {},
        {"frobnicate"},
        {"--frobnicate"},
        {"check"},
        {"check", "--quick", "a"},
        {"check", "--"},
        {"list"},
        {"list", "a", "b"},
        {"convert", "a.template"},
        {"convert", "a", "b", "c"},
        {"render", "a.template"},
        {"render", "-o", "a.png"},
        {"render", "a.template", "-o"},
        {"render", "a.template", "b.template", "-o", "a.png"},
        {"render", "a.template", "-o", "a.png", "--quick"},
        {"render", "a.template", "-o", "a.png", "--width", "99"},
        {"render", "a.template", "-o", "a.png", "--report-type", "0"},
        {"render", "a.template", "-o", "a.png", "--report-type", "1", "--basic-data"},
        {"render", "a.template", "-o", "a.png", "--language", ""}};
    for (const auto &arguments : cases)
        EXPECT_EQ(run(arguments), (outcome{2, "", help.output}));

    write_file("a.template", good);
    EXPECT_EQ(run({"convert", "a.template", "a.codeset"}).status, 2);
    EXPECT_FALSE(exists("a.codeset"));
    const std::string no_picture = "a.gif: The name of a picture ends in .png, .pdf or .svg.\n";
    EXPECT_EQ(run({"render", "a.template", "-o", "a.gif"}), (outcome{2, "", no_picture + help.output}));
    const outcome bytes = run({"check", "a.template", "\xff.template"});
    EXPECT_EQ(bytes, (outcome{2, "", "Cannot parse command line argument 3.\n"}));
}

TEST_F(ZanvelTemplateTest, SaysWhyAFileIsRefusedAndLeavesItAlone)
{
    const std::string name = "<name lang='en'>N</name>";
    const struct {
        std::string file, bytes, reason;
    } cases[] = {
        {"a.template", "",
         "Error loading template file. Could not parse XML data. "
         "Entity: line 1: parser error : Document is empty ^"},
        {"a.template", "<template>" + name + "</template>",
         "Error parsing template file. Missing report types."},
        {"a.Codeset", "<template/>", "Not a codeset file."},
        {"a.codeset", "<codeset>" + name + "</codeset>", "Error parsing codeset file. Missing remarks."},
    };
    for (const auto &c : cases) {
        const std::string target = "target" + c.file.substr(1);
        write_file(c.file, c.bytes);
        write_file(target, "what was there");
        const outcome refused = {1, "", c.file + ": " + c.reason + "\n"};
        EXPECT_EQ(run({"check", c.file}), refused);
        EXPECT_EQ(run({"convert", c.file, target}), refused);
        EXPECT_EQ(run({"convert", c.file, c.file}), refused);
        EXPECT_EQ(read_file(c.file), c.bytes);
        EXPECT_EQ(read_file(target), "what was there");
    }
}

TEST_F(ZanvelTemplateTest, ChecksEveryFileAndNothingButFiles)
{
    write_file("-a.template", good);
    write_file("b.codeset", "<codeset><name lang='en'>N</name>" + remark + "</codeset>");
    write_file("forbidden.template", good);
    write_file("binary.template", std::string("\x89PNG\x1b[2J\0\x01", 10));
    ASSERT_EQ(chmod(path("forbidden.template").c_str(), 0), 0);
    std::filesystem::create_directory(root / "folder.template");
    ASSERT_EQ(mkfifo(path("fifo.template").c_str(), 0600), 0);

    const std::string loading = ".template: Error loading template file. Cannot open file. Error ";
    EXPECT_EQ(run({"check", "--", "none.template", "-a.template", "folder.template", "fifo.template",
                   "forbidden.template", "b.codeset"}),
              (outcome{1, "-a.template: ok\nb.codeset: ok\n",
                       "none" + loading + "2: No such file or directory\n" + "folder" + loading +
                           "21: Is a directory\n" + "fifo" + loading + "95: Operation not supported\n" +
                           "forbidden" + loading + "13: Permission denied\n"}));
    const outcome binary = run({"check", "binary.template"});
    EXPECT_EQ(binary.status, 1);
    EXPECT_EQ(binary.errors.find("binary.template: Error loading template file. Could not parse XML data."),
              0u);
    EXPECT_EQ(binary.errors.find('\x1b'), std::string::npos);
}

TEST_F(ZanvelTemplateTest, ConvertsOldSpellingsAndRewritesCurrentFilesUnchanged)
{
    write_file("old.template", "<template><name lang='en'>Old  name</name><condition><group><condition-item>"
                               "<condition-item-header lang='en'>H</condition-item-header></condition-item>"
                               "</group></condition></template>");
    EXPECT_EQ(run({"convert", "old.template", "new.template"}), (outcome{0, "", ""}));
    EXPECT_EQ(read_file("new.template"),
              "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n\n<template>\n\n"
              "\t<name lang=\"en\">Old name</name>\n\n\t<report-type>\n"
              "\t\t<name lang=\"en-uk\">Condition Report</name>\n"
              "\t\t<name lang=\"sv\">Tillst\xE5ndsrapport</name>\n"
              "\t\t<segment>\n\t\t\t<block>\n\t\t\t\t<row>\n"
              "\t\t\t\t\t<header lang=\"en\">H</header>\n\t\t\t\t\t<textfield/>\n"
              "\t\t\t\t</row>\n\t\t\t</block>\n\t\t</segment>\n\t</report-type>\n\n"
              "</template>\n");
    const std::string converted = read_file("new.template");
    EXPECT_EQ(run({"convert", "new.template", "new.template"}), (outcome{0, "", ""}));
    EXPECT_EQ(read_file("new.template"), converted);
}

TEST_F(ZanvelTemplateTest, AConversionThatCannotBeWrittenLeavesTheTarget)
{
    const std::string in = write_file("in.template", good);
    write_file("locked/out.template", "what was there");
    write_file("out.codeset", "what was there");
    write_file("amp.codeset", "<codeset><name lang='en'>N</name><remark><code>R&amp;D</code>"
                              "<description lang='en'>d</description></remark></codeset>");
    std::filesystem::create_directory(root / "folder.template");

    const outcome folder = run({"convert", "in.template", "folder.template"});
    EXPECT_EQ(folder.status, 1);
    EXPECT_EQ(folder.errors.find("folder.template: "), 0u) << folder;
    const outcome unreadable = run({"convert", "amp.codeset", "out.codeset"});
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_EQ(unreadable.errors.find("out.codeset: Error loading codeset file. Could not parse XML data."),
              0u);
    EXPECT_EQ(read_file("out.codeset"), "what was there");

    ASSERT_EQ(chmod(path("locked").c_str(), 0555), 0);
    EXPECT_EQ(run({"convert", "in.template", "locked/out.template"}),
              (outcome{1, "", "locked/out.template: Cannot open file. Error 13: Permission denied\n"}));
    ASSERT_EQ(chmod(path("locked").c_str(), 0755), 0);

    EXPECT_EQ(run({"convert", "in.template", "locked/out.template"}, on_a_full_disk),
              (outcome{1, "", "locked/out.template: Cannot close file. Error 27: File too large\n"}));
    EXPECT_EQ(read_file("locked/out.template"), "what was there");
    EXPECT_EQ(list("locked").size(), 1U);

    const std::vector<std::string> to_a_full_disk = {"/bin/sh", "-c", "exec \"$0\" \"$@\" >/dev/full"};
    EXPECT_EQ(run({"check", "in.template"}, to_a_full_disk),
              (outcome{1, "", "zanvel-template: Cannot write to standard output.\n"}));
}

TEST_F(ZanvelTemplateTest, ListsInTheUsersLanguage)
{
    const std::string names = "<template><name lang='en'>Door</name><name lang='sv'>D\u00f6rr\u009b2J</name>"
                              "<name lang='fr'>Porte</name><version>1</version>" +
                              report + "</template>";
    write_file("templates/a.template", names);
    write_file("templates/b.template", "<template/>");
    EXPECT_EQ(run({"list", "templates"}), (outcome{0, "D\u00f6rr\uFFFD2J 1\n", ""}));
    EXPECT_EQ(run({"list", "templates/"}).status, 0);

    write_file("settings.xml",
               "<settings><preferred-languages><language tag='fr'/></preferred-languages></settings>");
    write_file("config/Zanvel/registry.ini", "[Software\\Zanvel]\nWorkspaceFolderPath=" + path("") + "\n");
    EXPECT_EQ(run({"list", "templates"}), (outcome{0, "Porte 1\n", ""}));

    EXPECT_EQ(run({"list", "none"}),
              (outcome{1, "", "none: Cannot open folder. Error 2: No such file or directory\n"}));
    EXPECT_EQ(run({"list", "settings.xml"}),
              (outcome{1, "", "settings.xml: Cannot open folder. Error 20: Not a directory\n"}));
}

std::string make_form(const std::string &name, const std::string &rows)
{
    return "<report-type><name lang='en'>" + name + "</name><segment><header lang='en'>Segment</header>" +
           "<header lang='sv'>Avdelning</header><block>" + rows + "</block></segment></report-type>";
}

TEST_F(ZanvelTemplateTest, DrawsEachFormIntoEachKindOfPicture)
{
    const std::string row = "<row><header lang='en'>Row</header><textfield/></row>";
    write_file("a.template", "<template><name lang='en'>N</name>" + make_form("One", row) +
                                 make_form("Two", row + row) + "</template>");
    const auto draw = [&](const std::string &name, std::vector<std::string> options) {
        options.insert(options.begin(), {"render", "a.template", "-o", name});
        EXPECT_EQ(run(options), (outcome{0, "", ""})) << name;
        return read_file(name);
    };
    EXPECT_EQ(draw("a.PDF", {}).find("%PDF-"), 0u);
    EXPECT_NE(draw("a.svg", {"--width", "400"}).find("<svg "), std::string::npos);
    EXPECT_NE(read_file("a.svg").find("width=\"400px\""), std::string::npos);

    const std::string plain = draw("a.png", {});
    EXPECT_EQ(plain.find("\x89PNG"), 0u);
    EXPECT_EQ(plain, draw("a.png", {"--report-type", "1", "--language", "sv"})) << "the user's language";
    const std::vector<std::string> others[] = {
        {"--report-type", "2"}, {"--basic-data"}, {"--width", "400"}, {"--language", "en"}, {"--editing"}};
    for (const auto &options : others)
        EXPECT_NE(draw("a.png", options), plain) << options.front();
}

TEST_F(ZanvelTemplateTest, APictureThatCannotBeMadeLeavesTheTarget)
{
    std::string rows;
    for (int index = 0; index < 1000; ++index)
        rows += "<row><header lang='en'>Row</header></row>";
    write_file("a.template", "<template><name lang='en'>N</name>" + make_form("One", rows) + "</template>");
    write_file("a.png", "what was there");
    write_file("bad.template", "<template/>");
    EXPECT_EQ(run({"render", "bad.template", "-o", "a.png"}),
              (outcome{1, "", "bad.template: Error parsing template file. Missing XML node: name\n"}));
    EXPECT_EQ(run({"render", "a.template", "-o", "a.png", "--report-type", "2"}),
              (outcome{1, "", "a.template: There is no report type 2; the last one is 1.\n"}));
    const outcome too_high = run({"render", "a.template", "-o", "a.png"});
    EXPECT_EQ(too_high.status, 1);
    EXPECT_NE(too_high.errors.find("but a picture of this kind at most 32767."), std::string::npos)
        << too_high;
    EXPECT_EQ(run({"render", "a.template", "-o", "a.png", "--basic-data"}, on_a_full_disk),
              (outcome{1, "", "a.png: Cannot close file. Error 27: File too large\n"}));
    EXPECT_EQ(read_file("a.png"), "what was there");
    EXPECT_EQ(list().size(), 3U);
}

} // namespace
