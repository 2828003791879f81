#include <string>
#include <vector>

#include "tests/support/tool_sandbox.h"

namespace {

const std::string report = "<report-type><name lang='en'>R</name></report-type>";
const std::string good = "<template><name lang='en'>Old</name>" + report + "</template>";
const std::string remark = "<remark><code>1</code><description lang='en'>d</description></remark>";

using ZanvelTemplateTest = ToolSandboxTest;

TEST_F(ZanvelTemplateTest, RefusesWrongUsage)
{
    const outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.output.find("Usage:\n  zanvel-template check FILE...\n"), 0u);
    const std::vector<std::string> cases[] = {
        {},
        {"--frobnicate"},
        {"check"},
        {"check", "--quick", "a"},
        {"list", "a", "b"},
        {"convert", "a.template"},
        {"render", "a.template"},
        {"render", "a.template", "b.template", "-o", "a.png"},
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
}

TEST_F(ZanvelTemplateTest, SaysWhyAFileIsRefusedAndLeavesItAlone)
{
    write_file("a.Codeset", "<template/>");
    write_file("target.codeset", "what was there");
    const outcome refused = {1, "", "a.Codeset: Not a codeset file.\n"};
    EXPECT_EQ(run({"convert", "a.Codeset", "target.codeset"}), refused);
    EXPECT_EQ(run({"convert", "a.Codeset", "a.Codeset"}), refused);
    EXPECT_EQ(read_file("a.Codeset"), "<template/>");
    EXPECT_EQ(read_file("target.codeset"), "what was there");
}

TEST_F(ZanvelTemplateTest, ChecksEveryFileAndNothingButFiles)
{
    write_file("-a.template", good);
    write_file("b.codeset", "<codeset><name lang='en'>N</name>" + remark + "</codeset>");
    write_file("binary.template", std::string("\x89PNG\x1b[2J\0\x01", 10));
    std::filesystem::create_directory(root / "folder.template");

    const std::string loading = ".template: Error loading template file. Cannot open file. Error ";
    EXPECT_EQ(run({"check", "--", "none.template", "-a.template", "folder.template", "b.codeset"}),
              (outcome{1, "-a.template: ok\nb.codeset: ok\n",
                       "none" + loading + "2: No such file or directory\n" + "folder" + loading +
                           "21: Is a directory\n"}));
    const outcome binary = run({"check", "binary.template"});
    EXPECT_EQ(binary.status, 1);
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
    write_file("out.codeset", "what was there");
    write_file("amp.codeset", "<codeset><name lang='en'>N</name><remark><code>R&amp;D</code>"
                              "<description lang='en'>d</description></remark></codeset>");
    const outcome unreadable = run({"convert", "amp.codeset", "out.codeset"});
    EXPECT_EQ(unreadable.errors.find("out.codeset: Error loading codeset file. Could not parse XML data."),
              0u);
    EXPECT_EQ(read_file("out.codeset"), "what was there");
}

TEST_F(ZanvelTemplateTest, ListsAFolderAndNothingElse)
{
    const std::string version = "<version>1</version>", author = "<author lang='sv'>Ann</author>";
    write_file("templates/a.template", "<template><name lang='en'>Door</name>" + report + "</template>");
    write_file("templates/b.template",
               "<template><name lang='en'>Arch</name>" + version + report + "</template>");
    write_file("templates/c.template",
               "<template><name lang='en'>Arch</name>" + author + report + "</template>");
    write_file("templates/d.template", "<template/>");
    EXPECT_EQ(run({"list", "templates/"}), (outcome{0, "Arch 1\nArch (Ann)\nDoor\n", ""}));
    EXPECT_EQ(run({"list", "templates/a.template"}),
              (outcome{1, "", "templates/a.template: Cannot open folder. Error 20: Not a directory\n"}));
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
        EXPECT_EQ(run(options).status, 0) << name;
        return read_file(name);
    };
    EXPECT_EQ(draw("a.PDF", {}).find("%PDF-"), 0u);
    EXPECT_NE(draw("a.svg", {"--width", "400"}).find("width=\"400px\""), std::string::npos);
    const std::string plain = draw("a.png", {});
    EXPECT_EQ(plain.find("\x89PNG"), 0u);
    EXPECT_EQ(plain, draw("a.png", {"--report-type", "1", "--width", "900"}));
    EXPECT_NE(draw("a.png", {"--language", "sv"}), draw("a.png", {"--language", "en"}));
    const std::vector<std::string> others[] = {
        {"--report-type", "2"}, {"--basic-data"}, {"--width", "400"}, {"--editing"}};
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
    const outcome too_high = run({"render", "a.template", "-o", "a.png"});
    EXPECT_NE(too_high.errors.find("but a picture of this kind at most 32767."), std::string::npos)
        << too_high;
    EXPECT_EQ(read_file("a.png"), "what was there");
}

} // namespace
