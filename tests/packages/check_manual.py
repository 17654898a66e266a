#!/usr/bin/env python3
"""Checks the man pages: they name every environment variable that the worker reads and
every option of both programs, and nothing that does not exist; man finds no mistake in
them, where it is installed.
"""

import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANUAL = ROOT / "docs/man"
ROOMS = [line for line in (ROOT / "cmake/rooms.txt").read_text().splitlines()
         if re.match("[a-z]", line)]
VARIABLE = re.compile(r"\bKVT_[A-Z_]+\b")
OPTION = re.compile(r"--[a-z][a-z-]+")


def plain(page):
    """The page's text without its escapes."""
    return re.sub(r"\\f.", "", (MANUAL / page).read_text(encoding="utf-8").replace(r"\-", "-"))


def sources(*patterns):
    return "\n".join(path.read_text(encoding="utf-8") for pattern in patterns
                     for path in sorted(ROOT.glob(pattern)))


def different(page, what, said, there):
    for one in sorted(there - said):
        yield f"{page} does not name the {what} {one}"
    for one in sorted(said - there):
        yield f"{page} names the {what} {one}, which does not exist"


def mistakes(worker_page, preview_page):
    code = sources(*(f"{room}/*.cpp" for room in ROOMS))
    yield from different("dwg_import_worker.1", "variable", set(VARIABLE.findall(worker_page)),
                         {name for name in VARIABLE.findall(code)})
    yield from different("dwg_import_worker.1", "option", set(OPTION.findall(worker_page)),
                         set(re.findall(r'== "(--[a-z-]+)"', sources("worker/run.cpp"))))
    options = re.findall(r'^\s*\{"([a-z-]+)", "', sources("hosts/preview/app/options.cpp"),
                         re.MULTILINE)
    yield from different("dwg_preview.1", "option", set(OPTION.findall(preview_page)),
                         {f"--{option}" for option in options})


def warnings_of_man(page):
    if shutil.which("man") is None:
        return
    run = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", MANUAL / page],
                         stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False,
                         env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"})
    if run.returncode != 0 or run.stderr:
        yield f"man says of {page}: {run.stderr}"


def main():
    worker, preview = plain("dwg_import_worker.1"), plain("dwg_preview.1")
    found = list(mistakes(worker, preview))
    for page in ("dwg_import_worker.1", "dwg_preview.1"):
        found += warnings_of_man(page)
    planted = [worker.replace("KVT_SENTRY_DB", "KVT_SENTRY_DX"), worker.replace("--verbose", "--loud")]
    found += ["a planted mistake was not found" for page in planted
              if not list(mistakes(page, preview))]
    for mistake in found:
        print(mistake)
    print(f"{len(found)} mistakes")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
