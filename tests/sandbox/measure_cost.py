#!/usr/bin/env python3
"""Measures what the sandbox adds to a run: the same worker converts the same drawing
with and without it, in turn. Prints minimum and median of each in milliseconds, by the
clock and of processor time.

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
        process = subprocess.Popen([worker, drawing], env=os.environ | {"KVT_DWG_SANDBOX": mode},
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != 0:
            sys.exit(f"the worker ended with {process.returncode}")
        found.append(((time.perf_counter() - began) * 1000,
                      (usage.ru_utime + usage.ru_stime) * 1000))
for name, mode in (("without", "0"), ("with", "1")):
    for kind, values in zip(("clock", "processor"), zip(*times[mode])):
        print(f"{name:8}{kind:10} minimum {min(values):7.3f} ms  median "
              f"{statistics.median(values):7.3f} ms")
