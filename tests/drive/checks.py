"""What a script finds out, printed line by line; the first thing that is wrong ends the run."""
import difflib

from screen import key


def check(what, condition, detail=""):
    if not condition:
        raise AssertionError(f"{what} {detail}")
    print(f"ok      {what}", flush=True)


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
