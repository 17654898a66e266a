#!/usr/bin/env python3
"""Tests crash reporting from outside: starts the real worker, kills it in the
middle of a run and looks at what arrives at a local server.

The worker and its handler are copied into temporary folders first, so nothing
is written beside the build. With --wine the worker is the Windows program and
runs under wine.
"""

import argparse
import contextlib
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time

from report_server import EXCEPTION_STREAM, Minidump, ReportServer, multipart_parts, \
    unpack_messagepack

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent.parent
DRAWING = REPOSITORY / "examples" / "plan.dwg"
TIMINGS = re.compile(rb'"timings":\{[^{}]*\}\}\r?\n$')
USAGE = b'{"error":"Usage: dwg_import_worker <file.dwg> [--verbose]"}\n'
RUN_SECONDS = 120
UPLOAD_SECONDS = 60
# What the upload may cost a run whose server does not answer.
ALLOWED_DELAY_SECONDS = 1.0
FOLDER = "Zeichnungen äöü 図面"


class Failure(Exception):
    pass


def require(condition, message):
    if not condition:
        raise Failure(message)


def wait_for(condition, seconds):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


class Run:
    """What one finished run left behind."""

    def __init__(self, status, output, errors, seconds):
        self.status = status
        self.output = TIMINGS.sub(b'"timings":0}\n', output)
        self.errors = errors
        self.seconds = seconds


class Worker:
    """The worker with its handler in a temporary folder of their own."""

    def __init__(self, worker, folder, wine, with_handler=True):
        self.wine = wine
        self.folder = folder
        folder.mkdir(parents=True)
        suffix = ".exe" if wine else ""
        self.program = folder / f"dwg_import_worker{suffix}"
        self.handler = folder / f"crashpad_handler{suffix}"
        shutil.copy2(worker, self.program)
        if with_handler:
            shutil.copy2(worker.parent / self.handler.name, self.handler)
        self.launcher = ["wine"] if wine else []

    def native(self, path):
        """A path as the worker itself has to spell it."""
        return "Z:" + str(path).replace("/", "\\") if self.wine else str(path)

    def environment(self, **variables):
        kept = {k: v for k, v in os.environ.items()
                if not k.startswith(("KVT_", "SENTRY_")) and not k.lower().endswith("_proxy")}
        if self.wine:
            kept |= {"WINEDEBUG": "-all", "LC_ALL": "C.UTF-8"}
        return kept | variables

    def start(self, *arguments, **variables):
        return subprocess.Popen([*self.launcher, self.program, *arguments],
                                env=self.environment(**variables), stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def run(self, *arguments, **variables):
        """Runs to the end of both outputs, as a host would."""
        began = time.monotonic()
        with self.start(*arguments, **variables) as process:
            try:
                output, errors = process.communicate(timeout=RUN_SECONDS)
            except subprocess.TimeoutExpired:
                process.kill()
                raise
        return Run(process.returncode, output, errors, time.monotonic() - began)

    def convert(self, **variables):
        return self.run(self.native(DRAWING), **variables)

    @contextlib.contextmanager
    def in_a_run(self, **variables):
        """A worker in the middle of a run: it reads a drawing from its standard
        input, which gives none. Yields the process, and ends it in any case."""
        process = self.start("-", **variables)
        watchdog = threading.Timer(RUN_SECONDS, process.kill)
        watchdog.start()
        try:
            lines = b""
            while b"Reading DWG file" not in lines:
                line = process.stderr.readline()
                require(line, f"the worker ended before its read: {lines!r}")
                lines += line
            process.lines = lines
            yield process
        finally:
            watchdog.cancel()
            with contextlib.suppress(OSError):
                process.stdin.close()
            if process.poll() is None:
                process.kill()
            process.wait()
            process.stdout.close()
            process.stderr.close()

    def crash(self, number, **variables):
        """Sends a signal to a worker in the middle of a run, and waits for its end."""
        with self.in_a_run(**variables) as process:
            time.sleep(0.2)  # from the progress line into the read itself
            process.send_signal(number)
            output = process.stdout.read()
            errors = process.lines + process.stderr.read()
            process.wait(RUN_SECONDS)
            return Run(process.returncode, output, errors, 0)

    def handlers(self):
        """The process numbers of this folder's handler."""
        wanted = self.native(self.handler).encode()
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            with contextlib.suppress(OSError):
                if entry.name.isdigit():
                    words = (entry / "cmdline").read_bytes().split(b"\0")
                    if words and (words[0] == wanted or wanted in words[:2]):
                        found.append(int(entry.name))
        return found

    def files(self):
        return sorted(str(p.relative_to(self.folder)) for p in self.folder.rglob("*"))


def only_progress_lines(errors):
    return all(line.startswith(b"[DWG worker] ") for line in errors.splitlines())


@contextlib.contextmanager
def silent_server():
    """Takes connections and never answers."""
    with socket.create_server(("127.0.0.1", 0), backlog=8) as listener:
        yield f"http://publickey@127.0.0.1:{listener.getsockname()[1]}/42"


def refusing_dsn():
    """A port that nothing listens on."""
    with socket.create_server(("127.0.0.1", 0)) as listener:
        port = listener.getsockname()[1]
    return f"http://publickey@127.0.0.1:{port}/42"


class Tests:
    def __init__(self, worker, wine, scratch):
        self.worker_file = worker
        self.wine = wine
        self.scratch = scratch
        self.count = 0

    def worker(self, **options):
        self.count += 1
        return Worker(self.worker_file, self.scratch / f"{self.count} {FOLDER}", self.wine, **options)

    def check_report(self, number, exception_code):
        worker = self.worker()
        database = self.scratch / f"Berichte {self.count} für 図面"
        with ReportServer() as server:
            run = worker.crash(number, KVT_SENTRY_DSN=server.dsn,
                               KVT_SENTRY_DB=worker.native(database),
                               KVT_SENTRY_RELEASE="worker@1.2.3", KVT_SENTRY_ENV="testing-ä")
            require(run.status != 0, "the worker was not made to crash")
            require(run.output == b"", f"a crashed run printed {run.output!r}")
            require(only_progress_lines(run.errors), f"more than progress lines: {run.errors!r}")
            require(server.wait(1, UPLOAD_SECONDS), "no report arrived")
            require(wait_for(lambda: not worker.handlers(), UPLOAD_SECONDS), "the handler stayed")
            require(len(server.uploads) == 1, f"{len(server.uploads)} reports arrived")
            path, headers, body = server.uploads[0]
        require(path.startswith("/api/42/minidump/") and "sentry_key=publickey" in path,
                f"the report went to {path}")
        parts = multipart_parts(headers, body)
        minidump = Minidump(parts["upload_file_minidump"][1])
        require(EXCEPTION_STREAM in minidump.streams, "the minidump holds no exception")
        require(exception_code is None or minidump.exception_code() == exception_code,
                f"the minidump tells of exception {minidump.exception_code():#x}")
        modules = minidump.modules()
        require(any("dwg_import_worker" in name for name in modules),
                f"the worker is not among the modules {modules}")
        event = unpack_messagepack(parts["__sentry-event"][1])
        require(event.get("tags", {}).get("component") == "dwg_import_worker",
                f"the tags are {event.get('tags')}")
        require(event.get("release") == "worker@1.2.3", f"the release is {event.get('release')}")
        require(event.get("environment") == "testing-ä",
                f"the environment is {event.get('environment')}")
        require(list(database.rglob("*.dmp")), "the database keeps no minidump")
        require(not (worker.folder / "crashpad-db").exists(), "a second database was made")
        return worker

    def report_of_a_bad_access_arrives(self):
        self.check_report(*((signal.SIGFPE, None) if self.wine
                            else (signal.SIGSEGV, signal.SIGSEGV)))

    def report_of_an_abort_arrives(self):
        if self.wine:
            return "wine ends a process on SIGABRT without an exception"
        self.check_report(signal.SIGABRT, signal.SIGABRT)
        return None

    def default_database_lies_beside_the_worker(self):
        worker = self.worker()
        with ReportServer() as server:
            worker.crash(signal.SIGFPE if self.wine else signal.SIGSEGV, KVT_SENTRY_DSN=server.dsn)
            require(server.wait(1, UPLOAD_SECONDS), "no report arrived")
            _, headers, body = server.uploads[0]
        event = unpack_messagepack(multipart_parts(headers, body)["__sentry-event"][1])
        require("release" not in event, f"a release that nobody set: {event.get('release')}")
        require(list((worker.folder / "crashpad-db").rglob("*.dmp")),
                f"no minidump beside the worker, only {worker.files()}")

    def handler_runs_only_with_a_dsn_and_ends_with_the_run(self):
        worker = self.worker()
        before = worker.files()
        with worker.in_a_run():
            require(not worker.handlers(), "a handler runs without a DSN")
        with worker.in_a_run(KVT_SENTRY_DSN="", KVT_SENTRY_DB=worker.native(worker.folder / "db")):
            require(not worker.handlers(), "a handler runs with an empty DSN")
        require(worker.files() == before, f"files were written without a DSN: {worker.files()}")
        with worker.in_a_run(KVT_SENTRY_DSN=refusing_dsn()):
            require(wait_for(worker.handlers, 10), "no handler runs with a DSN")
        require(wait_for(lambda: not worker.handlers(), UPLOAD_SECONDS), "the handler stayed")

    def document_is_the_same_with_and_without_reporting(self):
        worker = self.worker()
        before = worker.files()
        plain = worker.convert()
        require(plain.status == 0 and plain.output.startswith(b'{"dwgVersion"'),
                f"status {plain.status}, output {plain.output[:80]!r}, errors {plain.errors!r}")
        empty = worker.convert(KVT_SENTRY_DSN="", KVT_SENTRY_RELEASE="r")
        require((empty.status, empty.output) == (0, plain.output), "an empty DSN changes the run")
        require(worker.files() == before, f"files were written without a DSN: {worker.files()}")
        with ReportServer() as server:
            reporting = worker.convert(KVT_SENTRY_DSN=server.dsn, KVT_SENTRY_RELEASE="r",
                                       SENTRY_DEBUG="1")
            require((reporting.status, reporting.output) == (0, plain.output),
                    "reporting changes the document")
            require(only_progress_lines(reporting.errors),
                    f"more than progress lines: {reporting.errors!r}")
            require(not server.uploads, "a run without a crash sent something")
        require((worker.folder / "crashpad-db").is_dir(), "reporting was not active at all")

    def error_paths_are_the_same_with_reporting(self):
        worker = self.worker()
        missing = worker.native(worker.folder / "ünlesbar.dwg")
        plain = worker.run(missing)
        require(plain.status == 1 and "ünlesbar.dwg".encode() in plain.output,
                f"status {plain.status}, output {plain.output!r}")
        variables = {"KVT_SENTRY_DSN": refusing_dsn(), "KVT_SENTRY_RELEASE": "r"}
        reporting = worker.run(missing, **variables)
        require((reporting.status, reporting.output) == (1, plain.output),
                f"status {reporting.status}, output {reporting.output!r}")
        usage = worker.run(**variables)
        require((usage.status, usage.output) == (1, USAGE),
                f"status {usage.status}, output {usage.output!r}")
        require(wait_for(lambda: not worker.handlers(), UPLOAD_SECONDS), "the handler stayed")

    def missing_handler_leaves_the_run_working(self):
        with_handler = self.worker().convert()
        worker = self.worker(with_handler=False)
        run = worker.convert(KVT_SENTRY_DSN=refusing_dsn())
        require((run.status, run.output) == (0, with_handler.output),
                f"status {run.status}, errors {run.errors!r}")
        require(only_progress_lines(run.errors), f"more than progress lines: {run.errors!r}")

    def unusable_settings_leave_the_run_working(self):
        worker = self.worker()
        plain = worker.convert()
        blocker = worker.folder / "blocker"
        blocker.write_bytes(b"")
        for variables in ({"KVT_SENTRY_DSN": "no such thing"},
                          {"KVT_SENTRY_DSN": refusing_dsn(),
                           "KVT_SENTRY_DB": worker.native(blocker / "db")}):
            run = worker.convert(**variables)
            require((run.status, run.output) == (0, plain.output),
                    f"{variables}: status {run.status}, errors {run.errors!r}")
            require(only_progress_lines(run.errors), f"more than progress lines: {run.errors!r}")

    def unreachable_server_does_not_hold_up_a_run(self):
        worker = self.worker()
        plain = worker.convert()
        with silent_server() as silent:
            # A report that could not be sent is waiting when the next run starts.
            worker.crash(signal.SIGFPE if self.wine else signal.SIGSEGV, KVT_SENTRY_DSN=silent)
            for dsn in (silent, refusing_dsn()):
                without, reporting = [], []
                for _ in range(3):
                    without.append(worker.convert().seconds)
                    run = worker.convert(KVT_SENTRY_DSN=dsn, KVT_SENTRY_RELEASE="r")
                    require((run.status, run.output) == (0, plain.output),
                            f"status {run.status}, errors {run.errors!r}")
                    reporting.append(run.seconds)
                delay = min(reporting) - min(without)
                require(delay <= ALLOWED_DELAY_SECONDS, f"a run took {delay:.2f} s longer")
                print(f"    with {dsn}: {min(without):.3f} s without reporting, "
                      f"{min(reporting):.3f} s with it")
        for process in worker.handlers():
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, signal.SIGKILL)

    def all(self):
        return (
            self.report_of_a_bad_access_arrives,
            self.report_of_an_abort_arrives,
            self.default_database_lies_beside_the_worker,
            self.handler_runs_only_with_a_dsn_and_ends_with_the_run,
            self.document_is_the_same_with_and_without_reporting,
            self.error_paths_are_the_same_with_reporting,
            self.missing_handler_leaves_the_run_working,
            self.unusable_settings_leave_the_run_working,
            self.unreachable_server_does_not_hold_up_a_run,
        )


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path,
                        help="the worker, with crashpad_handler beside it")
    parser.add_argument("--wine", action="store_true", help="the worker is the Windows program")
    parser.add_argument("--only", default="", help="run only the tests whose name holds this text")
    options = parser.parse_args()
    passed = failed = skipped = 0
    with tempfile.TemporaryDirectory(prefix="crash-tests-", ignore_cleanup_errors=True) as scratch:
        tests = Tests(options.worker.resolve(), options.wine, pathlib.Path(scratch).resolve())
        for test in tests.all():
            if options.only not in test.__name__:
                continue
            try:
                reason = test()
                if reason:
                    skipped += 1
                    print(f"SKIPPED {test.__name__}: {reason}", flush=True)
                else:
                    passed += 1
                    print(f"PASSED {test.__name__}", flush=True)
            except (Failure, subprocess.TimeoutExpired, ValueError, KeyError) as problem:
                failed += 1
                print(f"FAILED {test.__name__}\n    {problem!r}", flush=True)
    print(f"{passed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
