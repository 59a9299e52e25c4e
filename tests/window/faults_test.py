#!/usr/bin/python3
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""PROGRAM [TEST...]: the real program when things around it break; see docs/FAULTS.md."""

import collections
import contextlib
import os
import random
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

from Xlib import display
from Xlib.ext import damage

from virtual_screen import PATIENCE, TIED, Game, VirtualScreen, wait_until

PROGRAM = Path(sys.argv[1]).resolve()
# On a screen of 1280x1024, where the mascots and cards are.
GO, GORILLA = (640, 545), 480
HAND = [(530 + 109 * i, 926) for i in range(3)]
PLACES = [(476 + 109 * column, 343 + 188 * row) for row in range(3) for column in range(4)]


def sliding(drawn):
    """Of what has been drawn, the strip that a sliding card leaves behind it at each step."""
    return [one for one in drawn if one[3:] in ((101, 6), (101, 7))]


class Watched(Game):
    """The program, and what it draws, as the screen tells."""

    def __init__(self, screen, **more):
        super().__init__(screen, PROGRAM, more=more)

    def __enter__(self):
        super().__enter__()
        self.eye = display.Display(self.screen.environment["DISPLAY"])
        self.eye.damage_query_version()
        window = self.eye.create_resource_object("window", self.wait_for_window().id)
        window.damage_create(damage.DamageReportRawRectangles)
        self.eye.sync()
        return self

    def drawn(self, seconds=0.0):
        """What has been drawn since the last call and in the seconds to come: time and place."""
        until, seen = time.monotonic() + seconds, []
        while True:
            while self.eye.pending_events():
                if area := getattr(self.eye.next_event(), "area", None):
                    seen.append((time.monotonic(), area.x, area.y, area.width, area.height))
            if time.monotonic() >= until:
                return seen
            time.sleep(0.004)

    def processor(self):
        """The share of a processor that the program takes during a second."""
        def ticks():
            text = Path("/proc/%d/stat" % self.process.pid).read_text()
            return sum(map(int, text.rsplit(")", 1)[1].split()[11:13]))
        before = ticks()
        time.sleep(1)
        return (ticks() - before) / os.sysconf("SC_CLK_TCK")

    def choose(self, menu, *keys):
        """Opens a menu by its letter and goes to an entry by further keys, which close it."""
        self.key("Alt+" + menu)
        wait_until(lambda: self.windows(menus=True), "no menu opens")
        for key in keys:
            self.key(key)
        wait_until(lambda: not self.windows(menus=True), "the menu stays open")

    def wait_for_panel(self):
        """Waits for the end of the title, a wipe in bars; then nothing but the mascots moves."""
        wait_until(lambda: any(one[3] == 43 for one in self.drawn(0.1)), "no wipe")
        wait_until(lambda: all(one[3] < 200 for one in self.drawn(0.5)), "it wipes on")

    def play_to_a_slide(self):
        """Clicks at random, as long as it takes, until a card slides; its last strip."""
        limit = time.monotonic() + 4 * PATIENCE
        while time.monotonic() < limit:
            self.press(*random.choice(HAND + PLACES))
            if len(seen := sliding(self.drawn(0.06))) > 1:
                return seen[-1]
        raise TimeoutError("no card has slid")

    def pause(self, seconds):
        """Stops the process and lets it go on; what it has drawn before."""
        self.process.send_signal(signal.SIGSTOP)
        time.sleep(0.05)
        before = self.drawn()
        assert self.drawn(seconds) == [], "it draws though it is stopped"
        self.process.send_signal(signal.SIGCONT)
        return before

    def loses_display(self, settings):
        self.screen.processes[0].kill()
        status = self.process.wait(PATIENCE)
        assert status == 1, status
        said = self.complaints
        assert said.count("\n") == 1 and "connection broke" in said, said
        assert self.settings == settings, self.settings

    def goes_on(self):
        """It takes a choice and little of the processor."""
        (self.folder / "config.crv").unlink()
        self.choose("p", "Return")
        wait_until((self.folder / "config.crv").exists, "it does not answer")
        wait_until(lambda: self.processor() < 0.3, "it does not leave the processor alone")
        self.quits()

    def quits(self):
        status = self.end("quit")
        assert status == 0 and self.complaints == "", (status, self.complaints)


def folders():
    """Folders that cannot be written, are gone, or are no folders."""
    with VirtualScreen() as screen:
        config = Path(screen.environment["XDG_CONFIG_HOME"])

        def choose_rate(change, expected, **environment):
            """Where the settings are to be after a change: beside the program, the user's own."""
            with Watched(screen, **environment) as game:
                subprocess.run(change, shell=True, check=True, cwd=game.folder,
                               env=os.environ | {"config": str(config)})
                game.choose("p", "Return")
                game.choose("m", "Down", "Return")  # a melody whose file may be gone
                game.quits()
                found = [place.is_file() and place.read_bytes() == b" 1 \r\n 1 \r\n 100 \r\n"
                         for place in (game.folder / "config.crv", config / "velarda/config.crv")]
                assert found == expected, (change, environment, found)
            subprocess.run(["rm", "-rf", config / "velarda", game.folder], check=True)

        choose_rate("true", [True, False])
        choose_rate("chmod 555 .", [False, True])
        choose_rate('rm -r "$PWD"', [False, True])
        choose_rate("rm config.crv; mkdir config.crv", [False, True])
        choose_rate('chmod 555 .; touch "$config/velarda"', [False, False])
        choose_rate("chmod 555 .", [False, False], XDG_CONFIG_HOME="/proc/none")
        choose_rate('rm -r "$PWD" "$config"', [False, True])
        del screen.environment["HOME"], screen.environment["XDG_CONFIG_HOME"]
        choose_rate("true", [True, False])


def displays():
    """The display goes away while a melody and the mascots play."""
    with VirtualScreen() as screen, Watched(screen) as game:
        game.choose("m", "Down", "Return")
        game.wait_for_panel()
        game.loses_display(b" 1 \r\n 3 \r\n 100 \r\n")


def pauses():
    """Stopped for a while it goes on where it was and makes up for nothing. In the end the
    display goes away under a sliding card."""
    with VirtualScreen() as screen, Watched(screen) as game:
        def steps():
            """How often the gorilla moves in two seconds; it does so every 80 ms, and less often
            on a busy machine."""
            boxes = collections.Counter(one[1:] for one in game.drawn(2) if one[1] == GORILLA)
            return max(boxes.values(), default=0)
        game.wait_for_panel()
        assert steps() > 0, "the gorilla does not play"
        game.pause(2.5)
        after = steps()
        assert 0 < after < 28, "%d steps in two seconds: 25, and 31 were missed" % after
        game.press(*GO)
        last = game.play_to_a_slide()
        last = (sliding(game.pause(1)) or [last])[-1]
        rest = sliding(game.drawn(1))
        assert rest and 0 < rest[0][2] - last[2] < 8, "the slide does not go on where it was"
        assert len(rest) < 70, "%d steps in a second: 60, and 60 were missed" % len(rest)
        wait_until(lambda: not game.drawn(1.5), "the game never waits for its player", 60)
        game.pause(1)
        wait_until(lambda: game.processor() < 0.1, "it waits without leaving the processor alone")
        game.play_to_a_slide()
        game.loses_display(b" 0 \r\n 3 \r\n 100 \r\n")


def clocks():
    """The wall clock jumps back, ahead and over midnight while the title is shown."""
    with VirtualScreen() as screen:
        told = Path(screen.environment["HOME"]) / "time"
        library = next(Path("/usr/lib").glob("*/faketime/libfaketimeMT.so.1"))
        fake = {"LD_PRELOAD": str(library), "FAKETIME_TIMESTAMP_FILE": str(told),
                "FAKETIME_NO_CACHE": "1", "FAKETIME_DONT_FAKE_MONOTONIC": "1"}
        told.write_text("+0d")
        with Watched(screen, **fake) as game:
            begin = time.monotonic()
            for moment in ("-3d", "+5d", "@2031-12-31 23:59:59", "-20y"):
                told.write_text(moment)
                time.sleep(0.4)
                shown = subprocess.check_output(["date", "+%s"], env=os.environ | fake)
                assert abs(int(shown) - time.time()) > 3600, "the clock has not been moved"
            game.wait_for_panel()
            length = time.monotonic() - begin
            assert length > 2.5, "the title stood for %.1f s" % length
            game.quits()


def sounds():
    """The sound server is killed, or hangs, under a melody; it comes late, or comes again; drivers
    that do not work."""
    if not shutil.which("pulseaudio"):
        print("Skipped: there is no PulseAudio, and the machine's own sound server is left alone")
        sys.exit(77)
    with VirtualScreen() as screen:
        socket = Path(screen.environment["XDG_RUNTIME_DIR"]) / "sound"
        heard = {"SDL_AUDIODRIVER": "pulseaudio", "PULSE_SERVER": "unix:%s" % socket}

        @contextlib.contextmanager
        def server():
            process = subprocess.Popen(
                [*TIED, "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "-L",
                 "module-null-sink", "-L", "module-native-protocol-unix socket=%s" % socket],
                env=screen.environment, stderr=subprocess.DEVNULL)
            try:
                wait_until(socket.exists, "no sound server")
                yield process
            finally:
                process.kill()
                process.wait()
                socket.unlink(missing_ok=True)

        def is_heard():
            return subprocess.check_output(["pactl", "list", "short", "sink-inputs"],
                                           env=screen.environment | heard)

        for fault in (signal.SIGKILL, signal.SIGSTOP):
            with server() as process, Watched(screen, **heard) as game:
                game.choose("m", "Down", "Return")
                wait_until(is_heard, "no melody is heard")
                process.send_signal(fault)
                game.goes_on()
        with Watched(screen, **heard) as game:
            for time_of_server in ("late", "another one"):
                game.choose("m", "Down", "Return")  # as yet, or by now, there is none
                with server():
                    game.choose("m", "Down", "Return")
                    wait_until(is_heard, "no melody on a server that came " + time_of_server)
            game.goes_on()
        for driver in ("none", "nonsense", "pulseaudio"):
            with Watched(screen, **heard | {"SDL_AUDIODRIVER": driver}) as game:
                game.choose("m", "Down", "Return")
                game.goes_on()


if __name__ == "__main__":
    if os.geteuid() == 0:  # who may write everywhere, unless it is taken from him
        TIED += ["--bounding-set=-dac_override,-dac_read_search"]
    for test in (folders, displays, pauses, clocks, sounds):
        if test.__name__ in (sys.argv[2:] or [test.__name__]):
            test()
