#!/usr/bin/env python3
"""Counts the instructions of the whole worker on worst-case DXF files of two sizes,
and judges how they grow.

    count_reading.py --worker PATH [--valgrind PATH] [--only KIND...]

The files are those of bench/worst_inputs.py, and others that are flawed all over. The
worker runs under valgrind's callgrind at sizes n and 4n; what it needs for an empty
drawing is taken off. Linear growth is a factor of 4, n log n about 4.6, the square 16.

Exits with 77 where valgrind is missing.
"""

import argparse
import concurrent.futures
import os
import pathlib
import sys
import tempfile

import callgrind

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "bench"))
import worst_inputs  # noqa: E402

FACTOR = 4
LARGEST_GROWTH = 5
# Of the sizes of the benchmark, which are for a clock.
SCALE = 0.02
# Longer than the smallest file that the library takes.
EMPTY = "999\nalmost empty\n" * 20 + "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n0\n 20\n0\n 11\n1\n 21\n1\n" \
        "  0\nENDSEC\n  0\nEOF\n"


def in_entities(groups, before=()):
    """A file of Release 12 with these (code, value) groups in ENTITIES."""
    lines = [*before, (0, "SECTION"), (2, "ENTITIES"), *groups, (0, "ENDSEC"), (0, "EOF")]
    return "".join(f"{code}\n{value}\n" for code, value in lines)


def line(i, layer="0", more=()):
    return [(0, "LINE"), *more, (8, layer), (10, i), (20, 0), (30, 0), (11, i), (21, 1), (31, 0)]


def lines(n, make):
    return in_entities([group for i in range(n) for group in make(i)])


def bad_values(n):
    return lines(n, lambda i: [(0, "LINE"), (8, "0"), (62, "3.0"), (10, f"{i},5"), (20, "1.#QNAN"),
                               (30, ""), (11, "1D3"), (21, "word"), (31, "nan")])


def stray_lines(n):
    return lines(n, lambda i: line(i)).replace("LINE\n8", "LINE\nstray words\n\n8")


def equal_handles(n):
    return lines(n, lambda i: line(i, more=[(5, "ABC")]))


def layers_without_a_table(n):
    return lines(n, lambda i: line(i, layer=f"L{i}"))


def layers_in_any_case(n):
    return lines(n, lambda i: line(i, layer=("walls ", "WALLS", "Walls  ")[i % 3]))


def unknown_types(n):
    return lines(n, lambda i: [(0, f"VENDOR{i}"), (8, "0"), (10, i), (20, 0)])


def blocks_without_records(n):
    before = [(0, "SECTION"), (2, "BLOCKS")]
    for i in range(n):
        before += [(0, "BLOCK"), (2, f"B{i}"), (70, 0), (10, 0), (20, 0), *line(i), (0, "ENDBLK")]
    inserts = [group for i in range(n)
               for group in [(0, "INSERT"), (8, "0"), (2, f"b{i}"), (10, i), (20, 0)]]
    return in_entities(inserts, [*before, (0, "ENDSEC")])


def sequences_without_ends(n):
    return lines(n, lambda i: [(0, "POLYLINE"), (8, "0"), (66, 1), (0, "VERTEX"), (8, "0"),
                               (10, i), (20, 1)])


def sections_without_ends(n):
    return "0\nSECTION\n2\nENTITIES\n" + "".join(
        "0\nSECTION\n2\nENTITIES\n" + "".join(f"{c}\n{v}\n" for c, v in line(i))
        for i in range(n)) + "0\nEOF\n"


FLAWED = {
    "bad values": bad_values,
    "stray lines": stray_lines,
    "equal handles": equal_handles,
    "layers without a table": layers_without_a_table,
    "layer names in any case": layers_in_any_case,
    "unknown types": unknown_types,
    "blocks without records": blocks_without_records,
    "sequences without ends": sequences_without_ends,
    "sections without ends": sections_without_ends,
}
FLAWED_SIZE = 1000
# What costs the conversion, and not the reader, is counted by count_work.py.
LONG_RECORDS = {"long multi-line text", "nested multi-line text", "text codes", "dense hatch",
                "huge spline", "splines of high degree"}
KINDS = [*(kind for kind in worst_inputs.KINDS if kind not in LONG_RECORDS), *FLAWED]


def write(kind, size, path):
    if kind in FLAWED:
        path.write_text(FLAWED[kind](size))
    else:
        worst_inputs.KINDS[kind][0](path, size)


def size_of(kind):
    return FLAWED_SIZE if kind in FLAWED else max(1, int(worst_inputs.KINDS[kind][1] * SCALE))


def instructions(options, path):
    """What the worker needs for a file; None when it gives no document."""
    counts = path.with_suffix(".counts")
    run = callgrind.run(options.valgrind, counts, [options.worker, str(path)],
                        # valgrind works inside the process and writes a file
                        environment={"KVT_DWG_SANDBOX": "0"})
    return callgrind.total_of(counts) if run.returncode == 0 else None


def measure(options, folder, kind):
    """The instructions at both sizes."""
    found = []
    for size in (size_of(kind), FACTOR * size_of(kind)):
        path = folder / f"{kind.replace(' ', '_')}_{size}.dxf"
        write(kind, size, path)
        found.append(instructions(options, path))
        path.unlink()
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=os.path.abspath)
    callgrind.add_argument(parser)
    parser.add_argument("--only", nargs="*", choices=KINDS, default=KINDS)
    options = parser.parse_args()
    if options.valgrind is None:
        print("valgrind is missing: no work was counted")
        return callgrind.SKIPPED

    failed = 0
    with tempfile.TemporaryDirectory() as name, \
            concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 1) as pool:
        folder = pathlib.Path(name)
        options.worker = callgrind.without_debug_information(options.worker, folder)
        empty = folder / "empty.dxf"
        empty.write_text(EMPTY)
        start = instructions(options, empty)
        assert start is not None, "the almost empty drawing gives no document"
        measured = pool.map(lambda kind: measure(options, folder, kind), options.only)
        for kind, (first, last) in zip(options.only, measured):
            if first is None or last is None:
                failed += 1
                print(f"FAILED {kind}: no document")
                continue
            growth = (last - start) / max(first - start, 1)
            bad = growth > LARGEST_GROWTH
            failed += bad
            print(f"{'FAILED' if bad else 'passed'} {kind}: {first} instructions at "
                  f"{size_of(kind)}, {last} at {FACTOR * size_of(kind)}: {growth:.2f} times "
                  f"without the start of {start}", flush=True)
    print(f"{len(options.only) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
