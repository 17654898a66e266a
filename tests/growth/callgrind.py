"""What a program does, counted in instructions by valgrind's callgrind.

A count does not depend on the machine or on what else it does.
"""

import os
import re
import shutil
import subprocess

# The status of a test that could not be made.
SKIPPED = 77
# Only a hang reaches it: a run takes some seconds.
TIMEOUT_SECONDS = 3600
TOTAL = re.compile(r"^(?:totals|summary): (\d+)", re.MULTILINE)


def add_argument(parser):
    """The option that names valgrind, None where it is missing."""
    parser.add_argument("--valgrind", default=shutil.which("valgrind"))


def without_debug_information(program, folder):
    """A copy that keeps its symbols. Valgrind gives up on debug information that is newer
    than itself, such as Clang's DWARF 5, and counting needs none."""
    objcopy = shutil.which("objcopy")
    if objcopy is None:
        return program
    copy = os.path.join(folder, os.path.basename(program))
    subprocess.run([objcopy, "--strip-debug", program, copy], check=True)
    return copy


def run(valgrind, counts, command, *options, environment=None):
    """Runs the command to its end, its counts going to the file `counts`."""
    return subprocess.run([valgrind, "--tool=callgrind", f"--callgrind-out-file={counts}",
                           *options, *command],
                          capture_output=True, text=True, errors="replace",
                          timeout=TIMEOUT_SECONDS, check=False,
                          env=os.environ | (environment or {}))


def total_of(counts):
    """The instructions in a file of counts; None when it has no total."""
    found = TOTAL.search(counts.read_text())
    return int(found.group(1)) if found else None
