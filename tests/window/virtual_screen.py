# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""The real program on a screen of its own (Xvfb), and the means to use it like a person."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from Xlib import X, XK, Xatom, Xutil, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

TIED = ["setpriv", "--pdeathsig", "KILL"]  # a test that is killed takes its processes with it
FOREIGN = re.compile("WAYLAND|XDG|XAUTHORITY|DBUS|DESKTOP|QT_QPA")  # not of this screen


PATIENCE = 30  # seconds that anything may take on a machine that is busy with something else


def wait_until(condition, what, seconds=PATIENCE):
    limit = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > limit:
            raise TimeoutError(what)
        time.sleep(0.02)


class VirtualScreen:
    def __init__(self, width=1280, height=1024, window_manager="openbox"):
        self.size, self.window_manager, self.processes = (width, height), window_manager, []

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.environment = {k: v for k, v in os.environ.items() if not FOREIGN.match(k)} | {
            "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "SDL_AUDIODRIVER": "dummy"}
        for name in ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"):
            self.environment[name] = self._folder.name
        reading, writing = os.pipe()
        with os.fdopen(reading) as number:
            self._run("Xvfb", "-displayfd", str(writing), "-screen", "0", "%dx%dx24" % self.size,
                      "-nolisten", "tcp", "-noreset", pass_fds=[writing])
            os.close(writing)
            self.environment["DISPLAY"] = ":" + number.readline().strip()
        self.display = display.Display(self.environment["DISPLAY"])
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.StructureNotifyMask)  # answers to a ping
        if self.window_manager:
            # Openbox as it comes, but for what leaves the game: its own menu, and more desktops.
            rules = Path("/etc/xdg/openbox/rc.xml").read_text(encoding="utf-8")
            rules = re.sub(r'(?s)<context name="(Desktop|Root)">.*?</context>', "", rules)
            own = Path(self._folder.name, "rc.xml")
            own.write_text(re.sub(r"<number>\d+<", "<number>1<", rules), encoding="utf-8")
            self._run(self.window_manager, "--config-file", str(own))
            # Windows that come while it is still beginning are overlooked by it.
            first = self.root.create_window(0, 0, 9, 9, 0, X.CopyFromParent)
            there = self.atom("_NET_SUPPORTING_WM_CHECK")
            wait_until(lambda: self.root.get_full_property(there, X.AnyPropertyType) and (
                first.map() or first.get_attributes().map_state == X.IsViewable), "no manager")
            first.destroy()
        return self

    def _run(self, *command, **options):
        self.processes.append(subprocess.Popen(
            [*TIED, *command], env=self.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options))

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait(PATIENCE)
        self._folder.cleanup()

    def atom(self, name):
        return self.display.intern_atom(name)


class Game:
    """The program in a folder of its own; .complaints is all that it has said on its outputs."""

    def __init__(self, screen, program, settings=b" 0 \r\n 3 \r\n 100 \r\n", more=()):
        self.screen, self.program, self.given = screen, Path(program).resolve(), settings
        self.environment = screen.environment | dict(more)
        self._temporary = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.folder = Path(self._temporary.name)

    def __enter__(self):
        puts = {self.program.name: shutil.copy2, "music": os.symlink, "carta.wav": os.symlink,
                "config.crv": lambda _, place: place.write_bytes(self.given)}
        for name, put in puts.items():
            put(self.program.parent / name, self.folder / name)
        self._said = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [*TIED, str(self.folder / self.program.name)], env=self.environment,
            cwd=self.folder, stdin=subprocess.DEVNULL, stdout=self._said, stderr=self._said)
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self._temporary.cleanup()

    @property
    def complaints(self):
        self._said.seek(0)
        return self._said.read().decode(errors="replace")

    @property
    def settings(self):
        return (self.folder / "config.crv").read_bytes()

    def windows(self, hidden=False, menus=False):
        """The program's windows, the front one first; with `hidden` also minimised ones. Or the
        `menus` that are open."""
        found = []

        def look(window, depth):
            with contextlib.suppress(error.BadWindow, error.BadDrawable):  # it has gone meanwhile
                own = window.get_full_property(self.screen.atom("_NET_WM_PID"), Xatom.CARDINAL)
                for child in window.query_tree().children if depth and not own else ():
                    look(child, depth - 1)
                if own and own.value[0] == self.process.pid:
                    seen, state = window.get_attributes(), window.get_wm_state()
                    iconic = hidden and state and state.state == Xutil.IconicState
                    if seen.override_redirect == menus and (seen.map_state == X.IsViewable or iconic):
                        found.append(window)

        look(self.screen.root, 3)
        return found[::-1]

    def wait_for_window(self, seconds=PATIENCE):
        wait_until(lambda: self.windows() or self.process.poll() is not None, "no window", seconds)
        assert self.process.poll() is None, "the program has ended: " + self.complaints
        return self.windows()[0]

    def place(self, window):
        """Left, top, width and height of a window on the screen."""
        size, corner = window.get_geometry(), window.translate_coords(self.screen.root, 0, 0)
        return -corner.x, -corner.y, size.width, size.height

    def input(self, *steps):
        for kind, detail, *place in steps:
            xtest.fake_input(self.screen.display, kind, detail, 0, X.NONE, *map(int, place))
        self.screen.display.sync()

    def press(self, x, y, button=1):
        self.input((X.MotionNotify, 0, x, y), (X.ButtonPress, button), (X.ButtonRelease, button))

    def key(self, name):
        """A key by the name of its symbol, or several held together: "Alt+F4"."""
        names = re.sub(r"(Alt|Shift|Control)\+", r"\1_L+", name).split("+")
        codes = [self.screen.display.keysym_to_keycode(XK.string_to_keysym(n)) for n in names]
        self.input(*[(X.KeyPress, n) for n in codes], *[(X.KeyRelease, n) for n in codes[::-1]])

    def send(self, window, message, *data, to=None, mask=0):
        """A client message, to the window itself or to another one on its behalf."""
        told = event.ClientMessage(window=window, client_type=self.screen.atom(message),
                                   data=(32, [*data, *[0] * (5 - len(data))]))
        (to or window).send_event(told, event_mask=mask)
        self.screen.display.sync()

    def end(self, how="close", seconds=PATIENCE):
        """Ends it by the window ("close"), the menu ("quit") or a signal; gives the exit status."""
        if how == "close":
            for window in self.windows(hidden=True):
                self.send(window, "WM_PROTOCOLS", self.screen.atom("WM_DELETE_WINDOW"))
        elif how == "quit":
            self.key("Alt+q")
        else:
            self.process.send_signal(signal.Signals[how])
        return self.process.wait(seconds)
