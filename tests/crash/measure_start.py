#!/usr/bin/env python3
"""Measures what crash reporting adds to a run: the same worker converts the same
small drawing with and without a DSN, in turn. Prints minimum and median of each
in milliseconds. No server is there; nothing is sent.

    measure_start.py WORKER [RUNS]
"""

import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

worker = pathlib.Path(sys.argv[1]).resolve()
runs = int(sys.argv[2]) if len(sys.argv) > 2 else 50
drawing = pathlib.Path(__file__).resolve().parent.parent.parent / "examples" / "plan.dwg"
times = {"without": [], "with": []}
with tempfile.TemporaryDirectory() as database:
    reporting = {"KVT_SENTRY_DSN": "http://key@127.0.0.1:9/1", "KVT_SENTRY_DB": database}
    for _ in range(runs):
        for name, variables in (("without", {}), ("with", reporting)):
            began = time.perf_counter()
            subprocess.run([worker, drawing], env=os.environ | variables, check=True,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            times[name].append((time.perf_counter() - began) * 1000)
for name, values in times.items():
    print(f"{name:8} minimum {min(values):6.1f} ms  median {statistics.median(values):6.1f} ms")
