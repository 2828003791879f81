#!/usr/bin/env python3
"""Takes the pictures of the windows that README.md shows (see scripts/screenshots), or of every window and menu of
the editor, to be looked at one by one.

    scripts/take_screenshots.py INSTALLATION PICTURES
    scripts/take_screenshots.py --every-window INSTALLATION PICTURES
"""
import multiprocessing
import pathlib
import re
import sys
import time

ROOT = pathlib.Path(__file__).parents[1]
sys.path.append(str(ROOT / "tests/drive"))
from driver import Desktop, Grab, Mouse, Program, key, run, wait  # noqa: E402
from editor import open_main_window, press  # noqa: E402

# The ending of the pictures' names, the user's language, and what it shows of a template.
LANGUAGES = [
    ("", "en_GB", "Building inspection", "Condition survey"),
    ("_sv", "sv", "Byggnadsbesiktning", "Statusbesiktning"),
]


def take_picture(window, path, margin_px=0):
    """The window with the frame that the desktop gives it, as a small PNG; the margin shows more of the screen."""
    x, y, width, height = window.settled_rectangle()
    x, y = max(x - margin_px, 0), max(y - margin_px, 0)
    width, height = width + 2 * margin_px, height + 2 * margin_px
    time.sleep(0.3)  # what the window shows may still be drawn
    run("import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage",
        "+dither", "-colors", "128", "-depth", "8", "-strip", path)


def take_pictures(desktop, installation, pictures, language):
    ending, locale, name, report_type = language
    program = Program(desktop, [str(installation / "zanvel-templates-manager")], {"LANGUAGE": locale})
    main = open_main_window(program)
    main.find("table").click_row(f"{name} (Zanvel) 1.0")
    take_picture(main, pictures / f"main_window{ending}.png")

    main.find("push button", "Edit").click()
    program.window("This item was bundled with Zanvel.").find("push button", "Yes").click()
    editing = program.window("Edit template - building_inspection.template")
    program.resize_active_window(860, 980)
    editing.find("page tab", report_type).click()
    take_picture(editing, pictures / f"editing_window{ending}.png")
    program.stop()


# The ending of the pictures' names, what the toolkit is told, the size of the theme's font, the screen and the window.
SETTINGS = [
    ("", {}, 11, (1280, 1024), None),
    ("_small", {}, 11, (640, 480), None),
    ("_large", {}, 11, (2560, 1600), (2560, 1560)),
    ("_scale2", {"GDK_SCALE": "2"}, 11, (2560, 2048), None),
    ("_font16", {}, 16, (1280, 1024), None),
]
LONG = "A text that is much longer than any window is wide, so that it must be cut or scrolled somewhere " * 3
MENUS = [  # Name, tab, and the icon's number on its page.
    ("segment", "Basic data", 0),
    ("block", "Basic data", 1),
    ("row", "Basic data", 2),
    ("titled_segment", "Condition survey", 1),
    ("add_segments", "Condition survey", 0),
]
# A template of our own: a name in every language there is, and parts without a header.
LANGUAGES_TABLE = (ROOT / "common/model/supported_languages.cc").read_text(encoding="utf-8")
ALL_LANGUAGES = re.findall(r'^    {"([-a-z]+)", "', LANGUAGES_TABLE, re.MULTILINE)
ROW = '<row><header lang="en-uk">Row</header><textfield/></row>'
BLOCK = f"<block>{ROW}{ROW}{ROW}</block>"
TEMPLATE = f"""<?xml version="1.0" encoding="iso-8859-1"?>
<template>{"".join(f'<name lang="{tag}">Name in {tag}</name>' for tag in ALL_LANGUAGES)}
<author lang="en-uk">Nobody</author><version>1.0</version>
<details>{BLOCK}{BLOCK}{BLOCK}</details>
<report-type><name lang="en-uk">First</name>{f"<segment><block>{ROW}</block></segment>" * 3}</report-type>
<report-type><name lang="en-uk">Second</name></report-type>
</template>
"""
MENUS_OF_UNTITLED = [
    ("untitled_block", "Basic data", 1),
    ("untitled_middle_block", "Basic data", 5),
    ("middle_row", "Basic data", 3),
    ("untitled_segment", "First", 1),
    ("untitled_middle_segment", "First", 4),
]


class EveryWindow:
    """One walk through the program."""

    def __init__(self, program, pictures, ending):
        self.program, self.pictures, self.ending = program, pictures, ending
        self.count = 0

    def take(self, name, window, margin_px=0):
        self.count += 1
        take_picture(window, self.pictures / f"{self.count:02}_{name}{self.ending}.png", margin_px)

    @staticmethod
    def icons_of_form(pane):
        """Once they rest."""
        def look():
            icons = Grab(pane.settled_rectangle()).menu_icons()
            return icons if icons == Grab(pane.rectangle).menu_icons() else None
        return wait(look, "the icons of a form")

    @staticmethod
    def show_page(editing, name):
        """By the keys if its tab is out of sight in a narrow window, next to the one that shows."""
        if editing.find_all("page tab", name):
            editing.find("page tab", name).click()
        else:
            editing.find("page tab").click()
            key("Left" if name == "Basic data" else "Right")
        return editing.find("page tab", name)

    def open_menu(self, editing, tab, number):
        self.show_page(editing, tab)
        pane = editing.find("page tab list").find("scroll pane")
        icons = self.icons_of_form(pane)
        if number >= len(icons):  # A small screen; what is wanted is a row, and rows come next.
            run("xdotool", "mousemove", *map(str, icons[-1]), "click", "5")
            number, icons = -1, self.icons_of_form(pane)
        Mouse.click(*icons[number])
        self.program.menu()

    def look_at_menus(self, editing, menus):
        for name, *place in menus:
            self.open_menu(editing, *place)
            self.take(f"menu_{name}", editing, 200)
            key("Escape")

    def look_at_window(self, editing, name, place, keys, title):
        """Opens the window of a menu's entry by the keyboard, shows it and closes it."""
        self.open_menu(editing, *place)
        key(*keys, "Return")
        window = self.program.window(title)
        self.take(name, window)
        return window

    def look_at_texts(self, window):
        for _ in range(5):
            window.find("push button", "Add a language").click()
        self.take("texts_many_rows", window)
        window.find_all("text")[0].set_text(LONG)
        self.take("texts_long", window)
        for _ in range(5):
            window.find("push button", re.compile("^Delete")).click()
        self.take("texts_shrunk", window)
        key("Escape")

    def look_at_pickers(self, editing):
        window = self.look_at_window(editing, "picker_template", ("Condition survey", 2), ["Down"] * 4,
                                     "Choose template")
        windows = [window]
        for title in ("Choose report type", "Choose segment", "Choose block", "Choose row"):
            table = window.find("table")
            table.click_row(table.rows()[0])
            window.find("push button", "OK").click()
            window = self.program.window(title)
            windows.append(window)
            self.take("picker_" + title.split()[1], window)
        for window in reversed(windows):
            key("Escape")
            self.program.wait_until_closed(window)

    def look_at_report_types(self, editing):
        tab = self.show_page(editing, "Condition survey")
        x, y, width, _ = editing.find("page tab list").settled_rectangle()
        Mouse.click(*Grab((x, y, width, 44 * Grab.scale)).menu_icons()[0])
        self.take("menu_tab", editing, 200)
        key("Escape")
        tab.click()  # The buttons follow the tabs when the focus goes on.
        key("Tab", "Tab", "space")
        self.take("report_type", self.program.window("Name the new report type"))
        key("Return")
        self.take("message_nothing_entered", self.program.window("You haven't entered anything."))
        key("Escape")
        window = self.program.window("Name the new report type")
        key("Escape")
        self.program.wait_until_closed(window)

    def look_at_new_file(self, main):
        main.find("push button", "Add new").click()
        window = self.program.window("Add new")
        self.take("add_new", window)
        window.find("push button", "OK").click()
        self.take("error", self.program.window("The file name must contain at least one character"))
        key("Escape")
        self.program.window("Add new")
        key("Escape")
        self.program.wait_until_closed(window)

    def look_at_own_template(self, main, size):
        folder = pathlib.Path(self.program.screen.home) / "Documents" / "Zanvel Workspace" / "templates"
        (folder / "own.template").write_text(TEMPLATE, encoding="latin-1")
        main.find("push button", "Refresh list").click()
        main.find("table").click_row("Name in en-uk (Nobody) 1.0")
        main.find("push button", "Edit").click()
        editing = self.program.window("Edit template - own.template")
        if size:
            self.program.resize_active_window(*size)
        self.take("all_languages", editing)
        x, y, width, _ = editing.rectangle
        run("xdotool", "mousemove", str(x + width // 2), str(y + 80 * Grab.scale), "click", "--repeat", "200",
            "--delay", "1", "5")
        self.take("all_languages_scrolled", editing)
        self.look_at_menus(editing, MENUS_OF_UNTITLED)

    def walk(self, size):
        assistant = self.program.window("Zanvel")
        self.take("introduction", assistant)
        for button, name in (("Next", "workspace_location"), ("Apply", "summary")):
            assistant.find("push button", button).click()
            assistant.find("push button", "Back" if button == "Next" else "Close")
            self.take(name, assistant)
        assistant.find("push button", "Close").click()
        main = self.program.window("Zanvel Templates Manager")
        self.take("list", main)
        self.look_at_new_file(main)
        self.look_at_bundled_template(main, size)
        self.look_at_own_template(main, size)

    def close(self, editing):
        key("alt+F4")  # as the button may be off a small screen
        self.take("question_close", self.program.window("Are you sure you want to close"))
        press(self.program, "Are you sure you want to close", "Close")
        self.program.wait_until_closed(editing)

    def look_at_bundled_template(self, main, size):
        main.find("table").click_row("Building inspection (Zanvel) 1.0")
        main.find("push button", "Edit").click()
        question = self.program.window("This item was bundled with Zanvel.")
        self.take("question", question)
        question.find("push button", "Yes").click()
        editing = self.program.window("Edit template - building_inspection.template")
        if size:
            self.program.resize_active_window(*size)
        self.take("editing", editing)
        self.look_at_form(editing)
        self.close(editing)

    def look_at_form(self, editing):
        self.look_at_menus(editing, MENUS)
        row = ("Basic data", 2)
        self.look_at_texts(self.look_at_window(editing, "texts", row, ["Down"], "Enter multilingual text"))
        self.look_at_window(editing, "fields", row, ["Down"] * 2, "Set up fields")
        key("Escape")
        self.look_at_window(editing, "question_delete", row, ["Up"] * 3, "Do you really want to delete this row?")
        key("Escape")
        self.look_at_pickers(editing)
        self.look_at_report_types(editing)


def take_pictures_of_every_window(installation, pictures, setting):
    ending, environment, font, screen, size = setting
    desktop = Desktop(*screen)
    with open(f"{desktop.home}/.config/gtk-3.0/settings.ini", "a", encoding="ascii") as file:
        file.write(f"gtk-font-name=Sans {font}\n")
    program = Program(desktop, [str(installation / "zanvel-templates-manager")],
                      {"LANGUAGE": "en_GB", **environment})
    Grab.scale = int(environment.get("GDK_SCALE", 1))
    try:
        EveryWindow(program, pictures, ending).walk(size)
    finally:
        desktop.stop()  # A process of this kind ends without calling what waits for its end.


def main():
    arguments = sys.argv[1:]
    every_window = arguments[0] == "--every-window"
    installation, pictures = (pathlib.Path(argument).resolve() for argument in arguments[-2:])
    pictures.mkdir(parents=True, exist_ok=True)
    if every_window:
        for setting in SETTINGS:  # One desktop per process.
            process = multiprocessing.Process(target=take_pictures_of_every_window,
                                              args=(installation, pictures, setting))
            process.start()
            process.join()
        return
    desktop = Desktop()
    for language in LANGUAGES:
        take_pictures(desktop, installation, pictures, language)


if __name__ == "__main__":
    main()
