"""The program's own windows: what stands in them, and where that is which the accessibility tree leaves out."""
import re

from checks import check
from driver import Grab, Mouse, key, wait

TITLE = "Zanvel Templates Manager"
ART = "Condition report for works of art (Zanvel) 1.0"
BUILDING = "Building inspection (Zanvel) 1.0"
DWELLING = "Dwelling hand-over (Zanvel) 1.0"
VEHICLE = "Vehicle hand-over (Zanvel) 1.0"
LANGUAGES = ["English/United Kingdom [en-uk]", "Swedish [sv]", "German/Germany [de-de]"]


def open_main_window(program):
    """The window after a start; at the first one the assistant's proposals are accepted."""
    window = program.window("Zanvel")
    if window.name == "Zanvel":
        for button in ("Next", "Apply", "Close"):
            window.find("push button", button).click()
        program.wait_until_closed(window)
    return program.window(TITLE)


def field_of(window, title):
    """The input in the frame with this title."""
    return window.find("panel", re.compile(re.escape(title))).find("text")


def click_button_beside_tabs(window, index):
    """"New" and "From template" stand at the end of the tabs."""
    x, y, width, _ = window.find("page tab list").settled_rectangle()
    Mouse.click(x + width - (165, 65)[index], y + 20)


def choose_language(combo, language):
    """By the keys, as the list may be higher than the screen."""
    combo.click()
    items = combo.find("menu").children
    index = [item.name for item in items].index(language)
    way_up = len(items) - 1 - index
    key(*(["Home"] + ["Down"] * index if index < way_up else ["End"] + ["Up"] * way_up))
    wait(lambda: items[index].selected, lambda: f"{language} to be selected")
    key("Return")


def press(program, title, button):
    """Clicks a button of the window with this title (of a message: text), which closes it."""
    window = program.window(title)
    window.find("push button", re.compile(button)).click()
    program.wait_until_closed(window)


def fill(box, texts):
    """Types texts, in the order of LANGUAGES, in place of what a multilingual input holds, which has at most one."""
    first, *others = texts
    box.find("text").set_text(first)
    for number, text in enumerate(others, 1):
        box.find("push button", "Add a language").click()
        wait(lambda: len(box.find_all("combo box")) > number, "a new row")
        choose_language(box.find("combo box"), LANGUAGES[number])  # the tree begins with the latest row
        box.find("text", LANGUAGES[number]).type_over(text)


class Form:
    """The drawn form of the page that shows. Its parts are told by their menu icons: what they are called, and what
    comes after what, is for the script to know. It says so as "Basic data / Object: Address, Owner / Contact:":
    headers between slashes, each with its rows."""

    def __init__(self, program, window):
        self.program = program
        self.window = window
        self.parts = []
        self.grab = None

    def look(self):
        return Grab(self.window.find("page tab list").find("scroll pane").find("unknown").rectangle)

    def shows(self, outline):
        """Waits until the form has changed, and into this."""
        before = self.grab
        self.parts = []
        for section in outline.split(" / "):
            header, _, rows = section.partition(":")
            self.parts += [header, *re.findall(r"[^, ][^,]*", rows)]

        def look():
            grab = self.look()
            count = len(grab.menu_icons())
            return grab if grab != before and count == len(self.parts) and grab == self.look() else None
        self.grab = wait(look, lambda: f"the form {outline!r}, not {len(self.look().menu_icons())} parts")

    def is_as_before(self):
        wait(lambda: self.look() == self.grab, "the form as it was")

    def open_menu(self, part):
        Mouse.click(*self.grab.menu_icons()[self.parts.index(part)])
        return self.program.menu()

    def choose(self, part, entry):
        self.open_menu(part).find("menu item", entry).click()

    def check_menu(self, part, expected):
        """Entries that cannot be chosen stand in brackets; nothing is chosen."""
        check_menu(f"the menu of {part}", self.open_menu(part), expected)
        self.is_as_before()


def check_menu(what, menu, expected):
    shown = ["-" if item.role == "separator" else item.name if item.sensitive else f"({item.name})"
             for item in menu.children]
    check(what, shown == expected.split(", "), shown)
    key("Escape")
    wait(lambda: not menu.showing, "the menu to close")
