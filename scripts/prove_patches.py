#!/usr/bin/env python3
"""Shows that each of our fixes of LibreDWG is needed: builds the library without it and
runs the tests that its head names, which have to fail.

    prove_patches.py [--folder FOLDER] [--source CRATE] [NUMBER...]

A patch that later ones build on is left out with these, and with those that its head
names as "Used by:"; then its tests are first run
without the later ones only, where they have to pass. The library is built without
optimisation in FOLDER, by default a temporary one, and git puts the sources together.
Tests are those of GoogleTest by their names, or scripts that take a worker.
Numbers say which patches to try; without any, all. Exits with 1 when a test passes
without its patch, or fails with it.
"""

import argparse
import glob
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
PATCHES = ROOT / "cmake" / "patches" / "libredwg"
OTHER_PLATFORM = re.compile(r" \(.*\)$")
WORKER = "dwg_import_worker"


def run(command, folder, **options):
    return subprocess.run([str(part) for part in command], cwd=folder, check=True,
                          capture_output=True, text=True, errors="replace", **options).stdout


def listed(patch, title):
    """The names behind a title such as "Tested by:" in a patch's head, up to the next."""
    head = patch.read_text(encoding="utf-8").split("\n--- ")[0]
    found = re.search(rf"^{title}: (.*?)(?=^[A-Z][a-z ]+: |\Z)", head, re.MULTILINE | re.DOTALL)
    return [name.strip() for name in found[1].split(",")] if found else []


class Series:
    """The sources as a git repository with a commit for each patch."""

    def __init__(self, source, folder):
        self.folder = folder
        self.commits = {}
        for part in ("vendor", "vendor-config"):
            shutil.copytree(source / part, folder / part)
        self.git("init", "--quiet")
        self.commit("the sources as they were")
        for patch in sorted(PATCHES.glob("*.patch")):
            run(["patch", "-p1", "--fuzz=0", "--no-backup-if-mismatch", "-i", patch],
                folder / "vendor" / "libredwg")
            self.commits[patch.name] = self.commit(patch.name)

    def git(self, *command):
        return run(["git", "-c", "user.name=patches", "-c", "user.email=patches",
                    "-c", "core.autocrlf=false", *command], self.folder)

    def commit(self, title):
        self.git("add", "--all", "--force")
        self.git("commit", "--quiet", "--message", title)
        return self.git("rev-parse", "HEAD").strip()

    def take(self, names, without=()):
        """Puts the sources together of all patches but these, and returns those that
        then do not fit and are left out, too."""
        first = min(self.names().index(name) for name in (*names, *without))
        last_before = self.names()[first - 1] if first else None
        start = self.commits[last_before] if last_before else f"{self.commits[self.names()[0]]}~1"
        self.git("checkout", "--quiet", "--force", "--detach", start)
        unfit = []
        for name in self.names()[first:]:
            if name not in (*names, *without) and not self.picks(name):
                unfit.append(name)
        return unfit

    def picks(self, name):
        try:
            self.git("cherry-pick", "--allow-empty", "--keep-redundant-commits", self.commits[name])
        except subprocess.CalledProcessError:
            self.git("cherry-pick", "--abort")
            return False
        return True

    def users(self, names):
        """All but the first of these, with the patches that use any of them."""
        found = set(names[1:])
        waiting = list(names)
        while waiting:
            numbers = listed(PATCHES / waiting.pop(), "Used by")
            new = {name for name in self.names() if name[:2] in numbers} - found
            found |= new
            waiting += new
        return sorted(found)

    def names(self):
        return list(self.commits)


class Build:
    """A build of the library and of what tests it."""

    def __init__(self, folder, sources):
        self.library, self.tests = folder / "library", folder / "tests"
        self.installed, self.sources = folder / "installed", sources
        self.mistake = ""

    def make(self):
        """Whether it builds."""
        common = ["-G", "Ninja"]
        try:
            run(["cmake", "-S", ROOT / "cmake" / "libredwg", "-B", self.library, *common,
                 f"-DLIBREDWG_SOURCE={self.sources}", "-DLIBREDWG_C_FLAGS=-O0",
                 f"-DCMAKE_INSTALL_PREFIX={self.installed}"], ROOT)
            run(["cmake", "--build", self.library, "--target", "install"], ROOT)
            if not (self.tests / "build.ninja").exists():
                run(["cmake", "-S", ROOT, "-B", self.tests, *common, "-DDWG_CRASH_REPORTING=OFF", "-DDWG_BUILD_TESTS=ON",
                     f"-DDWG_LIBREDWG_INSTALLED={self.installed}", "-DCMAKE_CXX_FLAGS=-O0"],
                    ROOT)
            run(["cmake", "--build", self.tests, "--target", "patch_tests", WORKER], ROOT)
        except subprocess.CalledProcessError as error:
            self.mistake = (error.stdout + error.stderr)[-2000:]
            return False
        return True

    def passes(self, test):
        """A test that never ends does not."""
        if "/" in test:
            command = [sys.executable, ROOT / test, "--worker", self.tests / WORKER]
            most_seconds = 3600
        else:
            command = [self.tests / "tests" / "patch_tests", f"--gtest_filter={test}"]
            most_seconds = 120
        try:
            return subprocess.run([str(part) for part in command], cwd=ROOT, check=False,
                                  capture_output=True, timeout=most_seconds).returncode == 0
        except subprocess.TimeoutExpired:
            return False


def prove(series, build, name):
    """What the patch's tests say without it, a line each: whether that proves it, the
    test and the remark."""
    later, before = series.users([name]), None
    while later != before:
        before = later
        later = series.users([name, *before, *series.take([name], before)])
    remark = ""
    tests = listed(PATCHES / name, "Tested by")
    if later:
        remark = " (left out in both: " + ", ".join(other[:2] for other in later) + ")"
        unfit = series.take(later)
        if unfit or not build.make():
            yield False, "", f"what is left without {later} and {unfit} does not build\n{build.mistake}"
            return
        for test in tests:
            if not OTHER_PLATFORM.search(test) and not build.passes(test):
                yield False, test, "fails with the patch" + remark
    series.take([name], later)
    if not build.make():
        is_named = (PATCHES / name).read_text(encoding="utf-8").count("\n+++ b/include/")
        yield bool(is_named), ", ".join(tests), "does not build without it" + remark
        if not is_named:
            print(build.mistake)
        return
    for test in tests:
        if OTHER_PLATFORM.search(test):
            yield True, test, "not tried here"
        elif build.passes(test):
            yield False, test, "PASSES without the patch" + remark
        else:
            yield True, test, "fails without it" + remark
    if not tests:
        yield False, "", "names no test"


def crate():
    version = re.search(r'CRATE_VERSION ([0-9.]+)',
                        (ROOT / "cmake" / "LibreDwg.cmake").read_text(encoding="utf-8"))[1]
    home = os.environ.get("CARGO_HOME") or os.path.expanduser("~/.cargo")
    found = glob.glob(f"{home}/registry/src/*/libredwg-sys-{version}")
    if not found:
        sys.exit("the sources of LibreDWG are not there; configure any build first, or give --source")
    return pathlib.Path(found[0])


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--folder", type=pathlib.Path)
    parser.add_argument("--source", type=pathlib.Path)
    parser.add_argument("numbers", nargs="*")
    options = parser.parse_args()
    folder = options.folder or pathlib.Path(tempfile.mkdtemp(prefix="prove_patches"))
    folder = folder.resolve()
    shutil.rmtree(folder / "sources", ignore_errors=True)
    (folder / "sources").mkdir(parents=True)
    series = Series(options.source or crate(), folder / "sources")
    build = Build(folder, folder / "sources")
    wrong = 0
    for name in series.names():
        if options.numbers and name[:2] not in options.numbers:
            continue
        for is_proof, test, remark in prove(series, build, name):
            wrong += not is_proof
            print(f"{'ok   ' if is_proof else 'WRONG'} {name[:2]} {test}: {remark}", flush=True)
    if not options.folder:
        shutil.rmtree(folder)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
