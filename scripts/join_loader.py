#!/usr/bin/env python3
"""Joins the two stages of a loader to one file and fills in what stage 1 must know about the rest: its length and its
checksums. Stage 1 is one sector: of 2,048 bytes for a CD, of 512 bytes for a floppy. The length of the rest is counted
in such sectors. The boot record for disks, if there is one, follows in a sector of its own; stage 1 tells its size to
mkisofs. Prints the size of the file.

    join_loader.py RESULT STAGE1 STAGE2 [RECORD]     files
"""

import struct
import sys
from pathlib import Path

SECTORS = (512, 2048)
MARK = b"DWLOADER"  # stands at MARK_PLACE of stage 1, which says what the values behind it are
MARK_PLACE = 64
LARGEST_RECORD = 440  # the room in front of the partition table of a disk
MOST_BYTES = 47 * 2048  # the room in memory between stage 1 and the buffer of the reads


def checksums(rest):
    """Returns the sum of the words of 32 bits, and the sum of that sum after each word."""
    total = total_of_totals = 0
    for (word,) in struct.iter_unpack("<I", rest):
        total = (total + word) & 0xFFFFFFFF
        total_of_totals = (total_of_totals + total) & 0xFFFFFFFF
    return total, total_of_totals


def joined(stage1, stage2, record=b""):
    """Returns the bytes of the loader. Raises ValueError when the parts do not fit together."""
    if len(stage1) not in SECTORS or stage1[MARK_PLACE : MARK_PLACE + len(MARK)] != MARK:
        raise ValueError("stage 1 is not a sector with the loader's mark")
    if len(record) > LARGEST_RECORD:
        raise ValueError(f"the boot record has {len(record)} bytes; there is room for {LARGEST_RECORD}")

    def in_sectors(data):
        return data + bytes(-len(data) % len(stage1))

    rest = in_sectors(stage2)
    if not 1 <= len(rest) <= MOST_BYTES:
        raise ValueError(f"stage 2 has {len(rest)} bytes; there is room for 1 to {MOST_BYTES}")
    values = struct.pack("<HHII", len(rest) // len(stage1), len(record), *checksums(rest))
    place = MARK_PLACE + len(MARK)
    return stage1[:place] + values + stage1[place + len(values) :] + rest + in_sectors(record)


def main(arguments):
    if len(arguments) not in (3, 4):
        sys.exit(__doc__)
    result, *parts = map(Path, arguments)
    try:
        loader = joined(*(part.read_bytes() for part in parts))
    except ValueError as problem:
        sys.exit(f"{result}: {problem}")
    result.write_bytes(loader)
    print(f"{result.name}: {len(loader)} bytes")


if __name__ == "__main__":
    main(sys.argv[1:])
