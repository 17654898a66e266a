#!/usr/bin/env python3
"""Tests of the judge of damaged files: with a stand-in for the worker, does it see
what it has to see?"""

import collections
import contextlib
import io
import json
import pathlib
import random
import tempfile
import unittest

import damage_corpus

GOOD = {"entities": [{}, {}], "assets": [{"entities": [{}]}], "layouts": [], "layers": [{}],
        "warnings": ["old"]}
LINES = b"0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n0\nENDSEC\n0\nEOF\n"


def with_changes(**changes):
    return {**GOOD, **changes}


class JudgeTest(unittest.TestCase):
    def outcome(self, document, status=0):
        return damage_corpus.outcome(status, document, GOOD, collections.Counter(["old"]))[0]

    def test_outcomes(self):
        self.assertEqual(self.outcome(GOOD), "whole")
        self.assertEqual(self.outcome(with_changes(entities=[{}])), "silent")
        self.assertEqual(self.outcome(with_changes(entities=[{}], warnings=["old"])), "silent")
        self.assertEqual(self.outcome(with_changes(entities=[{}], warnings=["old", "new"])),
                         "named")
        self.assertEqual(self.outcome(with_changes(layers=[])), "silent")
        self.assertEqual(self.outcome(with_changes(assets=[])), "silent")
        self.assertEqual(self.outcome(None, 1), "refused")
        self.assertEqual(self.outcome(None, -11), "died")
        self.assertEqual(self.outcome(None, None), "hung")

    def wrong(self, files=1000, **counts):
        with contextlib.redirect_stdout(io.StringIO()):
            return len(list(damage_corpus.judge(
                collections.Counter({("replaced", kind): n for kind, n in counts.items()}), files)))

    def test_bounds(self):
        self.assertEqual(self.wrong(whole=90, named=5, refused=5), 0)
        self.assertEqual(self.wrong(whole=90, named=4, refused=6), 1)
        self.assertEqual(self.wrong(whole=99, silent=1), 1)
        self.assertEqual(self.wrong(whole=99, died=1), 1)
        self.assertEqual(self.wrong(whole=99, hung=1), 1)
        self.assertEqual(self.wrong(whole=99, files=3), 1)

    def test_each_damage_changes_one_line_and_comes_again(self):
        lines = LINES.splitlines(keepends=True)
        seen = set()
        for number in range(60):
            changed, kind, line = damage_corpus.damaged(lines, random.Random(f"a {number}"))
            again, _, _ = damage_corpus.damaged(lines, random.Random(f"a {number}"))
            self.assertEqual(changed, again)
            self.assertEqual(len(changed) - len(lines),
                             {"replaced": 0, "removed": -1, "doubled": 1}[kind])
            self.assertEqual(changed[:line - 1], lines[:line - 1])
            seen.add(kind)
        self.assertEqual(seen, set(damage_corpus.DAMAGES))

    def test_a_file_is_damaged_and_judged(self):
        with tempfile.TemporaryDirectory() as folder:
            drawing, worker = pathlib.Path(folder) / "a.dxf", pathlib.Path(folder) / "worker"
            drawing.write_bytes(LINES)
            # It refuses every file but the good one.
            worker.write_text(f"#!/bin/sh\ncmp -s \"$1\" '{drawing}' && echo '{json.dumps(GOOD)}'\n")
            worker.chmod(0o755)
            results = damage_corpus.damage_file(str(worker), drawing, "a.dxf", 5)
        self.assertEqual([result[0] for result in results], ["refused"] * 5)


if __name__ == "__main__":
    unittest.main()
