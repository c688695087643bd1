#!/usr/bin/env python3
"""Joins the two stages of a loader to one file and fills in what stage 1 must know about the rest: its length and its
checksums. Stage 1 is one sector: of 2,048 bytes for a CD, of 512 bytes for a floppy. The length of the rest is counted in
such sectors. Prints the size of the file.

    join_loader.py STAGE1 STAGE2 RESULT     three files
"""

import struct
import sys
from pathlib import Path

SECTORS = (512, 2048)
MARK = b"DWLOADER"  # stands at MARK_PLACE of stage 1, which says what the values behind it are
MARK_PLACE = 8
MOST_BYTES = 47 * 2048  # the room in memory between stage 1 and the buffer of the reads


def checksums(rest):
    """Returns the sum of the words of 32 bits, and the sum of that sum after each word."""
    total = total_of_totals = 0
    for (word,) in struct.iter_unpack("<I", rest):
        total = (total + word) & 0xFFFFFFFF
        total_of_totals = (total_of_totals + total) & 0xFFFFFFFF
    return total, total_of_totals


def joined(stage1, stage2):
    """Returns the bytes of the loader. Raises ValueError when the stages do not fit together."""
    if len(stage1) not in SECTORS or stage1[MARK_PLACE : MARK_PLACE + len(MARK)] != MARK:
        raise ValueError("stage 1 is not a sector with the loader's mark")
    rest = stage2 + bytes(-len(stage2) % len(stage1))
    if not 1 <= len(rest) <= MOST_BYTES:
        raise ValueError(f"stage 2 has {len(rest)} bytes; there is room for 1 to {MOST_BYTES}")
    values = struct.pack("<HHII", len(rest) // len(stage1), 0, *checksums(rest))
    place = MARK_PLACE + len(MARK)
    return stage1[:place] + values + stage1[place + len(values) :] + rest


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    stage1, stage2, result = map(Path, arguments)
    try:
        loader = joined(stage1.read_bytes(), stage2.read_bytes())
    except ValueError as problem:
        sys.exit(f"{result}: {problem}")
    result.write_bytes(loader)
    print(f"{result.name}: {len(loader)} bytes")


if __name__ == "__main__":
    main(sys.argv[1:])
