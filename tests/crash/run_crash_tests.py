#!/usr/bin/env python3
"""Tests crash reporting from outside: starts the real worker, kills it in the
middle of a run and looks at what arrives at a local server.

The worker and its handler are copied into temporary folders first, so nothing
is written beside the build. With --wine the worker is the Windows program and
runs under wine.
"""

import argparse
import contextlib
import functools
import hashlib
import json
import os
import pathlib
import platform
import re
import resource
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
# Drawings with a long document, the release that each names, and its format.
DRAWINGS = (("libredwg/2018/Text.dwg", "AC1032", "DWG"),
            ("libredwg/r11/entities-2d.dwg", "AC1009", "DWG"),
            ("generated/text_all_scripts_R2007.dxf", "AC1021", "DXF"))
# What a report must not hold: a drawing's name, and a variable of the environment.
SECRET_NAME = "Neubau Finanzamt Musterstadt 4711"
SECRET_VALUE = "Geheimnis-der-Umgebung-0815"
# What crash_program does, and the signals that it ends of.
CRASHES = {"overflow": signal.SIGSEGV, "thread": signal.SIGSEGV, "alternate": signal.SIGSEGV,
           "malloc": signal.SIGABRT, "abort": signal.SIGABRT}
# The handler may start, but not write a minidump.
NEARLY_FULL_BYTES = 6000


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
        self.built = worker.parent
        self.crasher = self.test_program("crash_process.exe") if wine else None

    def test_program(self, name):
        found = next(self.built.rglob(name), None)
        require(found, f"{name} has not been built")
        return found

    def be(self, name):
        """Puts a program of the tests in the worker's place."""
        shutil.copy2(self.test_program(name), self.program)

    def native(self, path):
        """A path as the worker itself has to spell it."""
        return "Z:" + str(path).replace("/", "\\") if self.wine else str(path)

    def environment(self, **variables):
        kept = {k: v for k, v in os.environ.items()
                if not k.startswith(("KVT_", "SENTRY_")) and not k.lower().endswith("_proxy")}
        if self.wine:
            kept |= {"WINEDEBUG": "-all", "LC_ALL": "C.UTF-8"}
        return kept | variables

    def start(self, *arguments, pipe_bytes=-1, prepare=None, **variables):
        return subprocess.Popen([*self.launcher, self.program, *arguments],
                                env=self.environment(**variables), stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                pipesize=pipe_bytes, preexec_fn=prepare)

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
    def in_a_run(self, *arguments, until=b"Reading DWG file", **settings):
        """A worker in the middle of a run. Without arguments it reads a drawing from
        its standard input, which gives none. Yields the process once it has printed
        that progress line, and ends it in any case."""
        process = self.start(*(arguments or ["-"]), **settings)
        watchdog = threading.Timer(HANG_SECONDS, process.kill)
        watchdog.start()
        try:
            lines = b""
            while until not in lines:
                line = process.stderr.readline()
                require(line, f"the worker ended before that: {lines!r}")
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

    def crash(self, number=signal.SIGSEGV, **settings):
        """Crashes a worker in the middle of a run."""
        with self.in_a_run(**settings) as process:
            time.sleep(0.2)  # from the progress line into the read itself
            return self.end(process, number)

    def crash_in_its_output(self, *arguments, **settings):
        """Crashes a worker in the middle of writing its document: into a pipe that
        is too small for it, and from which one byte is taken. Gives the numbers of
        what belongs to its stack, too: where its arguments lie, and its thread."""
        with self.in_a_run(*arguments, until=b"JSON output size", pipe_bytes=4096,
                           **settings) as process:
            first = os.read(process.stdout.fileno(), 1)
            numbers = None
            if not self.wine:
                fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2]
                numbers = (int(fields.split()[45]), process.pid)
            run = self.end(process, signal.SIGSEGV)
            return Run(run.status, first + run.output, run.errors), numbers

    def end(self, process, number):
        """Sends a signal to a worker, and waits for its end. On Windows, whatever the
        number, it runs into a breakpoint instead."""
        if self.wine:
            subprocess.run(["wine", self.crasher, self.native(self.program)], check=True,
                           env=self.environment(), timeout=HANG_SECONDS)
            # Below wine the handler keeps the pipes open until it ends.
            process.wait(HANG_SECONDS)
            self.end_handlers()
        else:
            process.send_signal(number)
            process.wait(HANG_SECONDS)  # ahead of reading, which lets a write go on
        output = process.stdout.read()
        errors = process.lines + process.stderr.read()
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


def patch_level():
    """Of LibreDWG, as docs/crash-reporting.md says it."""
    patches = [p for folder in ("libredwg", "libredwg-speed")
               for p in sorted((REPOSITORY / "cmake/patches" / folder).glob("*.patch"))]
    digest = hashlib.sha256(b"".join(p.read_bytes() for p in patches)).hexdigest()
    return f"{len(patches)}-{digest[:8]}"


def traces(data, text):
    """Which eight bytes in a row of a text are in the data, in the encodings of
    both systems."""
    found = set()
    for encoding in ("utf-8", "utf-16-le"):
        code = text.encode(encoding)
        found |= {code[i : i + 8] for i in range(max(1, len(code) - 7)) if code[i : i + 8] in data}
    return found


def untimed(output):
    """Some or all bytes of a document, without its times."""
    return re.sub(rb'(Ms":)\d+', rb"\g<1>0", output)


def texts_of(value):
    """All texts in a JSON value but its keys."""
    if isinstance(value, str):
        return {value}
    if isinstance(value, dict):
        value = list(value.values())
    return set().union(*map(texts_of, value)) if isinstance(value, list) else set()


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

    def crash_and_receive(self, worker, database, crash):
        """Makes a worker crash, by a function that is given the DSN, and gives what
        its handler reports: the function's result, the minidump and the event. Under
        wine it is taken from the database, for wine's WinHTTP cannot post a body whose
        length is not known before."""
        with ReportServer() as server:
            run = crash(KVT_SENTRY_DSN=server.dsn)
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
            worker, database, functools.partial(
                worker.crash, number, KVT_SENTRY_DB=worker.native(database),
                KVT_SENTRY_RELEASE="worker@1.2.3", KVT_SENTRY_ENV="testing-ä"))
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
                                                    worker.crash)
        Minidump(minidump)
        require("release" not in unpack_messagepack(event), "the report has a release")

    def reports_tell_of_the_drawing_but_not_its_name_or_contents(self):
        """They end in the middle of the document's output, which shows, too, that a
        crash leaves a document that no host takes for a whole one."""
        for source, release, form in DRAWINGS:
            worker = self.worker()
            # Wine passes over the program's UTF-8 code page: no folder beyond ASCII there.
            folder = worker.folder.parent if self.wine else worker.folder
            drawing = folder / (SECRET_NAME + pathlib.Path(source).suffix)
            shutil.copyfile(REPOSITORY / "tests" / "drawings" / source, drawing)
            whole = worker.run(worker.native(drawing), "--complete")
            database = worker.folder / "crashpad-db"
            (run, numbers), minidump, event = self.crash_and_receive(
                worker, database, functools.partial(
                    worker.crash_in_its_output, worker.native(drawing), "--complete",
                    OF_NO_CONCERN=SECRET_VALUE))
            require(self.wine or run.status == -signal.SIGSEGV, f"the worker ended with {run.status}")
            written, expected = untimed(run.output), untimed(whole.output)
            require(written and expected.startswith(written) and b"\n" not in written,
                    f"{len(written)} of {len(expected)} bytes were written: {written[-200:]!r}")
            tags = unpack_messagepack(event)["tags"]
            require(tags == {"component": "dwg_import_worker",
                             "libredwg.version": "0.14 (libredwg-sys 0.16.0)",
                             "libredwg.patches": patch_level(), "drawing.format": form,
                             "drawing.release": release}, f"the tags are {tags}")
            if numbers is not None:
                arguments, thread = numbers
                address, stack = Minidump(minidump).stacks()[thread]
                require(address <= arguments < address + len(stack),
                        "the stack is not there to its bottom, where the name lies")
            if platform.machine() == "x86_64":
                require(not any(map(any, Minidump(minidump).vector_registers())),
                        "the report holds vector registers")
            self.check_for_traces(worker, [minidump, event], whole.output)

    def check_for_traces(self, worker, report, document):
        program = worker.program.read_bytes()
        contents = {text for text in texts_of(json.loads(document))
                    if len(text) >= 8 and text.encode() not in program}
        require(contents, "the drawing has no text to look for")
        kept = [p.read_bytes() for p in (worker.folder / "crashpad-db").rglob("*") if p.is_file()]
        for data in report + kept:
            for text in (SECRET_NAME, SECRET_VALUE):
                found = traces(data, text)
                require(not found, f"a report holds {sorted(found)}")
            found = {text for text in contents for encoding in ("utf-8", "utf-16-le")
                     if text.encode(encoding) in data}
            require(not found, f"a report holds the texts {sorted(found)[:5]}")

    def report_of_standard_input_tells_no_release(self):
        worker = self.worker()
        _, _, event = self.crash_and_receive(worker, worker.folder / "crashpad-db", worker.crash)
        tags = unpack_messagepack(event)["tags"]
        require(tags.get("drawing.format") == "DWG" and "drawing.release" not in tags,
                f"the tags are {tags}")

    def all_kinds_of_crashes_are_reported(self):
        if self.wine:
            return "the program that crashes so is none of Windows"
        for kind, number in CRASHES.items():
            for sandbox in ((), ("sandbox",)):
                worker = self.worker()
                worker.be("crash_program")
                run, minidump, event = self.crash_and_receive(
                    worker, worker.folder / "crashpad-db",
                    functools.partial(worker.run, kind, *sandbox))
                what = f"{kind} {sandbox}"
                require(run.status == -number, f"{what}: it ended with {run.status}")
                minidump = Minidump(minidump)
                require(minidump.exception_code() == number,
                        f"{what}: the minidump tells of signal {minidump.exception_code()}")
                stacks = minidump.stacks()
                require(minidump.exception_thread() in stacks, f"{what}: the thread is not there")
                require(len(stacks) == (2 if kind == "thread" else 1),
                        f"{what}: {len(stacks)} threads")
                # The C library tells of its broken list itself.
                require(run.output == b"" and (kind == "malloc" or run.errors == b""),
                        f"{what}: {run.output!r} {run.errors!r}")
                require(unpack_messagepack(event)["tags"]["component"] == "crash_program",
                        f"{what}: it is another event")
        return None

    def reports_come_without_the_call_that_reads_memory(self):
        """As with kernels and containers that forbid process_vm_readv."""
        if self.wine:
            return "it is a call of Linux"
        worker = self.worker()
        worker.launcher = [worker.test_program("without_calls"), "process_vm_readv"]
        run, minidump, _ = self.crash_and_receive(worker, worker.folder / "crashpad-db", worker.crash)
        require(run.status == -signal.SIGSEGV, f"the worker ended with {run.status}")
        minidump = Minidump(minidump)
        require(any("dwg_import_worker" in name for name in minidump.modules()),
                f"the worker is not among the modules {minidump.modules()}")
        _, stack = minidump.stacks()[minidump.exception_thread()]
        require(any(stack), "the stack is empty")
        return None

    def crash_without_a_report_ends_as_ever(self):
        """Where the handler may not look into the worker, or is not there any more."""
        if self.wine:
            return "its parts are of Linux"
        worker = self.worker()
        worker.launcher = [worker.test_program("without_calls"), "ptrace"]
        with ReportServer() as server:
            run = worker.crash(KVT_SENTRY_DSN=server.dsn)
            require((run.status, run.output) == (-signal.SIGSEGV, b""), f"status {run.status}")
            require(wait_for(lambda: not worker.handlers()), "the handler stayed")
            require(not server.uploads, "a handler that may not look sent something")
        worker = self.worker()
        with worker.in_a_run(KVT_SENTRY_DSN=refusing_dsn()) as process:
            worker.end_handlers()
            require(wait_for(lambda: not worker.handlers()), "the handler stayed")
            run = worker.end(process, signal.SIGSEGV)
        require((run.status, run.output) == (-signal.SIGSEGV, b""), f"status {run.status}")
        return None

    def run_goes_on_without_its_handler(self):
        if self.wine:
            return "below wine the handler cannot be ended alone"
        worker = self.worker()
        plain = worker.convert()
        with worker.in_a_run("-", KVT_SENTRY_DSN=refusing_dsn()) as process:
            worker.end_handlers()
            require(wait_for(lambda: not worker.handlers()), "the handler stayed")
            output, _ = process.communicate(DRAWING.read_bytes(), timeout=HANG_SECONDS)
        require(process.returncode == 0 and TIMINGS.sub(b'"timings":0}\n', output) == plain.output,
                f"status {process.returncode}, output {output[:80]!r}")
        return None

    def full_disk_costs_only_the_report(self):
        if self.wine:
            return "the limit that plays it is one of Linux"

        def fill_disk():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (NEARLY_FULL_BYTES, NEARLY_FULL_BYTES))

        worker = self.worker()
        database = worker.folder / "crashpad-db"
        with ReportServer() as server:
            run = worker.crash(KVT_SENTRY_DSN=server.dsn, prepare=fill_disk)
            require(run.status == -signal.SIGSEGV, f"the worker ended with {run.status}")
            require(wait_for(lambda: not worker.handlers()), "the handler stayed")
            require(not server.uploads, "something was sent")
        require(database.is_dir(), "reporting was not active at all")
        # With room again a report is made in the same database.
        _, minidump, _ = self.crash_and_receive(worker, database, worker.crash)
        Minidump(minidump)
        return None

    def two_workers_share_a_database(self):
        if self.wine:
            return "the program that crashes a worker finds the first one only"
        one, other = self.worker(), self.worker()
        database = one.native(self.scratch / f"geteilt {self.count}")
        with ReportServer() as server:
            settings = {"KVT_SENTRY_DSN": server.dsn, "KVT_SENTRY_DB": database}
            with one.in_a_run(KVT_SENTRY_RELEASE="one", **settings) as first, \
                    other.in_a_run(KVT_SENTRY_RELEASE="other", **settings) as second:
                first.send_signal(signal.SIGSEGV)
                second.send_signal(signal.SIGSEGV)
                require((first.wait(HANG_SECONDS), second.wait(HANG_SECONDS)) ==
                        (-signal.SIGSEGV, -signal.SIGSEGV), "they ended otherwise")
                errors = first.stderr.read() + second.stderr.read()
                require(only_progress_lines(errors), f"more than progress lines: {errors!r}")
            require(server.wait(2, HANG_SECONDS), f"{len(server.uploads)} reports arrived")
            require(wait_for(lambda: not one.handlers() + other.handlers()), "a handler stayed")
            parts = [multipart_parts(headers, body) for _, headers, body in server.uploads]
        releases = sorted(unpack_messagepack(p["__sentry-event"][1])["release"] for p in parts)
        require(releases == ["one", "other"], f"reports of {releases} arrived")
        dumps = {p["upload_file_minidump"][1] for p in parts}
        require(len(dumps) == 2 and all(map(Minidump, dumps)), "it is one minidump twice")
        kept = {p.read_bytes() for p in pathlib.Path(database).rglob("*.dmp")}
        require(kept == dumps, f"the database keeps {len(kept)} minidumps")
        return None

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
                           "KVT_SENTRY_DB": worker.native(blocker / "db")},
                          # where not even the first user may write
                          {"KVT_SENTRY_DSN": refusing_dsn(),
                           "KVT_SENTRY_DB": worker.native(pathlib.Path("/proc/no-folder/db"))}):
            run = worker.convert(**variables)
            require((run.status, run.output) == (0, plain.output),
                    f"{variables}: status {run.status}, errors {run.errors!r}")
            require(only_progress_lines(run.errors), f"more than progress lines: {run.errors!r}")

    def locked_report_leaves_the_run_silent(self):
        """As when another worker's handler is sending a report of the same database."""
        if self.wine:
            return "the database of Windows has one file of metadata and no lock beside a report"
        worker = self.worker()
        worker.crash(KVT_SENTRY_DSN=refusing_dsn())
        require(wait_for(lambda: not worker.handlers()), "the handler stayed")
        metadata = list((worker.folder / "crashpad-db").rglob("*.meta"))
        require(metadata, "the database keeps no report")
        for file in metadata:
            file.with_suffix(".lock").write_bytes(b"")
        run = worker.convert(KVT_SENTRY_DSN=refusing_dsn())
        require(run.status == 0 and only_progress_lines(run.errors),
                f"status {run.status}, errors {run.errors!r}")
        return None

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
            self.reports_tell_of_the_drawing_but_not_its_name_or_contents,
            self.report_of_standard_input_tells_no_release,
            self.all_kinds_of_crashes_are_reported,
            self.reports_come_without_the_call_that_reads_memory,
            self.crash_without_a_report_ends_as_ever,
            self.run_goes_on_without_its_handler,
            self.full_disk_costs_only_the_report,
            self.two_workers_share_a_database,
            self.default_database_lies_beside_the_worker,
            self.handler_runs_only_with_a_dsn_and_ends_with_the_run,
            self.document_is_the_same_with_and_without_reporting,
            self.error_paths_are_the_same_with_reporting,
            self.missing_handler_leaves_the_run_working,
            self.unusable_settings_leave_the_run_working,
            self.locked_report_leaves_the_run_silent,
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
