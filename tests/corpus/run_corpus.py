#!/usr/bin/env python3
"""Converts every drawing of a folder and checks what comes out of the worker.

Each drawing has to end with status 0 and a document or with status 1 and an
error object, as one line of strict JSON on standard output, with nothing on
standard error but progress lines, within the time limit. Exceptions are listed
in exceptions.txt beside this file, with the reason. Exits with 77 when no
folder is given, so that a test runner can tell a skipped run from a good one.
"""

import argparse
import collections
import concurrent.futures
import csv
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import time

import corpus_page

HERE = pathlib.Path(__file__).resolve().parent
SKIPPED = 77
SANITIZER_STATUS = 99
DRAWING_SUFFIXES = {".dwg", ".dxf"}
DOCUMENT_KEYS = ["dwgVersion", "insunits", "layers", "assets", "entities", "layouts", "warnings",
                 "timings"]
TIMING_KEYS = ["dwgReadMs", "prepassMs", "layersMs", "assetsMs", "entitiesMs", "workerTotalMs"]
TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\n$')
STRING = re.compile(rb'"(?:[^"\\]|\\.)*"')
FRAME = re.compile(r"^\s*#\d+ (?:0x[0-9a-f]+ in )?(\w[\w:~<>]*).*?(\S+:\d+)", re.MULTILINE)
FILL_PATTERNS = ("85", "170")

Run = collections.namedtuple("Run", "status stdout stderr seconds peak_kb timed_out")
Result = collections.namedtuple("Result", "drawing run document problems")


def sanitizer_environment(*options):
    """An environment for a worker that is built with sanitizers: their findings
    have a status of their own, and the library's leaks are left out."""
    return {**os.environ,
            "ASAN_OPTIONS": ":".join([os.environ.get("ASAN_OPTIONS", ""),
                                      f"exitcode={SANITIZER_STATUS}", *options]),
            "UBSAN_OPTIONS": ":".join([os.environ.get("UBSAN_OPTIONS", ""), "print_stacktrace=1"]),
            "LSAN_OPTIONS": f"suppressions={HERE / 'leaks.supp'}:print_suppressions=0"}


def fill_environment(pattern):
    """The same, with fresh memory holding a pattern of our choice."""
    environment = sanitizer_environment(f"malloc_fill_byte={pattern}",
                                        "max_malloc_fill_size=1048576")
    return {**environment, "MALLOC_PERTURB_": pattern}


def run_worker(worker, drawing, timeout, environment):
    """One run, with its time and peak memory as the system measures them."""
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        start = time.monotonic()
        with subprocess.Popen([worker, str(drawing)], stdout=out, stderr=err,
                              stdin=subprocess.DEVNULL, env=environment) as process:
            expired = threading.Event()
            timer = threading.Timer(timeout, lambda: (expired.set(), process.kill()))
            timer.start()
            _, status, usage = os.wait4(process.pid, 0)
            timer.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
        seconds = time.monotonic() - start
        out.seek(0)
        err.seek(0)
        return Run(process.returncode, out.read(), err.read().decode("utf-8", "replace"), seconds,
                   usage.ru_maxrss, expired.is_set())


def no_constants(word):
    raise ValueError(f"{word} is no JSON")


def without_duplicates(pairs):
    keys = [key for key, _ in pairs]
    if len(set(keys)) != len(keys):
        raise ValueError(f"duplicate key among {keys}")
    return dict(pairs)


def parse_strictly(line):
    """The document; invalid UTF-8, which drawings may hold, survives escaped."""
    return json.loads(line.decode("utf-8", "surrogateescape"), parse_constant=no_constants,
                      object_pairs_hook=without_duplicates)


def form_problems(output):
    """What is wrong with the bytes of standard output as a line of JSON."""
    if not output.endswith(b"\n") or output.count(b"\n") != 1:
        return None, ["standard output is no single line"]
    try:
        document = parse_strictly(output[:-1])
    except ValueError as error:
        return None, [f"not strict JSON: {error}"]
    if re.search(rb"\s", STRING.sub(b"", output[:-1])):
        return document, ["white space between tokens"]
    return document, []


def document_problems(document):
    """What is wrong with a parsed document's outline."""
    if list(document) != DOCUMENT_KEYS:
        return [f"sections {list(document)}"]
    timings = document["timings"]
    if list(timings) != TIMING_KEYS:
        return [f"timings {list(timings)}"]
    if list(timings.values()) != sorted(timings.values()):
        return [f"timings do not grow: {timings}"]
    return [f"a record of {section} is no object" for section in DOCUMENT_KEYS[2:6]
            if not all(isinstance(record, dict) for record in document[section])]


def top_frame(run, worker, drawing):
    """Where a run died, from a sanitizer's report or from a debugger."""
    text = run.stderr
    if not FRAME.search(text) and run.status < 0 and shutil.which("gdb"):
        text = subprocess.run(["gdb", "-batch", "-ex", "run", "-ex", "bt", "--args", worker,
                               str(drawing)], capture_output=True, text=True, check=False).stdout
    frames = [match for match in FRAME.findall(text)
              if not match[0].startswith(("__asan", "__interceptor", "__GI_", "__ubsan", "raise", "abort"))]
    return " ".join(frames[0]) if frames else "no stack"


def check(worker, drawing, timeout, twice):
    environments = [sanitizer_environment()]
    if twice:
        environments = [fill_environment(pattern) for pattern in FILL_PATTERNS]
        environments[1]["KVT_DWG_SANDBOX"] = "0"
    run = run_worker(worker, drawing, timeout, environments[0])
    if run.timed_out:
        return Result(drawing, run, None, [f"ran for more than {timeout} s"])
    if run.status not in (0, 1) or "runtime error:" in run.stderr:
        return Result(drawing, run, None,
                      [f"ended with {run.status} in {top_frame(run, worker, drawing)}"])
    document, problems = form_problems(run.stdout)
    if not problems and run.status == 0:
        problems += document_problems(document)
    if not problems and run.status == 1 and list(document) != ["error"]:
        problems.append("status 1 without an error object")
    stray = [line for line in run.stderr.splitlines() if not line.startswith("[DWG worker] ")]
    if stray:
        problems.append(f"stray output on standard error: {stray[0][:200]!r}")
    for environment in environments[1:]:
        other = run_worker(worker, drawing, timeout, environment)
        if TIMINGS.sub(b"", other.stdout) != TIMINGS.sub(b"", run.stdout):
            problems.append("a second run under another memory pattern, without the sandbox, "
                            "prints other bytes")
    return Result(drawing, run, document, problems)


def read_exceptions(path):
    """Drawing to reason; one line each, separated by a colon."""
    lines = [line for line in path.read_text(encoding="utf-8").splitlines()
             if line.strip() and not line.startswith("#")]
    return {name.strip(): reason.strip()
            for name, reason in (line.split(": ", 1) for line in lines)}


def drawings_in(folder):
    return sorted(path for path in folder.rglob("*")
                  if path.is_file() and path.suffix.lower() in DRAWING_SUFFIXES)


def write_csv(path, folder, results):
    with open(path, "w", newline="", encoding="utf-8", errors="surrogateescape") as file:
        writer = csv.writer(file)
        writer.writerow(["drawing", "status", "version", "layers", "assets", "entities", "layouts",
                         "records", "skipped", "skipped_types", "warnings", "bytes", "seconds",
                         "peak_kb", "problems"])
        for result in results:
            document = result.document if result.run.status == 0 and result.document else {}
            warnings = document.get("warnings", [])
            skipped = corpus_page.skipped_types(warnings)
            writer.writerow([
                result.drawing.relative_to(folder), result.run.status,
                document.get("dwgVersion", ""),
                *(len(document.get(section, [])) for section in DOCUMENT_KEYS[2:6]),
                corpus_page.record_count(document), sum(skipped.values()),
                corpus_page.skipped_text(skipped), len(warnings) - len(skipped),
                len(result.run.stdout), f"{result.run.seconds:.3f}", result.run.peak_kb,
                "; ".join(result.problems)])


def report(folder, results, exceptions):
    """Prints the summary; whether every drawing holds or is excepted."""
    failed = 0
    for result in results:
        name = result.drawing.relative_to(folder).as_posix()
        if result.problems and name in exceptions:
            print(f"excepted {name}: {'; '.join(result.problems)} ({exceptions[name]})")
        elif result.problems:
            failed += 1
            print(f"FAILED {name}: {'; '.join(result.problems)}")
        elif name in exceptions:
            print(f"note: {name} holds although it is listed as an exception")
    statuses = collections.Counter(result.run.status for result in results)
    slowest = max(results, key=lambda result: result.run.seconds)
    largest = max(results, key=lambda result: result.run.peak_kb)
    print(f"{len(results)} drawings: "
          + ", ".join(f"{count} with status {status}" for status, count in sorted(statuses.items())))
    print(f"slowest {slowest.run.seconds:.1f} s ({slowest.drawing.name}), "
          f"largest {largest.run.peak_kb // 1024} MiB ({largest.drawing.name})")
    print(f"{len(results) - failed} passed, {failed} failed")
    return failed == 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    parser.add_argument("--exceptions", type=pathlib.Path, default=HERE / "exceptions.txt")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--timeout", type=float, default=600,
                        help="seconds for each drawing, which only a hang should reach")
    parser.add_argument("--csv", type=pathlib.Path, help="write a table with a line per drawing")
    parser.add_argument("--report", type=pathlib.Path,
                        help="write a page to read, and the table beside it as FILE.csv")
    parser.add_argument("--twice", action="store_true",
                        help="run each drawing under two memory patterns, with and without the "
                             "sandbox, and compare the bytes")
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    drawings = drawings_in(options.drawings)
    if not drawings:
        print(f"no drawings in {options.drawings}")
        return 1
    worker = str(options.worker.resolve())
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        results = list(pool.map(
            lambda drawing: check(worker, drawing, options.timeout, options.twice), drawings))
    exceptions = read_exceptions(options.exceptions)
    if options.csv:
        write_csv(options.csv, options.drawings, results)
    if options.report:
        write_csv(options.report.with_suffix(".csv"), options.drawings, results)
        corpus_page.write_page(options.report, options.drawings, results, exceptions)
    return 0 if report(options.drawings, results, exceptions) else 1


if __name__ == "__main__":
    sys.exit(main())
