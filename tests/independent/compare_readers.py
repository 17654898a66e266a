#!/usr/bin/env python3
"""Compares all that the worker finds in DXF files with what ezdxf finds there.

    compare_readers.py --worker PATH [--drawings FOLDER] [--all]

Of the DXF files of a folder in which ezdxf finds entities the worker has to open at
least 99 of 100 and to agree in at least 97 of 100: as many entities of each type,
each in its space (model, sheet or the block of a name) and on its layer, with its
points, sizes, angles, names, plain texts, colour and lineweight, and layers with
their flags. Every remaining difference stands with its reason in reader_differences.txt
beside this file and in docs/reading.md; one that does not, or one listed there that no
longer shows, fails the run. Reasons that begin with "ezdxf" tell of that reader's
mistakes; a file with no other difference counts as one that agrees.

The folder is that of DWG_CORPUS when none is given; files below a folder named `bad`,
which are damaged on purpose, are left out. Exits with 77 without a folder or ezdxf.
--all prints each difference instead of one for each type of entity and fault.
"""

import argparse
import collections
import concurrent.futures
import functools
import logging
import os
import pathlib
import sys

import drawing_records as records

HERE = pathlib.Path(__file__).resolve().parent
PAGE = HERE.parents[1] / "docs" / "reading.md"
SKIPPED = 77
FEWEST_FILES = 140
LEAST_OPENED = 0.99
LEAST_AGREEING = 0.97
DAMAGED = "bad"
THEIR_MISTAKE = "ezdxf"


def compare(worker, path):
    """The differences by (type, fault); None when ezdxf finds nothing, a text when the
    worker refuses the file."""
    logging.disable()
    drawing = records.open_with_ezdxf(path)
    theirs = None if drawing is None else records.read_ezdxf(drawing)
    if theirs is None or not theirs.entities:
        return None
    status, document = records.convert(worker, path)
    if document is None:
        return f"exit status {status}, {len(theirs.entities)} entities there"
    found = collections.defaultdict(list)
    for kind, fault, a, b in records.differences(theirs, records.read_document(document)):
        found[kind, fault].append((a, b))
    return dict(found)


def read_table(path):
    """{(file, type, fault): reason}; a line is `file | type | fault | reason`."""
    table = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.strip() and not line.startswith("#"):
            file, kind, fault, reason = (part.strip() for part in line.split("|"))
            table[file, kind, fault] = reason
    return table


def judge_file(name, found, table, everything):
    """Prints what differs in one file; the number of failures."""
    failed = 0
    for (kind, fault), pairs in sorted(found.items()):
        reason = table.get((name, kind, fault))
        failed += reason is None
        print(f"{'FAILED' if reason is None else 'differs'} {name}: {len(pairs)} {kind} {fault}"
              + (f" ({reason})" if reason else ""))
        for theirs, ours in pairs if everything else pairs[:reason is None]:
            print(f"    there {theirs}\n    here  {ours}")
    listed = {key[1:] for key in table if key[0] == name}
    for kind, fault in sorted(listed - found.keys()):
        failed += 1
        print(f"FAILED {name}: {kind} {fault} is listed and does not differ")
    return failed


def unlisted_rows(table):
    """Files of the table that the page for readers does not name."""
    page = PAGE.read_text(encoding="utf-8") if PAGE.exists() else ""
    return sorted({file for file, _, _ in table if file not in page})


def print_share(count, total, words, least):
    share = count / max(total, 1)
    print(f"{count} of {total} {words} ({100 * share:.1f} %, {100 * least:.0f} % have to)")
    return share < least


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--table", type=pathlib.Path, default=HERE / "reader_differences.txt")
    parser.add_argument("--all", action="store_true")
    options = parser.parse_args()
    if options.drawings is None or records.ezdxf is None:
        print("ezdxf is missing" if records.ezdxf is None
              else "no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    table = read_table(options.table)
    paths = [path for path in sorted(options.drawings.rglob("*"))
             if path.suffix.lower() == ".dxf" and path.is_file()
             and DAMAGED not in path.relative_to(options.drawings).parts]
    names = [path.relative_to(options.drawings).as_posix() for path in paths]
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        results = list(pool.map(functools.partial(compare, os.path.abspath(options.worker)), paths))

    compared = refused = agreeing = mistaken = failed = 0
    for name, found in zip(names, results):
        if found is None:
            continue
        compared += 1
        if isinstance(found, str):
            refused += 1
            print(f"refused {name}: {found}")
            continue
        agreeing += not found
        mistaken += bool(found) and all(
            table.get((name, *key), "").startswith(THEIR_MISTAKE) for key in found)
        failed += judge_file(name, found, table, options.all)
    for name in sorted({file for file, _, _ in table} - set(names)):
        print(f"listed but not in the folder: {name}")
    for name in unlisted_rows(table):
        failed += 1
        print(f"FAILED: docs/{PAGE.name} does not name {name}")
    failed += print_share(compared - refused, compared, "files are opened", LEAST_OPENED)
    print(f"{agreeing} agree in everything, {mistaken} but for mistakes of ezdxf")
    failed += print_share(agreeing + mistaken, compared, "agree", LEAST_AGREEING)
    if compared < FEWEST_FILES:
        failed += 1
        print(f"FAILED: fewer than {FEWEST_FILES} files were compared")
    print(f"{failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
