#!/usr/bin/python3
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""FOLDER INSTALL.nsh REMOVE.nsh: what the installer lays down, and what is taken away again. The
settings are in neither: they are the player's."""

import sys
from pathlib import Path, PureWindowsPath

folder, install, remove = map(Path, sys.argv[1:])
paths = sorted(path for path in folder.rglob("*") if path.name != "config.crv")


def installed(path):
    return PureWindowsPath("$INSTDIR", path.relative_to(folder))


files = [path for path in paths if path.is_file()]
install.write_text("".join('SetOutPath "%s"\nFile "%s"\n' % (installed(path.parent), path)
                           for path in files), encoding="utf-8")
remove.write_text("".join('Delete "%s"\n' % installed(path) for path in files) +
                  "".join('RMDir "%s"\n' % installed(path)
                          for path in reversed(paths) if path.is_dir()), encoding="utf-8")
