#!/usr/bin/env python3
"""Tries the .debs as a new user would: in a fresh Debian root without build tools.

    fresh_root.py DEB [PREVIEW_DEB] [--suite bookworm] [--keep FOLDER]

debootstrap makes the root (as the superuser; it loads some 50 MB). In it: install the
package with what it recommends, convert a drawing as a user without rights and compare
the document with that of the same program outside, crash in the middle of a run and
receive the report, install the preview and draw a picture, remove each package and look
for what is left. --keep keeps the root in that folder, and takes it up again when it is
there.
"""

import argparse
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/crash"))
from report_server import Minidump, ReportServer, multipart_parts  # noqa: E402

TIMINGS = re.compile(rb'"timings".*')
SECONDS = 600
# What the packages recommend, as far as it is tried.
RECOMMENDED = {"dwg-import-worker": ["libcurl4"],
               "dwg-preview": ["fonts-dejavu-core", "fonts-liberation", "qt6-qpa-plugins"]}
# The user nobody.
NOBODY = 65534


def say(text):
    print(f"== {text}", file=sys.stderr, flush=True)


def require(condition, message):
    if not condition:
        sys.exit(f"error: {message}")


class Machine:
    def __init__(self, folder):
        self.folder = folder

    def run(self, *words, **options):
        return subprocess.run(["chroot", self.folder, *words], check=True, timeout=SECONDS,
                              stdout=subprocess.PIPE, **options).stdout

    def start(self, *words, **variables):
        """As nobody."""
        return subprocess.Popen(["chroot", f"--userspec={NOBODY}:{NOBODY}", self.folder, *words],
                                env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", **variables}, stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def files(self):
        """All files but what every use of apt changes."""
        left_out = ("var/lib/apt", "var/lib/dpkg", "var/cache", "var/log", "proc", "dev", "srv", "var/tmp",
                    "etc/ld.so.cache", "etc/resolv.conf")
        found = set()
        for folder, folders, names in os.walk(self.folder):
            below = os.path.relpath(folder, self.folder)
            folders[:] = [name for name in folders
                          if not os.path.normpath(f"{below}/{name}").startswith(left_out)]
            found |= {os.path.normpath(f"{below}/{name}") for name in names}
        return {name for name in found if not name.startswith(left_out)}


def make_root(folder, suite):
    if not (folder / "etc/debian_version").exists():
        say(f"Making a root of {suite}")
        subprocess.run(["debootstrap", "--variant=minbase", suite, folder], check=True,
                       stdout=subprocess.DEVNULL)
    shutil.copy("/etc/resolv.conf", folder / "etc/resolv.conf")


def apt(machine, *words):
    machine.run("apt-get", "-y", "-qq", *words,
                env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive"})


def field(deb, name):
    return subprocess.run(["dpkg-deb", "--field", deb, name], check=True, stdout=subprocess.PIPE,
                          text=True).stdout.strip()


def install(machine, deb, own=""):
    """Installs a package, what it needs first, and gives the files that were there before
    the package itself. `own` is the one of ours that it needs."""
    package = field(deb, "Package")
    say(f"Installing {package}")
    shutil.copy(deb, machine.folder / f"srv/{package}.deb")
    if (machine.folder / f"var/lib/dpkg/info/{package}.list").exists():
        apt(machine, "purge", package)
    others = [need for need in field(deb, "Depends").split(", ") if not own or not need.startswith(own)]
    apt(machine, "satisfy", "--no-install-recommends", *others)
    apt(machine, "install", *RECOMMENDED[package])
    before = machine.files()
    apt(machine, "install", f"/srv/{package}.deb")
    require(machine.files() - before, "the package has installed nothing")
    return before


def convert(machine, deb):
    say("Converting a drawing")
    shutil.copy(ROOT / "examples/plan.dwg", machine.folder / "srv/plan.dwg")
    with machine.start("dwg_import_worker", "/srv/plan.dwg", KVT_DWG_SANDBOX="report") as process:
        output, errors = process.communicate(timeout=SECONDS)
    require(process.returncode == 0 and b"Sandbox: no_new_privs" in errors,
            f"status {process.returncode}, {errors!r}")
    with tempfile.TemporaryDirectory() as outside:
        subprocess.run(["dpkg-deb", "--extract", deb, outside], check=True)
        expected = subprocess.run([f"{outside}/usr/bin/dwg_import_worker", ROOT / "examples/plan.dwg"],
                                  check=True, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL).stdout
    require(TIMINGS.sub(b"", output) == TIMINGS.sub(b"", expected), "the document differs")


def worker_process(process):
    """chroot has become the worker."""
    return process.pid


def crash(machine):
    say("Crashing it")
    with ReportServer() as server:
        process = machine.start("dwg_import_worker", "-", KVT_SENTRY_DSN=server.dsn,
                                KVT_SENTRY_DB="/var/tmp/reports")
        while b"Reading" not in (line := process.stderr.readline()):
            require(line, "the worker ended before its read")
        time.sleep(0.5)  # into the read itself
        os.kill(worker_process(process), signal.SIGSEGV)
        process.communicate(timeout=SECONDS)
        require(process.returncode == -signal.SIGSEGV, f"it ended with {process.returncode}")
        require(server.wait(1, SECONDS), "no report arrived")
        _, headers, body = server.uploads[0]
    dump = Minidump(multipart_parts(headers, body)["upload_file_minidump"][1])
    require(dump.exception_code() == signal.SIGSEGV, "the report tells of something else")


def draw(machine):
    say("Drawing a picture")
    with machine.start("dwg_preview", "/srv/plan.dwg", "--png", "/var/tmp/plan.png", "--width", "400",
                       QT_QPA_PLATFORM="offscreen", HOME="/var/tmp") as process:
        _, errors = process.communicate(timeout=SECONDS)
    require(process.returncode == 0, f"status {process.returncode}, {errors!r}")
    picture = (machine.folder / "var/tmp/plan.png").read_bytes()
    require(picture.startswith(b"\x89PNG") and len(picture) > 1000, "there is no picture")


def remove(machine, package, before):
    say(f"Removing {package}")
    apt(machine, "purge", package)
    left = machine.files() - before
    require(not left, f"the package leaves {sorted(left)[:5]}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("deb", type=pathlib.Path)
    parser.add_argument("preview_deb", type=pathlib.Path, nargs="?")
    parser.add_argument("--suite", default="bookworm")
    parser.add_argument("--keep", type=pathlib.Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="fresh-root-") as scratch:
        folder = options.keep or pathlib.Path(scratch) / "root"
        make_root(folder, options.suite)
        machine = Machine(folder)
        require(not any((folder / "usr/bin" / tool).exists() for tool in ("gcc", "cc", "cmake")),
                "the root has build tools")
        # crashpad asks there for its client's memory.
        subprocess.run(["mount", "-t", "proc", "proc", folder / "proc"], check=True)
        try:
            apt(machine, "update")
            before = install(machine, options.deb)
            convert(machine, options.deb)
            crash(machine)
            remove(machine, "dwg-import-worker", before)
            if options.preview_deb:
                install(machine, options.deb)
                before = install(machine, options.preview_deb, own="dwg-import-worker")
                draw(machine)
                remove(machine, "dwg-preview", before)
        finally:
            subprocess.run(["umount", folder / "proc"], check=True)
    say("What was given installs, converts, reports a crash, draws and goes without a trace")


if __name__ == "__main__":
    main()
