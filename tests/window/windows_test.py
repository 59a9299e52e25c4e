#!/usr/bin/python3 -B
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""PROGRAM: a match played by keys alone. The two windows come up maximised and stay as the player
leaves them, over the score sheets; settings saved by an editor that puts a byte-order mark in front
are read."""

import contextlib
import sys
import time

from Xlib import X, Xatom, Xutil, error

from monkey import Monkey
from virtual_screen import VirtualScreen, wait_until

PACE = 15  # of the program's clock
TABLE, SHEET = (40, 60, 640, 500), (700, 100, 500, 400)  # where the player puts them


class Player(Monkey):
    most = 11
    by_keys = True

    def __init__(self, screen):
        super().__init__(screen, sys.argv[1], 1, PACE)
        self.cards, self.given = 100, b"\xef\xbb\xbf 3 \r\n 3 \r\n 100 \r\n"

    def front(self):
        """The front window and what it is; neither while one gives way to the other."""
        try:
            window = self.windows()[0]
            return window, "sheet" if window.get_wm_name().endswith("Scopa") else "table"
        except (IndexError, error.BadWindow):
            return None, None

    def play_to_the_sheet(self):
        def has_played():
            assert self.process.poll() is None, "the program has ended: " + self.complaints
            window, kind = self.front()
            # The table may have just gone.
            with contextlib.suppress(error.BadWindow, error.BadDrawable, error.BadMatch):
                if kind == "table":
                    self.play_table(window)
            return kind == "sheet"
        wait_until(has_played, "no score sheet", 240)
        return self.front()[0]

    def go_on(self):
        """CONTINUE has the keyboard, though the bare sheet is clicked."""
        left, top, width, height = self.place(self.front()[0])
        self.press(left + width // 2, top + height * 9 // 10)
        self.key("Return")
        wait_until(lambda: self.front()[1] == "table", "CONTINUE does not bring the table back")
        return self.front()[0]

    def is_maximised(self, window):
        states = window.get_full_property(self.screen.atom("_NET_WM_STATE"), Xatom.ATOM)
        return bool(states) and self.screen.atom("_NET_WM_STATE_MAXIMIZED_VERT") in states.value

    def expect_maximised(self, window, what):
        wait_until(lambda: self.is_maximised(window), what + " is not maximised")

    def expect_at(self, window, place, what):
        def is_there():
            return self.place(window) == place and not self.is_maximised(window)
        wait_until(is_there, "%s is not as it was left, at %s" % (what, place))

    def tell_manager(self, window, message, *data):
        self.send(window, message, *data, to=self.screen.root,
                  mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)

    def put(self, window, place):
        """Takes the window out of its maximised state and puts it at a place."""
        states = [self.screen.atom("_NET_WM_STATE_MAXIMIZED_" + way) for way in ("HORZ", "VERT")]
        self.tell_manager(window, "_NET_WM_STATE", 0, *states)
        wait_until(lambda: not self.is_maximised(window), "it stays maximised")
        left, top, width, height = place
        window.configure(x=left, y=top, width=width, height=height)
        self.expect_at(window, place, "what was put there")

    def minimise_and_restore(self, window):
        self.tell_manager(window, "WM_CHANGE_STATE", Xutil.IconicState)
        wait_until(lambda: not self.windows(), "it is not minimised")
        self.tell_manager(window, "_NET_ACTIVE_WINDOW", 2)
        wait_until(self.windows, "it does not come back")

    def choose_21_points(self):
        """A match of several hands. Nothing is chosen before the options are there."""
        window = self.front()[0]
        left, top, width, height = self.place(window)
        bar = 22
        x, y = width * 470 // 800, bar + (height - bar) * 166 // 600
        yellow = b"\xc0\xff\xff"
        wait_until(lambda: window.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFF).data[:3] == yellow,
                   "no option")
        self.key("End")


with VirtualScreen() as screen, Player(screen) as game:
    table = game.wait_for_window()
    game.expect_maximised(table, "the table")
    game.choose_21_points()
    sheet = game.play_to_the_sheet()
    game.expect_maximised(sheet, "the first sheet")
    game.put(sheet, SHEET)
    table = game.go_on()
    game.expect_maximised(table, "the table after the first sheet")
    game.minimise_and_restore(table)
    game.expect_maximised(table, "the table put back from its icon")
    game.put(table, TABLE)
    game.minimise_and_restore(table)
    game.expect_at(table, TABLE, "the table put back from its icon")
    sheet = game.play_to_the_sheet()
    game.expect_at(sheet, SHEET, "the second sheet")
    table = game.go_on()
    game.expect_at(table, TABLE, "the table after the second sheet")
    for key in ("Alt+p", "Return"):
        game.key(key)
    wait_until(lambda: game.settings == b" 3 \r\n 1 \r\n 100 \r\n",
               "settings read past their byte-order mark: %r" % game.settings)
    assert game.end("quit") == 0, game.complaints
