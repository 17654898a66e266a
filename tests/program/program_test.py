#!/usr/bin/env python3
"""Runs the real program from outside: its progress lines, its exit statuses and
what it makes of paths and files that are no drawings.

Usage: program_test.py --worker PATH [unittest's own arguments]
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

DRAWINGS = pathlib.Path(__file__).resolve().parents[1] / "drawings"
DXF = DRAWINGS / "own" / "layers_R2018.dxf"
DWG = DRAWINGS / "libredwg" / "sample_2018.dwg"
OLD_DWG = DRAWINGS / "libredwg" / "r14" / "v.dwg"
PREFIX = "[DWG worker] "
USAGE = b'{"error":"Usage: dwg_import_worker <file.dwg> [--verbose]"}\n'
MS = re.compile(r"(\d+) ms$")
WORKER = []


def run(*arguments, **options):
    """A finished run; standard error is text."""
    options.setdefault("stdout", subprocess.PIPE)
    result = subprocess.run([*WORKER, *map(os.fspath, arguments)], stderr=subprocess.PIPE,
                            check=False, timeout=600, **options)
    result.stderr = result.stderr.decode("utf-8", "surrogateescape")
    return result


def progress(result):
    """The progress lines without their prefix, times and counts replaced."""
    lines = result.stderr.splitlines()
    assert all(line.startswith(PREFIX) for line in lines), lines
    return [re.sub(r"\d+", "N", line[len(PREFIX):]) for line in lines]


class ProgressLines(unittest.TestCase):
    """Standard error, line by line."""

    maxDiff = None

    def expected(self, path, kind):
        return [
            "Starting import of: " + re.sub(r"\d+", "N", str(path)),
            f"Reading {kind.upper()} file...",
            f"{kind}_read_file done in N ms",
            "Pre-pass: building lookup tables (N objects)...",
            "Pre-pass done in N ms",
            "Converting layers...",
            "Layers done in N ms",
            "Converting assets (block definitions)...",
            "Assets done in N ms",
            "Converting model-space entities...",
            "Converting layouts (paper space)...",
            "Entities done in N ms",
            "JSON output size: N bytes",
            "Total time: N ms",
        ]

    def test_dwg(self):
        result = run(DWG)
        self.assertEqual(result.returncode, 0)
        self.assertEqual(progress(result), self.expected(DWG, "dwg"))

    def test_dxf(self):
        result = run(DXF)
        self.assertEqual(result.returncode, 0)
        self.assertEqual(progress(result), self.expected(DXF, "dxf"))

    def test_verbose_adds_no_lines(self):
        self.assertEqual(progress(run(DWG, "--verbose")), progress(run(DWG)))

    def test_failed_read(self):
        self.assertEqual(progress(run("none.dxf")), ["Starting import of: none.dxf",
                                                     "Reading DXF file...",
                                                     "dxf_read_file done in N ms"])

    def test_usage_error_writes_none(self):
        self.assertEqual(run().stderr, "")

    def test_output_size_is_that_of_the_document_without_its_line_feed(self):
        result = run(DWG)
        size = int(re.search(r"JSON output size: (\d+) bytes", result.stderr).group(1))
        self.assertEqual(size, len(result.stdout) - 1)

    def test_times_are_cumulative_and_those_of_the_document(self):
        result = run(DWG)
        timings = json.loads(result.stdout)["timings"]
        self.assertEqual(list(timings), ["dwgReadMs", "prepassMs", "layersMs", "assetsMs",
                                         "entitiesMs", "workerTotalMs"])
        lines = [line for line in result.stderr.splitlines() if MS.search(line)]
        self.assertEqual([int(MS.search(line).group(1)) for line in lines],
                         list(timings.values()))
        self.assertEqual(list(timings.values()), sorted(timings.values()))


class CommandLine(unittest.TestCase):
    """Arguments."""

    def test_no_path(self):
        result = run()
        self.assertEqual((result.returncode, result.stdout), (1, USAGE))

    def test_only_the_exact_option_counts(self):
        for option in ("--Verbose", "-verbose", "--verbose=1", " --verbose", "--verbosee", ""):
            self.assertNotIn(b"_dbg", run(DXF, option).stdout, option)

    def test_option_may_stand_anywhere_behind_the_path(self):
        expected = run(DXF, "--verbose").stdout
        self.assertIn(b'"_dbg":{"color_index":', expected)
        other = run(DXF, "--unknown", "x", "--verbose", "y").stdout
        mask = re.compile(rb'"timings".*')
        self.assertEqual(mask.sub(b"", other), mask.sub(b"", expected))

    def test_first_argument_is_the_path_even_if_it_reads_like_an_option(self):
        result = run("--verbose")
        self.assertEqual((result.returncode, result.stdout),
                         (1, b'{"error":"Failed to read --verbose: IOERROR"}\n'))

    def test_empty_path(self):
        result = run("")
        self.assertEqual((result.returncode, result.stdout),
                         (1, b'{"error":"Failed to read : IOERROR"}\n'))

    def test_drawing_may_be_named_like_an_option(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(DWG, os.path.join(folder, "--verbose"))
            result = run("--verbose", cwd=folder)
        self.assertEqual(result.returncode, 0)
        self.assertNotIn(b"_dbg", result.stdout)


class Paths(unittest.TestCase):
    """Names of files."""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def copy(self, drawing, name):
        path = os.path.join(self.folder.name, name)
        shutil.copy(drawing, path)
        return path

    def failure(self, path):
        """The error text of a failed read, which is all that is printed."""
        result = run(path)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout.count(b"\n"), 1)
        error = json.loads(result.stdout)
        self.assertEqual(list(error), ["error"])
        self.assertTrue(error["error"].startswith(f"Failed to read {path}: "), error)
        return error["error"][len(f"Failed to read {path}: "):]

    def write(self, name, content):
        path = os.path.join(self.folder.name, name)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def test_extension_in_any_letter_case(self):
        for name in ("PLAN.DXF", "plan.Dxf", "a.dwg.dxf"):
            result = run(self.copy(DXF, name))
            self.assertEqual(result.returncode, 0, name)
            self.assertIn("Reading DXF file...", result.stderr)

    def test_any_other_extension_is_read_as_dwg(self):
        for name in ("x.dxf.dwg", "x.dxf.bak", "x", "x.DWG", ".dxf"):
            result = run(self.copy(DWG, name))
            self.assertEqual(result.returncode, 0, name)
            self.assertIn("Reading DWG file...", result.stderr)

    def test_missing_file(self):
        self.assertEqual(self.failure(os.path.join(self.folder.name, "none.dwg")), "IOERROR")
        self.assertEqual(self.failure(os.path.join(self.folder.name, "none.dxf")), "IOERROR")

    def test_directory(self):
        for name in ("folder.dwg", "folder.dxf"):
            path = os.path.join(self.folder.name, name)
            os.mkdir(path)
            self.assertEqual(self.failure(path), "IOERROR")

    def test_empty_file(self):
        self.assertEqual(self.failure(self.write("empty.dwg", b"")), "INVALIDDWG")
        self.assertEqual(self.failure(self.write("empty.dxf", b"")), "IOERROR")

    def test_text_file(self):
        text = b"This is a text of some lines.\n" * 40
        self.assertEqual(self.failure(self.write("text.dwg", text)), "INVALIDDWG")
        self.failure(self.write("text.dxf", text))

    def test_dxf_named_dwg(self):
        self.assertEqual(self.failure(self.copy(DXF, "x.dwg")), "INVALIDDWG")

    def test_dwg_named_dxf(self):
        self.assertEqual(self.failure(self.copy(DWG, "x.dxf")), "INVALIDDWG")

    def test_file_that_may_not_be_read(self):
        path = self.copy(DWG, "secret.dwg")
        os.chmod(path, 0)
        if os.access(path, os.R_OK):
            self.skipTest("this user may read everything")
        self.assertEqual(self.failure(path), "IOERROR")

    def test_truncated_drawings_give_a_document_or_an_error(self):
        for drawing in (DWG, OLD_DWG, DXF):
            content = drawing.read_bytes()
            for size in (1, 6, 31, 100, 256, 1000, len(content) // 2, len(content) - 1):
                path = self.write(f"{size}{drawing.suffix}", content[:size])
                result = run(path)
                self.assertIn(result.returncode, (0, 1), path)
                self.assertEqual(result.stdout.count(b"\n"), 1, path)
                document = json.loads(result.stdout)
                self.assertEqual("error" in document, result.returncode == 1, path)
                progress(result)

    def test_truncated_dwg_that_can_be_read_has_the_warning_first(self):
        content = DWG.read_bytes()
        result = run(self.write("half.dwg", content[:len(content) // 2]))
        self.assertEqual(result.returncode, 0)
        self.assertTrue(json.loads(result.stdout)["warnings"][0]
                        .startswith("LibreDWG parse warnings: "))

    @unittest.skipIf(os.name == "nt", "these are no file names there")
    def test_path_is_escaped_in_the_error_object(self):
        path = self.folder.name + '/a "b" \\c\\ \t\n.dwg'
        result = run(path)
        escaped = path.replace("\\", "\\\\").replace('"', '\\"').replace("\t", "\\t")
        escaped = escaped.replace("\n", "\\n").encode()
        self.assertEqual(result.stdout, b'{"error":"Failed to read ' + escaped + b': IOERROR"}\n')

    @unittest.skipIf(os.name == "nt", "paths are in the code page there")
    def test_path_beyond_ascii(self):
        for name in ("Plän 日本.dwg", 'quote" back\\slash.dwg'):
            result = run(self.copy(DWG, name))
            self.assertEqual(result.returncode, 0, name)
            self.assertIn(f"Starting import of: {self.folder.name}/{name}\n", result.stderr)
        self.assertEqual(self.failure(self.folder.name + "/Plän.dwg"), "IOERROR")

    @unittest.skipIf(os.name == "nt", "paths are in the code page there")
    def test_path_that_is_no_utf8_is_copied(self):
        path = os.fsencode(self.folder.name) + b"/\xff.dwg"
        result = run(path)
        self.assertEqual(result.stdout, b'{"error":"Failed to read ' + path + b': IOERROR"}\n')


class Output(unittest.TestCase):
    """Standard output."""

    def test_one_line_that_ends_in_a_line_feed(self):
        for drawing in (DWG, DXF):
            output = run(drawing).stdout
            self.assertTrue(output.endswith(b"}}\n"))
            self.assertEqual(output.count(b"\n"), 1)
            self.assertNotIn(b"\r", output)

    def test_two_runs_differ_in_their_times_only(self):
        mask = re.compile(rb"(Ms\":)\d+")
        for drawing in (DWG, OLD_DWG, DXF):
            outputs = {mask.sub(rb"\1", run(drawing, env={**os.environ, "MALLOC_PERTURB_": fill})
                                .stdout) for fill in ("0", "85", "170")}
            self.assertEqual(len(outputs), 1, drawing)

    def test_locale_of_the_environment_does_not_matter(self):
        output = run(DXF, env={**os.environ, "LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"}).stdout
        self.assertIn(b'"startX":0.3333333333,', output)

    @unittest.skipUnless(os.path.exists("/dev/full"), "needs a device that is always full")
    def test_full_disk_is_told(self):
        with open("/dev/full", "wb") as full:
            result = run(DWG, stdout=full)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(progress(result)[-1],
                         "Could not write the document to standard output")

    @unittest.skipUnless(os.path.exists("/dev/full"), "needs a device that is always full")
    def test_full_disk_leaves_a_failed_read_a_failure(self):
        with open("/dev/full", "wb") as full:
            self.assertEqual(run("none.dwg", stdout=full).returncode, 1)
            self.assertEqual(run(stdout=full).returncode, 1)


def main():
    arguments = sys.argv[1:]
    if len(arguments) < 2 or arguments[0] != "--worker":
        sys.exit(__doc__)
    WORKER.append(os.path.abspath(arguments[1]))
    unittest.main(argv=[sys.argv[0], *arguments[2:]])


if __name__ == "__main__":
    main()
