"""Drives the program from outside, as a person would: mouse and keys through xdotool, reading through the
accessibility tree, pictures by ImageMagick, all on a private virtual desktop with a home folder of its own.

    desktop = Desktop()
    program = Program(desktop, ["build/stage/zanvel-templates-manager"], {"LANGUAGE": "sv"})
    program.window("Zanvel Templates Manager").find("push button", "Edit").click()

One desktop per process; it ends, with everything started on it, when the process does. Whatever is looked for
is waited for, so that no script needs a pause of its own.
"""
import atexit
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import warnings

try:
    import gi
except ImportError:  # a Python that is not the distribution's own
    sys.path.append("/usr/lib/python3/dist-packages")
    import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)

TIMEOUT_S = float(os.environ.get("DRIVE_TIMEOUT", 20))
DOUBLE_CLICK_S = 0.45
OUT_OF_SIGHT = -9999  # cells that are scrolled away report extreme places

WINDOW_MANAGER = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew><focusLast>yes</focusLast></focus>
<desktops><number>1</number></desktops>
<placement><policy>Smart</policy><center>yes</center></placement>
<keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
<mouse><context name="Client"><mousebind button="Left" action="Press"><action name="Focus"/><action name="Raise"/>
</mousebind></context></mouse>
<applications><application class="*"><position force="no"><x>center</x><y>center</y></position></application>
</applications></openbox_config>
"""


def wait(condition, what, timeout_s=TIMEOUT_S):
    """Asks until the answer is true, and returns it."""
    end = time.monotonic() + timeout_s
    while True:
        try:
            answer = condition()
        except GLib.Error:  # a widget went away while being looked at
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise TimeoutError("waited in vain for " + (what() if callable(what) else what))
        time.sleep(0.03)


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def key(*names):
    run("xdotool", "key", "--delay", "5", *names)


def type_text(text):
    """Types characters of the Swedish key map; the desktop has loaded it."""
    run("xdotool", "type", "--delay", "2", "--", text)


class Mouse:
    last_time = 0.0
    last_place = (-99, -99)

    @classmethod
    def click(cls, x, y):
        """Never so soon after a click at the same place that the two make a double click."""
        if max(abs(x - cls.last_place[0]), abs(y - cls.last_place[1])) < 8:
            time.sleep(max(0, cls.last_time + DOUBLE_CLICK_S - time.monotonic()))
        run("xdotool", "mousemove", str(x - 1), str(y), "mousemove", str(x), str(y), "sleep", "0.02",
            "mousedown", "1", "sleep", "0.01", "mouseup", "1")
        cls.last_time = time.monotonic()
        cls.last_place = (x, y)


class Grab:
    """The shades of grey of a part of the screen."""

    def __init__(self, rectangle):
        self.left, self.top, self.width, self.height = rectangle
        self.shades = subprocess.run(
            ["import", "-silent", "-window", "root", "-crop",
             f"{self.width}x{self.height}+{self.left}+{self.top}", "-colorspace", "gray", "-depth", "8", "gray:-"],
            capture_output=True, check=True).stdout

    def __eq__(self, other):
        return isinstance(other, Grab) and self.__dict__ == other.__dict__

    def place_of(self, index):
        return self.left + index % self.width, self.top + index // self.width

    def menu_icons(self):
        """The middles of the icons of three bars, line by line."""
        scale = Widget.scale
        bar = rb"(?<=[\xa1-\xff])[\0-\xa0]{%d,%d}(?=[\xa1-\xff])" % (9 * scale + 2, 11 * scale)  # soft if scaled
        bars = {found.start() for found in re.finditer(bar, self.shades)}
        tops = [bar for bar in sorted(bars) if bar - self.width not in bars and
                {bar + 4 * scale * self.width, bar + 8 * scale * self.width} <= bars]
        return [self.place_of(top + (4 * self.width + 5) * scale) for top in tops]


class Desktop:
    def __init__(self, width_px=1280, height_px=1024):
        self.processes = []
        self.folder = tempfile.mkdtemp(prefix="drive")
        self.home = f"{self.folder}/home"
        atexit.register(self.stop)
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self._make_home()
        self._set_environment()
        self._start_services(f"{width_px}x{height_px}x24")

    def _make_home(self):
        os.makedirs(f"{self.home}/.config/gtk-3.0")
        os.mkdir(f"{self.folder}/run", 0o700)
        with open(f"{self.home}/.config/gtk-3.0/settings.ini", "w", encoding="ascii") as file:
            file.write("[Settings]\ngtk-enable-animations=0\ngtk-cursor-blink=0\n")
        with open(f"{self.home}/.config/user-dirs.dirs", "w", encoding="ascii") as file:
            file.write('XDG_DOCUMENTS_DIR="$HOME/Documents"\n')
        with open(f"{self.folder}/openbox.xml", "w", encoding="ascii") as file:
            file.write(WINDOW_MANAGER)

    def _set_environment(self):
        for name in ("WAYLAND_DISPLAY", "AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE", "GTK_MODULES", "XAUTHORITY",
                     "G_DEBUG"):
            os.environ.pop(name, None)
        os.environ.update(
            HOME=self.home, XDG_RUNTIME_DIR=f"{self.folder}/run", XDG_CONFIG_HOME=f"{self.home}/.config",
            XDG_DATA_HOME=f"{self.home}/.local/share", XDG_CACHE_HOME=f"{self.home}/.cache",
            LC_ALL="C.UTF-8", GDK_BACKEND="x11", GSETTINGS_BACKEND="memory", GIO_USE_VFS="local",
            GTK_USE_PORTAL="0", GTK_IM_MODULE="gtk-im-context-simple", GTK_THEME="Adwaita")

    def _start_services(self, screen):
        os.environ["DISPLAY"] = ":" + self._start_and_read(
            lambda fd: ["Xvfb", "-displayfd", fd, "-screen", "0", screen, "-nolisten", "tcp", "-noreset",
                        "-dpi", "96"])
        # Before any program reads the key map.
        run("setxkbmap", "se", "-variant", "nodeadkeys")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._start_and_read(
            lambda fd: ["dbus-daemon", "--session", "--nofork", f"--print-address={fd}"])
        self.start(["openbox", "--sm-disable", "--config-file", f"{self.folder}/openbox.xml"])
        self.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        wait(lambda: "window id" in output_of("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")
        wait(lambda: "unix:" in output_of("xprop", "-root", "AT_SPI_BUS"), "the accessibility bus")
        Atspi.init()
        Atspi.set_timeout(5000, 15000)

    def _start_and_read(self, command_for_descriptor):
        """Starts a service that writes one line to a descriptor once it is ready, and returns that line."""
        reading, writing = os.pipe()
        self.start(command_for_descriptor(str(writing)), pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading, encoding="ascii") as file:
            return file.readline().strip() or sys.exit("A service of the virtual desktop did not start.")

    def start(self, command, **options):
        with open(f"{self.folder}/{os.path.basename(command[0])}.log", "ab") as log:
            process = subprocess.Popen(command, start_new_session=True, stdin=subprocess.DEVNULL,
                                       **{"stdout": log, "stderr": log, **options})
        self.processes.append(process)
        return process

    @staticmethod
    def end(process):
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(process.pid, number)
            except ProcessLookupError:
                pass
            try:
                process.wait(2)
                return
            except subprocess.TimeoutExpired:
                pass

    def stop(self):
        for process in reversed(self.processes):
            self.end(process)
        self.processes = []
        shutil.rmtree(self.folder, ignore_errors=True)


def is_named(wanted, name):
    """`wanted` is None for any name, a text for exactly that name, or a compiled pattern."""
    return wanted is None or (name == wanted if isinstance(wanted, str) else bool(wanted.search(name)))


class Widget:
    scale = 1  # Pixels of the screen to one of the program's, which is what it tells.

    def __init__(self, accessible):
        self.accessible = accessible

    def __eq__(self, other):
        return isinstance(other, Widget) and self.accessible == other.accessible

    def __hash__(self):
        return hash(self.accessible)

    def __repr__(self):
        return f"<{self.role} {self.name!r}>"

    def has_state(self, state):
        return self.accessible.get_state_set().contains(state)

    @property
    def role(self):
        return self.accessible.get_role_name() or ""

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def text(self):
        has_text = self.accessible.get_text_iface()
        return Atspi.Text.get_text(self.accessible, 0, -1) if has_text else self.name

    @property
    def showing(self):
        return self.has_state(Atspi.StateType.SHOWING)

    @property
    def sensitive(self):
        return self.has_state(Atspi.StateType.SENSITIVE)

    @property
    def selected(self):
        return self.has_state(Atspi.StateType.SELECTED)

    @property
    def children(self):
        count = self.accessible.get_child_count()
        return [Widget(child) for child in map(self.accessible.get_child_at_index, range(count)) if child]

    @property
    def rectangle(self):
        extents = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return tuple(self.scale * size for size in (extents.x, extents.y, extents.width, extents.height))

    def find_all(self, role=None, name=None):
        """What is showing below this widget, in the order of the tree; of a list's cells, only with their role."""
        found = []
        for child in self.children:
            try:
                if not child.showing:
                    continue
                if role in (None, child.role) and is_named(name, child.name):
                    found.append(child)
                if role == "table cell" or not child.has_state(Atspi.StateType.MANAGES_DESCENDANTS):
                    found += child.find_all(role, name)
            except GLib.Error:
                pass
        return found

    def find(self, role=None, name=None, index=0):
        return wait(lambda: self.find_all(role, name)[index:index + 1], lambda: f"{role} {name!r} in {self!r}")[0]

    def settled_rectangle(self):
        """Where the widget is, once it is on the screen and has stopped moving."""
        def stable():
            before = self.showing and self.rectangle
            time.sleep(0.025)
            return before if before and before == self.rectangle and before[0] > OUT_OF_SIGHT else None
        return wait(stable, lambda: f"{self!r} to be on the screen")

    def click(self):
        x, y, width, height = self.settled_rectangle()
        Mouse.click(x + width // 2, y + height // 2)

    def set_text(self, text):
        """Replaces the contents of an input by clicking in it and typing."""
        self.click()
        self.type_over(text)

    def type_over(self, text):
        """Replaces the contents of an input that has the focus, or is about to get it."""
        wait(lambda: self.has_state(Atspi.StateType.FOCUSED), lambda: f"focus in {self!r}")
        key("ctrl+a", "BackSpace")
        type_text(text)
        wait(lambda: self.text == text, lambda: f"{text!r} in {self!r}, not {self.text!r}")

    def rows(self, column=0):
        """The texts of one of a list's columns."""
        def text_of(cell):
            return cell.name or " ".join(filter(None, map(text_of, cell.children)))
        count = Atspi.Table.get_n_rows(self.accessible)
        return [text_of(Widget(Atspi.Table.get_accessible_at(self.accessible, row, column))) for row in range(count)]

    def click_row(self, text):
        row = wait(lambda: [i for i, t in enumerate(self.rows()) if t == text], lambda: f"{text!r} in {self.rows()}")
        Widget(Atspi.Table.get_accessible_at(self.accessible, row[0], 0)).click()
        wait(lambda: Atspi.Table.is_row_selected(self.accessible, row[0]), f"{text!r} to be selected")


class Program:
    def __init__(self, desktop, command, environment=None):
        self.desktop = desktop
        descriptor, self.log = tempfile.mkstemp(dir=desktop.folder, suffix=".log")
        self.process = desktop.start(command, env={**os.environ, **(environment or {})}, stdout=descriptor,
                                     stderr=subprocess.STDOUT)
        os.close(descriptor)

    @property
    def output(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    @property
    def complaints(self):
        """The toolkit's warnings, but for the one that reading a notebook from outside brings about."""
        return [line for line in self.output.splitlines()
                if re.search("WARNING|CRITICAL", line) and "gtk_notebook_get_tab_label" not in line]

    @property
    def exit_status(self):
        """None as long as the program runs."""
        return self.process.poll()

    def stop(self):
        self.desktop.end(self.process)

    @property
    def root(self):
        for child in Widget(Atspi.get_desktop(0)).children:
            try:
                if os.getpgid(child.accessible.get_process_id()) == self.process.pid:
                    return child
            except (GLib.Error, OSError):
                pass
        return None

    def windows(self):
        root = self.root
        # Pop-up menus and tool tips live in windows of their own.
        return [w for w in root.children if w.showing and w.role not in ("window", "tool tip")] if root else []

    @staticmethod
    def texts_of(window):
        """The title; of a message dialog, whose accessible name is its kind, also what it says."""
        if window.role != "alert":
            return [window.name]
        return [window.name] + [label.text for label in window.find_all("label")]

    def window(self, title):
        """The window whose title (or, of a message, text) contains this, once it is active and rests."""
        def look():
            if self.exit_status is not None:
                raise RuntimeError("The program has ended:\n" + self.output[-3000:])
            for window in reversed(self.windows()):
                if any(title in text for text in self.texts_of(window)) \
                        and window.has_state(Atspi.StateType.ACTIVE):
                    return window
            return None
        found = wait(look, lambda: f"window {title!r} among {[self.texts_of(w) for w in self.windows()]}")
        found.settled_rectangle()
        return found

    def menu(self):
        """The pop-up menu that is open."""
        def look():
            for window in self.root.children:
                if window.role == "window" and window.showing:
                    return window.find_all("menu")
            return None
        return wait(look, "a pop-up menu")[0]

    def wait_until_closed(self, window):
        wait(lambda: window not in self.windows(), lambda: f"{window!r} to close")

    def wait_until_ended(self):
        wait(lambda: self.exit_status is not None, "the program to end")
        return self.exit_status

    @staticmethod
    def resize_active_window(width_px, height_px):
        number = output_of("xdotool", "getactivewindow").strip()
        run("xdotool", "windowsize", "--sync", number, str(width_px), str(height_px))

    def take_picture(self, window, path, margin_px=0):
        """The window with the frame that the desktop gives it, as a small PNG; the margin shows more of the screen."""
        x, y, width, height = window.settled_rectangle()
        x, y = max(x - margin_px, 0), max(y - margin_px, 0)
        width, height = width + 2 * margin_px, height + 2 * margin_px
        time.sleep(0.3)  # what the window shows may still be drawn
        run("import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "+repage",
            "+dither", "-colors", "128", "-depth", "8", "-strip", path)
