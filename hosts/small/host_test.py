#!/usr/bin/env python3
"""Tests of the example host, with the real worker and with stand-ins.

    host_test.py --worker PATH
"""

import argparse
import os
import pathlib
import stat
import sys
import tempfile
import textwrap
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import host  # noqa: E402

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "examples" / "plan.dwg"
WORKER = ""
# Only a hang reaches it.
HANG_SECONDS = 600


def convert(worker, drawing, seconds=HANG_SECONDS, **options):
    return host.convert(worker, drawing, seconds, **options)


class HostTest(unittest.TestCase):
    """What the host says of each way to end."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def stand_in(self, script):
        """A worker that does what the shell script says."""
        path = pathlib.Path(self.folder.name) / "worker"
        path.write_text("#!/bin/sh\n" + textwrap.dedent(script))
        path.chmod(path.stat().st_mode | stat.S_IXUSR)
        return str(path)

    def test_document_with_progress(self):
        lines = []
        result = convert(WORKER, str(EXAMPLE), on_progress=lines.append)
        self.assertEqual(result.kind, "document")
        self.assertEqual(len(result.document["entities"]), 6)
        self.assertTrue(lines[0].startswith("[DWG worker] Starting import of: "))

    def test_refused_drawing(self):
        result = convert(WORKER, self.folder.name + "/missing.dwg")
        self.assertEqual(result.kind, "refused")
        self.assertTrue(result.message.endswith(": IOERROR"))

    def test_crash_is_no_refusal(self):
        result = convert(self.stand_in("kill -SEGV $$"), "x.dwg")
        self.assertEqual(result.kind, "crashed")
        self.assertIn("SIGSEGV", result.message)

    def test_unknown_exit_code_is_a_crash(self):
        self.assertEqual(convert(self.stand_in("exit 5"), "x.dwg").kind, "crashed")

    def test_hang_ends_at_the_deadline(self):
        result = convert(self.stand_in(f"exec sleep {HANG_SECONDS}"), "x.dwg", seconds=1)
        self.assertEqual(result.kind, "timeout")

    def test_cut_answer(self):
        result = convert(self.stand_in("printf '{\"entities\":[]'"), "x.dwg")
        self.assertEqual(result.kind, "bad")

    def test_answer_that_is_no_json(self):
        self.assertEqual(convert(self.stand_in("echo hello"), "x.dwg").kind, "bad")

    def test_missing_worker(self):
        self.assertEqual(convert("/no/such/worker", "x.dwg").kind, "bad")

    def test_much_on_standard_error_does_not_block(self):
        script = """\
            i=0; while [ $i -lt 4000 ]; do echo "[DWG worker] a line of some length $i" >&2
            i=$((i+1)); done
            echo '{"dwgVersion":"2000","entities":[]}'
            """
        self.assertEqual(convert(self.stand_in(script), "x.dwg").kind, "document")

    def test_memory_limit_holds(self):
        result = convert(WORKER, str(EXAMPLE), megabytes=8)
        self.assertIn(result.kind, ("crashed", "refused", "bad"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--worker", required=True)
    options, rest = parser.parse_known_args()
    WORKER = os.path.abspath(options.worker)
    unittest.main(argv=[sys.argv[0], *rest])
