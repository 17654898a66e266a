#!/usr/bin/env python3
"""A small host: converts one drawing under limits and explains how it went.

    host.py WORKER DRAWING [--seconds 60] [--megabytes 2048]

Prints the document's numbers on standard output and progress on standard
error. `convert` is the part to copy.
"""

import argparse
import dataclasses
import json
import os
import signal
import subprocess
import sys
import threading

MAX_DOCUMENT_BYTES = 1 << 30


@dataclasses.dataclass
class Result:
    """How a run ended: `kind` is document, refused, crashed, timeout or bad.

    A document comes parsed, and as the bytes that the worker wrote."""

    kind: str
    message: str
    document: dict | None = None
    output: bytes | None = None


def limits(megabytes, seconds):
    """What the child sets for itself before it starts; POSIX only."""
    if os.name != "posix":
        return None  # on Windows, assign the process to a Job Object instead
    import resource  # here and not in the child, which must not wait for a lock

    def apply():
        resource.setrlimit(resource.RLIMIT_AS, (megabytes << 20, megabytes << 20))
        resource.setrlimit(resource.RLIMIT_CPU, (seconds + 5, seconds + 5))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    return apply


def explain(returncode, output):
    """The result of a run that ended by itself."""
    if returncode < 0:
        return Result("crashed", f"the worker was ended by {signal.Signals(-returncode).name}")
    if returncode not in (0, 1):
        return Result("crashed", f"the worker ended with the code {returncode:#x}")
    if not output.endswith(b"\n"):
        return Result("bad", "the worker's answer is cut off")
    try:
        answer = json.loads(output.decode("utf-8", "replace"))
    except ValueError as error:
        return Result("bad", f"the worker's answer is no JSON: {error}")
    if returncode == 1:
        return Result("refused", answer.get("error", "no reason given"))
    if "entities" not in answer:
        return Result("bad", "the worker's answer is no document")
    return Result("document", "converted", answer, output)


def convert(worker, drawing, seconds=60, megabytes=2048, on_progress=lambda line: None,
            options=()):
    """Runs the worker on one drawing; never raises for what a drawing does. The options
    are the worker's."""
    try:
        process = subprocess.Popen(
            [worker, drawing, *options], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, start_new_session=True,
            preexec_fn=limits(megabytes, seconds))
    except OSError as error:
        return Result("bad", f"the worker cannot be started: {error}")
    timed_out = threading.Event()

    def stop():
        timed_out.set()
        process.kill()

    def drain():
        with process.stderr as lines:
            for line in lines:
                on_progress(line.decode("utf-8", "replace").rstrip())

    deadline = threading.Timer(seconds, stop)
    deadline.start()
    drainer = threading.Thread(target=drain, daemon=True)
    drainer.start()
    output = process.stdout.read(MAX_DOCUMENT_BYTES)
    if len(output) == MAX_DOCUMENT_BYTES:
        process.kill()
    returncode = process.wait()
    deadline.cancel()
    drainer.join(timeout=5)
    process.stdout.close()
    if timed_out.is_set():
        return Result("timeout", f"the drawing took longer than {seconds} seconds")
    return explain(returncode, output)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("worker")
    parser.add_argument("drawing")
    parser.add_argument("--seconds", type=int, default=60)
    parser.add_argument("--megabytes", type=int, default=2048)
    options = parser.parse_args()

    result = convert(options.worker, options.drawing, options.seconds, options.megabytes,
                     lambda line: print(line, file=sys.stderr))
    if result.kind != "document":
        print(f"{result.kind}: {result.message}")
        return 1
    document = result.document
    print(f"release {document['dwgVersion']}, {len(document['layers'])} layers, "
          f"{len(document['assets'])} assets, {len(document['entities'])} entities, "
          f"{len(document['layouts'])} layouts")
    for warning in document["warnings"]:
        print(f"warning: {warning}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
