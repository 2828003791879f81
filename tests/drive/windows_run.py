#!/usr/bin/env python3
"""A short visit to the program for Windows, from outside and under Wine: the assistant, saving a copy through Windows'
own dialog, deleting, adding what was bundled, editing with a menu on the drawn form, and the end.

    tests/drive/windows_run.py FOLDER    the folder with the unpacked program; WINEPREFIX names a prefix of its own

There is no accessibility tree, so what happens is told by windows' titles, by pictures and by files. Prints one line
per check and the counts; the exit status is non-zero if one failed. A window that does not come ends the run.
"""
import os
import pathlib
import re
import signal
import subprocess
import sys
import time

from checks import check, check_file, finish
from screen import Grab, Mouse, Process, Screen, key, output_of, run, type_text, wait

TIME_LIMIT_S = 280
START_LIMIT_S = 90
TITLE = "Zanvel Templates Manager"
SHELL_FOLDERS = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders"
PROGRAM_KEY = r"HKCU\Software\Zanvel"
BUNDLED_NAME = "building_inspection.template"  # the first of the list
FIRST_ROW = ("100", "45")  # in the main window
TABS_TO_BUTTON = {"Add bundled": 3, "Edit": 6, "Save a copy": 7, "Delete": 8}  # the list's header comes first


def on_drive(path):
    """A path of this system as Wine has it."""
    return "Z:" + str(path).replace("/", "\\")


def run_in_wine(*command):
    found = subprocess.run(["wine", *command], capture_output=True, check=False)
    return found.returncode, found.stdout.decode("utf-8", "replace")


class Program(Process):
    # Of a monitor that no driver knows, and of fonts that Wine does not list.
    known_complaint = "Failed to get device node property|assertion 'desc != NULL' failed"

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


def select_first_row():
    """A click gives the list the focus too, which the keys go on from."""
    number = output_of("xdotool", "search", "--onlyvisible", "--name", f"^{TITLE}").strip()
    run("xdotool", "mousemove", "--window", number, *FIRST_ROW, "click", "1")
    wait_until_still()


def press(button):
    """A button of the main window, with the first row of the list selected."""
    select_first_row()
    key(*["Tab"] * TABS_TO_BUTTON[button], "space")


def go_through_assistant(program, workspace, bundled):
    program.window("Zanvel", START_LIMIT_S)
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
        check(f"the workspace has the bundled {kind}", files_of(workspace / kind) == files_of(bundled / kind))
    check_registry(workspace)


def check_registry(workspace):
    """What the registry's own tool prints has not every character; what it exports has."""
    export = workspace.parent / "exported.reg"
    run_in_wine("reg", "export", PROGRAM_KEY, on_drive(export))
    found = export.read_text(encoding="utf-16")
    value = on_drive(workspace).replace("\\", "\\\\")
    check("the registry knows the workspace", f'"WorkspaceFolderPath"="{value}"' in found, found)


def files_of(folder):
    return {file.name: file.read_bytes() for file in folder.iterdir()}


def save_copy(program, documents, bundled):
    press("Save a copy")
    program.window("Save as")
    key("Return")
    program.wait_until_closed("Save as")
    copy = documents / BUNDLED_NAME
    wait(copy.exists, "the copy")
    check_file("the copy is the same file", copy, bundled)


def delete_and_add(program, file, bundled):
    press("Delete")
    program.window("Question")
    key("Left", "Return")
    wait(lambda: not file.exists(), "the file to be deleted")
    program.wait_until_closed("Question")
    press("Add bundled")
    program.window("Select one to add")
    key("End", "Home", "Return")
    wait(file.exists, "the file to be there again")
    program.wait_until_closed("Select one to add")
    check_file("a deleted bundled file can be added again", file, bundled)


def choose_for_first_row(program, steps_down):
    """Opens the menu of the form's first row, and goes down from its first entry to another."""
    icons = wait(lambda: whole_screen().menu_icons(), "the form")
    Mouse.click(*max(icons, key=lambda place: (place[0], -place[1])))  # those of the rows stand in a line at the right
    program.window("zanvel-templates-manager.exe")
    key("Home", *["Down"] * steps_down, "Return")
    program.wait_until_closed("zanvel-templates-manager.exe")


def edit(program, file):
    title = f"Edit template - {BUNDLED_NAME}"
    press("Edit")
    program.window("Question")
    key("Left", "Return")
    program.window(title)
    key("ctrl+a")
    type_text("House inspection")
    choose_for_first_row(program, 2)  # Move row down
    choose_for_first_row(program, 0)  # Edit row header
    program.window("Enter multilingual text")
    key("ctrl+a")
    type_text("Street address")
    key("Return")
    program.wait_until_closed("Enter multilingual text")
    before = file.stat().st_mtime_ns
    key("shift+Tab", "shift+Tab", "shift+Tab", "space")  # Save template
    wait(lambda: file.exists() and file.stat().st_mtime_ns != before, "the file to be written")
    program.wait_until_closed(title)


def change_as_edited(template):
    """What editing makes of the file: the name is another, the second row of the form comes first, with another
    header."""
    template = template.replace(b">Building inspection<", b">House inspection<", 1)
    first, second = re.findall(rb"\t\t\t<row>\n.*?</row>\n", template, re.S)[:2]
    return template.replace(first + second, second.replace(b">Address<", b">Street address<") + first, 1)


def check_end(program):
    program.window(TITLE)
    key("alt+F4")
    check("the program ends well", program.wait_until_ended() == 0, program.output)
    check("the toolkit had nothing to say", not program.complaints, program.complaints)


def main():
    signal.signal(signal.SIGALRM, lambda *_: sys.exit(f"The run takes longer than {TIME_LIMIT_S} s."))
    signal.alarm(TIME_LIMIT_S)
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
    delete_and_add(program, file, bundled)
    edit(program, file)
    check_end(program)
    check_file("the file has just what was changed", file, change_as_edited(bundled))
    status, output = run_in_wine(str(installation / "zanvel-template.exe"), "check", on_drive(file))
    check("the companion accepts the file", status == 0 and "ok" in output, output)
    return finish()


if __name__ == "__main__":
    sys.exit(main())
