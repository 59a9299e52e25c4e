#!/usr/bin/python3 -Bu
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""BUILT LINUX [STEP...]: tries what packaging/windows/build has left in BUILT beside Linux's build
in LINUX. Each step says what it has seen; the first that goes wrong ends it."""

import contextlib
import hashlib
import random
import shutil
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from PIL import Image, ImageChops

from wine import BLUE, CLOTH, GONE, SETTINGS, Wine, WindowsGame, save_picture, wait_until
from virtual_screen import VirtualScreen

built, linux = Path(sys.argv[1]), Path(sys.argv[2]).resolve()
game_folder, = [path for path in built.glob("velarda-*") if path.is_dir()]
setup, = built.glob("velarda-*-setup.exe")
kept = built / "tried"
TOOLS = ("velarda-sim", "packaging/windows/velarda-bare-window", "tools/velarda-screenshots")
ODD_NAME = "Škopa 牌 & l'asso"  # a folder may be called anything
SCALES = 1, 2


def settings(melody, rate):
    return b" %d \r\n %d \r\n 100 \r\n" % (melody, rate)


DELIVERED = (game_folder / SETTINGS).read_bytes()


@contextlib.contextmanager
def windows(scale=1):
    """A new Windows on a screen of its own, larger for larger pixels."""
    with contextlib.ExitStack() as opened:
        screen = opened.enter_context(VirtualScreen(1280 * scale, 1024 * scale))
        folder = opened.enter_context(tempfile.TemporaryDirectory(ignore_cleanup_errors=True))
        yield opened.enter_context(Wine(screen, folder, scale))


def portable(wine, name="velarda"):
    """The unpacked folder, and in it the project's tools, which find their libraries there."""
    folder = wine.prefix / "drive_c" / name
    with tempfile.TemporaryDirectory() as unpacked:
        archive, = built.glob("velarda-*.zip")
        shutil.unpack_archive(archive, unpacked)
        shutil.move(Path(unpacked) / game_folder.name, folder)
    for tool in TOOLS:
        shutil.copy2(built / "game" / (tool + ".exe"), folder)
    return folder


def wait_for_opening(game):
    wait_until(game.is_asked_for_the_kind, "no opening screen")


def try_transcripts():
    """The same hands as on Linux."""
    asked = "--hands", "3000", "--seed", "5", "--transcript"
    with windows() as wine:
        here = wine.run(portable(wine) / "velarda-sim.exe", *asked)
    there = subprocess.run([linux / "velarda-sim", *asked], stdout=subprocess.PIPE, check=True)
    assert here == there.stdout, "the transcripts differ"
    return "3000 hands, the same %d bytes, SHA-256 %s..." % (
        len(here), hashlib.sha256(here).hexdigest()[:16])


def try_installer():
    """Installed, started by its link, played, and taken away again."""
    with windows() as wine:
        wine.be("win7")
        wine.run(setup, "/S", status=3)
        wine.be("win10")
        before = wine.files()
        assert not any("velarda" in name for name in before), "installed on Windows 7"
        wine.run(setup, "/S")
        home = wine.user / "AppData/Local/Programs/Velarda"
        link = wine.user / "AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Velarda.lnk"
        assert (home / SETTINGS).read_bytes() == DELIVERED, "other settings than delivered"
        link_started = ("start", "/wait", "/unix", link)
        with WindowsGame(wine, home, link_started) as game:
            wait_for_opening(game)
            save_picture(kept / "windows-opening.png", wine.screen.root)
            wine.run(setup, "/S", status=2)  # it is in use
            game.choose("Alt+p", 2)
            game.expect_settings(settings(12, 3))
            game.play_until(game.is_at_sheet, "no score sheet")
            save_picture(kept / "windows-sheet.png", wine.screen.root)
            game.press_on()
            game.choose("Alt+m", 6)
            game.expect_settings(settings(6, 3))
            game.end("Alt+F4")
        with WindowsGame(wine, home, link_started) as game:
            wait_for_opening(game)
            game.choose("Alt+p", 0)
            game.expect_settings(settings(6, 1))  # the melody chosen the last time
            game.end("Alt+q")
        wine.run(setup, "/S")  # over the same version: what was chosen stays
        game.expect_settings(settings(6, 1))
        wine.run(home / "uninstall.exe", "/S")
        wait_until(lambda: not home.exists(), "it is still there")
        left = wine.files() - before
        assert not left, "uninstalling leaves %s" % left
    return "installed, a hand played to its sheet, choices kept, nothing left"


def try_folder():
    """Unpacked into a folder with an odd name: sounds, two copies at once, logging off, kills."""
    with windows() as wine:
        folder = portable(wine, ODD_NAME)
        heard = wine.prefix / "heard.raw"
        device = {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": "Z:%s" % heard}
        with WindowsGame(wine, folder, **device) as game:
            wait_for_opening(game)
            game.choose("Alt+p", 2)
            game.expect_settings(settings(12, 3))
            game.play_until(lambda: heard.exists() and any(heard.read_bytes()), "no card is heard")
            game.end()
        with WindowsGame(wine, folder) as one:
            wait_for_opening(one)
            with WindowsGame(wine, folder) as other:  # it comes to lie in front
                wait_for_opening(other)
                other.choose("Alt+m", 3)
                other.expect_settings(settings(3, 3))
                other.end()
            wait_for_opening(one)
            one.choose("Alt+p", 1)
            one.expect_settings(settings(12, 2))
            wine.run("wineboot", "--end-session")
            one.process.wait()
            one.expect_settings(settings(12, 2))
        assert not (folder / (SETTINGS + ".new")).exists(), "half-written settings are left"
        try_kills(wine, folder)
    return "sound from a folder called %s; two at once; logged off; killed" % ODD_NAME


def try_kills(wine, folder):
    chance, whole = random.Random(1), [settings(12, rate) for rate in (1, 2, 3)]
    for _ in range(5):
        with WindowsGame(wine, folder) as game:
            wait_for_opening(game)
            game.open_menu("Alt+p")
            for key in (*["Down"] * chance.choice((0, 1, 2)), "Return"):
                game.key(key)
            time.sleep(chance.uniform(0, 0.3))
            game.process.kill()
            game.process.wait()
        assert (folder / SETTINGS).read_bytes() in whole, "a kill has spoilt the settings"


def try_read_only():
    """Settings that cannot be written go to the user's own folder; without a sound device."""
    with windows() as wine:
        folder = portable(wine)
        own = wine.user / "AppData/Local/velarda"
        (folder / SETTINGS).chmod(0o444)
        with WindowsGame(wine, folder) as game:
            wait_for_opening(game)
            game.choose("Alt+p", 0)
            game.expect_settings(settings(12, 1), own)
            game.end()
        with WindowsGame(wine, folder, SDL_AUDIODRIVER="wasapi") as game:
            wait_for_opening(game)
            game.choose("Alt+m", 1)
            game.expect_settings(settings(1, 1), own)
            game.play_until(game.has_cards, "no cards are dealt")
            game.end("Alt+F4")
        assert (folder / SETTINGS).read_bytes() == DELIVERED, "the delivered settings have changed"
    return "settings in the user's application data; played without a sound device"


def photographed(scale):
    """The same hand on Linux and here, in windows whose tables are of one size; the two folders,
    and how high the menu bars are."""
    there, here = (kept / ("%s-%d" % (name, scale)) for name in ("linux", "windows"))
    with windows(scale) as wine:
        photographer = portable(wine) / "velarda-screenshots.exe"
        for place in (there, here):
            place.mkdir(exist_ok=True)
        environment = wine.screen.environment | {"QT_SCALE_FACTOR": str(scale)}
        subprocess.run([linux / "tools/velarda-screenshots", there, "1000", "750"],
                       env=environment, check=True)
        wine.run(photographer, "Z:%s" % here, 1000, 750)
        bars = [bar_of(place / "table.png") for place in (there, here)]
        if bars[0] != bars[1]:
            sheet = (here / "score.png").read_bytes()  # which has no menu
            wine.run(photographer, "Z:%s" % here, 1000, 750 + (bars[1] - bars[0]) // scale)
            (here / "score.png").write_bytes(sheet)
    return there, here, bars


def bar_of(picture):
    column = Image.open(picture).convert("RGB").crop((1, 0, 2, 200)).getdata()
    return next(row for row, colour in enumerate(column) if bytes(colour[::-1]) == CLOTH)


def differing(pair):
    """The share of the pixels of two pictures that are not the same."""
    bands = ImageChops.difference(*pair).split()
    unlike = ImageChops.lighter(ImageChops.lighter(*bands[:2]), bands[2]).point(lambda v: v and 1)
    return sum(unlike.getdata()) / (unlike.width * unlike.height)


def try_pictures():
    """The same boxes as on Linux, to the pixel; letters and buttons are each system's own."""
    told, lettered = [], {"opening": 0.05, "score": 0.05, "rules": 0.12}
    for scale in SCALES:
        there, here, bars = photographed(scale)
        for name in ("table", "selection", "fan", "scopa", "sweep", *lettered):
            pair = [Image.open(place / (name + ".png")).convert("RGB") for place in (there, here)]
            if name != "score":  # the sheet has no menu
                pair = [picture.crop((0, bar, picture.width, picture.height))
                        for picture, bar in zip(pair, bars)]
            assert pair[0].size == pair[1].size, "%s: other sizes" % name
            share = differing(pair)
            assert share <= lettered.get(name, 0), "%s at scale %d: %.1f %% of it differs" % (
                name, scale, share * 100)
            told += ["%s %.1f %%" % (name, share * 100)] * (name in lettered)
    return "nothing differs on the table; with letters " + ", ".join(told)


def try_figures():
    """Start and memory beside a bare window built in the same way; medians of five."""
    told, seen = [], {"velarda": ([], [], []), "velarda-bare-window": ([], [], [])}
    colour = {"velarda": BLUE, "velarda-bare-window": CLOTH}
    with windows() as wine:
        folder = portable(wine)
        (folder / SETTINGS).write_bytes(settings(0, 2))
        for name in [*seen] * 6:
            with WindowsGame(wine, folder, program=name + ".exe") as game:
                def painted(game=game, name=name):
                    with contextlib.suppress(*GONE):
                        return game.seen(9, game.place(game.windows()[0])[3] - 9) == colour[name]
                    return False
                wait_until(painted, "no picture of " + name)
                seconds, work = time.monotonic() - game.begun, game.process.processor()
                time.sleep(2)
                for figures, value in zip(seen[name], (seconds, work, game.process.memory())):
                    figures.append(value)
    for name, figures in seen.items():  # the first of each has warmed up the machine
        told.append("%s %.2f s to the first picture, %.2f s of the processor, %.0f MiB" % (
            name, *[statistics.median(values[1:]) for values in figures]))
    return "; ".join(told)


STEPS = {"transcripts": try_transcripts, "installer": try_installer, "folder": try_folder,
         "read_only": try_read_only, "pictures": try_pictures, "figures": try_figures}

if __name__ == "__main__":
    if not sys.argv[3:]:
        shutil.rmtree(kept, ignore_errors=True)
    kept.mkdir(exist_ok=True)
    for step in sys.argv[3:] or STEPS:
        begun = time.monotonic()
        print("%-12s" % step, STEPS[step](), "(%.0f s)" % (time.monotonic() - begun))
    print("Tried; pictures are in %s." % kept)
