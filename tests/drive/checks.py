"""Counts what a script finds out, and prints it line by line."""
import difflib

from screen import key


class Counts:
    passed = 0
    failed = 0


def check(what, condition, detail=""):
    if condition:
        Counts.passed += 1
    else:
        Counts.failed += 1
    print(f"ok      {what}" if condition else f"FAILED  {what} {detail}", flush=True)


def check_file(what, file, expected):
    lines = [bytes_.decode("latin-1").splitlines(keepends=True) for bytes_ in (expected, file.read_bytes())]
    difference = difflib.unified_diff(*lines, "expected", "found", n=1)
    check(what, lines[0] == lines[1], "\n" + "".join(difference))


def check_folder(what, folder, expected):
    names, expected_names = [sorted(file.name for file in each.iterdir()) for each in (folder, expected)]
    check(what, names == expected_names and
          all((folder / name).read_bytes() == (expected / name).read_bytes() for name in names), names)


def check_end(program, title):
    """Closes the last window, which has this title."""
    program.window(title)
    key("alt+F4")
    check("the program ends well", program.wait_until_ended() == 0, program.output)
    check("the toolkit had nothing to say", not program.complaints, program.complaints)


def finish():
    """Prints the counts; returns the exit status."""
    print(f"{Counts.passed} passed, {Counts.failed} failed")
    return 1 if Counts.failed else 0
