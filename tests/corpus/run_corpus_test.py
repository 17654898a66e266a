#!/usr/bin/env python3
"""Checks that the corpus run finds the faults that it looks for, with small scripts
in the worker's place."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

RUN_CORPUS = pathlib.Path(__file__).resolve().parent / "run_corpus.py"
DOCUMENT = ('{"dwgVersion":"2018","insunits":4,"layers":[],"assets":[],"entities":[],"layouts":[],'
            '"warnings":[],"timings":{"dwgReadMs":1,"prepassMs":1,"layersMs":1,"assetsMs":1,'
            '"entitiesMs":1,"workerTotalMs":2}}')


@unittest.skipIf(os.name == "nt", "the workers are shell scripts")
class CorpusRun(unittest.TestCase):
    """One case, one kind of worker."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "drawings").mkdir()
        (self.folder / "drawings" / "a.DWG").touch()
        (self.folder / "drawings" / "b.txt").touch()

    def run_with(self, script, *options, exceptions=""):
        worker = self.folder / "worker"
        worker.write_text("#!/bin/sh\n" + script + "\n", encoding="utf-8")
        worker.chmod(0o755)
        listed = self.folder / "exceptions.txt"
        listed.write_text(exceptions, encoding="utf-8")
        run = subprocess.run(
            [sys.executable, RUN_CORPUS, "--worker", worker, "--drawings",
             self.folder / "drawings", "--exceptions", listed, *options],
            capture_output=True, text=True, check=False)
        return run.returncode, run.stdout

    def assert_fails(self, script, reason, *options):
        status, output = self.run_with(script, *options)
        self.assertEqual(status, 1, output)
        self.assertIn("FAILED a.DWG: ", output)
        self.assertIn(reason, output)

    def test_document_passes(self):
        status, output = self.run_with(f"echo '[DWG worker] x' >&2; echo '{DOCUMENT}'")
        self.assertEqual(status, 0, output)
        self.assertIn("1 passed, 0 failed", output)

    def test_error_object_passes(self):
        status, output = self.run_with("""echo '{"error":"Failed"}'; exit 1""")
        self.assertEqual(status, 0, output)

    def test_status_has_to_suit_the_output(self):
        self.assert_fails("""echo '{"error":"Failed"}'""", "sections ['error']")
        self.assert_fails(f"echo '{DOCUMENT}'; exit 1", "status 1 without an error object")
        self.assert_fails(f"echo '{DOCUMENT}'; exit 2", "ended with 2")

    def test_crash_is_told(self):
        self.assert_fails("kill -SEGV $$", "ended with -11")

    def test_sanitizers_frame_is_told(self):
        report = "    #0 0x1 in __interceptor_malloc x.cpp:1\n    #1 0x55 in decode_it /src/decode.c:7"
        self.assert_fails(f"printf '{report}\n' >&2; exit 99",
                          "ended with 99 in decode_it /src/decode.c:7")

    def test_listed_exception_passes(self):
        status, output = self.run_with("kill -SEGV $$", exceptions="# why\na.DWG: dies\n")
        self.assertEqual(status, 0, output)
        self.assertIn("excepted a.DWG", output)

    def test_output_has_to_be_one_line(self):
        self.assert_fails("true", "no single line")
        self.assert_fails(f"printf '%s' '{DOCUMENT}'", "no single line")
        self.assert_fails(f"echo '{DOCUMENT}'; echo", "no single line")

    def test_json_has_to_be_strict(self):
        self.assert_fails("""echo '{"error":NaN}'; exit 1""", "NaN is no JSON")
        self.assert_fails("""echo '{"error":-Infinity}'; exit 1""", "-Infinity is no JSON")
        self.assert_fails("""echo '{"error":1,"error":2}'; exit 1""", "duplicate key")
        self.assert_fails("""echo '{"error":1,}'; exit 1""", "not strict JSON")
        self.assert_fails("""echo '{"error": 1}'; exit 1""", "white space between tokens")

    def test_stray_output_is_told(self):
        self.assert_fails(f"echo 'Warning: x' >&2; echo '{DOCUMENT}'", "stray output")

    def test_endless_run_is_ended(self):
        self.assert_fails("exec sleep 3600", "ran for more than 0.5 s", "--timeout", "0.5")

    def test_shrinking_timings_are_told(self):
        shrinking = DOCUMENT.replace('"layersMs":1', '"layersMs":0')
        self.assert_fails(f"echo '{shrinking}'", "timings do not grow")

    def test_second_run_has_to_print_the_same(self):
        script = f"echo '{DOCUMENT}' | sed \"s/2018/$MALLOC_PERTURB_/\""
        self.assert_fails(script, "prints other bytes", "--twice")

    def test_second_run_may_take_another_time(self):
        script = f"echo '{DOCUMENT}' | sed \"s/\\\"workerTotalMs\\\":2/\\\"workerTotalMs\\\":$MALLOC_PERTURB_/\""
        status, output = self.run_with(script, "--twice")
        self.assertEqual(status, 0, output)

    def test_table_has_a_line_per_drawing(self):
        report = self.folder / "report.csv"
        self.run_with(f"echo '{DOCUMENT}'", "--csv", report)
        lines = report.read_text(encoding="utf-8").splitlines()
        self.assertEqual(len(lines), 2)
        self.assertTrue(lines[1].startswith("a.DWG,0,2018,0,0,0,0,0,0,,0,"), lines[1])

    def page_of(self, script, exceptions=""):
        page = self.folder / "report.html"
        self.run_with(script, "--report", page, exceptions=exceptions)
        self.assertTrue((self.folder / "report.csv").exists())
        return page.read_text(encoding="utf-8")

    def test_page_tells_what_did_not_come_through(self):
        warnings = ('"warnings":["odd","Skipped 2 MESH entities (not yet supported)",'
                    '"Skipped 1 OLE2FRAME entity (not yet supported)"]')
        page = self.page_of(f"echo '{DOCUMENT}'".replace('"warnings":[]', warnings))
        self.assertIn("<td>2 MESH, 1 OLE2FRAME</td>", page)
        self.assertIn('<td class="texts">odd</td>', page)
        self.assertIn("3 entities skipped", page)
        self.assertIn('<tr class="good">', page)

    def test_page_puts_problems_first(self):
        (self.folder / "drawings" / "0.dxf").touch()
        page = self.page_of(f'case "$1" in *DWG) kill -SEGV $$ ;; esac; echo \'{DOCUMENT}\'')
        self.assertLess(page.index("<td>a.DWG</td>"), page.index("<td>0.dxf</td>"))
        self.assertIn("1 with problems", page)

    def test_page_marks_exceptions_and_refusals(self):
        page = self.page_of("kill -SEGV $$", exceptions="a.DWG: dies\n")
        self.assertIn('<tr class="excepted">', page)
        self.assertIn("excepted: dies", page)
        refused = self.page_of("""echo '{"error":"Failed"}'; exit 1""")
        self.assertIn('<tr class="refused">', refused)

    def test_page_survives_what_a_drawing_says(self):
        page = self.page_of(f"echo '{DOCUMENT}'".replace(
            '"warnings":[]', '"warnings":["<script>alert(1)</script>"]'))
        self.assertIn("&lt;script&gt;alert(1)", page)
        self.assertNotIn("<script>alert", page)

    def test_folder_without_drawings_fails(self):
        (self.folder / "drawings" / "a.DWG").unlink()
        self.assertEqual(self.run_with("true")[0], 1)

    def test_no_folder_skips(self):
        environment = {key: value for key, value in os.environ.items() if key != "DWG_CORPUS"}
        run = subprocess.run([sys.executable, RUN_CORPUS, "--worker", "x"], capture_output=True,
                             env=environment, check=False)
        self.assertEqual(run.returncode, 77)


if __name__ == "__main__":
    unittest.main()
