#!/usr/bin/env python3
"""Counts the instructions of what growth_tests measures, and judges how they grow.

    count_work.py --program PATH [--valgrind PATH] [--filter GOOGLETEST_FILTER]

The program runs under valgrind's callgrind, which counts instructions in the
function RunMeasured alone and writes its totals at each end of it. Each case runs
at a size n and at 8n: linear growth is a factor of 8, n log n about 10, the square
64. One planted case grows with the square and has to be found.

Exits with 77 where valgrind is missing.
"""

import argparse
import collections
import os
import pathlib
import re
import sys
import tempfile

import callgrind

FUNCTION = "RunMeasured"
LARGEST_GROWTH = 12
# Fewer cases than there were would mean that the measuring broke.
FEWEST_CASES = 20
PLANTED = "Planted.SquareOfTheSize"
MEASURED = re.compile(r"^MEASURED (\S+) (\d+)$", re.MULTILINE)


def run_counted(valgrind, program, test_filter, folder):
    """What the program printed, and the instructions of each measured piece in turn."""
    program = callgrind.without_debug_information(program, folder)
    run = callgrind.run(valgrind, f"{folder}/out", [program, f"--gtest_filter={test_filter}"],
                        f"--toggle-collect={FUNCTION}", f"--dump-after={FUNCTION}")
    if run.returncode != 0:
        sys.exit(f"{run.stdout}\n{run.stderr}\nFAILED: the program ended with {run.returncode}")
    parts = sorted(pathlib.Path(folder).glob("out.*"),
                   key=lambda path: int(path.suffix[1:]))
    return run.stdout, [callgrind.total_of(path) for path in parts]


def cases_of(output, counts):
    """Pairs of (size, instructions) by case, in the order in which they ran."""
    measured = MEASURED.findall(output)
    if len(measured) != len(counts):
        sys.exit(f"FAILED: {len(measured)} pieces were announced, {len(counts)} counted")
    cases, seen = {}, collections.Counter()
    for (small, large) in zip(zip(measured[::2], counts[::2]), zip(measured[1::2], counts[1::2])):
        (name, first), instructions = small
        (other, last), more = large
        if name != other or int(last) != 8 * int(first):
            sys.exit(f"FAILED: {name} {first} is followed by {other} {last}")
        seen[name] += 1
        label = name if seen[name] == 1 else f"{name} ({seen[name]})"
        cases[label] = ((int(first), instructions), (int(last), more))
    return cases


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--program", required=True)
    callgrind.add_argument(parser)
    parser.add_argument("--filter", default="*")
    options = parser.parse_args()
    if options.valgrind is None:
        print("valgrind is missing: no work was counted")
        return callgrind.SKIPPED

    with tempfile.TemporaryDirectory() as folder:
        output, counts = run_counted(options.valgrind, os.path.abspath(options.program),
                                     options.filter, folder)
    failed = 0
    cases = cases_of(output, counts)
    for name, ((first, instructions), (last, more)) in cases.items():
        growth = more / max(instructions, 1)
        bad = (growth <= LARGEST_GROWTH) == (name == PLANTED)
        failed += bad
        print(f"{'FAILED' if bad else 'passed'} {name}: {instructions} instructions at {first}, "
              f"{more} at {last}: {growth:.2f} times")
    if options.filter == "*" and (len(cases) < FEWEST_CASES or PLANTED not in cases):
        failed += 1
        print(f"FAILED: only {len(cases)} cases were measured")
    print(f"{len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
