"""Makes a template from nothing, by clicking alone: three report types and what goes into them, in three languages,
with parts taken over from the bundled templates.

The file must be, byte for byte, expected/by_clicking.template, which also holds what is taken over: it changes with
those parts of the bundled templates. No form may have to be scrolled, so the screen must be high.
"""
import pathlib
import re

from checks import check_file
from driver import Grab, Mouse, key, wait
from editor import (ART, BUILDING, DWELLING, LANGUAGES, VEHICLE, Form, check_menu, choose_language,
                    click_button_beside_tabs, field_of, fill, press)

FILE_NAME = "by_clicking.template"
TEXTS = "Enter multilingual text"
BASIC_DATA = ("Basic data / Untitled: Telephone / Object: Address, Owner, Scope / Inspection: 1, 2, 3 / "
              "Vehicle: 1, 2, 3, 4, 5, 6, 7 / Parties: 1, 2, 3, 4, 5")


class Story:
    """One run of the editing window."""

    def __init__(self, program):
        self.program = program
        self.window = program.window(f"Edit template - {FILE_NAME}")
        program.resize_active_window(1200, 1800)
        self.form = Form(program, self.window)

    def press(self, title, button):
        press(self.program, title, button)

    def enter(self, *texts, title=TEXTS):
        fill(self.program.window(title), texts)
        self.press(title, "OK")

    def work(self, part, entry, texts, outline):
        """Picks an entry, enters what its window asks for, if it has one, and waits for the form to become this."""
        self.form.choose(part, entry)
        if texts is not None:
            self.enter(*texts)
        self.form.shows(outline)

    def refuse_empty(self, title=TEXTS):
        self.program.window(title).find("push button", "OK").click()
        self.press("You haven't entered anything.", "OK")

    def delete(self, part, entry, question):
        """Says no first."""
        self.form.choose(part, entry)
        self.press(question, "No")
        self.form.is_as_before()
        self.form.choose(part, entry)
        self.press(question, "Yes")

    def pick(self, template, *steps):
        """Walks through the windows that lead to a part of another template."""
        for title, line in (("Choose template", template), *steps):
            window = self.program.window(title)
            window.find("table").click_row(line)
            window.find("push button", "OK").click()

    def read(self, part, entry, template, steps, outline):
        """Picks an entry that copies, and what it copies, and waits for the form to become this."""
        self.form.choose(part, entry)
        self.pick(template, *steps)
        self.form.shows(outline)

    def tab_icon(self, index):
        x, y, width, _ = self.window.find("page tab list").settled_rectangle()
        return wait(lambda: Grab((x, y, width, 44)).menu_icons()[index:], f"the tab of report type {index}")[0]

    def choose_in_tab(self, index, entry):
        Mouse.click(*self.tab_icon(index))
        self.program.menu().find("menu item", entry).click()

    def wait_for_tabs(self, *names):
        def shown():
            return [tab.name for tab in self.window.find("page tab list").find_all("page tab")]
        wait(lambda: shown() == ["Basic data", *names], lambda: f"the tabs {names}, not {shown()}")

    def fill_in_names(self):
        save = self.window.find("push button", "Save template")
        save.click()
        self.press("The template must have a name.", "Close")
        box = self.window.find("panel", re.compile("Template name"))
        fill(box, ["House inspection", "Husbesiktning", "Hausbesichtigung"])
        combo = box.find("combo box")
        choose_language(combo, LANGUAGES[0])
        save.click()
        self.press('Language "en-uk" appears several times.', "Close")
        choose_language(combo, LANGUAGES[2])
        save.click()
        self.press("The template must have at least one report type.", "Close")
        field_of(self.window, "Author").set_text("Eva Åkesson & Co")
        field_of(self.window, "Version").set_text("  2.0  b ")
        field_of(self.window, "Codeset file name(s)").set_text("building_defects.codeset ,, our  own.codeset ,")

    def make_basic_data(self):
        form = self.form
        form.shows("Basic data")
        form.check_menu("Basic data", "Add block, -, Read one block from a template, "
                        "Read all basic data blocks from a template")
        self.work("Basic data", "Add block", ["Object", "Objekt", "Objekt"], "Basic data / Object")
        form.choose("Object", "Add row")
        self.refuse_empty()
        self.enter("Address", "Gatuadress", "Adresse")
        form.shows("Basic data / Object: Address")
        form.choose("Object", "Add block above")
        self.press(TEXTS, "OK")
        form.shows("Basic data / Untitled / Object: Address")
        self.work("Untitled", "Set block header", ["Contact"], "Basic data / Contact / Object: Address")
        self.work("Object", "Move block up", None, "Basic data / Object: Address / Contact")
        self.work("Contact", "Add block below", ["Scrap"], "Basic data / Object: Address / Contact / Scrap")
        self.delete("Scrap", "Delete block", "Do you really want to delete this entire block?")
        form.shows("Basic data / Object: Address / Contact")
        form.check_menu("Contact", "Edit block header, Delete block header, Add row, -, Read one row from a template, "
                        "-, Move block up, (Move block down), Delete block, -, Add block above, Add block below")
        self.work("Contact", "Edit block header", ["Contacts", "Kontakter"], "Basic data / Object: Address / Contact")
        self.delete("Contact", "Delete block header", "Do you really want to delete the block header?")
        form.shows("Basic data / Object: Address / Untitled")
        self.work("Object", "Move block down", None, "Basic data / Untitled / Object: Address")
        self.work("Untitled", "Add row", ["Telephone"], "Basic data / Untitled: Telephone / Object: Address")

    def make_rows(self):
        form = self.form
        form.check_menu("Address", "Edit row header, Set up fields, -, (Move row up), (Move row down), Delete row, -, "
                        "Add row above, Add row below")
        self.work("Address", "Add row below", ["Owner", "Ägare", "Besitzer"],
                  "Basic data / Untitled: Telephone / Object: Address, Owner")
        self.work("Address", "Add row above", ["Date"],
                  "Basic data / Untitled: Telephone / Object: Date, Address, Owner")
        self.work("Date", "Move row down", None, "Basic data / Untitled: Telephone / Object: Address, Date, Owner")
        self.work("Owner", "Move row up", None, "Basic data / Untitled: Telephone / Object: Address, Owner, Date")
        self.delete("Date", "Delete row", "Do you really want to delete this row?")
        form.shows("Basic data / Untitled: Telephone / Object: Address, Owner")

    def set_up_fields(self):
        form = self.form
        form.choose("Address", "Set up fields")
        window = self.program.window("Set up fields")
        window.find("push button", "Add checkbox").click()
        self.refuse_empty("Add checkbox")
        self.enter("Detached", "Fristående", "Freistehend", title="Add checkbox")
        window.find("push button", "Add checkbox").click()
        self.enter("Terraced", title="Add checkbox")
        window.find("push button", "Add text field").click()
        for button in ("Delete", "Move up"):  # Terraced is selected then, and goes above Detached.
            window.find("push button", button).click()
        window.find("push button", "Edit").click()
        self.enter("In a row", "I rad", "In Reihe", title="Edit checkbox")
        window.find("table").click_row("Text field")
        window.find("push button", "Move down").click()
        self.press("Set up fields", "OK")
        form.shows("Basic data / Untitled: Telephone / Object: Address, Owner")

    def copy_basic_data(self):
        self.read("Object", "Read one row from a template", BUILDING,
                  [("Choose block", "Commission"), ("Choose row", "Scope and limitations")],
                  "Basic data / Untitled: Telephone / Object: Address, Owner, Scope")
        self.read("Basic data", "Read one block from a template", DWELLING, [("Choose block", "Inspection")],
                  "Basic data / Untitled: Telephone / Object: Address, Owner, Scope / Inspection: 1, 2, 3")
        self.read("Basic data", "Read all basic data blocks from a template", VEHICLE, [], BASIC_DATA)

    def make_report_type(self):
        form = self.form
        click_button_beside_tabs(self.window, 0)
        self.refuse_empty("Name the new report type")
        self.enter("Moving in", "Inflyttning", "Einzug", title="Name the new report type")
        form.shows("Add segments")
        form.check_menu("Add segments", "Add segment, -, Read one segment from a template, "
                        "Read all segments of one report type from a template")
        self.work("Add segments", "Add segment", ["Rooms", "Rum", "Zimmer"], "Add segments / Rooms")
        form.choose("Rooms", "Add segment below")
        self.press(TEXTS, "OK")
        form.shows("Add segments / Rooms / Untitled")
        form.check_menu("Rooms", "Edit segment header, Delete segment header, Add block, -, Read one block from a "
                        "template, -, (Move segment up), Move segment down, Delete segment, -, "
                        "Add segment above, Add segment below")
        self.work("Rooms", "Add segment above", ["Garden"], "Add segments / Garden / Rooms / Untitled")
        self.work("Garden", "Move segment down", None, "Add segments / Rooms / Garden / Untitled")
        self.work("Untitled", "Move segment up", None, "Add segments / Rooms / Untitled / Garden")
        self.work("Untitled", "Set segment header", ["Cellar"], "Add segments / Rooms / Cellar / Garden")
        self.work("Garden", "Edit segment header", ["Yard"], "Add segments / Rooms / Cellar / Yard")
        self.delete("Cellar", "Delete segment header", "Do you really want to delete the segment header?")
        form.shows("Add segments / Rooms / Untitled / Yard")
        self.delete("Yard", "Delete segment", "Do you really want to delete this entire segment?")
        form.shows("Add segments / Rooms / Untitled")
        self.work("Rooms", "Add block", ["Walls", "Väggar", "Mauern"], "Add segments / Rooms / Walls / Untitled")

    def copy_into_report_type(self):
        form = self.form
        windows = (("Choose report type", "Damage report"), ("Choose segment", "Damage"),
                   ("Choose block", "Damage to the vehicle"), ("Choose row", "Roadworthy"))
        rooms = "Add segments / Rooms / Walls: Roadworthy"
        self.read("Walls", "Read one row from a template", VEHICLE, windows, f"{rooms} / Untitled")
        self.read("Rooms", "Read one block from a template", DWELLING,
                  [("Choose report type", "Moving in"), ("Choose segment", "Meters and keys"),
                   ("Choose block", "Keys")], f"{rooms} / Keys: 1, 2, 3, 4 / Untitled")
        self.read("Add segments", "Read one segment from a template", BUILDING,
                  [("Choose report type", "Moisture investigation"), ("Choose segment", "Measurements")],
                  f"{rooms} / Keys: 1, 2, 3, 4 / Untitled / Measurements / Readings: 1, 2, 3, 4, 5, 6")

    def make_other_report_types(self):
        form = self.form
        click_button_beside_tabs(self.window, 1)
        self.pick(BUILDING, ("Choose report type", "Moisture investigation"))
        form.shows("Add segments / Damage / Background: 1, 2, 3, 4 / Cause: 1, 2 / Measurements / "
                   "Readings: 1, 2, 3, 4, 5, 6 / Measures / Drying and repair: 1, 2, 3, 4")
        self.wait_for_tabs("Moving in", "Moisture investigation")

        click_button_beside_tabs(self.window, 0)
        self.enter("Trial", title="Name the new report type")
        form.shows("Add segments")
        self.read("Add segments", "Read all segments of one report type from a template", ART,
                  [("Choose report type", "Packing and transport")],
                  "Add segments / Packing / Crate: 1, 2, 3, 4 / Arrival / Monitoring: 1, 2, 3 / Handover: 1, 2, 3, 4")
        self.choose_in_tab(2, "Rename")
        self.enter("Moving out", "Utflyttning", "Auszug", title="Rename the report type")
        self.wait_for_tabs("Moving in", "Moisture investigation", "Moving out")

    def arrange_report_types(self):
        Mouse.click(*self.tab_icon(0))
        check_menu("the menu of the first tab", self.program.menu(),
                   "Rename, -, (Move left), Move right, Erase")
        self.choose_in_tab(2, "Move left")
        self.wait_for_tabs("Moving in", "Moving out", "Moisture investigation")
        self.choose_in_tab(0, "Move right")
        self.wait_for_tabs("Moving out", "Moving in", "Moisture investigation")
        click_button_beside_tabs(self.window, 0)
        self.enter("Scrap", title="Name the new report type")
        self.wait_for_tabs("Moving out", "Moving in", "Moisture investigation", "Scrap")
        for answer in ("No", "Yes"):
            self.choose_in_tab(3, "Erase")
            self.press("Do you really want to delete this entire report type?", answer)
        self.wait_for_tabs("Moving out", "Moving in", "Moisture investigation")

    def save(self, file):
        """Over one that somebody else has put there meanwhile."""
        file.write_bytes(b"")
        self.window.find("push button", "Save template").click()
        self.press("A file with that name already exists. Really overwrite?", "Yes")
        self.program.wait_until_closed(self.window)


def make_template(program, folder):
    """In the window that edits the new file."""
    story = Story(program)
    story.fill_in_names()
    story.make_basic_data()
    story.make_rows()
    story.set_up_fields()
    story.copy_basic_data()
    story.make_report_type()
    story.copy_into_report_type()
    story.make_other_report_types()
    story.arrange_report_types()
    story.save(folder / FILE_NAME)
    expected = pathlib.Path(__file__).parent / "expected" / FILE_NAME
    check_file("the file is the expected one", folder / FILE_NAME, expected.read_bytes())
