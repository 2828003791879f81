#!/usr/bin/env python3
"""A person's first day, from outside: the assistant makes the workspace, files are added from elsewhere and from the
installation, cloned, edited, saved elsewhere and deleted, one of them is broken, and the next start shows what was
left.

    tests/drive/first_day.py FOLDER    the folder with the installed program, such as build/stage

Prints one line per check and the counts; the exit status is non-zero if one failed. A window or a button that does
not come ends the run.
"""
import contextlib
import os
import pathlib
import sys

from checks import check, check_file, finish
from driver import Desktop, Program, key, type_text, wait
from editor import ART, BUILDING, DWELLING, TITLE, VEHICLE, check_end, field_of, press

BUNDLED_NAME = "art_condition_report.template"
OWN_NAME = "own.template"


def go_through_assistant(program, workspace):
    assistant = program.window("Zanvel")
    assistant.find("push button", "Next").click()
    location = assistant.find("text")
    check("the assistant proposes the usual place", location.text == str(workspace), location.text)
    check("nothing is made before that is confirmed", not workspace.exists())
    assistant.find("push button", "Apply").click()
    assistant.find("push button", "Close").click()
    program.wait_until_closed(assistant)


def make_template(name):
    return (f'<?xml version="1.0" encoding="iso-8859-1"?>\n\n<template>\n\n\t<name lang="en-uk">{name}</name>\n\n'
            '\t<report-type>\n\t\t<name lang="en-uk">Type</name>\n\t</report-type>\n\n</template>\n').encode("latin-1")


class Day:
    def __init__(self, program, workspace):
        self.program = program
        self.folder = workspace / "templates"
        self.main = program.window(TITLE)
        self.expected = [ART, BUILDING, DWELLING, VEHICLE]

    def click(self, button, row=None):
        """A button of the main window, after a row is selected."""
        self.main = self.program.window(TITLE)
        if row is not None:
            self.main.find("table").click_row(row)
        self.main.find("push button", button).click()

    def choose_file(self, title, path):
        """Types the path in the desktop's file chooser, which reads every folder that the path begins with: none where
        other programs' files come and go, for what it keeps of one that goes is lost."""
        typed = str(path).replace(os.environ["HOME"], "~")
        chooser = self.program.window(title)
        key("ctrl+l" if title != "Save as" else "alt+n", "ctrl+a")
        type_text(typed)
        wait(lambda: any(entry.text == typed for entry in chooser.find_all("text")), f"{typed} in the chooser")
        key("Return")
        self.program.wait_until_closed(chooser)

    def check_list(self, what):
        """Whatever was done, the list is right and nothing is selected."""
        main = self.program.window(TITLE)
        with contextlib.suppress(TimeoutError):
            wait(lambda: sorted(main.find("table").rows()) == sorted(self.expected), "the list")
        rows = main.find("table").rows()
        check(what, sorted(rows) == sorted(self.expected), rows)
        check("... and nothing is selected", not main.find("push button", "Delete").sensitive)


def add_from_file(day, documents):
    source = documents / OWN_NAME
    source.write_bytes(make_template("Own"))
    day.click("Add from file")
    day.choose_file("Select a file to add", source)
    day.expected.append("Own")
    day.check_list("an added file is in the list")

    source.write_bytes(make_template("Own again"))
    for button in ("No", "Yes"):
        day.click("Add from file")
        day.choose_file("Select a file to add", source)
        press(day.program, 'Really overwrite "Own" with "Own again"?', button)
        day.program.window(TITLE)
        check_file(f"the answer {button} counts", day.folder / OWN_NAME,
                   make_template("Own again" if button == "Yes" else "Own"))
    day.expected[-1] = "Own again"
    day.check_list("the list shows the new file")

    other = documents / "own.txt"
    other.write_bytes(make_template("Other"))
    day.click("Add from file")
    day.choose_file("Select a file to add", other)
    press(day.program, 'The file name must end with ".template".', "Close")
    day.check_list("a file of another kind is refused")


def add_bundled(day, bundled):
    """One that was installed at the beginning: first deleted, then added again, then overwritten or not."""
    day.click("Delete", ART)
    press(day.program, f'Do you really want to delete "{ART}" from your workspace?', "No")
    day.check_list("the answer No deletes nothing")
    day.click("Delete", ART)
    press(day.program, f'Do you really want to delete "{ART}" from your workspace?', "Yes")
    day.expected.remove(ART)
    day.check_list("a deleted file is gone")

    file = day.folder / BUNDLED_NAME
    for answer in (None, "No", "Yes"):
        day.click("Add bundled")
        window = day.program.window("Select one to add")
        if answer is None:
            window.find("push button", "OK").click()
            press(day.program, "None selected.", "Close")
            window = day.program.window("Select one to add")
        window.find("table").click_row(ART)
        window.find("push button", "OK").click()
        if answer is not None:
            press(day.program, f'Really overwrite "Mine" with "{ART}"?', answer)
        day.program.window(TITLE)
        check_file(f"the bundled file after {answer}", file, make_template("Mine") if answer == "No" else bundled)
        if answer is None:
            file.write_bytes(make_template("Mine"))
    day.expected.append(ART)
    day.check_list("the bundled file is in the list")


def clone(day):
    day.click("Clone", "Own again")
    day.program.window("Add new").find("text").set_text(OWN_NAME)
    key("Return")
    press(day.program, 'That file name is already taken for "Own again"', "Close")
    day.program.window("Add new").find("text").set_text("copy_1.template")
    key("Return")
    day.expected.append("Own again")
    day.check_list("the clone is in the list")
    check_file("the clone is the same file", day.folder / "copy_1.template", make_template("Own again"))


def edit_bundled(day, bundled):
    file = day.folder / BUNDLED_NAME
    question = "This item was bundled with Zanvel."
    day.click("Edit", ART)
    press(day.program, question, "No")
    day.check_list("the answer No opens no editor")
    day.click("Edit", ART)
    press(day.program, question, "Yes")
    window = day.program.window(f"Edit template - {BUNDLED_NAME}")
    field_of(window, "Version").set_text("2.0")
    window.find("push button", "Save template").click()
    day.program.wait_until_closed(window)
    changed = ART.replace(" 1.0", " 2.0")
    day.expected[day.expected.index(ART)] = changed
    day.check_list("the list shows the change")
    check_file("only the version has changed", file, bundled.replace(b"<version>1.0<", b"<version>2.0<"))
    day.click("Edit", changed)
    day.program.window(f"Edit template - {BUNDLED_NAME}").find("push button", "Close").click()
    press(day.program, "Are you sure you want to close the template without saving?", "Close")
    day.check_list("a changed one is edited without a question")


def save_copy(day, documents):
    day.click("Save a copy", "Own again")
    day.choose_file("Save as", documents / "saved")
    day.check_list("saving a copy leaves the list")
    check_file("the copy has its extension", documents / "saved.template", make_template("Own again"))


def main():
    installation = pathlib.Path(sys.argv[1]).resolve()
    command = [str(installation / "zanvel-templates-manager")]
    desktop = Desktop()
    documents = pathlib.Path(desktop.home) / "Documents"
    documents.mkdir(exist_ok=True)
    workspace = documents / "Zanvel Workspace"
    bundled = (installation / "templates" / BUNDLED_NAME).read_bytes()

    program = Program(desktop, command, {"LANGUAGE": "en_GB"})
    program.window("Zanvel").find("push button", "Cancel").click()
    check("cancelling ends the program well", program.wait_until_ended() == 0, program.output)
    check("and makes nothing", not workspace.exists())

    program = Program(desktop, command, {"LANGUAGE": "en_GB"})
    go_through_assistant(program, workspace)
    for kind in ("templates", "codesets"):
        installed = {file.name: file.read_bytes() for file in (workspace / kind).iterdir()}
        check(f"the workspace has the bundled {kind}",
              installed == {file.name: file.read_bytes() for file in (installation / kind).iterdir()}, installed.keys())
    day = Day(program, workspace)
    day.check_list("the list shows what was bundled")
    add_from_file(day, documents)
    add_bundled(day, bundled)
    clone(day)
    edit_bundled(day, bundled)
    save_copy(day, documents)

    (day.folder / "broken.template").write_bytes(b"<template>")
    day.expected.append("broken.template")
    day.click("Refresh list")
    day.check_list("a broken file stands in the list")
    shown = [label.text for label in day.main.find_all("label")]
    check("the window says that it is broken", any("incompatible files found" in text for text in shown), shown)
    rows = day.main.find("table").rows()
    check_end(program)

    program = Program(desktop, command, {"LANGUAGE": "en_GB"})
    window = program.window(TITLE)
    check("the next start shows the same list", window.find("table").rows() == rows, window.find("table").rows())
    check_file("the next start leaves the changed file alone", day.folder / BUNDLED_NAME,
               bundled.replace(b"<version>1.0<", b"<version>2.0<"))
    check_end(program)
    return finish()


if __name__ == "__main__":
    sys.exit(main())
