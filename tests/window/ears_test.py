#!/usr/bin/python3 -B
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""PROGRAM: a hand played by a client of AT-SPI that knows the game only by what it is told: the
names of what is seen, their actions, and what is said. To be run under dbus-run-session."""

import itertools
import os
import re
import sys
from pathlib import Path

from virtual_screen import Game, VirtualScreen, wait_until

os.environ.pop("DISPLAY", None)  # where another accessibility bus might be named
import gi  # noqa: E402

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

PACE = 15  # of the program's clock
FAKE = {"LD_PRELOAD": "/usr/$LIB/faketime/libfaketimeMT.so.1", "FAKETIME": "+0 x%d" % PACE,
        "FAKETIME_DISABLE_SHM": "1"}
VALUES = "ace two three four five six seven eight nine ten".split()
CARD = "(?:%s) of (?:coins|cups|clubs|swords)" % "|".join(VALUES)


def cards_in(text):
    return re.findall(CARD, text)


def value(card):
    return VALUES.index(card.split()[0]) + 1


def switch_on():
    """Tells the session that a reader is there, as one does that begins to listen."""
    bus = Gio.DBusProxy.new_for_bus_sync(
        Gio.BusType.SESSION, Gio.DBusProxyFlags.NONE, None, "org.a11y.Bus", "/org/a11y/bus",
        "org.freedesktop.DBus.Properties", None)
    bus.call_sync("Set", GLib.Variant("(ssv)", (
        "org.a11y.Status", "IsEnabled", GLib.Variant("b", True))), 0, -1, None)


class Listener:
    """Listens before the game is there: while that finds out who listens, a new one is missed."""

    def __init__(self):
        self.game, self.said, self.heard = None, [], 0
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:state-changed:showing")

    def hear(self, event):
        if event.detail1 and event.source.get_role() == Atspi.Role.NOTIFICATION:
            self.said.append(event.source.get_name())

    def wait(self, condition, what):
        def look():
            while GLib.MainContext.default().iteration(False):
                pass
            assert self.game.process.poll() is None, "the program has ended: " + self.game.complaints
            return condition()
        wait_until(look, what, 60)

    def next(self, pattern):
        """The next sentence that fits, and what it names by groups."""
        found = []

        def comes():
            while self.heard < len(self.said) and not found:
                self.heard += 1
                found.extend(filter(None, [re.match(pattern, self.said[self.heard - 1])]))
            return found
        self.wait(comes, "not heard: " + pattern)
        return found[0]

    def shown(self):
        """Everything that is told as seen now, by its name."""
        things = {}

        def look(thing):
            thing.clear_cache()
            if not thing.get_state_set().contains(Atspi.StateType.SHOWING):
                return
            things[thing.get_name()] = thing
            for index in range(thing.get_child_count()):
                if child := thing.get_child_at_index(index):
                    look(child)
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            look(desktop.get_child_at_index(index))
        return things

    def press(self, name, where=""):
        """Presses what has this name, or begins with it and says that it is there."""
        def there():
            return [thing for key, thing in self.shown().items()
                    if key.startswith(name) and where in key]
        self.wait(there, "not shown: " + name)
        assert Atspi.Action.do_action(there()[0], 0), "no press: " + name

    def cards(self, where):
        return [cards_in(name)[0] for name in self.shown() if re.match(CARD + ".*" + where, name)]


def choose(demand, table):
    """The cards that what was said asks for."""
    if not (total := re.match(r"cards that add up to (\d+)", demand)):
        return cards_in(demand)[:1]
    sets = [cards for n in range(2, len(table) + 1) for cards in itertools.combinations(table, n)]
    return next(cards for cards in sets if sum(map(value, cards)) == int(total[1]))


def play_turn(ears, table):
    """Plays the first card of the hand; what has become of it is said."""
    card = ears.cards("in your hand")[0]
    ears.press(card)
    outcome = ears.next("You (lay|play) the (%s)(?:. You must take: choose (.*))?" % CARD)
    assert outcome[2] == card, "pressed the %s: %s" % (card, outcome[0])
    if not outcome[3]:
        return card
    chosen = choose(outcome[3], table)
    assert set(chosen) <= set(table), "%s is asked for of %s" % (outcome[0], table)
    for chosen_card in chosen:
        ears.press(chosen_card, ", table, row")
        if chosen_card != chosen[-1]:
            ears.next("%s marked" % chosen_card)
            ears.wait(lambda: ears.cards(", taken"), "no card is told as taken")
    taken = cards_in(ears.next("You take .*")[0])
    assert set(taken) == set(chosen), "chose %s, took %s" % (chosen, taken)
    return card


def play_hand(ears):
    """All cards that are laid or played in a hand, as they are told."""
    ears.press("GO")
    seen = cards_in(ears.next(".* deals?, .* On the table: .*")[0])
    for turn in range(18):
        said = ears.next("Your turn.( On the table: .*| The table is bare.)?$")
        table = ears.cards(", table, row")
        told = cards_in(said[0]) if said[1] else seen[:4]
        assert table == told, "seen on the table: %s, told: %s" % (table, told)
        hand = ears.cards("in your hand")
        assert len(hand) == 3 - turn % 3, "turn %d with %s" % (turn, hand)
        seen.append(play_turn(ears, table))
    return seen


def main():
    switch_on()
    ears = Listener()
    with VirtualScreen() as screen:
        more = FAKE | {name: os.environ[name] for name in ["DBUS_SESSION_BUS_ADDRESS"]}
        with Game(screen, Path(sys.argv[1]), more=more) as game:
            game.wait_for_window()
            ears.game = game
            seen = play_hand(ears)
            figures = ears.next(r"Score. Carte: you (\d+), the computer (\d+)")
            assert int(figures[1]) + int(figures[2]) == 40, figures[0]
            ears.next("You have won|The computer has won|The match is drawn")
            played = [cards_in(s)[0] for s in ears.said if re.match("The computer (plays|lays)", s)]
            assert len(seen + played) == len(set(seen + played)) == 40, (seen, played)
            row = [name for name in ears.shown() if name.startswith("Player, row 1, ")]
            assert row[0] == "Player, row 1, Carte %s" % figures[1], row
            ears.press("QUIT")
            assert game.process.wait(30) == 0, game.process.returncode
            assert game.complaints == "", game.complaints


if __name__ == "__main__":
    main()
