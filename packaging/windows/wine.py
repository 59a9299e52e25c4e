# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""Programs for Windows on a virtual screen, and the game among them, played like any other."""

import contextlib
import os
import random
import subprocess
import sys
import time
from pathlib import Path

from PIL import Image
from Xlib import X, error

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "window"))
from monkey import Monkey  # noqa: E402
from virtual_screen import PATIENCE, wait_until  # noqa: E402

# Colours, blue first: of the table, of an option, and of all that lies below the menu bar.
CLOTH, PAPER = b"\0\x70\0", b"\xc0\xff\xff"
BLUE = b"\xff\0\0"
ORANGE = b"\0\x80\xff"  # of the score sheet
GROUNDS = (CLOTH, BLUE, b"\xff\x50\0")
GONE = (error.BadWindow, error.BadDrawable, error.BadMatch, AttributeError, IndexError,
        StopIteration)  # one window gives way to another
SETTINGS = "config.crv"


class Wine:
    """A Windows of its own, in a folder, on a screen."""

    def __init__(self, screen, folder, scale=1):
        self.screen, self.prefix, self.scale = screen, Path(folder), scale
        self.environment = {k: v for k, v in screen.environment.items() if k != "QT_QPA_PLATFORM"}
        self.environment |= {
            "WINEPREFIX": str(self.prefix), "WINEDEBUG": "-all",
            # Neither other run-time systems are offered for download, nor Linux's menus changed.
            "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe=",
            "TMPDIR": str(self.prefix),  # Debian's leaves a folder there for ever
            # It has no synthesiser here, and after asking for one a few times in vain it breaks.
            "SDL_MIXER_DISABLE_NATIVEMIDI": "1"}

    def __enter__(self):
        self.prefix.mkdir(exist_ok=True)
        self.run("wineboot", "--init")
        self.be("win10")  # Wine is an older one by itself
        for font in ("Segoe UI", "Tahoma"):  # it lacks these, and would take any other
            self.run("reg", "add", r"HKCU\Software\Wine\Fonts\Replacements", "/f", "/v", font,
                     "/d", "DejaVu Sans")
        self.run("reg", "add", r"HKCU\Control Panel\Desktop", "/f", "/v", "LogPixels", "/t",
                 "REG_DWORD", "/d", 96 * self.scale)
        self._tell_server("--wait")  # what is started from now on takes it up
        return self

    def be(self, version):
        self.run("winecfg", "-v", version)

    def __exit__(self, *_):
        self._tell_server("--kill")
        self._tell_server("--wait")

    def _tell_server(self, what):
        subprocess.run(["wineserver", what], env=self.environment, timeout=PATIENCE, check=False)

    def start(self, *command, **more):
        return subprocess.Popen(["wine", *map(str, command)], env=self.environment | more,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)

    def run(self, *command, status=0, **more):
        """What a program prints; it must end by itself."""
        done = subprocess.run(["wine", *map(str, command)], env=self.environment | more,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=300, check=False)
        assert done.returncode == status, "%s: status %d" % (command, done.returncode)
        return done.stdout

    @property
    def user(self):
        return next(path for path in (self.prefix / "drive_c/users").iterdir()
                    if path.name != "Public")

    def files(self):
        """All that is kept, for the user or for all, and what the registry says of the game."""
        self._tell_server("--wait")  # the registry reaches the disk when everything has ended
        kept = {str(path) for path in (self.prefix / "drive_c").rglob("*")
                if "Temp" not in path.parts and "windows" not in path.parts}
        for hive in ("user.reg", "system.reg"):
            text = (self.prefix / hive).read_text(encoding="utf-8", errors="replace")
            kept |= {line for line in text.splitlines() if "velarda" in line.lower()}
        return kept

    def processes(self, name):
        """The numbers of this Windows' processes of a program."""
        wanted, found = ("WINEPREFIX=%s\0" % self.prefix).encode(), set()
        for process in Path("/proc").glob("[0-9]*"):
            with contextlib.suppress(OSError):  # it has gone meanwhile
                told = (process / "comm").read_text().strip()
                if told == name[:15] and wanted in (process / "environ").read_bytes() + b"\0":
                    found.add(int(process.name))
        return found


class Process:
    """One that somebody else has started."""

    def __init__(self, pid):
        self.pid = pid

    def poll(self):
        try:
            state = Path("/proc/%d/stat" % self.pid).read_text().rsplit(")", 1)[1].split()[0]
        except OSError:
            return 0
        return 0 if state == "Z" else None

    def wait(self, seconds=PATIENCE):
        wait_until(lambda: self.poll() is not None, "the program does not end", seconds)

    def kill(self):
        with contextlib.suppress(ProcessLookupError):
            os.kill(self.pid, 9)

    def memory(self):
        """In MiB, what is shared with others counted in shares."""
        for line in Path("/proc/%d/smaps_rollup" % self.pid).read_text().splitlines():
            if line.startswith("Pss:"):
                return int(line.split()[1]) / 1024
        raise AssertionError("no account of memory")

    def processor(self):
        """Seconds so far."""
        told = Path("/proc/%d/stat" % self.pid).read_text().rsplit(")", 1)[1].split()
        return (int(told[11]) + int(told[12])) / os.sysconf("SC_CLK_TCK")


class Player(Monkey):
    """Plays with what can be seen, on either system."""

    most = 11  # cards of which sets are tried

    def bar(self):
        column = self.windows()[0].get_image(1, 0, 1, 100, X.ZPixmap, 0xFFFFFF).data
        return next(row for row in range(10, 100) if column[4 * row:4 * row + 3] in GROUNDS)

    def seen(self, x, y):
        """The colour of a place of the window, blue first."""
        return self.windows()[0].get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFF).data[:3]

    def unit(self, x, y):
        """A place of the surface in the units of the game."""
        _, _, width, height = self.place(self.windows()[0])
        return x * width // 800, self.bar() + y * (height - self.bar()) // 600

    def shows(self, x, y, colour):
        with contextlib.suppress(*GONE):
            return self.seen(*self.unit(x, y)) == colour
        return False

    def is_asked_for_the_kind(self):
        return self.shows(470, 166, PAPER) and not self.shows(470, 200, CLOTH)

    def kind(self):
        """Of the front window; None while one gives way to the other."""
        with contextlib.suppress(*GONE):
            return "sheet" if self.windows()[0].get_wm_name().endswith("Scopa") else "table"

    def play(self):
        """One round of presses, if there is a table."""
        assert self.process.poll() is None, "the program has ended"
        with contextlib.suppress(*GONE):
            if self.kind() == "table":
                self.play_table(self.windows()[0])

    def play_until(self, condition, what, seconds=600):
        wait_until(lambda: self.play() or condition(), what, seconds)

    def has_keys(self):
        """Whether keys come to the front window."""
        with contextlib.suppress(*GONE):
            return self.screen.display.get_input_focus().focus.id == self.windows()[0].id
        return False

    def open_menu(self, letter):
        wait_until(self.has_keys, "the keys go elsewhere")
        self.key(letter)
        wait_until(lambda: self.windows(menus=True), "the menu %s does not open" % letter)

    def choose(self, menu, entry):
        """By the keyboard: the menu by its letter, an entry by its number from the top."""
        self.open_menu(menu)
        for key in (*["Down"] * entry, "Return"):
            self.key(key)
        wait_until(lambda: not self.windows(menus=True), "the menu %s does not close" % menu)

    def left_button(self):
        """Its place on the score sheet, in the window."""
        _, _, width, height = self.place(self.windows()[0])
        return width * 200 // 800, height * 535 // 600

    def is_at_sheet(self):
        """It is there, and painted as far as its buttons: at first it has the table's pixels."""
        with contextlib.suppress(*GONE):
            _, _, width, height = self.place(self.windows()[0])
            return (self.kind() == "sheet" and self.seen(width - 9, height - 9) == ORANGE and
                    self.seen(*self.left_button()) != ORANGE)
        return False

    def has_cards(self):
        with contextlib.suppress(*GONE):
            return self.kind() == "table" and self.seen(*self.unit(400, 541)) not in GROUNDS
        return False

    def press_on(self):
        """On the score sheet: NEW GAME, or CONTINUE after a draw."""
        left, top, _, _ = self.place(self.windows()[0])
        across, down = self.left_button()
        self.press(left + across, top + down)
        wait_until(lambda: self.kind() == "table", "the table does not come back")

    def expect_settings(self, expected, folder=None):
        file = (folder or self.folder) / SETTINGS

        def found():
            return file.read_bytes() if file.exists() else None
        with contextlib.suppress(TimeoutError):
            wait_until(lambda: found() == expected, "", 10)
        assert found() == expected, "%s holds %r, not %r" % (file, found(), expected)


class WindowsGame(Player):
    """The game under Wine; `folder` is where it lies, `start` what starts it."""

    # What Linux's does, which is copied to a folder of its own, is not for this one.
    # pylint: disable-next=super-init-not-called
    def __init__(self, wine, folder, start=None, program="velarda.exe", **more):
        self.wine, self.screen, self.folder, self.name = wine, wine.screen, Path(folder), program
        self.start, self.more = start or [self.folder / program], more
        self.cards, self.draw, self.sheets = 100, random.Random(1).choice, 0

    def __enter__(self):
        before = self.wine.processes(self.name)
        self.begun = time.monotonic()
        self.starter = self.wine.start(*self.start, **self.more)
        wait_until(lambda: self.wine.processes(self.name) - before, "it does not start")
        self.process = Process(min(self.wine.processes(self.name) - before))
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.starter.wait(PATIENCE)

    @property
    def complaints(self):
        return "(a program without a console says nothing)"

    def end(self, how="Alt+F4", seconds=PATIENCE):
        self.key(how)
        self.process.wait(seconds)


def save_picture(path, window):
    """A PNG file of a window or of the screen."""
    told, rows = window.get_geometry(), []
    for top in range(0, told.height, 64):  # a large image does not come in one piece
        rows.append(window.get_image(0, top, told.width, min(64, told.height - top), X.ZPixmap,
                                     0xFFFFFF).data)
    size = told.width, told.height
    Image.frombytes("RGB", size, b"".join(rows), "raw", "BGRX").save(path)
