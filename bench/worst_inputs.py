#!/usr/bin/env python3
"""Writes worst-case drawings, converts them, and prints how time and memory grow
with their size, for LibreDWG's reading and for the conversion.

    bench/worst_inputs.py --worker build/release/dwg_import_worker [--only NAME...]
                          [--scale S] [--keep FOLDER] [--timeout SECONDS] [--runs N]

Every kind of drawing is converted at sizes n, 2n and 4n. The growth column is
the time at 4n over the time at n: 4 is linear, 16 is the square.
"""

import argparse
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import threading

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "support"))
from dxf_writer import MODEL_SPACE, PAPER_SPACE, Dxf, text_sink  # noqa: E402

TAIL = 400  # bytes at the document's end that hold its timings


def layer(dxf, name):
    return dxf.record("LAYER", "AcDbLayerTableRecord", name, (70, 0), (62, 7), (6, "CONTINUOUS"),
                      owner="2")


def block_record(dxf, name, handle=None):
    return dxf.record("BLOCK_RECORD", "AcDbBlockTableRecord", name, handle=handle, owner="1")


def write(path, layers=0, blocks=(), entities=None):
    """A drawing with so many layers, block definitions (name and a writer of
    their entities) and a writer of the entities of model space."""
    with open(path, "w", encoding="ascii") as file:
        dxf = Dxf(text_sink(file))
        dxf.header("AC1015", (9, "$HANDSEED"), (5, "FFFFFFF"))
        spaces = [("*Model_Space", MODEL_SPACE), ("*Paper_Space", PAPER_SPACE)]
        with dxf.section("TABLES"):
            with dxf.table("LAYER", "2"):
                layer_handles = [layer(dxf, "0")] + [layer(dxf, f"L{i}") for i in range(layers)]
            with dxf.table("BLOCK_RECORD", "1"):
                for name, handle in spaces:
                    block_record(dxf, name, handle)
                records = [block_record(dxf, name) for name, _ in blocks]
        with dxf.section("BLOCKS"):
            for name, handle in spaces:
                with dxf.block(name, handle):
                    pass
            for (name, body), record in zip(blocks, records):
                with dxf.block(name, record):
                    if body:
                        body(dxf, record)
        with dxf.section("ENTITIES"):
            if entities:
                entities(dxf, layer_handles)
        dxf.end()


def line(dxf, x, owner=MODEL_SPACE):
    dxf.entity("LINE", "AcDbLine", (10, x), (20, 0), (30, 0), (11, x), (21, 1.5), (31, 0), owner=owner)


def insert(dxf, name, x, owner=MODEL_SPACE):
    dxf.entity("INSERT", "AcDbBlockReference", (2, name), (10, x), (20, 0), (30, 0), owner=owner)


def lines(path, n):
    write(path, entities=lambda dxf, _: [line(dxf, i) for i in range(n)])


def lines_without_tables(path, n):
    with open(path, "w", encoding="ascii") as file:
        dxf = Dxf(text_sink(file))
        with dxf.section("ENTITIES"):
            for i in range(n):
                dxf.put((0, "LINE"), (8, f"L{i % 5}"), (6, "DASHED"), (10, i), (20, 0), (11, i),
                        (21, 1.5))
        dxf.end()


def inserts(path, n):
    write(path, blocks=[("B", lambda dxf, owner: line(dxf, 0, owner))],
          entities=lambda dxf, _: [insert(dxf, "B", i) for i in range(n)])


def nested_blocks(path, n):
    """Every block holds a reference to the next one."""
    def body(i):
        return lambda dxf, owner: insert(dxf, f"B{i + 1}", i, owner)
    write(path, blocks=[(f"B{i}", body(i)) for i in range(n)],
          entities=lambda dxf, _: insert(dxf, "B0", 0))


def many_layers(path, n):
    write(path, layers=n)


def polylines_without_end(path, n):
    """Old-style polylines, no vertices, no end markers."""
    write(path, entities=lambda dxf, _: [
        dxf.entity("POLYLINE", "AcDb2dPolyline", (66, 1), (10, 0), (20, 0), (30, 0), (70, 0))
        for _ in range(n)])


def frozen_layers(path, n):
    """One viewport that freezes all layers."""
    def viewport(dxf, layer_handles):
        dxf.entity("VIEWPORT", "AcDbViewport", (10, 1), (20, 1), (30, 0), (40, 10), (41, 10), (68, 2),
                   (69, 2), *((341, handle) for handle in layer_handles), (90, 0), owner=PAPER_SPACE,
                   paper=True)
    write(path, layers=n, entities=viewport)


def one_block(path, n):
    """All in one block definition, of several types."""
    def body(dxf, owner):
        for i in range(n // 4):
            line(dxf, i, owner)
            dxf.entity("CIRCLE", "AcDbCircle", (10, i), (20, 0), (30, 0), (40, 2.5), owner=owner)
            dxf.entity("TEXT", "AcDbText", (10, i), (20, 0), (30, 0), (40, 2.5), (1, "%%uabc%%d"),
                       (100, "AcDbText"), owner=owner)
            insert(dxf, "C", i, owner)
    write(path, blocks=[("C", None), ("B", body)], entities=lambda dxf, _: insert(dxf, "B", 0))


def mtext(dxf, text):
    pieces = [text[i:i + 250] for i in range(0, len(text), 250)]
    dxf.entity("MTEXT", "AcDbMText", (10, 0), (20, 0), (30, 0), (40, 2.5), (41, 100), (71, 1), (72, 1),
               *((3, piece) for piece in pieces[:-1]), (1, pieces[-1]))


def long_mtext(path, n):
    """One text of n bytes full of groups and codes."""
    unit = "{\\C1;red\\W0.8;{\\fArial|b1;bold}\\P}"
    write(path, entities=lambda dxf, _: mtext(dxf, unit * (n // len(unit))))


def nested_mtext(path, n):
    """One text of n bytes, half of them opening groups."""
    write(path, entities=lambda dxf, _: mtext(dxf, "{" * (n // 2) + "}" * (n // 2)))


def long_text(path, n):
    """Single-line texts of 250 bytes, all codes."""
    write(path, entities=lambda dxf, _: [
        dxf.entity("TEXT", "AcDbText", (10, 0), (20, 0), (30, 0), (40, 2.5), (1, "%%u%%o%%d%%c" * 20),
                   (100, "AcDbText")) for _ in range(n // 250)])


def dense_hatch(path, n):
    """One hatch with a boundary of n arcs."""
    def hatch(dxf, _):
        dxf.entity("HATCH", "AcDbHatch", (10, 0), (20, 0), (30, 0), (210, 0), (220, 0), (230, 1),
                   (2, "SOLID"), (70, 1), (71, 0), (91, 1), (92, 1), (93, n),
                   *(pair for i in range(n) for pair in
                     ((72, 2), (10, i), (20, 0), (40, 1.25), (50, 0), (51, 360), (73, 1))),
                   (97, 0), (75, 0), (76, 1), (98, 0))
    write(path, entities=hatch)


def huge_spline(path, n):
    """One cubic spline of n control points."""
    def spline(dxf, _):
        dxf.entity("SPLINE", "AcDbSpline", (70, 8), (71, 3), (72, n + 4), (73, n), (74, 0),
                   *((40, i) for i in range(n + 4)),
                   *(pair for i in range(n) for pair in ((10, i), (20, i % 7), (30, 0))))
    write(path, entities=spline)


def high_degree_splines(path, n):
    """Splines of degree 2000, whose evaluation costs most for their size."""
    def splines(dxf, _):
        for _ in range(n):
            dxf.entity("SPLINE", "AcDbSpline", (70, 8), (71, 2000), (72, 4004), (73, 5), (74, 0),
                       *((40, i) for i in range(4004)),
                       *(pair for i in range(5) for pair in ((10, i), (20, i % 7), (30, 0))))
    write(path, entities=splines)


def viewports_and_clip(path, n):
    """Viewports that all name the same clip outline."""
    def viewports(dxf, _):
        clip = dxf.entity("LWPOLYLINE", "AcDbPolyline", (90, 3), (70, 1), (10, 0), (20, 0), (10, 1),
                          (20, 0), (10, 1), (20, 1), owner=PAPER_SPACE, paper=True)
        for i in range(n):
            dxf.entity("VIEWPORT", "AcDbViewport", (10, i), (20, 1), (30, 0), (40, 10), (41, 10),
                       (68, 2), (69, 2), (90, 65536), (340, clip), owner=PAPER_SPACE, paper=True)
    write(path, entities=viewports)


# Kind to its writer and the size n.
KINDS = {
    "lines": (lines, 50_000),
    "no tables, no handles": (lines_without_tables, 50_000),
    "inserts": (inserts, 50_000),
    "nested blocks": (nested_blocks, 10_000),
    "layers": (many_layers, 50_000),
    "polylines without end": (polylines_without_end, 50_000),
    "frozen layers": (frozen_layers, 25_000),
    "one block with everything": (one_block, 50_000),
    "long multi-line text": (long_mtext, 2_500_000),
    "nested multi-line text": (nested_mtext, 2_500_000),
    "text codes": (long_text, 2_500_000),
    "dense hatch": (dense_hatch, 50_000),
    "huge spline": (huge_spline, 50_000),
    "splines of high degree": (high_degree_splines, 5),
    "viewports with a clip": (viewports_and_clip, 10_000),
}


def convert(worker, path, timeout):
    """The times (ms), the document's size and the peak memory (kB) of one run;
    none when it does not end in time. Freeing counts into the read."""
    with tempfile.TemporaryFile() as out:
        with subprocess.Popen([worker, str(path)], stdout=out, stderr=subprocess.DEVNULL,
                              stdin=subprocess.DEVNULL) as process:
            timer = threading.Timer(timeout, process.kill)
            timer.start()
            _, status, usage = os.wait4(process.pid, 0)
            timer.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
        size = out.seek(0, os.SEEK_END)
        out.seek(max(0, size - TAIL))
        tail = out.read().decode("utf-8", "replace")
    if process.returncode != 0:
        return None
    timings = json.loads(tail[tail.rindex('"timings":') + len('"timings":'):-2])
    ours = timings["workerTotalMs"] - timings["dwgReadMs"]
    # Processor time for the long part, which other programs could delay.
    processor = int(1000 * (usage.ru_utime + usage.ru_stime))
    return {"read": max(0, processor - ours), "ours": ours, "bytes": size,
            "peak": usage.ru_maxrss}


def least(worker, path, timeout, count):
    """The least of several runs, by each figure."""
    runs = [convert(worker, path, timeout)]
    while runs[-1] is not None and len(runs) < count:
        runs.append(convert(worker, path, timeout))
    return None if runs[-1] is None else {key: min(run[key] for run in runs) for key in runs[0]}


def growth(first, last):
    return f"{last / first:.1f}" if first >= 10 else ""


def row(name, sizes, files, runs):
    cells = [name, " / ".join(f"{size:,}" for size in sizes),
             " / ".join(f"{size / 1e6:.1f}" for size in files)]
    for key, divisor in (("read", 1000), ("ours", 1000), ("peak", 1024), ("bytes", 1e6)):
        cells.append(" / ".join("-" if run is None else
                                f"{run[key] / divisor:.{2 if divisor == 1000 else 1}f}" for run in runs))
    for key in ("read", "ours"):
        cells.append(growth(runs[0][key], runs[-1][key]) if runs[0] and runs[-1] else "")
    return "| " + " | ".join(cells) + " |"


def main():
    if sys.argv[1:2] == ["--write"]:
        KINDS[sys.argv[2]][0](sys.argv[4], int(sys.argv[3]))
        return 0
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--only", nargs="*", choices=KINDS, default=list(KINDS))
    parser.add_argument("--scale", type=float, default=1, help="factor on all sizes")
    parser.add_argument("--keep", type=pathlib.Path, help="keep the drawings in this folder")
    parser.add_argument("--timeout", type=float, default=120)
    parser.add_argument("--runs", type=int, default=3, help="of which the least counts")
    options = parser.parse_args()
    print("| drawing | sizes | DXF MB | read s | conversion s | peak MiB | JSON MB | read growth | "
          "conversion growth |")
    print("|---|---|---|---|---|---|---|---|---|")
    with tempfile.TemporaryDirectory() as folder:
        place = options.keep or pathlib.Path(folder)
        place.mkdir(parents=True, exist_ok=True)
        for name in options.only:
            base = KINDS[name][1]
            sizes = [max(1, int(base * options.scale)) * factor for factor in (1, 2, 4)]
            files, runs = [], []
            for size in sizes:
                path = place / f"{name.replace(' ', '_')}_{size}.dxf"
                # In a process of its own: a child's peak memory is never less
                # than its parent's.
                subprocess.run([sys.executable, __file__, "--write", name, str(size), str(path)],
                               check=True)
                files.append(path.stat().st_size)
                runs.append(least(options.worker, path, options.timeout, options.runs))
                if not options.keep:
                    path.unlink()
            print(row(name, sizes, files, runs), flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
