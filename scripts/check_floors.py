#!/usr/bin/env python3
"""Checks that includes point downwards, and that only the files meant for it know which system they are on.

    check_floors.py              check the repository
    check_floors.py --self-test  check that each rule finds a planted fault
"""
import pathlib
import re
import sys
import tempfile

# Each place may include itself and what is named after it.
BASE = ["common/base"]
MODEL = ["common/model", *BASE]
WORKSPACE = ["common/workspace", *MODEL]
GUI = ["common/gui", *WORKSPACE]
ALLOWED = {
    "common/base": BASE,
    "common/model": MODEL,
    "common/workspace": WORKSPACE,
    "common/gui": GUI,
    "app": ["app", *GUI],
    "tools": ["tools", *GUI],
    "bench": ["bench", "tests/support", "app", *GUI],
    "tests": ["tests", "app", "tools", *GUI],
}
TOOLKIT = re.compile(r"gtk/|gdk/|gspell/")
TOOLKIT_PLACES = ("common/gui", "app", "tests", "bench")
POSIX = re.compile(r"(unistd|dirent|pwd|grp|poll|spawn|dlfcn|pthread|termios|langinfo)\.h$|sys/|linux/|netinet/|arpa/")
WINDOWS = re.compile(r"^(windows|windowsx|shlobj|shellapi|winreg|sddl|io|direct|objbase)\.h$", re.I)
EITHER_SYSTEM = re.compile(r"^fcntl\.h$")  # with other contents on each
CONDITIONAL = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def place_of(path):
    return next((place for place in ALLOWED if path.startswith(place + "/")), None)


def faults_of_line(path, line):
    """The faults of one line of the file with this path, both relative to the root."""
    parts = path.split("/")
    if CONDITIONAL.match(line):
        yield "conditional compilation; let the build choose between posix/ and win32/"
    match = INCLUDE.match(line)
    if not match:
        return
    quote, name = match.groups()
    if quote == '"':
        target = place_of(name)
        if target is None:
            yield f'"{name}" is not given from the root folder'
        elif not any(name.startswith(allowed + "/") for allowed in ALLOWED[place_of(path)]):
            yield f'"{name}" stands on a higher floor'
        return
    if TOOLKIT.match(name) and not path.startswith(TOOLKIT_PLACES):
        yield f"<{name}> belongs to the windows' floors"
    if POSIX.search(name) and "posix" not in parts and parts[0] != "tests":
        yield f"<{name}> belongs into a posix/ folder"
    if EITHER_SYSTEM.search(name) and not {"posix", "win32"} & set(parts):
        yield f"<{name}> belongs into a posix/ or win32/ folder"
    if WINDOWS.search(name) and "win32" not in parts:
        yield f"<{name}> belongs into a win32/ folder"


def check(root):
    faults = []
    for place in ALLOWED:
        for file in sorted((root / place).rglob("*")):
            if file.suffix not in (".h", ".cc"):
                continue
            path = file.relative_to(root).as_posix()
            for number, line in enumerate(file.read_text().splitlines(), 1):
                faults += [f"{path}:{number}: {fault}" for fault in faults_of_line(path, line)]
    return faults


PLANTED = [
    ("common/base/a.cc", '#include "common/model/langstr.h"'),
    ("common/model/a.cc", '#include "langstr.h"'),
    ("common/workspace/a.cc", "#include <gtk/gtk.h>"),
    ("common/gui/a.cc", "#include <unistd.h>"),
    ("common/gui/posix/a.cc", "#include <windows.h>"),
    ("common/gui/a.cc", "#include <fcntl.h>"),
    ("app/a.cc", "#ifdef _WIN32"),
    ("app/a.h", '#include "tests/support/sandbox.h"'),
]
INNOCENT = [
    ("app/a.cc", '#include "common/gui/gui.h"'),
    ("common/base/posix/a.cc", "#include <sys/stat.h>"),
    ("common/base/win32/a.cc", "#include <windows.h>"),
    ("common/gui/a.cc", "#include <gtk/gtk.h>"),
]


def self_test():
    failures = []
    for expected, cases in ((1, PLANTED), (0, INNOCENT)):
        for path, line in cases:
            with tempfile.TemporaryDirectory() as folder:
                file = pathlib.Path(folder) / path
                file.parent.mkdir(parents=True)
                file.write_text(line + "\n")
                found = check(pathlib.Path(folder))
                if len(found) != expected:
                    failures.append(f"{path}: {line}: found {found}, not {expected} fault(s)")
    return failures


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    problems = self_test() if "--self-test" in sys.argv[1:] else check(root)
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
