#!/usr/bin/env python3
"""Runs a fuzz target on every input that ended it, and says whose fault it was.

    fuzz/sort_findings.py PROGRAM FOLDER

Only what happens inside the library's own reading and freeing of a drawing is
the library's; everything else is ours, a library call made by the conversion
included. Of findings with the same cause the smallest input stays, named after
the cause; inputs that no longer end the target are removed. Prints a line for
each cause and fails when one of them is ours.
"""

import os
import pathlib
import re
import subprocess
import sys

FRAME = re.compile(r"^\s*#\d+ 0x[0-9a-f]+ in (.+?)(?:\s(/\S+?):(\d+))?(?::\d+)?$", re.MULTILINE)
CAUSE = re.compile(r"ERROR: (?:Address|Undefined\w*|Leak)Sanitizer:? (\S+)|libFuzzer: (\S+)|"
                   r"runtime error: ([^\n]+)|(not so: [^\n]+)")
LIBRARY_CALLERS = {"DrawingFile::Read", "DrawingFile::Free"}
# Only a hang reaches it, on a busy machine too.
TIMEOUT_SECONDS = 300


def report_of(program, path):
    """The target's report on one input; none when it survives."""
    run = subprocess.run([program, f"-timeout={TIMEOUT_SECONDS}", "-rss_limit_mb=2560", str(path)],
                         capture_output=True, check=False,
                         env={**os.environ, "ASAN_OPTIONS":
                              "detect_leaks=0:allocator_may_return_null=1"})
    return run.stderr.decode("utf-8", "replace") if run.returncode != 0 else None


def plain_name(function):
    """The name without its namespace for nobody, arguments and return type."""
    name = function.replace("(anonymous namespace)::", "").partition("(")[0]
    return name.split("<")[0].split()[-1].replace("~DrawingFile", "Free")


def first_stack(report):
    """Function and source position of the frames that belong to us or the library."""
    frames = []
    for function, path, line in FRAME.findall(report):
        if "/libredwg/src/" in path:
            frames.append((function, path.rpartition("/")[2] + ":" + line, True))
        elif re.search(r"/(worker|reading|document|entities|text|encode|fuzz)/[^/]+\.[ch]pp$", path):
            frames.append((plain_name(function), "/".join(path.split("/")[-2:]) + ":" + line, False))
        if function.startswith("LLVMFuzzerTestOneInput"):
            break
    return frames


def is_librarys(frames):
    if not frames or not frames[0][2]:
        return False
    caller = next((frame for frame in frames if not frame[2]), None)
    return caller is not None and caller[0] in LIBRARY_CALLERS


def cause_of(report):
    match = CAUSE.search(report)
    kind = next((group for group in match.groups() if group), "") if match else "unknown"
    frames = first_stack(report)
    owner = "library" if is_librarys(frames) else "OURS"
    # Where it ran out of time or memory differs from input to input.
    depth = 4 if owner == "library" else 8
    return owner, kind, [f"{function} {where}" for function, where, _ in frames[:depth]]


def main():
    program, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    smallest = {}
    gone = 0
    for path in sorted(folder.glob("*"), key=lambda path: path.stat().st_size):
        report = report_of(program, path)
        if report is None:
            path.unlink()
            gone += 1
            continue
        owner, kind, frames = cause_of(report)
        key = (owner, kind, frames[0] if frames else "no stack")
        if key in smallest:
            path.unlink()
            smallest[key][2] += 1
        else:
            smallest[key] = [path, frames, 1]
    ours = 0
    for (owner, kind, _), (path, frames, count) in sorted(smallest.items(), key=lambda item: item[0]):
        ours += owner == "OURS"
        size = path.stat().st_size
        print(f"{owner} {kind}: {' < '.join(frames) or 'no stack'} ({count} found, {size} bytes: {path})")
    print(f"{pathlib.Path(program).name}: {ours} findings of ours, {len(smallest) - ours} of the "
          f"library's, {gone} inputs that do no harm any more")
    return 1 if ours else 0


if __name__ == "__main__":
    sys.exit(main())
