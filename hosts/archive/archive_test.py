#!/usr/bin/env python3
"""Tests of the archive converter, with the real worker and with stand-ins.

    archive_test.py --worker PATH
"""

import argparse
import collections
import contextlib
import gzip
import hashlib
import importlib.util
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import textwrap
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = HERE / "archive.py"
DRAWINGS = HERE.parents[1] / "tests" / "drawings"
SAMPLE = DRAWINGS / "cad-format-dwg-ac1009" / "CIRCLE1.DWG"
WORKER = ""
# Only a hang reaches it.
HANG_SECONDS = 600


def without_timings(document):
    return re.sub(rb'"timings":\{[^}]*\}', b"", document)


class ArchiveTest(unittest.TestCase):
    """A small tree, one run after the other."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.source, self.target = self.folder / "source", self.folder / "target"
        self.source.mkdir()

    # What tests are made of

    def put(self, *paths, drawing=SAMPLE):
        for path in paths:
            (self.source / path).parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(drawing, self.source / path)

    def stand_in(self, script, name="worker"):
        """A worker that notes the drawing, does what the script says, then the real work."""
        path = self.folder / name
        path.write_text(f'#!/bin/sh\nname="${{1##*/}}"\necho "$name" >> "{path}.runs"\n'
                        + textwrap.dedent(script) + f'\nexec "{WORKER}" "$1"\n')
        path.chmod(0o755)
        return str(path)

    def gate(self, name):
        """A worker that stops at one drawing, once, and notes who had started it."""
        held = self.folder / "held"
        self.addCleanup(self.end_sleeper)
        return held, self.stand_in(f"""\
            if [ "$name" = "{name}" ] && [ ! -e "{held}" ]; then
              echo $$ > "{self.folder}/sleeper"
              echo $PPID > "{held}.new"; mv "{held}.new" "{held}"; exec sleep {HANG_SECONDS}
            fi""")

    def end_sleeper(self):
        """Ends the worker that stopped, which outlives whoever started it."""
        with contextlib.suppress(OSError, ValueError):
            os.kill(int((self.folder / "sleeper").read_text()), signal.SIGKILL)

    def runs(self, name="worker"):
        """How often the stand-in of a name was started for each drawing."""
        file = self.folder / f"{name}.runs"
        return collections.Counter(file.read_text().split() if file.exists() else [])

    def command(self, worker, *options):
        return [sys.executable, str(PROGRAM), str(self.source), str(self.target),
                "--worker", worker, "--jobs", "2", "--seconds", str(HANG_SECONDS), *options]

    def convert(self, *options, worker=None, expected=0):
        run = subprocess.run(self.command(worker or WORKER, *options), capture_output=True,
                             text=True, timeout=HANG_SECONDS)
        self.assertEqual(run.returncode, expected, run.stdout + run.stderr)
        return run

    def manifest(self):
        """The lines by path; a path that stands twice is a failure."""
        text = (self.target / "manifest.jsonl").read_bytes()
        lines = [json.loads(line) for line in text.splitlines()]
        by_path = {line["path"]: line for line in lines}
        self.assertEqual(len(by_path), len(lines))
        return by_path

    def statuses(self):
        return {path: line["status"] for path, line in self.manifest().items()}

    def document(self, path):
        return gzip.decompress((self.target / (path + ".json.gz")).read_bytes())

    def wait_for(self, condition):
        end = time.monotonic() + HANG_SECONDS
        while not condition():
            self.assertLess(time.monotonic(), end, "it did not happen in time")
            time.sleep(0.05)

    def lines_on_disk(self):
        file = self.target / "manifest.jsonl"
        return len(file.read_bytes().splitlines()) if file.exists() else 0

    # One run

    def test_tree_of_real_drawings(self):
        for folder in ("cadability", "ezdwg", "dxf-parser"):
            shutil.copytree(DRAWINGS / folder, self.source / "deep" / folder)
        self.put("Zug um Zug/Ü plan.DWG", "plan.txt")
        run = self.convert()
        expected = sorted(str(file.relative_to(self.source)) for file in self.source.rglob("*.*")
                          if file.suffix.lower() in (".dwg", ".dxf"))
        self.assertGreaterEqual(len(expected), 5)
        self.assertEqual(list(self.manifest()), expected)
        self.assertIn(f"{len(expected)} converted", run.stdout)
        self.assertIn(f"{len(expected)}/{len(expected)}, 0 failed", run.stderr)
        for path, line in self.manifest().items():
            alone = subprocess.run([WORKER, str(self.source / path)], capture_output=True,
                                   check=True).stdout
            self.assertEqual(without_timings(self.document(path)), without_timings(alone))
            content = (self.source / path).read_bytes()
            self.assertEqual((line["size"], line["sha256"]),
                             (len(content), hashlib.sha256(content).hexdigest()))
            document = json.loads(alone)
            self.assertEqual((line["status"], line["entities"], line["warnings"]),
                             ("converted", len(document["entities"]), len(document["warnings"])))

    def test_hanging_drawing_is_ended_at_the_limit(self):
        self.put("a/hang.dwg")
        limit = ("--seconds", "2")
        self.convert(*limit, worker=self.stand_in(f"exec sleep {HANG_SECONDS}"), expected=1)
        line = self.manifest()["a/hang.dwg"]
        self.assertEqual(line["status"], "over time")
        self.assertIn("2 seconds", line["error"])
        self.assertGreaterEqual(line["seconds"], 2)
        again = self.convert(*limit, worker=self.stand_in("", "second"), expected=1)
        self.assertRegex(again.stdout,
                         r"1  over time    the drawing took longer than 2 seconds: a/hang\.dwg")
        self.assertFalse(self.runs("second"))
        self.convert("--retry", worker=self.stand_in("", "third"))
        self.assertEqual(self.statuses(), {"a/hang.dwg": "converted"})

    def test_every_way_to_fail_has_its_status_and_reason(self):
        self.put("good.dwg", "a/memory.dwg", "b/crash.dwg", "b/chatter.dxf")
        (self.source / "broken.dwg").write_bytes(SAMPLE.read_bytes()[:40])
        eat = "x = []\nwhile True: x.append(bytearray(1 << 24))"
        worker = self.stand_in(f"""\
            case "$name" in
              memory.dwg) exec "{sys.executable}" -c '{eat}';;
              crash.dwg) kill -SEGV $$;;
              chatter.dxf) echo hello; exit 0;;
            esac""")
        limits = ("--megabytes", "300")
        run = self.convert(*limits, worker=worker, expected=1)
        self.assertEqual(self.statuses(), {
            "good.dwg": "converted", "broken.dwg": "refused",
            "a/memory.dwg": "over memory", "b/crash.dwg": "crashed", "b/chatter.dxf": "bad"})
        lines = self.manifest()
        self.assertIn("Failed to read", lines["broken.dwg"]["error"])
        self.assertIn("SIGSEGV", lines["b/crash.dwg"]["error"])
        for path, line in lines.items():
            self.assertEqual(os.path.exists(self.target / (path + ".json.gz")),
                             line["status"] == "converted")
        for row in (r"1  crashed      the worker was ended by SIGSEGV: b/crash\.dwg",
                    r"1  over memory  .*: a/memory\.dwg", r"1  bad          .*: b/chatter\.dxf",
                    r"1  refused      INVALIDDWG: broken\.dwg"):
            self.assertRegex(run.stdout, row)

        # Nothing of it is tried a second time unless that is asked for.
        before = self.runs()
        self.convert(*limits, worker=worker, expected=1)
        self.assertEqual(self.runs(), before)
        fixed = self.stand_in("")
        self.convert(*limits, "--retry", worker=fixed)
        self.assertEqual(self.runs() - before, collections.Counter(
            ["memory.dwg", "crash.dwg", "chatter.dxf"]))

    def test_refusal_for_want_of_memory_is_told_from_others(self):
        self.put("large.dwg")
        (self.source / "OUTOFMEM.dwg").write_bytes(b"no drawing")
        worker = self.stand_in("""\
            if [ "$name" = large.dwg ]; then
              echo '{"error":"Failed to read large.dwg: WRONGCRC, OUTOFMEM"}'; exit 1
            fi""")
        self.convert(worker=worker, expected=1)
        self.assertEqual(self.statuses(), {"large.dwg": "over memory", "OUTOFMEM.dwg": "refused"})

    # Runs after runs

    def test_second_run_does_what_changed(self):
        self.put("same.dwg", "touched.dwg", "changed.dwg", "lost.dwg", "gone.dwg")
        self.convert()
        os.utime(self.source / "touched.dwg", (1, 1))
        self.put("changed.dwg", "new.dwg", drawing=DRAWINGS / "dxf-parser" / "mleader.dxf")
        os.remove(self.target / "lost.dwg.json.gz")
        os.remove(self.source / "gone.dwg")
        self.convert(worker=self.stand_in(""))
        self.assertEqual(self.runs(), collections.Counter(["changed.dwg", "lost.dwg", "new.dwg"]))
        self.assertEqual(self.manifest()["touched.dwg"]["mtimeNs"], 1_000_000_000)
        # A DXF under this name is no drawing; nothing of the earlier one may stay.
        self.assertEqual(self.statuses()["changed.dwg"], "refused")
        self.assertFalse((self.target / "changed.dwg.json.gz").exists())

    def test_resumes_after_it_was_killed(self):
        names = [f"{number:02}.dwg" for number in range(24)]
        self.put(*names)
        held, worker = self.gate("08.dwg")
        first = subprocess.Popen(self.command(worker), stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            self.wait_for(lambda: held.exists() and self.lines_on_disk() >= 10)
        finally:
            os.killpg(first.pid, signal.SIGKILL)
            first.wait()
        with open(self.target / "manifest.jsonl", "ab") as stream:
            stream.write(b'{"path": "05.dwg", "siz')  # ended within a line
        (self.target / ".archive-0.part").write_bytes(b"half")
        done = [json.loads(line)["path"] for line in
                (self.target / "manifest.jsonl").read_bytes().splitlines()[:-1]]
        self.assertNotIn("08.dwg", done)
        # Notes of its own: workers of the first run outlive it, and note their drawing late.
        self.convert(worker=self.stand_in("", "second"))
        self.assertEqual(self.statuses(), dict.fromkeys(names, "converted"))
        self.assertEqual(self.runs("second"), collections.Counter(set(names) - set(done)))
        self.assertEqual(sorted(file.name for file in self.target.iterdir()),
                         sorted([name + ".json.gz" for name in names] + ["manifest.jsonl"]))

    def test_goes_on_when_a_converting_process_ends(self):
        names = [f"{number:02}.dwg" for number in range(12)]
        self.put(*names)
        held, worker = self.gate("05.dwg")
        run = subprocess.Popen(self.command(worker), stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
        try:
            self.wait_for(held.exists)
            os.kill(int(held.read_text()), signal.SIGKILL)
            self.assertEqual(run.wait(HANG_SECONDS), 0)
        finally:
            run.kill()
        self.assertEqual(self.statuses(), dict.fromkeys(names, "converted"))

    # Many machines

    @unittest.skipUnless(importlib.util.find_spec("distributed") or os.environ.get("CI"),
                         "the Python package distributed is missing")
    def test_cluster_that_loses_a_worker_loses_no_drawing(self):
        import distributed
        names = [f"{number:02}.dwg" for number in range(24)]
        self.put(*names)
        held, worker = self.gate("08.dwg")
        with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True,
                                      dashboard_address=None,
                                      local_directory=str(self.folder)) as cluster:
            processes = {worker.process.pid for worker in cluster.workers.values()}
            self.assertEqual(len(processes), 2)
            run = subprocess.Popen(
                self.command(worker, "--scheduler", cluster.scheduler_address),
                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            try:
                self.wait_for(lambda: held.exists() and self.lines_on_disk() >= 10)
                self.assertLess(self.lines_on_disk(), len(names))
                victim = int(held.read_text())
                self.assertIn(victim, processes)
                os.kill(victim, signal.SIGKILL)
                output, _ = run.communicate(timeout=HANG_SECONDS)
            finally:
                run.kill()
        self.assertEqual(run.returncode, 0, output)
        self.assertEqual(self.statuses(), dict.fromkeys(names, "converted"))
        self.assertEqual(self.runs()["08.dwg"], 2)
        for name in names:
            self.assertTrue(self.document(name).endswith(b"}\n"))


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--worker", required=True)
    options, rest = parser.parse_known_args()
    WORKER = os.path.abspath(options.worker)
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)
