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
# Only a hang reaches it.
HANG_SECONDS = 600
# Windows' code of the exception that a breakpoint is.
BREAKPOINT = 0x80000003
FOLDER = "Zeichnungen äöü 図面"


class Failure(Exception):
    pass


def require(condition, message):
    if not condition:
        raise Failure(message)


def wait_for(condition):
    end = time.monotonic() + HANG_SECONDS
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.02)
    return True


class Run:
    """What one finished run left behind."""

    def __init__(self, status, output, errors):
        self.status = status
        self.output = TIMINGS.sub(b'"timings":0}\n', output)
        self.errors = errors


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
        self.crasher = next(worker.parent.rglob("crash_process.exe")) if wine else None

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
        with self.start(*arguments, **variables) as process:
            try:
                output, errors = process.communicate(timeout=HANG_SECONDS)
            except subprocess.TimeoutExpired:
                process.kill()
                raise
        return Run(process.returncode, output, errors)

    def convert(self, **variables):
        return self.run(self.native(DRAWING), **variables)

    @contextlib.contextmanager
    def in_a_run(self, **variables):
        """A worker in the middle of a run: it reads a drawing from its standard
        input, which gives none. Yields the process, and ends it in any case."""
        process = self.start("-", **variables)
        watchdog = threading.Timer(HANG_SECONDS, process.kill)
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

    def crash(self, number=signal.SIGSEGV, **variables):
        """Sends a signal to a worker in the middle of a run, and waits for its end.
        On Windows, whatever the number, it runs into a breakpoint instead."""
        with self.in_a_run(**variables) as process:
            time.sleep(0.2)  # from the progress line into the read itself
            if self.wine:
                subprocess.run(["wine", self.crasher, self.native(self.program)], check=True,
                               env=self.environment(), timeout=HANG_SECONDS)
                # Below wine the handler keeps the pipes open until it ends.
                process.wait(HANG_SECONDS)
                self.end_handlers()
            else:
                process.send_signal(number)
            output = process.stdout.read()
            errors = process.lines + process.stderr.read()
            process.wait(HANG_SECONDS)
            return Run(process.returncode, output, errors)

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

    def end_handlers(self):
        for process in self.handlers():
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, signal.SIGKILL)

    def files(self):
        return sorted(str(p.relative_to(self.folder)) for p in self.folder.rglob("*"))


def only_progress_lines(errors):
    return all(line.startswith(b"[DWG worker] ") for line in errors.splitlines())


class SilentServer:
    """Takes connections and never answers."""

    def __enter__(self):
        self.listener = socket.create_server(("127.0.0.1", 0), backlog=8)
        self.listener.settimeout(HANG_SECONDS)
        self.dsn = f"http://publickey@127.0.0.1:{self.listener.getsockname()[1]}/42"
        return self

    def __exit__(self, *_):
        self.listener.close()

    def accept(self):
        """The next connection, once its first bytes are there."""
        connection, _ = self.listener.accept()
        connection.settimeout(HANG_SECONDS)
        require(connection.recv(1), "a connection ended without a request")
        return connection


def is_open(connection):
    """Whether the other side still waits for an answer."""
    connection.setblocking(False)
    try:
        while connection.recv(1 << 16):
            pass
        return False
    except BlockingIOError:
        return True
    except ConnectionError:
        return False


@contextlib.contextmanager
def idle_wine():
    """Keeps wine's background processes alive. Started by a test they would hold
    on to its pipes, and the end of the worker's output would not be seen. They are
    up when the shell has printed something."""
    with subprocess.Popen(["wine", "cmd"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, env=dict(os.environ, WINEDEBUG="-all")) as idle:
        require(idle.stdout.read(1), "wine does not start")
        yield
        idle.stdin.close()


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

    def crash_and_receive(self, worker, database, number, **variables):
        """Makes a worker crash and gives what its handler reports: the run, the
        minidump and the event. Under wine it is taken from the database, for
        wine's WinHTTP cannot post a body whose length is not known before."""
        with ReportServer() as server:
            run = worker.crash(number, KVT_SENTRY_DSN=server.dsn, **variables)
            if self.wine:
                dumps = list((database / "reports").glob("*.dmp"))
                events = list((database / "attachments").glob("*/__sentry-event"))
                require(len(dumps) == 1 and len(events) == 1, f"{len(dumps)} minidumps were written")
                return run, dumps[0].read_bytes(), events[0].read_bytes()
            require(server.wait(1, HANG_SECONDS), "no report arrived")
            require(wait_for(lambda: not worker.handlers()), "the handler stayed")
            require(len(server.uploads) == 1, f"{len(server.uploads)} reports arrived")
            path, headers, body = server.uploads[0]
        require(path.startswith("/api/42/minidump/") and "sentry_key=publickey" in path,
                f"the report went to {path}")
        require(list(database.rglob("*.dmp")), "the database keeps no minidump")
        parts = multipart_parts(headers, body)
        return run, parts["upload_file_minidump"][1], parts["__sentry-event"][1]

    def check_report(self, number, exception_code):
        worker = self.worker()
        database = self.scratch / f"Berichte {self.count} für 図面"
        run, minidump, event = self.crash_and_receive(
            worker, database, number, KVT_SENTRY_DB=worker.native(database),
            KVT_SENTRY_RELEASE="worker@1.2.3", KVT_SENTRY_ENV="testing-ä")
        require(self.wine or run.status == -number, f"the worker ended with {run.status}")
        require(run.output == b"", f"a crashed run printed {run.output!r}")
        require(only_progress_lines(run.errors), f"more than progress lines: {run.errors!r}")
        minidump = Minidump(minidump)
        require(EXCEPTION_STREAM in minidump.streams, "the minidump holds no exception")
        require(minidump.exception_code() == exception_code,
                f"the minidump tells of exception {minidump.exception_code():#x}")
        modules = minidump.modules()
        require(any("dwg_import_worker" in name for name in modules),
                f"the worker is not among the modules {modules}")
        event = unpack_messagepack(event)
        require(event.get("tags", {}).get("component") == "dwg_import_worker",
                f"the tags are {event.get('tags')}")
        require(event.get("release") == "worker@1.2.3", f"the release is {event.get('release')}")
        require(event.get("environment") == "testing-ä",
                f"the environment is {event.get('environment')}")
        require(not (worker.folder / "crashpad-db").exists(), "a second database was made")

    def report_of_a_bad_access_arrives(self):
        self.check_report(signal.SIGSEGV, BREAKPOINT if self.wine else signal.SIGSEGV)

    def report_of_an_abort_arrives(self):
        if self.wine:
            return "there are no signals on Windows"
        self.check_report(signal.SIGABRT, signal.SIGABRT)
        return None

    def default_database_lies_beside_the_worker(self):
        worker = self.worker()
        _, minidump, event = self.crash_and_receive(worker, worker.folder / "crashpad-db",
                                                    signal.SIGSEGV)
        Minidump(minidump)
        require("release" not in unpack_messagepack(event), "the report has a release")

    def handler_runs_only_with_a_dsn_and_ends_with_the_run(self):
        worker = self.worker()
        before = worker.files()
        with worker.in_a_run():
            require(not worker.handlers(), "a handler runs without a DSN")
        with worker.in_a_run(KVT_SENTRY_DSN="", KVT_SENTRY_DB=worker.native(worker.folder / "db")):
            require(not worker.handlers(), "a handler runs with an empty DSN")
        require(worker.files() == before, f"files were written without a DSN: {worker.files()}")
        with worker.in_a_run(KVT_SENTRY_DSN=refusing_dsn()):
            require(wait_for(worker.handlers), "no handler runs with a DSN")
        require(wait_for(lambda: not worker.handlers()), "the handler stayed")

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
        require(wait_for(lambda: not worker.handlers()), "the handler stayed")

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
        """Shown by the order of events: a run ends while a handler is still waiting
        for the server to answer an upload."""
        worker = self.worker()
        plain = worker.convert()
        try:
            with SilentServer() as server:
                waiting = None
                if not self.wine:  # where the upload is never begun
                    worker.crash(KVT_SENTRY_DSN=server.dsn)
                    waiting = server.accept()
                for dsn in (server.dsn, refusing_dsn()):
                    run = worker.convert(KVT_SENTRY_DSN=dsn, KVT_SENTRY_RELEASE="r")
                    require((run.status, run.output) == (0, plain.output),
                            f"status {run.status}, errors {run.errors!r}")
                if waiting is not None:
                    require(is_open(waiting), "the run ended only after the upload had ended")
                    waiting.close()
        finally:
            worker.end_handlers()

    def reports_come_out_of_the_sandbox(self):
        """The other tests run in it, too, if the system has one."""
        if self.wine:
            return "what is in force on Windows cannot be seen from outside"
        worker = self.worker()
        with worker.in_a_run(KVT_SENTRY_DSN=refusing_dsn()) as process:
            status = pathlib.Path(f"/proc/{process.pid}/status").read_text()
            require(re.search(r"^Seccomp:\s*2$", status, re.MULTILINE), "it runs without a filter")
            require(len(list(pathlib.Path(f"/proc/{process.pid}/task").iterdir())) == 1,
                    "a thread was there before the sandbox, which Landlock does not cover")
        require(wait_for(lambda: not worker.handlers()), "the handler stayed")
        return None

    def folders_of_ended_runs_go_with_the_next(self):
        worker = self.worker()
        for _ in range(3):
            worker.convert(KVT_SENTRY_DSN=refusing_dsn())
            runs = list((worker.folder / "crashpad-db").glob("*.run"))
            require(len(runs) <= 1, f"{len(runs)} folders of ended runs")

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
            self.reports_come_out_of_the_sandbox,
            self.folders_of_ended_runs_go_with_the_next,
        )


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True, type=pathlib.Path,
                        help="the worker, with crashpad_handler beside it")
    parser.add_argument("--wine", action="store_true", help="the worker is the Windows program")
    parser.add_argument("--only", default="", help="run only the tests whose name holds this text")
    options = parser.parse_args()
    passed = failed = skipped = 0
    with tempfile.TemporaryDirectory(prefix="crash-tests-", ignore_cleanup_errors=True) as scratch, \
            idle_wine() if options.wine else contextlib.nullcontext():
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
