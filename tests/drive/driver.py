"""Drives the program from outside, as a person would, and reads it through the accessibility tree, on a private virtual
desktop (see screen.py).

    desktop = Desktop()
    program = Program(desktop, ["build/stage/zanvel-templates-manager"], {"LANGUAGE": "sv"})
    program.window("Zanvel Templates Manager").find("push button", "Edit").click()
"""
import os
import re
import sys
import time
import warnings

try:
    import gi
except ImportError:  # a Python that is not the distribution's own
    sys.path.append("/usr/lib/python3/dist-packages")
    import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

import screen  # noqa: E402
from screen import Grab, Mouse, Process, Screen, key, output_of, run, type_text  # noqa: E402

warnings.simplefilter("ignore", DeprecationWarning)

OUT_OF_SIGHT = -9999  # cells that are scrolled away report extreme places


def wait(condition, what):
    """Whatever is looked at may go away meanwhile."""
    return screen.wait(condition, what, passing=GLib.Error)


class Desktop(Screen):
    def __init__(self, width_px=1280, height_px=1024):
        super().__init__(("se", "-variant", "nodeadkeys"), width_px, height_px)
        self._set_up_toolkit()
        self._start_services()

    def _set_up_toolkit(self):
        os.mkdir(f"{self.home}/.config/gtk-3.0")
        with open(f"{self.home}/.config/gtk-3.0/settings.ini", "w", encoding="ascii") as file:
            # No two clicks make a double click.
            file.write("[Settings]\ngtk-enable-animations=0\ngtk-cursor-blink=0\ngtk-double-click-time=1\n")
        with open(f"{self.home}/.config/user-dirs.dirs", "w", encoding="ascii") as file:
            file.write('XDG_DOCUMENTS_DIR="$HOME/Documents"\n')
        for name in ("AT_SPI_BUS_ADDRESS", "NO_AT_BRIDGE", "GTK_MODULES", "G_DEBUG"):
            os.environ.pop(name, None)
        os.environ.update(
            GDK_BACKEND="x11", GSETTINGS_BACKEND="memory", GIO_USE_VFS="local", GTK_USE_PORTAL="0",
            GTK_IM_MODULE="gtk-im-context-simple", GTK_THEME="Adwaita")

    def _start_services(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_and_read(
            lambda fd: ["dbus-daemon", "--session", "--nofork", f"--print-address={fd}"])
        self.start(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        wait(lambda: "unix:" in output_of("xprop", "-root", "AT_SPI_BUS"), "the accessibility bus")
        Atspi.init()
        Atspi.set_timeout(5000, 15000)


def is_named(wanted, name):
    """`wanted` is None for any name, a text for exactly that name, or a compiled pattern."""
    return wanted is None or (name == wanted if isinstance(wanted, str) else bool(wanted.search(name)))


class Widget:
    def __init__(self, accessible):
        self.accessible = accessible

    def __eq__(self, other):
        return isinstance(other, Widget) and self.accessible == other.accessible

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
        return tuple(Grab.scale * size for size in (extents.x, extents.y, extents.width, extents.height))

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

    def rows(self):
        """The texts of a list's first column."""
        def text_of(cell):
            return cell.name or " ".join(filter(None, map(text_of, cell.children)))
        count = Atspi.Table.get_n_rows(self.accessible)
        return [text_of(Widget(Atspi.Table.get_accessible_at(self.accessible, row, 0))) for row in range(count)]

    def click_row(self, text):
        row = wait(lambda: [i for i, t in enumerate(self.rows()) if t == text], lambda: f"{text!r} in {self.rows()}")
        Widget(Atspi.Table.get_accessible_at(self.accessible, row[0], 0)).click()
        wait(lambda: Atspi.Table.is_row_selected(self.accessible, row[0]), f"{text!r} to be selected")


class Program(Process):
    # Reading a notebook from outside brings it about.
    known_complaint = "gtk_notebook_get_tab_label"

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

    @staticmethod
    def resize_active_window(width_px, height_px):
        number = output_of("xdotool", "getactivewindow").strip()
        run("xdotool", "windowsize", "--sync", number, str(width_px), str(height_px))
