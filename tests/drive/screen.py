"""A private virtual screen with a home folder and a window manager of its own, the processes on it, and a person's
means of working there: mouse and keys through xdotool, pictures by ImageMagick.

One screen per process; it ends, with everything started on it, when the process does. Whatever is looked for is waited
for, so that no script needs a pause of its own.
"""
import atexit
import contextlib
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TIMEOUT_S = float(os.environ.get("DRIVE_TIMEOUT", 20))


def wait(condition, what, timeout_s=TIMEOUT_S, passing=()):
    """Asks until the answer is true, and returns it. Errors of the passing kinds are no answer."""
    end = time.monotonic() + timeout_s
    while True:
        try:
            answer = condition()
        except passing:
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
    """Types characters of the key map that the screen has."""
    run("xdotool", "type", "--delay", "2", "--", text)


class Mouse:
    @staticmethod
    def click(x, y):
        run("xdotool", "mousemove", str(x - 1), str(y), "mousemove", str(x), str(y), "sleep", "0.02",
            "mousedown", "1", "sleep", "0.01", "mouseup", "1")


class Grab:
    """The shades of grey of a part of the screen."""
    scale = 1  # Pixels of the screen to one of the program's.

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
        scale = self.scale
        bar = rb"(?<=[\xa1-\xff])[\0-\xa0]{%d,%d}(?=[\xa1-\xff])" % (9 * scale + 2, 11 * scale)  # soft if scaled
        bars = {found.start() for found in re.finditer(bar, self.shades)}
        tops = [bar for bar in sorted(bars) if bar - self.width not in bars and
                {bar + 4 * scale * self.width, bar + 8 * scale * self.width} <= bars]
        return [self.place_of(top + (4 * self.width + 5) * scale) for top in tops]


class Screen:
    def __init__(self, key_map, width_px=1280, height_px=1024):
        self.processes = []
        self.folder = tempfile.mkdtemp(prefix="drive")
        self.home = f"{self.folder}/home"
        atexit.register(self.stop)
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self._make_home()
        os.environ["DISPLAY"] = ":" + self.start_and_read(
            lambda fd: ["Xvfb", "-displayfd", fd, "-screen", "0", f"{width_px}x{height_px}x24", "-nolisten", "tcp",
                        "-noreset", "-dpi", "96"])
        # Before any program reads the key map.
        run("setxkbmap", *key_map)
        self.start(["openbox", "--sm-disable"])
        wait(lambda: "window id" in output_of("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "the window manager")

    def _make_home(self):
        os.makedirs(f"{self.home}/.config")
        os.mkdir(f"{self.folder}/run", 0o700)
        for name in ("WAYLAND_DISPLAY", "XAUTHORITY"):
            os.environ.pop(name, None)
        os.environ.update(
            HOME=self.home, XDG_RUNTIME_DIR=f"{self.folder}/run", XDG_CONFIG_HOME=f"{self.home}/.config",
            XDG_DATA_HOME=f"{self.home}/.local/share", XDG_CACHE_HOME=f"{self.home}/.cache", LC_ALL="C.UTF-8")

    def start_and_read(self, command_for_descriptor):
        """Starts a service that writes one line to a descriptor once it is ready, and returns that line."""
        reading, writing = os.pipe()
        self.start(command_for_descriptor(str(writing)), pass_fds=(writing,))
        os.close(writing)
        with os.fdopen(reading, encoding="ascii") as file:
            return file.readline().strip() or sys.exit("A service of the virtual screen did not start.")

    def start(self, command, **options):
        with open(f"{self.folder}/{os.path.basename(command[0])}.log", "ab") as log:
            process = subprocess.Popen(command, start_new_session=True, stdin=subprocess.DEVNULL,
                                       **{"stdout": log, "stderr": log, **options})
        self.processes.append(process)
        return process

    @staticmethod
    def end(process):
        with contextlib.suppress(ProcessLookupError):
            os.killpg(process.pid, signal.SIGTERM)
        process.wait(10)

    def stop(self):
        for process in reversed(self.processes):
            self.end(process)
        self.processes = []
        shutil.rmtree(self.folder, ignore_errors=True)


class Process:
    """Subclasses say with `known_complaint`, a pattern, what is not to be complained about."""

    def __init__(self, screen, command, environment=None):
        self.screen = screen
        descriptor, self.log = tempfile.mkstemp(dir=screen.folder, suffix=".log")
        self.process = screen.start(command, env={**os.environ, **(environment or {})}, stdout=descriptor,
                                     stderr=subprocess.STDOUT)
        os.close(descriptor)

    @property
    def output(self):
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    @property
    def complaints(self):
        """The toolkit's warnings, but for those that are known."""
        return [line for line in self.output.splitlines()
                if re.search("WARNING|CRITICAL", line) and not re.search(self.known_complaint, line)]

    @property
    def exit_status(self):
        """None as long as the program runs."""
        return self.process.poll()

    def stop(self):
        self.screen.end(self.process)

    def wait_until_ended(self):
        wait(lambda: self.exit_status is not None, "the program to end")
        return self.exit_status
