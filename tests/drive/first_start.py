#!/usr/bin/env python3
"""A first day with the program, from outside: the assistant makes the workspace, a bundled template is opened,
changed and saved, and the next start shows it.

    tests/drive/first_start.py FOLDER    the folder with the installed program, such as build/stage

Prints one line per check and the counts; the exit status is non-zero if one failed. A window or a button that does
not come ends the run.
"""
import pathlib
import re
import sys

from checks import check, check_file, finish
from driver import Desktop, Program, key, wait
from editor import TITLE, click_button_beside_tabs, field_of

FILE_NAME = "art_condition_report.template"
NAME = "Condition report for works of art"
NEW_NAME = "Condition report of our museum"


def listed_line(file):
    """What the list shows for a template file, taken from its English texts without the program's own reader."""
    text = file.read_bytes().decode("latin-1")

    def english(element):
        return re.search(rf'^\t<{element} lang="en-uk">(.*)</', text, re.M).group(1).replace("&apos;", "'")
    version = re.search(r"^\t<version>(.*)</", text, re.M).group(1)
    return f"{english('name')} ({english('author')}) {version}"


def expected_after_edit(original):
    """The bytes that the changes below must give."""
    changes = [
        (f'\t<name lang="en-uk">{NAME}<', f'\t<name lang="en-uk">{NEW_NAME}<'),
        ('\t<author lang="en-uk">Zanvel<', '\t<author lang="en-uk">Eva Åkesson<'),
        ("<version>1.0<", "<version>1.1 &amp; more<"),
        ('\t\t<codeset filename="object_damages.codeset"/>\n',
         '\t\t<codeset filename="object_damages.codeset"/>\n\t\t<codeset filename="own.codeset"/>\n'),
        ("\n</template>\n",
         '\n\t<report-type>\n\t\t<name lang="en-uk">Return of a loan</name>\n\t</report-type>\n\n</template>\n'),
    ]
    text = original.decode("latin-1")
    for old, new in changes:
        assert text.count(old) == 1, old
        text = text.replace(old, new)
    return text.encode("latin-1")


def go_through_assistant(program, workspace):
    assistant = program.window("Zanvel")
    assistant.find("push button", "Next").click()
    location = assistant.find("text")
    check("the assistant proposes the usual place", location.text == str(workspace), location.text)
    check("nothing is made before that is confirmed", not workspace.exists())
    assistant.find("push button", "Apply").click()
    assistant.find("push button", "Close").click()
    program.wait_until_closed(assistant)


def check_first_start(installation, workspace, program):
    main = program.window(TITLE)
    check("the title bears the version", main.name == f"{TITLE} 3.2.3", main.name)
    for kind in ("templates", "codesets"):
        bundled = {file.name: file.read_bytes() for file in (installation / kind).iterdir()}
        installed = {file.name: file.read_bytes() for file in (workspace / kind).iterdir()}
        check(f"the workspace has the bundled {kind}", bundled and installed == bundled, sorted(installed))
    for kind in ("layouts", "documents"):
        check(f"the workspace has a folder {kind}", (workspace / kind).is_dir())

    expected = sorted(map(listed_line, (installation / "templates").iterdir()))
    check("the list shows the bundled templates", main.find("table").rows() == expected, main.find("table").rows())
    check("nothing is selected, so nothing can be edited or deleted",
          not main.find("push button", "Edit").sensitive and not main.find("push button", "Delete").sensitive)
    return main


def change_and_save(program, main):
    main.find("table").click_row(f"{NAME} (Zanvel) 1.0")
    main.find("push button", "Edit").click()
    question = program.window("This item was bundled with Zanvel.")
    question.find("push button", "Yes").click()
    window = program.window(f"Edit template - {FILE_NAME}")
    field_of(window, "Template name", "en-uk").set_text(NEW_NAME)
    field_of(window, "Author", "en-uk").set_text("Eva Åkesson")
    field_of(window, "Version").set_text("1.1 & more")
    field_of(window, "Codeset file name(s)").set_text(
        "painting_damages.codeset,object_damages.codeset , , own.codeset,")

    click_button_beside_tabs(window, 0)
    naming = program.window("Name the new report type")
    naming.find("push button", "OK").click()
    refusal = program.window("You haven't entered anything.")
    refusal.find("push button", "OK").click()
    program.wait_until_closed(refusal)
    naming = program.window("Name the new report type")
    naming.find("text").set_text("Return of a loan")
    naming.find("push button", "OK").click()
    program.wait_until_closed(naming)

    window = program.window(f"Edit template - {FILE_NAME}")
    tabs = [tab.name or " ".join(label.text for label in tab.find_all("label"))
            for tab in window.find("page tab list").children]
    check("the new report type has the last tab", len(tabs) == 6, tabs)
    window.find("push button", "Save template").click()
    program.wait_until_closed(window)


def check_refused_close(program, main, line):
    """A changed template opens without a question; closing asks, and the answer no keeps the window."""
    main.find("table").click_row(line)
    main.find("push button", "Edit").click()
    window = program.window(f"Edit template - {FILE_NAME}")
    field_of(window, "Version").set_text("9")
    window.find("push button", "Close").click()
    question = program.window("Are you sure you want to close the template without saving?")
    question.find("push button", re.compile("Cancel")).click()
    program.wait_until_closed(question)
    window = program.window(f"Edit template - {FILE_NAME}")
    check("the answer no keeps the window and what was typed", field_of(window, "Version").text == "9")
    window.find("push button", "Close").click()
    question = program.window("Are you sure you want to close the template without saving?")
    question.find("push button", re.compile("Close")).click()
    program.wait_until_closed(window)


def check_end(program, main):
    program.window(main.name)
    key("alt+F4")
    check("the program ends well", program.wait_until_ended() == 0, program.output)
    check("the toolkit had nothing to say", not program.complaints, program.complaints)


def main():
    installation = pathlib.Path(sys.argv[1]).resolve()
    command = [str(installation / "zanvel-templates-manager")]
    desktop = Desktop()
    workspace = pathlib.Path(desktop.home) / "Documents" / "Zanvel Workspace"
    file = workspace / "templates" / FILE_NAME
    original = (installation / "templates" / FILE_NAME).read_bytes()
    language = {"LANGUAGE": "en_GB"}

    program = Program(desktop, command, language)
    program.window("Zanvel").find("push button", "Cancel").click()
    check("cancelling ends the program well", program.wait_until_ended() == 0, program.output)
    check("and makes nothing", not workspace.exists())

    program = Program(desktop, command, language)
    go_through_assistant(program, workspace)
    window = check_first_start(installation, workspace, program)
    change_and_save(program, window)
    expected = expected_after_edit(original)
    check_file("the file has exactly the changes", file, expected)
    line = f"{NEW_NAME} (Eva Åkesson) 1.1 & more"
    wait(lambda: line in window.find("table").rows(), "the new name in the list")
    check_refused_close(program, window, line)
    check_file("closing without saving writes nothing", file, expected)
    check_end(program, window)

    program = Program(desktop, command, language)
    window = program.window(TITLE)
    check("the next start shows the new name", line in window.find("table").rows(), window.find("table").rows())
    check_file("the next start leaves the changed file alone", file, expected)
    check_end(program, window)

    return finish()


if __name__ == "__main__":
    sys.exit(main())
