#!/usr/bin/env python3
"""Takes the pictures of the windows that README.md shows. See scripts/screenshots.

    tests/drive/take_screenshots.py INSTALLATION PICTURES
"""
import pathlib
import sys

from driver import Desktop, Program

# The ending of the pictures' names, the user's language, and what it shows of a template.
LANGUAGES = [
    ("", "en_GB", "Building inspection", "Condition survey"),
    ("_sv", "sv", "Byggnadsbesiktning", "Statusbesiktning"),
]


def take_pictures(desktop, installation, pictures, language):
    ending, locale, name, report_type = language
    program = Program(desktop, [str(installation / "zanvel-templates-manager")], {"LANGUAGE": locale})
    main = program.window("Zanvel Templates Manager")
    main.find("table").click_row(f"{name} (Zanvel) 1.0")
    program.take_picture(main, pictures / f"main_window{ending}.png")

    main.find("push button", "Edit").click()
    program.window("This item was bundled with Zanvel.").find("push button", "Yes").click()
    editing = program.window("Edit template - building_inspection.template")
    program.resize_active_window(860, 980)
    editing.find("page tab", report_type).click()
    program.take_picture(editing, pictures / f"editing_window{ending}.png")
    program.stop()


def main():
    installation, pictures = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    desktop = Desktop()
    for language in LANGUAGES:
        take_pictures(desktop, installation, pictures, language)


if __name__ == "__main__":
    main()
