#!/usr/bin/env python3
"""Damages each text DXF of a folder in one line, again and again, and counts what
the worker still makes of it.

    damage_corpus.py --worker PATH [--drawings FOLDER] [--times N] [--list]

A damage replaces, removes or doubles one line anywhere in the file; the seed is the
file's name and the damage's number, so that every run does the same. Of all damaged
files whose good file gives a document

- at least 95 of 100 have to give one, too,
- each of those has as many entities in model space, blocks and sheets as the good
  file's, as many layers and blocks, or says in a new warning that something was lost,
- none may kill the worker, and none may hang.

An entity or value that a damage turned into another good one is no loss. What the
document leaves out by its own rules stands in silent_losses.txt beside this file. The folder is that
of DWG_CORPUS when none is given; exits with 77 without one. --list names each
damaged file that gives no document or loses something without a word.
"""

import argparse
import collections
import concurrent.futures
import itertools
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
HERE = pathlib.Path(__file__).resolve().parent
BINARY = b"AutoCAD Binary DXF"
FEWEST_FILES = 100
LEAST_SHARE = 0.95
# Only a hang reaches it.
TIMEOUT_SECONDS = 120
DAMAGES = ("replaced", "removed", "doubled")
STRAY = [b"", b"0", b"-1", b"7", b"1e3", b"words", b"#?!", b"\xff\xfe", b"  ", b"ENDSEC"]


def damaged(lines, rng):
    """The lines with one of them damaged, and what was done to it."""
    kind, position = rng.choice(DAMAGES), rng.randrange(len(lines))
    line = lines[position]
    end = line[len(line.rstrip(b"\r\n")):]
    new = {"removed": [], "doubled": [line, line]}.get(kind)
    if new is None:
        other = rng.choice(STRAY) if rng.random() < 0.5 else \
            lines[rng.randrange(len(lines))].rstrip(b"\r\n")
        new = [other + end]
    return lines[:position] + new + lines[position + 1:], kind, position + 1


def convert(worker, path):
    """(exit status or None after a hang, the document or None, seconds)."""
    begin = time.monotonic()
    try:
        run = subprocess.run([worker, str(path)], capture_output=True, timeout=TIMEOUT_SECONDS,
                             check=False)
    except subprocess.TimeoutExpired:
        return None, None, TIMEOUT_SECONDS
    seconds = time.monotonic() - begin
    document = json.loads(run.stdout.decode("utf-8", "replace")) if run.returncode == 0 else None
    return run.returncode, document, seconds


def content(document):
    """How many entities there are in model space, blocks and sheets, how many layers
    and blocks."""
    return collections.Counter({
        "entities in model space": len(document["entities"]),
        "entities in blocks": sum(len(asset["entities"]) for asset in document["assets"]),
        "entities on sheets": sum(len(sheet["entities"]) for sheet in document["layouts"]),
        "layers": len(document["layers"]),
        "blocks": len(document["assets"])})


def lost(good, document):
    """What the document lacks, for people; empty when it lacks nothing."""
    return ", ".join(f"{count} {what}" for what, count in
                     (content(good) - content(document)).items())


def damage_file(worker, path, name, times):
    """(what happened, damage, line, remark, seconds) of each damage to one file; None
    when the good file gives no document."""
    _, good, _ = convert(worker, path)
    if good is None:
        return None
    lines = path.read_bytes().splitlines(keepends=True)
    told = collections.Counter(good["warnings"])
    results = []
    with tempfile.TemporaryDirectory() as folder:
        copy = pathlib.Path(folder) / "damaged.dxf"
        for number in range(times):
            changed, kind, line = damaged(lines, random.Random(f"{name} {number}"))
            copy.write_bytes(b"".join(changed))
            status, document, seconds = convert(worker, copy)
            results.append((*outcome(status, document, good, told), kind, line, seconds))
    return results


def outcome(status, document, good, told):
    if status is None:
        return "hung", ""
    if status not in (0, 1):
        return "died", f"status {status}"
    if document is None:
        return "refused", ""
    loss = lost(good, document)
    if not loss:
        return "whole", ""
    new = collections.Counter(document["warnings"]) - told
    return ("named" if new else "silent"), loss


def text_drawings(folder):
    for path in sorted(folder.rglob("*")):
        if path.suffix.lower() == ".dxf" and path.is_file():
            with path.open("rb") as stream:
                if stream.read(len(BINARY)) != BINARY:
                    yield path


def read_explained(path):
    """{(file, number of the damage)}; a line is `file | number | reason`."""
    lines = [line for line in path.read_text(encoding="utf-8").splitlines()
             if line.strip() and not line.startswith("#")]
    return {(file.strip(), int(number))
            for file, number, _ in (line.split("|") for line in lines)}


def print_table(counts):
    kinds = ("whole", "named", "explained", "silent", "refused", "died", "hung")
    print(f"{'damage':10}" + "".join(f"{kind:>10}" for kind in kinds))
    for damage in DAMAGES:
        print(f"{damage:10}" + "".join(f"{counts[damage, kind]:10}" for kind in kinds))


def judge(counts, files):
    """What is wrong, a line each."""
    total = sum(counts.values())
    by_kind = collections.Counter()
    for (_, kind), count in counts.items():
        by_kind[kind] += count
    documents = sum(by_kind[kind] for kind in ("whole", "named", "explained", "silent"))
    share = documents / max(total, 1)
    print(f"{100 * share:.2f} % of {total} damaged files give a document "
          f"({100 * LEAST_SHARE:.0f} % have to)")
    if files < FEWEST_FILES:
        yield f"only {files} files were damaged"
    if share < LEAST_SHARE:
        yield "too few damaged files give a document"
    for kind, words in (("silent", "lose something without a word"), ("died", "kill the worker"),
                        ("hung", "never end")):
        if by_kind[kind]:
            yield f"{by_kind[kind]} damaged files {words}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--times", type=int, default=20, help="damages to each file (20)")
    parser.add_argument("--list", action="store_true")
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    explained = read_explained(HERE / "silent_losses.txt")
    paths = list(text_drawings(options.drawings))
    names = [path.relative_to(options.drawings).as_posix() for path in paths]
    counts, slowest, files = collections.Counter(), (0, "", 0), 0
    with concurrent.futures.ProcessPoolExecutor(2) as pool:
        for name, results in zip(names, pool.map(
                damage_file, itertools.repeat(os.path.abspath(options.worker)), paths, names,
                itertools.repeat(options.times))):
            files += results is not None
            for number, (kind, remark, damage, line, seconds) in enumerate(results or ()):
                if kind == "silent" and (name, number) in explained:
                    kind = "explained"
                counts[damage, kind] += 1
                slowest = max(slowest, (seconds, name, number))
                if kind in ("died", "hung") or options.list and kind in ("refused", "silent"):
                    print(f"{kind} {name} {number}: line {line} {damage} {remark}")
    print_table(counts)
    print(f"{len(paths) - files} files give no document undamaged")
    print("slowest: {0:.2f} s, {1} {2}".format(*slowest))
    wrong = list(judge(counts, files))
    for line in wrong:
        print("FAILED:", line)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
