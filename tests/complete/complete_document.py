"""Complete documents for the comparisons beside this file."""

import json
import pathlib
import subprocess
import sys

# The readers of other tests.
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "independent"))

# The status of a test that could not be made.
SKIPPED = 77
# Relative to the size of a number: documents carry ten digits.
TOLERANCE = 1e-9
# Only a hang reaches it.
TIMEOUT_SECONDS = 600


def convert(worker, path):
    """The complete document, or None when the worker gives none."""
    run = subprocess.run([worker, str(path), "--complete"], capture_output=True, check=False,
                         timeout=TIMEOUT_SECONDS)
    return json.loads(run.stdout.decode("utf-8", "replace")) if run.returncode == 0 else None


def records_of(document):
    """All its entities, those of model space first."""
    for owner in [document, *document["assets"], *document["layouts"]]:
        yield from owner["entities"]
