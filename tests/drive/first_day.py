#!/usr/bin/env python3
"""A person's first day, from outside: files are added from elsewhere and from the installation, cloned, edited, saved
elsewhere and deleted, one of them is broken, and one is made by clicking alone (see by_clicking.py).

    tests/drive/first_day.py FOLDER    the folder with the installed program, such as build/stage
"""
import os
import pathlib
import subprocess
import sys

import by_clicking
from checks import check, check_end, check_file, check_folder
from driver import Desktop, Program, key, output_of, type_text, wait
from editor import ART, BUILDING, DWELLING, TITLE, VEHICLE, field_of, open_main_window, press

BUNDLED_NAME = "art_condition_report.template"


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
        table = self.program.window(TITLE).find("table")
        wait(lambda: sorted(table.rows()) == sorted(self.expected), lambda: f"{self.expected}, not {table.rows()}")
        check(what, not self.main.find("push button", "Delete").sensitive, "something is selected")


def add_from_file(day, documents):
    source = documents / "own.template"
    source.write_bytes(make_template("Own"))
    day.click("Add from file")
    day.choose_file("Select a file to add", source)
    day.expected.append("Own")
    day.check_list("an added file is in the list")

    source.write_bytes(make_template("Own again"))
    for button in ("No", "Yes"):
        check_file(f"before the answer {button}", day.folder / "own.template", make_template("Own"))
        day.click("Add from file")
        day.choose_file("Select a file to add", source)
        press(day.program, 'Really overwrite "Own" with "Own again"?', button)
    day.expected[-1] = "Own again"
    day.check_list("the list shows the new file")
    check_file("the file is the new one", day.folder / "own.template", make_template("Own again"))

    other = documents / "own.txt"
    other.write_bytes(make_template("Other"))
    day.click("Add from file")
    day.choose_file("Select a file to add", other)
    press(day.program, 'The file name must end with ".template".', "Close")
    day.check_list("a file of another kind is refused")


def add_bundled(day, bundled):
    """One that was installed at the beginning: first deleted, then added again."""
    question = f'Do you really want to delete "{ART}" from your workspace?'
    day.click("Delete", ART)
    press(day.program, question, "No")
    day.check_list("the answer No deletes nothing")
    day.click("Delete", ART)
    press(day.program, question, "Yes")
    day.expected.remove(ART)
    day.check_list("a deleted file is gone")

    day.click("Add bundled")
    day.program.window("Select one to add").find("push button", "OK").click()
    press(day.program, "None selected.", "Close")
    window = day.program.window("Select one to add")
    window.find("table").click_row(ART)
    window.find("push button", "OK").click()
    day.expected.append(ART)
    day.check_list("the bundled file is in the list")
    check_file("a deleted bundled file can be added again", day.folder / BUNDLED_NAME, bundled)


def clone(day):
    day.click("Clone", "Own again")
    day.program.window("Add new").find("text").set_text("copy_1.template")
    key("Return")
    day.expected.append("Own again")
    day.check_list("the clone is in the list")
    check_file("the clone is the same file", day.folder / "copy_1.template", make_template("Own again"))


def edit_bundled(day, bundled):
    file = day.folder / BUNDLED_NAME
    day.click("Edit", ART)
    press(day.program, "This item was bundled with Zanvel.", "Yes")
    window = day.program.window(f"Edit template - {BUNDLED_NAME}")
    field_of(window, "Version").set_text("2.0")
    window.find("push button", "Save template").click()
    day.program.wait_until_closed(window)
    changed = ART.replace(" 1.0", " 2.0")
    day.expected[day.expected.index(ART)] = changed
    day.check_list("the list shows the change")
    check_file("only the version has changed", file, bundled.replace(b"<version>1.0<", b"<version>2.0<"))
    day.main.find("table").click_row(changed)
    key("Return")
    window = day.program.window(f"Edit template - {BUNDLED_NAME}")
    field_of(window, "Author").set_text("Nobody")
    key("alt+F4")
    press(day.program, "Are you sure you want to close the template without saving?", "Cancel")
    window.find("push button", "Close").click()
    press(day.program, "Are you sure you want to close the template without saving?", "Close")
    day.check_list("a changed one is edited without a question")


def save_copy(day, documents):
    day.click("Save a copy", "Own again")
    day.choose_file("Save as", documents / "saved")
    day.check_list("saving a copy leaves the list")
    check_file("the copy has its extension", documents / "saved.template", make_template("Own again"))


def break_one(day):
    (day.folder / "broken.template").write_bytes(b"<template>")
    day.expected.append("broken.template")
    day.click("Refresh list")
    day.check_list("a broken file stands in the list")
    shown = [label.text for label in day.main.find_all("label")]
    check("the window says that it is broken", any("incompatible files found" in text for text in shown), shown)
    day.click("Edit", "broken.template")
    press(day.program, "Error when loading the template file", "Close")


def make_new(day):
    day.click("Add new")
    day.program.window("Add new").find("text").set_text(by_clicking.FILE_NAME)
    key("Return")
    by_clicking.make_template(day.program, day.folder)
    day.expected.append("House inspection (Eva Åkesson & Co) 2.0 b")
    day.check_list("the new template is in the list")


def main():
    installation = pathlib.Path(sys.argv[1]).resolve()
    command = [str(installation / "zanvel-templates-manager")]
    desktop = Desktop(1280, 1900)
    documents = pathlib.Path(desktop.home) / "Documents"
    documents.mkdir(exist_ok=True)
    workspace = documents / "Zanvel Workspace"
    bundled = (installation / "templates" / BUNDLED_NAME).read_bytes()

    program = Program(desktop, command, {"LANGUAGE": "en_GB"})
    open_main_window(program)
    window_class = output_of("xprop", "-id", output_of("xdotool", "getactivewindow").strip(), "WM_CLASS")
    check("a desktop entry finds its window", "com.zanvel.TemplatesManager" in window_class, window_class)
    for kind in ("templates", "codesets"):
        check_folder(f"the workspace has the bundled {kind}", workspace / kind, installation / kind)
    day = Day(program, workspace)
    day.check_list("the list shows what was bundled")
    add_from_file(day, documents)
    add_bundled(day, bundled)
    clone(day)
    save_copy(day, documents)
    make_new(day)
    edit_bundled(day, bundled)
    break_one(day)
    check_end(program, TITLE)
    ended = subprocess.run([*command, "text", b"M\xe5ns"], capture_output=True, check=False)
    check("an argument that is no text ends the program",
          (ended.returncode, ended.stderr) == (1, b"Cannot parse command line argument 2."), ended)


if __name__ == "__main__":
    main()
