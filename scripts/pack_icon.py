#!/usr/bin/env python3
"""Packs square PNG pictures into one icon file for Windows.

    scripts/pack_icon.py ICON PNG...
"""
import pathlib
import struct
import sys


def main():
    icon, *files = map(pathlib.Path, sys.argv[1:])
    pictures = [file.read_bytes() for file in files]
    offset = 6 + 16 * len(pictures)
    entries = b""
    for picture in pictures:
        width, height = struct.unpack(">II", picture[16:24])
        # The format writes 256 as 0.
        entries += struct.pack("<BBBBHHII", width % 256, height % 256, 0, 0, 1, 32, len(picture), offset)
        offset += len(picture)
    icon.write_bytes(struct.pack("<HHH", 0, 1, len(pictures)) + entries + b"".join(pictures))


if __name__ == "__main__":
    main()
