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
    "bench": ["bench", "app", *GUI],
    "tests": ["tests", "bench", "app", "tools", *GUI],
}
TOOLKIT = re.compile(r"gtk/|gdk/|gspell/")
TOOLKIT_PLACES = ("common/gui", "app", "tests", "bench")
# What every system has: the standard library and what the program stands on. Any other header is a system's own.
SHARED = re.compile(r"[a-z_0-9]+$|(cairo(-pdf|-svg)?|glib|glib-object|zip)\.h$|gdk/gdkkeysyms\.h$|gio/gio\.h$"
                    r"|glib/gstdio\.h$|(gspell|gtest|gtk|libxml|libxslt|pango)/")
POSIX = re.compile(r"(dirent|dlfcn|grp|poll|pthread|pwd|signal|spawn|termios|unistd|cairo-ft)\.h$"
                   r"|(arpa|fontconfig|linux|net|netinet|sys)/|gio/gunix")
WINDOWS = re.compile(r"(accctrl|aclapi|cderr|commctrl|commdlg|direct|io|objbase|process|sddl|share|shellapi|shlobj|winreg"
                     r"|windows|windowsx|cairo-win32)\.h$|gdk/gdkwin32", re.I)
SYSTEM_MACRO = re.compile(r"\b(_WIN32|WIN32|_WIN64|__MINGW\w+|_MSC_VER|__(linux|unix)(__)?|__APPLE__|G_OS_\w+|GDK_WINDOWING_\w+)\b")
COMMENT = re.compile(r"//.*")
CONDITIONAL = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')


def place_of(path):
    return next((place for place in ALLOWED if path.startswith(place + "/")), None)


def faults_of_line(path, line):
    """The faults of one line of the file with this path, both relative to the root."""
    parts = path.split("/")
    place = place_of(path)
    if place is not None and CONDITIONAL.match(line):
        yield "conditional compilation; let the build choose between posix/ and win32/"
    elif macro := SYSTEM_MACRO.search(COMMENT.sub("", line)):
        yield f"{macro[0]} tells the systems apart; let the build choose between posix/ and win32/"
    match = INCLUDE.match(line)
    if not match:
        return
    quote, name = match.groups()
    if quote == '"':
        target = place_of(name)
        if place is None:
            return
        if target is None:
            yield f'"{name}" is not given from the root folder'
        elif not any(name.startswith(allowed + "/") for allowed in ALLOWED[place]):
            yield f'"{name}" stands on a higher floor'
        return
    if place is not None and TOOLKIT.match(name) and not path.startswith(TOOLKIT_PLACES):
        yield f"<{name}> belongs to the windows' floors"
    if "posix" in parts:
        if WINDOWS.match(name):
            yield f"<{name}> belongs into a win32/ folder"
    elif "win32" in parts:
        if POSIX.match(name):
            yield f"<{name}> belongs into a posix/ folder"
    elif WINDOWS.match(name) or POSIX.match(name) or place is not None and not SHARED.match(name):
        yield f"<{name}> belongs into a posix/ or win32/ folder"


def check(root):
    faults = []
    for folder in sorted(root.iterdir()):
        if not folder.is_dir() or folder.name == "build" or folder.name.startswith("."):
            continue
        for file in sorted(folder.rglob("*")):
            if file.suffix not in (".h", ".c", ".cc"):
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
    ("common/gui/a.cc", "#include <fcntl.h>"),
    ("common/gui/a.h", "#include <cairo-ft.h>"),
    ("common/gui/a.cc", "#include <Windows.h>"),
    ("common/gui/a.cc", "#include <gdk/gdkwin32.h>"),
    ("common/gui/posix/a.cc", "#include <windows.h>"),
    ("common/base/win32/a.cc", "#include <sys/file.h>"),
    ("tests/app/a_test.cc", "#include <sys/wait.h>"),
    ("tests/support/a.h", "#include <io.h>"),
    ("tools/a.cc", "#include <semaphore.h>"),
    ("bench/a.cc", "#  include <sys/resource.h>"),
    ("app/a.cc", "#ifdef _WIN32"),
    ("app/a.cc", "#if __has_include(<windows.h>)"),
    ("app/win32/a.cc", "#elif defined(G_OS_UNIX)"),
    ("tests/gui/a_test.cc", "constexpr bool is_windows = G_DIR_SEPARATOR == 92 || G_OS_WIN32;"),
    ("app/a.h", '#include "tests/support/sandbox.h"'),
    ("packaging/a.c", "#include <windows.h>"),
]
INNOCENT = [
    ("app/a.cc", '#include "common/gui/gui.h"'),
    ("app/a.cc", "// Where the toolkit says G_OS_WIN32, we have a folder."),
    ("common/base/a.cc", "#include <cstdio>"),
    ("common/base/posix/a.cc", "#include <sys/stat.h>"),
    ("common/base/win32/a.cc", "#include <windows.h>"),
    ("common/gui/a.cc", "#include <gtk/gtk.h>"),
    ("tests/app/posix/a_test.cc", "#include <sys/wait.h>"),
    ("tests/base/win32/a_test.cc", "#include <fcntl.h>"),
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
