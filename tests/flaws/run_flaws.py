#!/usr/bin/env python3
"""Converts good DXF files with one small flaw each, and checks what comes out.

    run_flaws.py --worker PATH [--keep FOLDER] [--report FILE] [NAME...]

A flawed file has to give the entities that ezdxf finds in the good file which it
stands for (base_drawings.py and flaws.py), in their spaces, on their layers and with
their values, and the warnings that the flaw calls for: a line `DXF repaired: ...`
where something had to be repaired, none where nothing had, one line for each skipped
type. --keep leaves the files in a folder. Exits with 77 without ezdxf.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "independent"))

try:
    import base_drawings
    import flaws
    import drawing_records as records
except ImportError as error:
    if error.name != "ezdxf":
        raise
    print("ezdxf is missing: no flaw was tried")
    sys.exit(77)

REPAIRED = re.compile(r"^DXF repaired: (\d+) (.+) \(first in line (\d+)\)$")
SKIPPED = re.compile(r"^Skipped (\d+) (\S+) entit(?:y|ies) \(not yet supported\)$")
PARSE = "LibreDWG parse warnings: "
# Only a hang reaches it.
TIMEOUT_SECONDS = 600
GOOD = b""
FEWEST_FLAWS = 120


def run_worker(worker, path):
    """The document, or what went wrong instead."""
    run = subprocess.run([worker, str(path)], capture_output=True, timeout=TIMEOUT_SECONDS,
                         check=False)
    if run.returncode < 0:
        return None, f"died of signal {-run.returncode}"
    if run.returncode != 0:
        answer = run.stdout.decode("utf-8", "replace").strip()
        return None, "refused" + answer.removesuffix('"}')[answer.rfind(":"):]
    return json.loads(run.stdout.decode("utf-8", "replace")), None


def expected_of(path):
    """What ezdxf finds in a good file."""
    drawing = records.open_with_ezdxf(path)
    assert drawing is not None, f"{path} is no good file"
    return records.read_ezdxf(drawing)


def described(difference):
    kind, fault, theirs, ours = difference
    if kind == "LAYER":
        return f"layer {theirs}: {fault}"
    entity = theirs or ours
    where = f"{kind} in {entity.space}"
    if fault == "missing":
        return f"{where} missing"
    if fault == "added":
        return f"{where} added"
    shown = {"values": "numbers"}.get(fault, fault)
    return f"{where}: {fault} {getattr(ours, shown, '')} not {getattr(theirs, shown, '')}"


def warning_faults(warnings, flawed):
    """What is wrong with the warnings of a document."""
    if flawed.data == GOOD:
        return [f"a good file has warnings: {warnings}"] if warnings else []
    found = []
    repairs = [REPAIRED.match(line) for line in warnings]
    ours = [match for match in repairs if match]
    if any(line.startswith("DXF repaired") and not match
           for line, match in zip(warnings, repairs)):
        found.append("a repair line of another form")
    places = [i for i, match in enumerate(repairs) if match]
    begin = 1 if warnings and warnings[0].startswith(PARSE) else 0
    if places != list(range(begin, begin + len(places))):
        found.append("repair lines are not the first warnings")
    kinds = [match.group(2) for match in ours]
    if len(kinds) != len(set(kinds)):
        found.append("two lines for one kind of repair")
    lines = [int(match.group(3)) for match in ours]
    if lines != sorted(lines):
        found.append("repair lines are not in the order of their first places")
    found += repair_faults(ours, flawed)
    skipped = {match.group(2): int(match.group(1))
               for match in map(SKIPPED.match, warnings) if match}
    found += skip_faults(skipped, flawed.skipped)
    others = [line for line, match in zip(warnings, repairs)
              if not match and not line.startswith(PARSE) and not SKIPPED.match(line)]
    if others and not flawed.warned:
        found.append(f"another warning: {others[0][:80]}")
    if flawed.warned and not warnings:
        found.append("the loss is not named")
    return found


def repair_faults(repairs, flawed):
    if flawed.warned or flawed.repairs == flaws.MAY:
        return []
    told = "; ".join(match.group(0) for match in repairs)
    if flawed.repairs == flaws.NONE:
        return [f"nothing was to be repaired: {told}"] if repairs else []
    count, lines = flawed.repairs
    if not repairs:
        return ["the repair is not named"]
    if any((count is None or int(match.group(1)) == count) and
           (lines is None or int(match.group(3)) in lines) for match in repairs):
        return []
    where = "" if lines is None else f" in line {lines.start} to {lines.stop - 1}"
    return [f"not {count or 'some'} repaired{where}: {told}"]


def skip_faults(skipped, expected):
    wanted = {frozenset(names.split("|")): count for names, count in expected.items()}
    found = [f"{'|'.join(sorted(names))} is not counted as {count} skipped"
             for names, count in wanted.items()
             if not any(skipped.get(name) == count for name in names)]
    known = {name for names in wanted for name in names}
    return found + [f"{name} is counted as skipped" for name in skipped if name not in known]


def try_file(worker, path, expected, flawed):
    """What is wrong with a flawed file's document; empty when all is well."""
    document, failure = run_worker(worker, path)
    if document is None:
        return [failure]
    differences = records.differences(expected, records.read_document(document))
    if flawed.any_text:
        differences = [d for d in differences if d[1] != "text"]
    if flawed.no_flags:
        differences = [d for d in differences if d[1] != "flags"]
    if flawed.warned:  # what breaks off may come out in part
        differences = [d for d in differences if d[1] != "added"]
    found = [described(d) for d in differences]
    shown = found[:2] + ([f"and {len(found) - 2} more"] if len(found) > 2 else [])
    return shown + warning_faults(document["warnings"], flawed)


def write_files(folder):
    """(name, path, the good file's path, flawed) of every flaw; the bases come first,
    without a flaw."""
    bases = base_drawings.all_bases()
    cases, paths = [], {}
    for base, lines in bases.items():
        paths[base] = folder / f"good_{base}.dxf"
        paths[base].write_bytes(("\n".join(lines) + "\n").encode())
        cases.append((f"good_{base}", paths[base], paths[base], flaws.Flawed(GOOD)))
    for name, base, flawed in flaws.flawed_files(bases):
        path, meant = folder / f"{name}.dxf", paths[base]
        path.write_bytes(flawed.data)
        if flawed.meant is not None:
            meant = folder / f"{name}.meant.dxf"
            meant.write_bytes(flawed.meant)
        cases.append((name, path, meant, flawed))
    names = [case[0] for case in cases]
    assert len(names) == len(set(names)), "a flaw's name stands twice"
    return cases


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--keep", type=pathlib.Path, help="leave the files in this folder")
    parser.add_argument("--report", type=pathlib.Path, help="write the failing flaws here, too")
    parser.add_argument("names", nargs="*", help="only flaws whose names hold one of these")
    options = parser.parse_args()
    worker = os.path.abspath(options.worker)
    with tempfile.TemporaryDirectory() as scratch:
        folder = options.keep or pathlib.Path(scratch)
        folder.mkdir(parents=True, exist_ok=True)
        cases = [case for case in write_files(folder)
                 if not options.names or any(part in case[0] for part in options.names)]
        expected = {meant: expected_of(meant) for _, _, meant, _ in cases}
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 1) as pool:
            results = list(pool.map(
                lambda case: try_file(worker, case[1], expected[case[2]], case[3]), cases))
    lines = [f"FAILED {case[0]}: {'; '.join(wrong)}" if wrong else f"passed {case[0]}"
             for case, wrong in zip(cases, results)]
    print("\n".join(lines))
    failed = sum(map(bool, results))
    if not options.names and len(cases) < FEWEST_FLAWS:
        failed += 1
        print(f"FAILED: fewer than {FEWEST_FLAWS} files")
    summary = f"{len(cases) - sum(map(bool, results))} passed, {failed} failed"
    print(summary)
    if options.report:
        failing = [line for line in lines if line.startswith("FAILED")]
        options.report.write_text("\n".join([*failing, summary]) + "\n")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
