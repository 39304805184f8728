#!/usr/bin/env python3
"""Puts pictures into an icon for Windows: ico.py ICON PNG..."""
import pathlib
import struct
import sys

pictures = [pathlib.Path(name).read_bytes() for name in sys.argv[2:]]
directory = struct.pack("<HHH", 0, 1, len(pictures))
offset = len(directory) + 16 * len(pictures)
for picture in pictures:
    width, height = struct.unpack(">II", picture[16:24])  # of the PNG's header
    directory += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(picture), offset)
    offset += len(picture)
pathlib.Path(sys.argv[1]).write_bytes(directory + b"".join(pictures))
