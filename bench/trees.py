"""Makes the folder trees for the measurements. They have the same bytes on every machine.

A plan is a list of (relative path, size in bytes, number of the content); files with equal numbers have equal contents.
"""

import random
import shutil

MEGABYTE = 1_000_000
DONE = "complete"  # extension of a file beside a tree; it shows that the tree is complete
VERSION = "2"  # content of that file; raise it when a tree changes

SETUP_FILES = 6_000
SETUP_FOLDERS = 40
SETUP_BYTES = 560 * MEGABYTE
CABINETS = (75, 62, 48, 31, 24, 19, 14, 11)  # megabytes each
REPEATED_CABINET = 4
SMALLEST, MEDIAN, SPREAD = 200, 15_000, 1.5  # sizes of the small files in bytes; the distribution is log-normal


def small_sizes(numbers, count, total):
    """Returns `count` sizes in bytes with the sum `total`: many small ones and few large ones."""
    drawn = [max(SMALLEST, int(numbers.lognormvariate(0, SPREAD) * MEDIAN)) for _ in range(count)]
    sizes = [max(SMALLEST, size * total // sum(drawn)) for size in drawn]
    sizes[-1] += total - sum(sizes)
    return sizes


def setup_plan():
    """Returns the plan of a tree like a Windows XP CD."""
    numbers = random.Random(2001)
    cabinets = [size * MEGABYTE for size in CABINETS]
    sizes = cabinets + small_sizes(numbers, SETUP_FILES - len(cabinets), SETUP_BYTES - sum(cabinets))
    folders = ["", "I386"] + [f"I386/FOLDER{number:02}" for number in range(SETUP_FOLDERS - 2)]
    # Most files of such a CD are in one folder.
    weights = [1, 150] + [1 + number % 5 for number in range(SETUP_FOLDERS - 2)]
    places = ["I386"] * len(cabinets) + numbers.choices(folders, weights, k=SETUP_FILES - len(cabinets))
    return [(f"{place}/FILE{number:04}.DL_", size, number) for number, (place, size) in enumerate(zip(places, sizes))]


def many_plan(files, per_folder=500, size=1_000):
    """Returns the plan of a tree of many small files."""
    return [(f"PART{number // per_folder:03}/FILE{number:06}.TXT", size, number) for number in range(files)]


def duplicates_plan():
    """Returns the plan of a tree like a Windows XP CD in which a tenth of the files are duplicates.

    Such trees occur when a CD has several editions. Every tenth file, and one of the cabinets, has the content of the
    file before it.
    """
    plan = setup_plan()
    for number in range(1, len(plan)):
        if number % 10 == 9 or number == REPEATED_CABINET:
            plan[number] = (plan[number][0], *plan[number - 1][1:])
    return plan


def write_files(folder, plan):
    """Writes the files of a plan below `folder`, which is a Path."""
    made = set()
    for path, size, content in plan:
        target = folder / path.lstrip("/")
        if target.parent not in made:
            target.parent.mkdir(parents=True, exist_ok=True)
            made.add(target.parent)
        target.write_bytes(random.Random(content).randbytes(size))


def make_tree(folder, plan):
    """Writes the files of a plan below `folder`, unless an earlier run has written them. Returns the folder."""
    done = folder.with_name(f"{folder.name}.{DONE}")
    if done.exists() and done.read_text() == VERSION:
        return folder
    print(f"Making {folder} ({len(plan)} files) ...", flush=True)
    shutil.rmtree(folder, ignore_errors=True)
    write_files(folder, plan)
    done.write_text(VERSION)
    return folder
