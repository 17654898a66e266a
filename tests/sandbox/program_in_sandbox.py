#!/usr/bin/env python3
"""Runs the real program with and without its sandbox, on Linux.

Usage: program_in_sandbox.py --worker PATH [unittest's own arguments]
"""

import os
import pathlib
import re
import subprocess
import sys
import unittest

DRAWINGS = pathlib.Path(__file__).resolve().parents[1] / "drawings"
SAMPLES = [DRAWINGS / "libredwg" / "sample_2018.dwg", DRAWINGS / "own" / "layers_R2018.dxf"]
REPORT = re.compile(r"\[DWG worker\] Sandbox: no_new_privs(, Landlock \d+)?(, seccomp)?")
TIMINGS = re.compile(rb'"timings".*')
WORKER = []


def start(path, mode):
    environment = {name: value for name, value in os.environ.items()
                   if name != "KVT_DWG_SANDBOX"}
    if mode is not None:
        environment["KVT_DWG_SANDBOX"] = mode
    return subprocess.Popen([*WORKER, path], env=environment, stdin=subprocess.PIPE,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE)


def run(path, mode):
    """Exit status, document without timings, lines of standard error without numbers."""
    with start(path, mode) as process:
        output, errors = process.communicate(timeout=600)
    return process.returncode, TIMINGS.sub(b"", output), errors.decode().splitlines()


def restrictions(mode):
    """What the kernel says of a worker that waits for its drawing: whether it may
    gain privileges, and its mode of seccomp."""
    with start("-", mode) as process:
        while b"Reading" not in process.stderr.readline():
            pass
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
        process.stdin.close()
        process.wait()
    return [int(re.search(rf"^{name}:\s*(\d)$", status, re.MULTILINE)[1])
            for name in ("NoNewPrivs", "Seccomp")]


class Sandbox(unittest.TestCase):
    def test_documents_and_messages_are_the_same(self):
        for path in [*SAMPLES, "none.dwg", "none.dxf", "/", ""]:
            without = run(path, "0")
            inside = run(path, None)
            self.assertEqual(inside[:2], without[:2], path)
            self.assertEqual(len(inside[2]), len(without[2]), path)

    def test_report_is_one_line_more(self):
        for path in SAMPLES:
            status, document, errors = run(path, "report")
            self.assertEqual((status, document), run(path, None)[:2])
            lines = [line for line in errors if "Sandbox" in line]
            self.assertEqual(len(lines), 1)
            self.assertRegex(lines[0], REPORT)
            self.assertEqual(len(errors), len(run(path, "0")[2]) + 1)

    def test_anything_else_is_on_and_silent(self):
        for mode in (None, "", "1", "off"):
            self.assertEqual(restrictions(mode), [1, 2], mode)
            self.assertFalse([line for line in run(SAMPLES[0], mode)[2] if "Sandbox" in line])

    def test_zero_is_off(self):
        self.assertEqual(restrictions("0"), [0, 0])


if __name__ == "__main__":
    at = sys.argv.index("--worker")
    WORKER.append(os.path.abspath(sys.argv[at + 1]))
    unittest.main(argv=sys.argv[:at] + sys.argv[at + 2:])
