#!/usr/bin/env python3
"""Measures what the sandbox adds to a run: the same worker converts the same drawing
with and without it, in turn. Prints minimum and median of each in milliseconds.

    measure_cost.py WORKER [DRAWING] [RUNS]
"""

import os
import pathlib
import statistics
import subprocess
import sys
import time

worker = pathlib.Path(sys.argv[1]).resolve()
drawing = sys.argv[2] if len(sys.argv) > 2 else \
    pathlib.Path(__file__).resolve().parents[2] / "examples" / "plan.dwg"
runs = int(sys.argv[3]) if len(sys.argv) > 3 else 200
times = {"0": [], "1": []}
for _ in range(runs):
    for mode, found in times.items():
        began = time.perf_counter()
        subprocess.run([worker, drawing], env=os.environ | {"KVT_DWG_SANDBOX": mode}, check=True,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        found.append((time.perf_counter() - began) * 1000)
for name, mode in (("without", "0"), ("with", "1")):
    print(f"{name:8} minimum {min(times[mode]):7.3f} ms  median "
          f"{statistics.median(times[mode]):7.3f} ms")
