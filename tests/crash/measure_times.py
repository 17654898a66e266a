#!/usr/bin/env python3
"""Measures what crash reporting costs: the same worker, with and without a DSN in
turn, converts a small drawing, and is ended by a signal in the middle of a run, which
with a DSN lasts until the handler has looked into it. Prints minimum and median of
each in milliseconds. No server is there; nothing is sent.

    measure_times.py WORKER [RUNS]
"""

import os
import pathlib
import signal
import statistics
import subprocess
import sys
import tempfile
import time

DRAWING = pathlib.Path(__file__).resolve().parent.parent.parent / "examples" / "plan.dwg"


def conversion(worker, environment):
    began = time.perf_counter()
    subprocess.run([worker, DRAWING], env=environment, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return time.perf_counter() - began


def crash(worker, environment):
    """From the signal to the end of the process, which reads from its standard input."""
    with subprocess.Popen([worker, "-"], env=environment, stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE) as process:
        while b"Reading DWG file" not in process.stderr.readline():
            pass
        time.sleep(0.05)  # into the read itself
        began = time.perf_counter()
        process.send_signal(signal.SIGSEGV)
        process.wait()
        return time.perf_counter() - began


def main():
    worker = pathlib.Path(sys.argv[1]).resolve()
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 50
    times = {}
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as database:
        reporting = {"KVT_SENTRY_DSN": "http://key@127.0.0.1:9/1", "KVT_SENTRY_DB": database}
        for measure in (conversion, crash):
            for _ in range(runs):
                for name, variables in (("without", {}), ("with", reporting)):
                    seconds = measure(worker, os.environ | variables)
                    times.setdefault((measure.__name__, name), []).append(seconds * 1000)
        time.sleep(1)  # the last handler ends
    for (measure, name), values in times.items():
        print(f"{measure:10} {name:8} minimum {min(values):6.1f} ms  "
              f"median {statistics.median(values):6.1f} ms")


if __name__ == "__main__":
    main()
