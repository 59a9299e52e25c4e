#!/usr/bin/python3 -Bu
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""Plays and mistreats the real program at random, run by run, each from a seed of its own."""

import argparse
import os
import random
import re
import subprocess
import sys
import time

from Xlib import X, Xutil, error
from virtual_screen import PATIENCE, Game, VirtualScreen

KEYS = [*"abcdefghijklmnoprstuvwxyz", *"123" * 3, *["F%d" % i for i in range(1, 13)], "Alt+Tab", "Alt+space",
        "Shift+Tab", "Home", "End", "Prior", "Next", "Delete",
        *["Left", "Right", "Up", "Down", "Return", "Escape", "Tab", "space"] * 3,
        "Control+c", "Control+q"] * 30 + ["Alt+F4", "Alt+q"]  # these two end it
SIDES = (1, 7, 200, 320, 479, 1023, 1366, 2000, 3840, 4320, 7680)
SCREENS = [(1280, 1024)] * 6 + [(640, 480), (1920, 1080), (3840, 2160), (7680, 4320)]


class Monkey(Game):
    most = 6  # cards of which sets are tried; it may give up a hand that needs others
    by_keys = False

    def __init__(self, screen, program, seed, pace=1):
        # The program's clock runs faster, so that a short run sees more of the game.
        fake = {"LD_PRELOAD": "/usr/$LIB/faketime/libfaketimeMT.so.1",
                "FAKETIME": "+0 x%g" % pace, "FAKETIME_DISABLE_SHM": "1"} if pace != 1 else {}
        self.draw, self.done, self.sheets, self.slowest = random.Random(seed).choice, ["-"], 0, 0
        self.cards = self.draw((40, 70, 100, 100, 106, 250.5))
        self.by_keys = self.by_keys or self.draw((True, False))
        super().__init__(screen, program, b" %d \r\n 3 \r\n %.7g \r\n" % (
            self.draw((0, 0, 0, 12)), self.cards), fake)

    def play(self):
        window = self.windows()[0]
        if window.get_wm_name().endswith("Scopa"):
            self.sheets += 1
            if self.by_keys:
                return self.key("Return")
            left, top, width, height = self.place(window)
            across = self.draw([0.25] * 19 + [0.75])
            return self.press(left + across * width, top + 535 / 600 * height)
        self.play_table(window)

    def bar(self):
        """The height of the menu bar."""
        return 22 * float(os.environ.get("QT_SCALE_FACTOR", 1))

    def play_table(self, window):
        """Presses what may be wanted now: GO, the cards of the hand, cards of the table."""
        left, top, width, height = self.place(window)
        bar = self.bar()

        def at(x, y):  # in the units of the game
            return left + int(x * width / 800), top + int(bar + y * (height - bar) / 600)

        scale = min(1.06, self.cards / 100)
        across, down, look = 62.2 * scale + 6, 108.35 * scale + 6, self.screen.root.get_image
        # GO, if it is there, and the cards of the hand.
        if self.by_keys:
            for key in "Return", "1", "2", "3":
                self.key(key)
        else:
            for x, y in (0, 305), *[(slot * across, 598 - down / 2) for slot in (-1, 0, 1)]:
                self.press(*at(400 + x, y))
        time.sleep(0.03)
        places = [at(400 + x * across, 300 + y * down)
                  for y in (-1, 0, 1) for x in (-1.5, -0.5, 0.5, 1.5)]
        cards = [place for place in places
                 if look(*place, 1, 1, X.ZPixmap, 0xFFFFFF).data[:3] != b"\0\x70\0"]
        # Every set of the first cards, each by one press from the one before.
        ring = None
        for step in range(1, 2 ** min(len(cards), self.most) if len(cards) < 12 else 2):
            card = (step & -step).bit_length() - 1
            if self.by_keys:
                self.lead_ring(card - (ring or 0), from_first=ring is None)
                ring = card
                if not self.is_ringed(*cards[card]):
                    break
                self.key("Return")
            else:
                self.press(*cards[card])
            time.sleep(0.005)

    def lead_ring(self, steps, from_first):
        for key in ["Home"] * from_first + ["Right" if steps > 0 else "Left"] * abs(steps):
            self.key(key)

    def is_ringed(self, x, y):
        """Whether the card in the middle of which this lies may be pressed; whatever is there."""
        return True

    def anywhere(self):
        height = self.draw((44, self.screen.size[1]))  # the bars, or all
        return self.draw(range(self.screen.size[0])), self.draw(range(height))

    def point(self):
        """A click, a double click, a turn of the wheel or a drag."""
        button, move = self.draw((1, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9)), X.MotionNotify
        click = (X.ButtonPress, X.ButtonRelease)
        steps = self.draw((click, click, click * 2, (click[0], *[move] * 8, click[1])))
        self.input(*[(step, 0 if step == move else button, *self.anywhere())
                     for step in (move, *steps)])

    def keys(self):
        for _ in range(self.draw((1, 3, 20))):
            self.key(self.draw(KEYS))

    def menu(self):
        self.key("Alt+" + self.draw("pgmmi"))
        for key in ["Down"] * self.draw(range(14)) + [self.draw(("Return", "Return", "Escape"))]:
            self.key(key)

    def ask(self, message, *data):
        """What a window manager is asked for."""
        self.send(self.draw(self.windows(hidden=True)), message, *data, to=self.screen.root,
                  mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)

    def resize(self):
        states = [self.screen.atom("_NET_WM_STATE_MAXIMIZED_" + way) for way in ("HORZ", "VERT")]
        self.ask("_NET_WM_STATE", 0, *states)
        for _ in range(self.draw((1, 1, 6))):
            self.windows()[0].configure(
                x=self.draw((0, -300)), width=self.draw(SIDES), height=self.draw(SIDES))
            self.screen.display.sync()
            time.sleep(self.draw((0, 0.02, 0.3)))
        self.ask("_NET_WM_STATE", self.draw((0, 1, 1, 1)), *states)

    def change_state(self):
        self.ask(*self.draw((("WM_CHANGE_STATE", Xutil.IconicState), ("_NET_ACTIVE_WINDOW", 2), (
            "_NET_WM_STATE", 2, self.screen.atom("_NET_WM_STATE_FULLSCREEN")))))

    def take_focus(self):
        other = self.screen.root.create_window(100, 100, 400, 300, 0, X.CopyFromParent)
        other.map()
        self.check_answer()
        other.destroy()

    def check_answer(self):
        begun, ping = time.monotonic(), self.screen.atom("_NET_WM_PING")
        asked = [ping, int(begun * 1000) % 2 ** 31]
        for window in self.windows(hidden=True)[:1]:
            self.send(window, "WM_PROTOCOLS", *asked, window.id)
        while self.process.poll() is None:
            while self.screen.display.pending_events():
                heard = self.screen.display.next_event()
                if heard.type & 0x7F == X.ClientMessage and list(heard.data[1][:2]) == asked:
                    self.slowest = max(self.slowest, time.monotonic() - begun)
                    return
            if time.monotonic() > begun + PATIENCE:
                raise TimeoutError("no answer")
            time.sleep(0.005)

    def mistreat(self, seconds):
        self.wait_for_window()
        actions = [self.play] * 20 + [self.point] * 4 + [self.menu, self.change_state] * 2 + [
            self.keys, self.resize, self.take_focus]
        seconds += time.monotonic()
        while time.monotonic() < seconds and self.process.poll() is None:
            action = self.draw(actions)
            self.done.append(action.__name__)
            try:
                action()
            except (error.BadWindow, error.BadDrawable, error.BadMatch, IndexError):
                if self.windows(hidden=True):  # nothing, or not enough of it, can be seen now
                    self.ask("_NET_ACTIVE_WINDOW", 2)
            self.check_answer()
            time.sleep(self.draw((0, 0.02, 0.1)))

    def faults(self, status):
        valid = rb" (\d|1[012]) \r\n [123] \r\n %.7g \r\n" % self.cards
        return [fault for wrong, fault in (
            (status != 0, "exit status %d" % status), (self.complaints, self.complaints),
            (not re.fullmatch(valid, self.settings), self.settings),
            (len(os.listdir(self.folder)) != 4, os.listdir(self.folder))) if wrong]


def one_run(program, seconds, pace, seed):
    chance = random.Random("run %d" % seed)
    size, manager = chance.choice(SCREENS), chance.choice(["openbox"] * 7 + [None])
    how = chance.choice(("close", "SIGTERM", "SIGINT", "SIGHUP"))
    with VirtualScreen(*size, manager) as screen, Monkey(screen, program, seed, pace) as game:
        try:
            game.mistreat(seconds * chance.uniform(0.1, 1.9))
            ended = game.process.poll()
            wrong = game.faults(game.end(how, PATIENCE) if ended is None else ended)
        except (AssertionError, TimeoutError, subprocess.TimeoutExpired) as hang:
            wrong = [hang, game.complaints, subprocess.getoutput(
                "gdb -p %d -batch -ex 'thread apply all bt 30'" % game.process.pid)]
        print("Seed %d, %dx%d %s, %d actions to %s, %d on score sheets, answers within %.2f s" % (
            seed, *size, manager, len(game.done), game.done[-1], game.sheets, game.slowest))
    if wrong:
        print(*wrong, "Again: %s %s --runs 1 --seconds %g --pace %g --seed %d" % (
            __file__, program, seconds, pace, seed), sep="\n")
    return bool(wrong)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    for option, value, text in (("runs", 10, "how many"), ("seconds", 8.0, "of a run, on average"),
                                ("pace", 1.0, "of the program's clock"), ("seed", 1, "at first")):
        parser.add_argument("--" + option, type=type(value), default=value, help=text)
    wish = parser.parse_args()
    # The quotes are for folders with blanks.
    os.environ["LSAN_OPTIONS"] = "print_suppressions=0:suppressions='%s/leaks.supp'" % sys.path[0]
    os.environ["ASAN_OPTIONS"] = "verify_asan_link_order=0"
    sys.exit(any([one_run(wish.program, wish.seconds, wish.pace, seed)
                  for seed in range(wish.seed, wish.seed + wish.runs)]))
