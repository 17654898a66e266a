#!/usr/bin/env python3
"""Compares what the Windows program prints for real drawings with the Linux program.

    compare_under_wine.py --worker FILE --windows FILE.exe [FOLDER...]

Every drawing below the folders (the one that DWG_CORPUS names by default) has to
give the same bytes and the same exit status; the timings are left out. Both
programs get the same relative path, so that error objects agree too. What may
differ is listed in EXCEPTIONS with its reason, and has to differ.

Starting wine takes most of a second. So a few batch files run all drawings, each
in one wine session. Exits with 77 when there are no drawings.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

SKIPPED = 77
TIMEOUT_SECONDS = 1800
TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\n$')
SUFFIXES = {".dwg", ".dxf"}

# Drawings by the end of their path, and why their documents may differ.
EXCEPTIONS = {}


def drawings_below(folders):
    """Files and what else bears the name of a drawing, such as a folder."""
    return sorted(path for folder in folders for path in folder.rglob("*")
                  if path.suffix.lower() in SUFFIXES)


def link_all(drawings, folder):
    """Links to the drawings under names that no command line can misunderstand."""
    names = []
    for number, drawing in enumerate(drawings):
        name = f"{number:05d}{drawing.suffix.lower()}"
        (folder / name).symlink_to(drawing.resolve())
        names.append(name)
    return names


def document(folder, name, status):
    return status, TIMINGS.sub(b"", (folder / (name + ".json")).read_bytes())


def run_linux(worker, folder, name):
    with open(folder / (name + ".json"), "wb") as out:
        run = subprocess.run([worker, name], cwd=folder, stdout=out, stderr=subprocess.DEVNULL,
                             timeout=TIMEOUT_SECONDS, check=False)
    return document(folder, name, run.returncode)


def run_batch(program, folder, part, names):
    """Runs the program for each of the names in one wine session."""
    lines = ["@echo off"]
    for name in names:
        lines += [f'"{program}" {name} > {name}.json 2> nul',
                  f"echo %errorlevel% > {name}.status"]
    batch = folder / f"run{part}.cmd"
    batch.write_bytes("\r\n".join([*lines, ""]).encode())
    subprocess.run(["wine", "cmd", "/c", batch.name], cwd=folder, stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   timeout=TIMEOUT_SECONDS, check=True)


def windows_path(path):
    return "Z:" + str(path.resolve()).replace("/", "\\")


def windows_status(folder, name):
    try:
        return int((folder / (name + ".status")).read_text())
    except (OSError, ValueError):
        return None  # the batch did not come that far


def is_exception(drawing):
    return any(str(drawing).endswith(end) for end in EXCEPTIONS)


def judge(drawings, ours, theirs):
    """The lines to print, one for each drawing that is not as expected."""
    lines = []
    for drawing, linux, windows in zip(drawings, ours, theirs):
        if (linux != windows) != is_exception(drawing):
            wrong = "no longer differs" if linux == windows else "differs"
            lines.append(f"{wrong}: {drawing} (status {linux[0]} and {windows[0]}, "
                         f"{len(linux[1])} and {len(windows[1])} bytes)")
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path)
    parser.add_argument("--windows", required=True, type=pathlib.Path)
    parser.add_argument("folders", nargs="*", type=pathlib.Path)
    options = parser.parse_args()
    folders = options.folders or [pathlib.Path(os.environ.get("DWG_CORPUS", "no such folder"))]
    drawings = drawings_below(folders)
    if not drawings:
        print("no drawings; DWG_CORPUS names a folder of them")
        sys.exit(SKIPPED)
    jobs = os.cpu_count() or 1
    with tempfile.TemporaryDirectory() as name, concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        linux, windows = pathlib.Path(name, "linux"), pathlib.Path(name, "windows")
        linux.mkdir()
        windows.mkdir()
        names = link_all(drawings, linux)
        link_all(drawings, windows)
        ours = list(pool.map(lambda name: run_linux(options.worker.resolve(), linux, name), names))
        program = windows_path(options.windows)
        list(pool.map(lambda part: run_batch(program, windows, part, names[part::jobs]),
                      range(jobs)))
        theirs = [document(windows, name, windows_status(windows, name)) for name in names]
    lines = judge(drawings, ours, theirs)
    print("\n".join([*lines, f"{len(drawings)} drawings under wine, {len(EXCEPTIONS)} exceptions, "
                             f"{len(lines)} not as on Linux"]))
    sys.exit(1 if lines else 0)


if __name__ == "__main__":
    main()
