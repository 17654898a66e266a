#!/usr/bin/env python3
"""Checks what the page about the complete form says of some small drawings, and that its
program finds what it looks for, with small scripts in the worker's place.

    complete_page_test.py --worker PATH
"""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
DRAWINGS = HERE.parent / "drawings"
# The entities without a plain record, as their type names (group 0) count in each file.
SKIPPED_OF = {
    "gdal/ocs2wcs2.dxf": "4 3DFACE",
    "generated/underlays_R2010.dxf": "1 DGNUNDERLAY, 1 DWFUNDERLAY",
    "libredwg/2000/entities-2d.dxf": "1 SHAPE, 1 TRACE",
    "own/layers_R2000.dxf": "2 3DFACE, 1 SHAPE",
}
# Records that the plain form leaves out without counting them: its underlays need their file.
UNCOUNTED_OF = {"generated/underlays_R2010.dxf": ", 4 PDFUNDERLAY"}
# Of types that both forms have.
WITHOUT_A_ROW = "ezdxf/AC1003_LINE_Example.dxf"

PLAIN = {"entities": [{"type": "LINE"}], "assets": [], "layouts": [],
         "warnings": ["Skipped 2 MLINE entities (not yet supported)",
                      "Skipped 1 HELIX entity (not yet supported)"]}
WORKER = None


def page_of(folder, worker, drawings):
    """The status, what was printed, and the lines of the page."""
    page = folder / "page.md"
    run = subprocess.run([sys.executable, HERE / "complete_page.py", "--worker", worker,
                          "--page", page, "--drawings", drawings],
                         capture_output=True, text=True, check=False)
    lines = page.read_text(encoding="utf-8").splitlines() if page.exists() else []
    return run.returncode, run.stdout + run.stderr, lines


class CompletePage(unittest.TestCase):
    """One case, one thing that the page says."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.drawings = self.folder / "drawings"
        self.drawings.mkdir()

    def page_with(self, complete):
        """The page by a worker that gives these documents, the plain one and this."""
        (self.drawings / "a.dxf").touch()
        (self.drawings / "b.txt").touch()
        for name, document in (("plain", PLAIN), ("complete", complete)):
            (self.folder / name).write_text(json.dumps(document), encoding="utf-8")
        worker = self.folder / "worker"
        worker.write_text(f'#!/bin/sh\nif [ "$2" = --complete ]; then cat "{self.folder}/complete"\n'
                          f'else cat "{self.folder}/plain"; fi\n', encoding="utf-8")
        worker.chmod(0o755)
        return page_of(self.folder, worker, self.drawings)

    def test_rows_say_what_the_drawings_hold(self):
        for name in (*SKIPPED_OF, WITHOUT_A_ROW):
            (self.drawings / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(DRAWINGS / name, self.drawings / name)
        status, output, lines = page_of(self.folder, WORKER, self.drawings)
        self.assertEqual(status, 0, output)
        self.assertEqual([line for line in lines if ".dxf" in line],
                         [f"| {name} | {skipped} | {skipped}{UNCOUNTED_OF.get(name, '')} | nothing |"
                          for name, skipped in sorted(SKIPPED_OF.items())])
        self.assertIn("5 drawings: 11 entities skipped by the plain form, 0 by the complete form",
                      output)

    @unittest.skipIf(os.name == "nt", "the workers are shell scripts")
    def test_records_in_blocks_and_sheets_count(self):
        status, output, lines = self.page_with({
            "entities": [{"type": "LINE"}, {"type": "HELIX"}],
            "assets": [{"entities": [{"type": "MLINE"}]}],
            "layouts": [{"entities": [{"type": "MLINE"}]}], "warnings": []})
        self.assertEqual(status, 0, output)
        self.assertIn("| a.dxf | 1 HELIX, 2 MLINE | 1 HELIX, 2 MLINE | nothing |", lines)

    @unittest.skipIf(os.name == "nt", "the workers are shell scripts")
    def test_what_nothing_explains_fails(self):
        status, output, lines = self.page_with({
            **PLAIN, "entities": [{"type": "LINE"}, {"type": "MLINE"}, {"type": "MLINE"}],
            "warnings": PLAIN["warnings"][1:]})
        self.assertEqual(status, 1, output)
        self.assertIn("| a.dxf | 1 HELIX, 2 MLINE | 2 MLINE | 1 HELIX |", lines)
        self.assertIn("FAILED a.dxf: HELIX is neither a record nor explained", output)

    @unittest.skipIf(os.name == "nt", "the workers are shell scripts")
    def test_what_is_not_drawn_may_be_left_out(self):
        status, output, lines = self.page_with({
            **PLAIN, "warnings": ["Skipped 3 CAMERA entities (not yet supported)"]})
        self.assertEqual(status, 0, output)
        self.assertIn("| a.dxf | 1 HELIX, 2 MLINE | nothing | 3 CAMERA |", lines)

    @unittest.skipIf(os.name == "nt", "the workers are shell scripts")
    def test_no_document_at_all_fails(self):
        status, output, _ = self.page_with({"error": "Failed"})
        self.assertEqual(status, 1, output)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=os.path.abspath)
    WORKER = parser.parse_args().worker
    unittest.main(argv=[sys.argv[0]])
