#!/usr/bin/python3
# Velarda, a card game of the Scopa family.
# SPDX-License-Identifier: MIT
"""OUTPUT.ico PICTURE.png...: joins square pictures, each of another size, in one icon file."""

import struct
import sys
from pathlib import Path

output, *names = sys.argv[1:]
pictures = [Path(name).read_bytes() for name in names]
place = 6 + 16 * len(pictures)  # after the head and an entry for each
head = struct.pack("<HHH", 0, 1, len(pictures))
for picture in pictures:
    width, height = struct.unpack(">II", picture[16:24])
    if width != height or width > 256:
        sys.exit("icon_file.py: a picture of %d by %d pixels fits no icon" % (width, height))
    # 256 is written as 0; one plane of 32 bits a pixel.
    head += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(picture), place)
    place += len(picture)
Path(output).write_bytes(head + b"".join(pictures))
