#!/usr/bin/env python3
"""Tests of dwg_preview without a window, with the real worker.

    headless_test.py --preview PATH --worker PATH
"""

import argparse
import json
import os
import pathlib
import re
import stat
import struct
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
DRAWING = ROOT / "tests" / "drawings" / "generated" / "viewport_clip_R2000.dxf"
OPTIONS = argparse.Namespace()


def run(*arguments, worker=None, environment=None):
    command = [OPTIONS.preview, *arguments]
    if worker != "":
        command += ["--worker", worker or OPTIONS.worker]
    variables = {key: value for key, value in os.environ.items()
                 if key not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
    return subprocess.run(command, capture_output=True, text=True, timeout=600,
                          env={**variables, **(environment or {})})


class HeadlessTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, kind, *arguments, drawing=DRAWING):
        file = self.folder / ("out." + kind)
        done = run(str(drawing), f"--{kind}", str(file), *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return file.read_bytes()

    def test_png_has_the_width_that_was_asked_for(self):
        png = self.write("png", "--width", "333")
        self.assertEqual(png[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(struct.unpack(">I", png[16:20])[0], 333)

    def test_sheets_have_pictures_of_their_own(self):
        names = [sheet["name"] for sheet in self.list()]
        self.assertGreater(len(names), 1)
        model = self.write("png")
        self.assertNotEqual(self.write("png", "--layout", names[1]), model)

    def list(self):
        done = run(str(DRAWING), "--list")
        self.assertEqual(done.returncode, 0, done.stderr)
        return json.loads(done.stdout)

    def test_list_tells_sheets_and_extents(self):
        model = self.list()[0]
        self.assertEqual(model["name"], "Model")
        left, bottom, right, top = model["extents"]
        self.assertLess(left, right)
        self.assertLess(bottom, top)

    def test_svg_is_well_formed(self):
        import xml.dom.minidom
        names = [sheet["name"] for sheet in self.list()]
        for name in names:
            text = self.write("svg", "--layout", name)
            document = xml.dom.minidom.parseString(text)
            self.assertEqual(document.documentElement.tagName, "svg")
            self.assertTrue(document.getElementsByTagName("path"))

    def test_pdf_has_one_page_with_lines(self):
        pdf = self.write("pdf")
        self.assertTrue(pdf.startswith(b"%PDF-"))
        self.assertEqual(len(re.findall(rb"/Type /Page\b(?!s)", pdf)), 1)

    def test_html_loads_nothing(self):
        page = self.write("html").decode()
        self.assertIn("default-src 'none'", page)
        self.assertFalse(re.search(r"(src|href)=\"(?!#|data:)", page))

    def test_unknown_sheet_is_explained(self):
        done = run(str(DRAWING), "--png", str(self.folder / "x.png"), "--layout", "none such")
        self.assertEqual(done.returncode, 1)
        self.assertIn("The sheets are: Model", done.stderr)

    def test_refused_drawing_is_explained(self):
        done = run(str(self.folder / "missing.dwg"), "--png", str(self.folder / "x.png"))
        self.assertEqual(done.returncode, 1)
        self.assertIn("cannot be read", done.stderr)
        self.assertFalse((self.folder / "x.png").exists())

    def test_crash_is_explained(self):
        worker = self.folder / "worker"
        worker.write_text("#!/bin/sh\nkill -SEGV $$\n")
        worker.chmod(worker.stat().st_mode | stat.S_IXUSR)
        done = run(str(DRAWING), "--list", worker=str(worker))
        self.assertEqual(done.returncode, 1)
        self.assertIn("broke the program that reads it", done.stderr)

    def test_missing_worker_is_explained(self):
        done = run(str(DRAWING), "--list", worker="/no/such/worker")
        self.assertEqual(done.returncode, 1)
        self.assertIn("/no/such/worker", done.stderr)

    def test_worker_is_taken_from_the_environment(self):
        done = run(str(DRAWING), "--list", worker="",
                   environment={"DWG_IMPORT_WORKER": OPTIONS.worker})
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_progress_is_shown(self):
        self.assertIn("Converting layers...", run(str(DRAWING), "--list").stderr)

    def test_unwritable_file_is_explained(self):
        for kind in ("png", "svg", "pdf", "html"):
            done = run(str(DRAWING), f"--{kind}", f"/no/such/folder/x.{kind}")
            self.assertEqual(done.returncode, 1, kind)
            self.assertIn("cannot be written", done.stderr)

    def test_wrong_arguments_are_explained(self):
        self.assertEqual(run("--png", "x.png").returncode, 2)
        self.assertEqual(run(str(DRAWING), "--list", "--region=1,2,3").returncode, 2)
        self.assertEqual(run(str(DRAWING), "--list", "--width", "0").returncode, 2)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--preview", required=True)
    parser.add_argument("--worker", required=True)
    OPTIONS, rest = parser.parse_known_args()
    OPTIONS.preview = os.path.abspath(OPTIONS.preview)
    OPTIONS.worker = os.path.abspath(OPTIONS.worker)
    unittest.main(argv=[sys.argv[0], *rest])
