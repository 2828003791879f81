#!/usr/bin/env python3
"""A short visit to the program for Windows, from outside and under Wine: the assistant, saving a copy through Windows'
own dialog, editing with a menu on the drawn form, and the end.

    tests/drive/windows_run.py FOLDER    the folder with the unpacked program; WINEPREFIX names a prefix of its own,
                                         ZANVEL_KNOWN_WARNINGS what to expect of the toolkit, with bars in between

There is no accessibility tree, so what happens is told by windows' titles, by pictures and by files.
"""
import os
import pathlib
import re
import subprocess
import sys
import time

from checks import check, check_end, check_file, check_folder
from screen import Grab, Mouse, Process, Screen, key, output_of, run, type_text, wait

TITLE = "Zanvel Templates Manager"
SHELL_FOLDERS = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders"
PROGRAM_KEY = r"HKCU\Software\Zanvel"
BUNDLED_NAME = "building_inspection.template"  # the first of the list
FIRST_HEADER = b">Property designation<"
TABS_TO_BUTTON = {"Edit": 6, "Save a copy": 7}  # from the list, whose header comes first


def on_drive(path):
    """A path of this system as Wine has it."""
    return "Z:" + str(path).replace("/", "\\")


def run_in_wine(*command):
    found = subprocess.run(["wine", *command], capture_output=True, check=False)
    return found.returncode, found.stdout.decode("utf-8", "replace")


class Program(Process):
    known_complaint = "|".join(re.escape(text) for text in os.environ["ZANVEL_KNOWN_WARNINGS"].split("|"))

    @staticmethod
    def titles():
        numbers = output_of("xdotool", "search", "--onlyvisible", "--name", ".").split()
        return [output_of("xdotool", "getwindowname", number).strip() for number in numbers]

    def window(self, title, timeout_s=20):
        """Waits until there is a window whose title begins so, and nothing moves any more."""
        def look():
            if self.exit_status is not None:
                raise RuntimeError("The program has ended:\n" + self.output[-3000:])
            return any(found.startswith(title) for found in self.titles())
        wait(look, lambda: f"the window {title!r} among {self.titles()}", timeout_s)
        wait_until_still()

    def wait_until_closed(self, title):
        wait(lambda: title not in self.titles(), f"the window {title!r} to close")
        wait_until_still()


def whole_screen():
    return Grab((0, 0, 1280, 1024))


def wait_until_still():
    """For two pictures that are the same, which a blinking cursor allows."""
    def look():
        before = whole_screen()
        time.sleep(0.2)
        return before == whole_screen()
    wait(look, "a screen that is still")


def press(button):
    """A button of the main window, after a click that selects the first row of the list and gives it the focus."""
    number = output_of("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}").strip()
    run("xdotool", "mousemove", "--window", number, "100", "45", "click", "1")
    wait_until_still()
    key(*["Tab"] * TABS_TO_BUTTON[button], "space")


def go_through_assistant(program, workspace, bundled):
    program.window("Zanvel", timeout_s=90)
    first_page = whole_screen()
    key("Return")
    wait(lambda: whole_screen() != first_page, "the assistant's second page")
    wait_until_still()
    check("nothing is made before that is confirmed", not workspace.exists())
    key("Return")
    wait(lambda: workspace.exists(), "the workspace")
    wait_until_still()
    key("Return")
    program.window(TITLE)
    for kind in ("templates", "codesets"):
        check_folder(f"the workspace has the bundled {kind}", workspace / kind, bundled / kind)


def save_copy(program, documents, bundled):
    press("Save a copy")
    program.window("Save as")
    key("Return")
    program.wait_until_closed("Save as")
    copy = documents / BUNDLED_NAME
    wait(copy.exists, "the copy")
    check_file("the copy is the same file", copy, bundled)


def edit(program, file):
    title = f"Edit template - {BUNDLED_NAME}"
    press("Edit")
    program.window("Question")
    key("Left", "Return")
    program.window(title)
    key("ctrl+a")
    type_text("House inspection")
    icons = wait(lambda: whole_screen().menu_icons(), "the form")
    Mouse.click(*max(icons, key=lambda place: (place[0], -place[1])))  # the first row's: they stand at the right
    program.window("zanvel-templates-manager.exe")
    key("Home", "Return")  # Edit row header
    program.window("Enter multilingual text")
    key("ctrl+a")
    type_text("Street address")
    key("Return")
    program.wait_until_closed("Enter multilingual text")
    before = file.stat().st_mtime_ns
    key("shift+Tab", "shift+Tab", "shift+Tab", "space")  # Save template
    wait(lambda: file.exists() and file.stat().st_mtime_ns != before, "the file to be written")
    program.wait_until_closed(title)


def main():
    installation = pathlib.Path(sys.argv[1]).resolve()
    os.environ.pop("WINEPATH", None)
    screen = Screen(("us",))
    documents = pathlib.Path(screen.folder) / "Mina dokument åäö 日本"
    documents.mkdir()
    workspace = documents / "Zanvel Workspace"
    file = workspace / "templates" / BUNDLED_NAME
    bundled = (installation / "templates" / BUNDLED_NAME).read_bytes()
    run_in_wine("reg", "add", SHELL_FOLDERS, "/v", "Personal", "/d", on_drive(documents), "/f")
    run_in_wine("reg", "delete", PROGRAM_KEY, "/f")

    program = Program(screen, ["wine", str(installation / "zanvel-templates-manager.exe")])
    go_through_assistant(program, workspace, installation)
    save_copy(program, documents, bundled)
    edit(program, file)
    check_end(program, TITLE)
    changed = bundled.replace(b">Building inspection<", b">House inspection<", 1)
    check_file("the file has just what was changed", file, changed.replace(FIRST_HEADER, b">Street address<", 1))
    status, output = run_in_wine(str(installation / "zanvel-template.exe"), "check", on_drive(file))
    check("the companion accepts the file", status == 0 and "ok" in output, output)


if __name__ == "__main__":
    main()
