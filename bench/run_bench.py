#!/usr/bin/env python3
"""Measures whole runs, side by side and in turn, and prints tables.

    run_bench.py --bench DIR --worker FILE [--drawings DIR] [--generated DIR]
                 [--runs N] [--only PART...] [--json FILE]

--bench is a build folder with DWG_BUILD_BENCH on, --worker the program that
users run, --drawings a folder of real drawings, --generated where the generated
ones are kept. Parts: real, generated, others, instructions. Times are wall
times of whole processes, minimum and median of N runs of each program, one
after the other in turn, so that a slow minute of the machine meets all.
"""

import argparse
import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent

REAL = ["libredwg/2018/Dynblocks.dwg", "aspose-cad/search.dwg", "libredwg/2004/material.dwg",
        "libopencad/24127_circles_128_lines.dwg", "acadsharp/sample_AC1018.dwg",
        "acadsharp/sample_AC1024.dwg", "acadsharp/sample_base.dwg",
        "aspose-cad/visualization_-_conference_room.dwg", "tika/testDWGmech6.dwg",
        "gdal/Building_A_Floor_0_Mapwize.dwg", "libredwg/example_2000.dwg",
        "librecad/dynblock_r2018.dwg", "civil3d-tools/TestSystem.dwg", "libredwg/example_r13.dwg",
        "libredwg/2007/ATMOS-DC22S.dwg", "libredwg/2013/gh44-error.dwg",
        "acadsharp/sample_AC1032_ascii.dxf", "acadsharp/sample_AC1032_binary.dxf",
        "libredwg/example_2000.dxf", "libredwg/example_2007.dxf", "libredwg/example_2018.dxf",
        "libredwg/2004/Surface.dxf", "libredwg/2013/Constraints.dwg",
        "ezdxf/Graz_10km_3m.dxf", "mlightcad-cad-viewer/block-color.dxf"]
GENERATED = [("mixed", 37500), ("mixed", 75000), ("mixed", 150000), ("mixed", 300000),
             ("mixed", 1000000), ("text", 50000), ("blocks", 5000), ("hatch", 3000)]
INSTRUCTIONS = ["libredwg/example_2000.dwg", "acadsharp/sample_AC1032_ascii.dxf"]

EZDXF = "import sys,ezdxf; ezdxf.readfile(sys.argv[1])"


class Run:
    """Wall seconds of one process."""

    def __init__(self, command):
        start = time.perf_counter()
        with subprocess.Popen(command, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL) as process:
            _, self.status = os.waitpid(process.pid, 0)
            self.seconds = time.perf_counter() - start
            process.returncode = os.waitstatus_to_exitcode(self.status)


def in_turn(commands, runs):
    """{name: [Run]} of several commands, one after the other in turn."""
    for command in commands.values():
        Run(command)
    results = {name: [] for name in commands}
    for _ in range(runs):
        for name, command in commands.items():
            results[name].append(Run(command))
    return results


def figures(runs):
    seconds = [run.seconds for run in runs]
    return {"min_ms": round(min(seconds) * 1e3, 3),
            "median_ms": round(statistics.median(seconds) * 1e3, 3)}


def peak_kb(options, *command):
    output = subprocess.run([options.bench / "bench/peak_memory", *command], capture_output=True,
                            check=True).stdout
    return int(output)


def our_share(stage_times, drawing, runs):
    """Microseconds from the end of the read to the start of freeing, each run
    in a process of its own, as in the worker."""
    shares = []
    for _ in range(runs):
        output = subprocess.run([stage_times, drawing, "1"], capture_output=True, check=True).stdout
        shares.append(json.loads(output)["min"]["ours"])
    return shares


def bare_read(reader, drawing, runs):
    reads = []
    for _ in range(runs):
        output = subprocess.run([reader, drawing], capture_output=True, check=True).stdout
        reads.append(json.loads(output)["read"])
    return reads


def document_size(worker, drawing):
    return len(subprocess.run([worker, drawing], capture_output=True, check=False).stdout)


def measure(options, drawing, name):
    runs = options.runs
    results = in_turn({"bare": [options.bench / "bench/bare_reader", drawing],
                       "worker": [options.worker, drawing]}, runs)
    bare, worker = figures(results["bare"]), figures(results["worker"])
    bare["peak_kb"] = peak_kb(options, options.bench / "bench/bare_reader", drawing)
    worker["peak_kb"] = peak_kb(options, options.worker, drawing)
    reads = bare_read(options.bench / "bench/bare_reader", drawing, runs)
    ours = our_share(options.bench / "bench/stage_times", drawing, runs)
    size = document_size(options.worker, drawing)
    return {"drawing": name, "kilobytes": round(pathlib.Path(drawing).stat().st_size / 1e3),
            "bare": bare, "worker": worker,
            "ratio_min": round(worker["min_ms"] / bare["min_ms"], 3),
            "ratio_median": round(worker["median_ms"] / bare["median_ms"], 3),
            "bare_read_ms": round(min(reads), 3), "ours_ms": round(min(ours) / 1e3, 3),
            "ours_share": round(min(ours) / 1e3 / bare["min_ms"], 4),
            "ours_to_read": round(min(ours) / 1e3 / min(reads), 4),
            "document_kb": round(size / 1e3),
            "memory_goal_kb": bare["peak_kb"] + round(1.5 * size / 1024)}


def table(title, header, rows):
    widths = [max(len(str(row[i])) for row in [header, *rows]) for i in range(len(header))]
    print(f"\n{title}\n")
    for row in [header, ["-" * width for width in widths], *rows]:
        print("| " + " | ".join(str(cell).ljust(width) if i == 0 else str(cell).rjust(width)
                                for i, (cell, width) in enumerate(zip(row, widths))) + " |")
    sys.stdout.flush()


def print_measures(title, measures):
    table(title,
          ["drawing", "kB", "bare min", "median", "worker min", "median", "ratio", "bare read",
           "ours", "share", "to read", "bare MiB", "worker MiB", "goal MiB"],
          [[m["drawing"], m["kilobytes"], f"{m['bare']['min_ms']:.1f}",
            f"{m['bare']['median_ms']:.1f}", f"{m['worker']['min_ms']:.1f}",
            f"{m['worker']['median_ms']:.1f}", f"{m['ratio_median']:.2f}",
            f"{m['bare_read_ms']:.1f}", f"{m['ours_ms']:.1f}", f"{m['ours_share']:.1%}",
            f"{m['ours_to_read']:.1%}",
            f"{m['bare']['peak_kb'] / 1024:.1f}", f"{m['worker']['peak_kb'] / 1024:.1f}",
            f"{m['memory_goal_kb'] / 1024:.1f}"] for m in measures])


def real(options):
    measures = [measure(options, options.drawings / name, name) for name in REAL
                if (options.drawings / name).exists()
                and Run([options.worker, options.drawings / name]).status == 0]
    print_measures("Real drawings, milliseconds", measures)
    return measures


def generate(options, kind, count, extension):
    options.generated.mkdir(parents=True, exist_ok=True)
    dxf = options.generated / f"{kind}_{count}.dxf"
    if not dxf.exists():
        subprocess.run([sys.executable, HERE / "generate.py", kind, str(count), dxf], check=True)
    if extension == "dxf":
        return dxf
    dwg = dxf.with_suffix(".dwg")
    if not dwg.exists():
        subprocess.run([options.bench / "bench/write_dwg", dxf, dwg], check=True)
    return dwg


def generated(options):
    measures = []
    for extension in ("dwg", "dxf"):
        for kind, count in GENERATED:
            drawing = generate(options, kind, count, extension)
            measures.append({**measure(options, drawing, drawing.name), "kind": kind,
                             "count": count, "extension": extension})
    print_measures("Generated drawings, milliseconds", measures)
    growth = []
    for extension in ("dwg", "dxf"):
        series = [m for m in measures if m["kind"] == "mixed" and m["extension"] == extension]
        for m in series:
            # By itself: after the bare reader, fresh memory takes the system longer.
            drawing = generate(options, m["kind"], m["count"], extension)
            m["alone"] = figures([Run([options.worker, drawing]) for _ in range(options.runs)])
            row = [m["drawing"], m["count"]]
            for run in ("worker", "alone"):
                per_entity = [n[run]["min_ms"] / n["count"] for n in (m, series[0])]
                row += [f"{per_entity[0] * 1e3:.2f}", f"{per_entity[0] / per_entity[1]:.2f}"]
            growth.append([*row, f"{m['bare']['min_ms'] / m['count'] * 1e3:.2f}"])
    table("Time per entity, microseconds: in turn with the bare reader, and by itself",
          ["drawing", "entities", "worker", "to the smallest", "alone", "to the smallest",
           "bare reader"], growth)
    return measures


def web_package(options):
    """Installs the npm package that reads the same files, when npm is there."""
    folder = options.generated / "libredwg-web"
    if shutil.which("npm") is None:
        return None
    if not (folder / "node_modules").exists():
        folder.mkdir(parents=True, exist_ok=True)
        result = subprocess.run(["npm", "install", "--silent", "--no-audit", "--no-fund",
                                 "--prefix", folder, "@mlightcad/libredwg-web@0.7.14"],
                                capture_output=True, check=False)
        if result.returncode != 0:
            return None
    return folder


def commands_of_others(options, web, drawing):
    commands = {"worker": [options.worker, drawing]}
    if options.acadrust:
        commands["acadrust"] = [options.acadrust, drawing]
    if drawing.suffix == ".dxf":
        commands["ezdxf"] = [sys.executable, "-c", EZDXF, drawing]
    elif web:  # the package is built without the DXF reader
        commands["libredwg-web"] = ["node", HERE / "libredwg_web.mjs", web, drawing]
    return commands


def others(options):
    web = web_package(options)
    rows, measures = [], []
    drawings = [options.drawings / name for name in (REAL[0], REAL[1], REAL[10], REAL[16], REAL[18])]
    drawings += [generate(options, "mixed", 37500, "dwg"), generate(options, "mixed", 37500, "dxf")]
    for drawing in drawings:
        if not drawing.exists():
            continue
        results = in_turn(commands_of_others(options, web, drawing), max(3, options.runs // 3))
        row = {name: figures(runs) if all(run.status == 0 for run in runs) else None
               for name, runs in results.items()}
        measures.append({"drawing": drawing.name, **row})
        rows.append([drawing.name] + [f"{row[name]['median_ms']:.0f}" if row.get(name) else "-"
                                      for name in ("worker", "acadrust", "libredwg-web", "ezdxf")])
    table("Other programs for the same job, median milliseconds of the whole process",
          ["drawing", "worker", "acadrust (reading only)", "libredwg-web", "ezdxf (reading only)"],
          rows)
    return measures


def instructions(options):
    rows, counts = [], {}
    for name in INSTRUCTIONS:
        drawing = ROOT / "tests/drawings" / name
        if not drawing.exists():
            drawing = options.drawings / name
        for program in (options.bench / "bench/bare_reader", options.worker):
            report = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
                                     program, drawing], capture_output=True, text=True, check=False,
                                    # valgrind works inside the process
                                    env=os.environ | {"KVT_DWG_SANDBOX": "0"})
            count = re.search(r"Collected : (\d+)", report.stderr)
            if count:
                counts[f"{name} {program.name}"] = int(count[1])
                rows.append([name, program.name, f"{int(count[1]) / 1e6:.1f}"])
    table("Instructions by callgrind, millions", ["drawing", "program", "instructions"], rows)
    return counts


PARTS = {"real": real, "generated": generated, "others": others, "instructions": instructions}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bench", type=pathlib.Path, required=True)
    parser.add_argument("--worker", type=pathlib.Path, required=True)
    parser.add_argument("--drawings", type=pathlib.Path, default=ROOT / "tests/drawings")
    parser.add_argument("--generated", type=pathlib.Path, default=pathlib.Path("build/generated"))
    parser.add_argument("--acadrust", type=pathlib.Path,
                        help="the program of bench/acadrust_reader, if it is to be measured")
    parser.add_argument("--runs", type=int, default=15)
    parser.add_argument("--only", nargs="*", choices=PARTS, default=list(PARTS))
    parser.add_argument("--json", type=pathlib.Path)
    options = parser.parse_args()
    results = {part: PARTS[part](options) for part in options.only}
    if options.json:
        options.json.write_text(json.dumps(results, indent=1), encoding="utf-8")


if __name__ == "__main__":
    main()
