#!/usr/bin/env python3
"""Converts a folder tree of drawings in parallel, and can be stopped at any moment.

    archive.py SOURCE TARGET --worker FILE [--jobs N] [--seconds S]
               [--megabytes M] [--scheduler ADDRESS] [--retry]

Every .dwg and .dxf below SOURCE becomes a compressed document at the same place
below TARGET, and a line of TARGET/manifest.jsonl. A second run does what is
missing or has changed. Exit status: 0 when every drawing was converted or
refused, 1 when one crashed, went over a limit or could not be read, 2 when the
run itself could not go on.
"""

import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import sys
import threading
import time

sys.path[:0] = [str(pathlib.Path(__file__).resolve().parent),
                str(pathlib.Path(__file__).resolve().parents[1] / "small")]
import host  # noqa: E402
import one_drawing  # noqa: E402

MANIFEST = "manifest.jsonl"
GOOD = ("converted", "refused")
# The fault of the machine and not of the drawing: worth a try on every run.
PASSING = ("unreadable", "unwritten")
POOLS_AT_MOST = 5
ROWS_AT_MOST = 50
NAMES_AT_MOST = 4


class CannotGoOn(Exception):
    """What ends a run before all drawings were tried."""


# The tree


def is_drawing(name):
    return os.path.splitext(name)[1].lower() in (".dwg", ".dxf")


def find_drawings(source, troubles):
    """The paths of all drawings, relative, with "/", in order."""
    found = []
    for folder, _, names in os.walk(source, onerror=lambda error: troubles.append(str(error))):
        for name in filter(is_drawing, names):
            file = os.path.join(folder, name)
            # A pipe of that name would never end; a broken link is reported later.
            if os.path.isfile(file) or not os.path.exists(file):
                found.append(os.path.relpath(file, source).replace(os.sep, "/"))
    return sorted(found)


def remove_parts(target):
    """Removes what a stopped run left half written."""
    for folder, _, names in os.walk(target):
        for name in names:
            if name.startswith(one_drawing.PART_PREFIX) and name.endswith(one_drawing.PART_SUFFIX):
                one_drawing.remove(os.path.join(folder, name))


# The manifest


class Manifest:
    """One line for each drawing, on disk as soon as it is known.

    Lines are appended; opening puts the file in order again, since the run
    before may have been stopped in the middle of one."""

    def __init__(self, target):
        self.file = os.path.join(target, MANIFEST)
        self.lines = {}
        self.stream = None
        self.load()

    def load(self):
        try:
            with open(self.file, "rb") as stream:
                for text in stream:
                    self.take(text)
        except FileNotFoundError:
            pass

    def take(self, text):
        try:
            line = json.loads(text)
            self.lines[line["path"]] = line
        except (ValueError, KeyError, TypeError):
            pass  # cut off; its drawing is converted again

    def rewrite(self):
        """Replaces the file by the lines known now, in order of their paths."""
        if self.stream:
            self.stream.close()
        with open(self.file + ".new", "w", encoding="ascii") as stream:
            for path in sorted(self.lines):
                stream.write(json.dumps(self.lines[path]) + "\n")
            stream.flush()
            os.fsync(stream.fileno())
        os.replace(self.file + ".new", self.file)
        self.stream = open(self.file, "a", encoding="ascii")

    def add(self, line):
        self.lines[line["path"]] = line
        self.stream.write(json.dumps(line) + "\n")
        self.stream.flush()

    def close(self):
        self.rewrite()
        self.stream.close()


def same_drawing(line, drawing):
    """Whether the file is the one of the line; a new time alone is noted there."""
    try:
        state = os.stat(drawing)
        if state.st_size != line["size"]:
            return False
        if state.st_mtime_ns != line["mtimeNs"]:
            if one_drawing.sha256_of(drawing) != line["sha256"]:
                return False
            line["mtimeNs"] = state.st_mtime_ns
        return True
    except OSError:
        return False


def is_done(line, settings, retry):
    """Whether a drawing with this line of the manifest can be left out."""
    if line is None or line["status"] in PASSING or (retry and line["status"] not in GOOD):
        return False
    if not same_drawing(line, os.path.join(settings.source, line["path"])):
        return False
    if line["status"] != "converted":
        return True
    document = os.path.join(settings.target, one_drawing.document_name(line["path"]))
    return os.path.isfile(document) and os.path.getsize(document) == line["documentSize"]


# The engines: each takes paths and yields lines of the manifest in any order


def lost(path, error):
    """The line of a drawing that took the converting process with it."""
    return {"path": path, "size": None, "mtimeNs": None, "sha256": None, "status": "crashed",
            "error": f"the process that converted it ended: {error}", "seconds": 0.0,
            "entities": None, "warnings": None, "documentSize": None}


def end_with(parent):
    """Ends this process when `parent` is gone, which a pool does not notice."""

    def watch():
        while os.getppid() == parent:
            time.sleep(0.5)
        os._exit(1)

    threading.Thread(target=watch, daemon=True).start()


def begin_process(parent):
    import signal
    signal.signal(signal.SIGINT, signal.SIG_IGN)  # the parent tells them to stop
    if os.name == "posix":
        end_with(parent)


def run_pool(settings, paths, jobs):
    """One pool of processes; ends early, with some paths left, when one dies."""
    waiting, running = collections.deque(paths), {}
    pool = concurrent.futures.ProcessPoolExecutor(jobs, initializer=begin_process,
                                                  initargs=(os.getpid(),))
    try:
        while waiting or running:
            # No more than keeps all busy: an archive may hold millions.
            while waiting and len(running) < 4 * jobs:
                path = waiting.popleft()
                running[pool.submit(one_drawing.convert_one, settings, path)] = path
            done, _ = concurrent.futures.wait(
                running, return_when=concurrent.futures.FIRST_COMPLETED)
            for future in done:
                del running[future]
                yield future.result()
    finally:
        pool.shutdown(cancel_futures=True)


def run_here(settings, paths, jobs):
    """All cores of this machine; a pool that lost a process is replaced."""
    left = dict.fromkeys(paths)
    for attempt in range(POOLS_AT_MOST):
        try:
            for line in run_pool(settings, list(left), jobs):
                del left[line["path"]]
                yield line
            return
        except concurrent.futures.BrokenExecutor as error:
            print(f"\na converting process ended ({error}); going on with others",
                  file=sys.stderr)
    raise CannotGoOn("converting processes end again and again; is there memory enough?")


def connect(address):
    """A client of the Dask scheduler there, and its package."""
    try:
        import distributed
    except ImportError as error:
        raise CannotGoOn(f"--scheduler needs the Python package distributed: {error}") from error
    try:
        return distributed, distributed.Client(address)
    except (OSError, ValueError) as error:
        raise CannotGoOn(f"no scheduler at {address}: {error}") from error


def cluster_result(future, path):
    """The line that came back, or one that says why none did."""
    if future.status in ("cancelled", "lost"):
        raise CannotGoOn("the scheduler went away")
    error = future.exception()
    return lost(path, error) if error else future.result()


def run_on_cluster(settings, paths, address):
    """The machines of a Dask scheduler; it gives what a lost one had to others."""
    distributed, client = connect(address)
    with client:
        for module in (host, one_drawing):  # reaches machines that join later, too
            client.upload_file(module.__file__)
        waiting, running, done = collections.deque(paths), {}, distributed.as_completed()

        def fill():
            threads = sum(client.nthreads().values())  # machines come and go
            while waiting and len(running) < 4 * max(threads, 1):
                path = waiting.popleft()
                future = client.submit(one_drawing.convert_one, settings, path, pure=False)
                running[future.key] = path
                done.add(future)

        fill()
        for future in done:
            path = running.pop(future.key)
            fill()
            yield cluster_result(future, path)


# What people see


def shown(text):
    """On one line, whatever a file is called."""
    return "".join(c if c.isprintable() else "?" for c in text)


class Progress:
    """A bar on standard error: redrawn on a terminal, a line now and then in a log."""

    def __init__(self, total, stream=sys.stderr):
        self.total, self.stream = total, stream
        self.done = self.failed = 0
        self.begin = time.monotonic()
        self.last = None
        self.terminal = stream.isatty()

    def step(self, line):
        self.done += 1
        self.failed += line["status"] not in GOOD
        now = time.monotonic()
        pause = 0.1 if self.terminal else 10
        if self.last is None or now - self.last >= pause or self.done == self.total:
            self.last = now
            self.draw(now - self.begin)

    def draw(self, seconds):
        share = self.done / self.total
        bar = "#" * int(30 * share)
        left = int(seconds / share - seconds)
        text = (f"[{bar:.<30}] {self.done}/{self.total}, {self.failed} failed, "
                f"{self.done / max(seconds, 0.001):.1f}/s, {left // 60}:{left % 60:02} left")
        end = "\n" if not self.terminal or self.done == self.total else ""
        self.stream.write((f"\r{text}\x1b[K" if self.terminal else text) + end)
        self.stream.flush()


def reason(line):
    """Why there is no document, without the path, so that equal reasons are equal."""
    error = line["error"]
    return error.rpartition(": ")[2] if error.startswith("Failed to read ") else error


def summarize(lines, skipped):
    """The table at the end: how many of each kind, then what failed and why."""
    counts = collections.Counter(line["status"] for line in lines)
    print(f"{len(lines)} drawings, {skipped} of them done before: "
          + (", ".join(f"{n} {status}" for status, n in sorted(counts.items())) or "nothing to do"))
    groups = collections.defaultdict(list)
    for line in lines:
        if line["status"] != "converted":
            groups[line["status"] in GOOD, line["status"], reason(line)].append(line["path"])
    if groups:
        print(f"\n{'number':>7}  {'status':<12} reason: drawings")
    for (_, status, why), paths in sorted(groups.items())[:ROWS_AT_MOST]:
        more = f" and {len(paths) - NAMES_AT_MOST} more" if len(paths) > NAMES_AT_MOST else ""
        print(f"{len(paths):>7}  {status:<12} {shown(why)}: "
              + ", ".join(map(shown, paths[:NAMES_AT_MOST])) + more)
    if len(groups) > ROWS_AT_MOST:
        print(f"... and {len(groups) - ROWS_AT_MOST} more reasons, in {MANIFEST}")


# The run


def convert_tree(settings, jobs, scheduler, retry):
    """Brings TARGET up to date with SOURCE; gives the exit status."""
    troubles = []
    paths = find_drawings(settings.source, troubles)
    os.makedirs(settings.target, exist_ok=True)
    remove_parts(settings.target)
    manifest = Manifest(settings.target)
    wanted = [path for path in paths if not is_done(manifest.lines.get(path), settings, retry)]
    for path in wanted:  # a line never describes another state than its document's
        manifest.lines.pop(path, None)
    manifest.rewrite()
    engine = (run_on_cluster(settings, wanted, scheduler) if scheduler
              else run_here(settings, wanted, jobs))
    progress = Progress(len(wanted))
    try:
        for line in engine if wanted else ():
            manifest.add(line)
            progress.step(line)
    finally:
        engine.close()
        manifest.close()
    lines = [manifest.lines[path] for path in paths]
    summarize(lines, len(paths) - len(wanted))
    for trouble in troubles:
        print(f"not searched: {shown(trouble)}")
    return int(bool(troubles) or any(line["status"] not in GOOD for line in lines))


def at_least_one(text):
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError("must be 1 or more")
    return number


def usable_cores():
    """Those that this process may use, which can be fewer than there are."""
    return len(os.sched_getaffinity(0)) if hasattr(os, "sched_getaffinity") else os.cpu_count() or 1


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("source", help="folder to search for drawings")
    parser.add_argument("target", help="folder for documents and manifest")
    parser.add_argument("--worker", required=True, help="the dwg_import_worker to run")
    parser.add_argument("--jobs", type=at_least_one, default=usable_cores(),
                        help="drawings at a time on this machine (all cores)")
    parser.add_argument("--seconds", type=at_least_one, default=60, help="time limit (60)")
    parser.add_argument("--megabytes", type=at_least_one, default=2048,
                        help="memory limit (2048)")
    parser.add_argument("--scheduler", help="address of a Dask scheduler, as tcp://host:8786")
    parser.add_argument("--retry", action="store_true",
                        help="try again what crashed or went over a limit")
    options = parser.parse_args()
    if not os.path.isdir(options.source):
        parser.error(f"{options.source} is no folder")
    if not os.access(options.worker, os.X_OK) or os.path.isdir(options.worker):
        parser.error(f"{options.worker} is no program")
    return options


def main():
    options = arguments()
    sys.stdout.reconfigure(errors="backslashreplace")
    settings = one_drawing.Settings(
        os.path.abspath(options.source), os.path.abspath(options.target),
        os.path.abspath(options.worker), options.seconds, options.megabytes)
    try:
        return convert_tree(settings, options.jobs, options.scheduler, options.retry)
    except (CannotGoOn, OSError) as error:
        print(f"\nstopped: {error}; run it again to go on", file=sys.stderr)
        return 2
    except KeyboardInterrupt:
        print("\ninterrupted; run it again to go on", file=sys.stderr)
        return 130


if __name__ == "__main__":
    sys.exit(main())
