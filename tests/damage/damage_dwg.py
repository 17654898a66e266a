#!/usr/bin/env python3
"""Damages each DWG of a folder in one to five bytes, again and again, and counts what
the worker still makes of it.

    damage_dwg.py --worker PATH [--drawings FOLDER] [--times N] [--list]

The seed is the file's name and the damage's number, so that every run does the same.
None may kill the worker, and none may hang. The counts say how many still give a
document, and how many of these lack something that no new warning names
(damage_corpus.py has what counts as a loss). The folder is that of DWG_CORPUS when
none is given; exits with 77 without one. --list names each that gives no document or
loses something without a word, --keep FOLDER keeps their files.
"""

import argparse
import collections
import concurrent.futures
import itertools
import os
import pathlib
import random
import sys
import tempfile

from damage_corpus import SKIPPED, convert, outcome

MOST_BYTES = 5
KINDS = ("whole", "named", "silent", "refused", "died", "hung")


def damaged(data, rng):
    """The bytes with one to five of them changed."""
    changed = bytearray(data)
    for _ in range(rng.randint(1, MOST_BYTES)):
        changed[rng.randrange(len(changed))] ^= rng.randint(1, 255)
    return bytes(changed)


def damage_file(worker, path, name, times, keep):
    """(what happened, remark, seconds) of each damage to one file; None when the good
    file gives no document."""
    _, good, _ = convert(worker, path)
    if good is None:
        return None
    told = collections.Counter(good["warnings"])
    data = path.read_bytes()
    results = []
    with tempfile.TemporaryDirectory() as folder:
        for number in range(times):
            copy = pathlib.Path(keep or folder) / f"{name.replace('/', '-')}-{number}.dwg"
            copy.write_bytes(damaged(data, random.Random(f"{name} {number}")))
            status, document, seconds = convert(worker, copy)
            kind, remark = outcome(status, document, good, told)
            results.append((kind, remark, seconds))
            if not keep or kind in ("whole", "named"):
                copy.unlink()
    return results


def dwg_files(folder):
    return [path for path in sorted(folder.rglob("*"))
            if path.suffix.lower() == ".dwg" and path.is_file()]


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--times", type=int, default=20, help="damages to each file (20)")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--keep", help="a folder for the files that --list names")
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    paths = dwg_files(options.drawings)
    names = [path.relative_to(options.drawings).as_posix() for path in paths]
    counts, slowest = collections.Counter(), []
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        for name, results in zip(names, pool.map(
                damage_file, itertools.repeat(os.path.abspath(options.worker)), paths, names,
                itertools.repeat(options.times), itertools.repeat(options.keep))):
            for number, (kind, remark, seconds) in enumerate(results or ()):
                counts[kind] += 1
                slowest = sorted([*slowest, (seconds, name, number)], reverse=True)[:5]
                if kind in ("died", "hung") or options.list and kind in ("refused", "silent"):
                    print(f"{kind} {name} {number}: {remark}", flush=True)
    total = sum(counts.values())
    print(", ".join(f"{kind} {counts[kind]}" for kind in KINDS) + f" of {total}")
    for seconds, name, number in slowest:
        print(f"slow: {seconds:.2f} s, {name} {number}")
    return 1 if counts["died"] + counts["hung"] else 0


if __name__ == "__main__":
    sys.exit(main())
