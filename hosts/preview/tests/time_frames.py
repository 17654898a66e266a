#!/usr/bin/env python3
"""Times how fast dwg_preview paints a large drawing.

    time_frames.py --preview PATH [--records 100000]

A stand-in for the worker hands over a document of lines, circles, arcs,
polylines and texts at random places; 50 frames zoom into it and pan over it.
"""

import argparse
import json
import os
import pathlib
import random
import subprocess
import tempfile


def record(index, chance):
    x, y = chance.uniform(0, 10000), chance.uniform(0, 10000)
    common = {"layer": "0", "color": "L", "lw": "L"}
    kind = index % 10
    if kind < 6:
        return {"type": "LINE", **common, "startX": x, "startY": y,
                "endX": x + chance.uniform(-50, 50), "endY": y + chance.uniform(-50, 50)}
    if kind == 6:
        return {"type": "CIRCLE", **common, "cx": x, "cy": y, "radius": chance.uniform(1, 20)}
    if kind == 7:
        return {"type": "ARC", **common, "cx": x, "cy": y, "radius": chance.uniform(1, 50),
                "startAngleRad": 0.3, "endAngleRad": 3}
    if kind == 8:
        points = [[x + chance.uniform(-40, 40), y + chance.uniform(-40, 40)] for _ in range(6)]
        return {"type": "LWPOLYLINE", **common, "closed": True, "points": points,
                "bulges": [0.0] * 6}
    return {"type": "TEXT", **common, "x": x, "y": y, "height": 10, "rotationRad": 0,
            "html": f"<p>Text {index}</p>"}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--preview", required=True)
    parser.add_argument("--records", type=int, default=100000)
    options = parser.parse_args()
    chance = random.Random(1)
    document = {"dwgVersion": "2018", "insunits": 4, "assets": [], "layouts": [], "warnings": [],
                "layers": [{"name": "0", "visible": True, "color": {"r": 0, "g": 0, "b": 0}}],
                "entities": [record(i, chance) for i in range(options.records)]}
    with tempfile.TemporaryDirectory() as folder:
        answer = pathlib.Path(folder, "document.json")
        answer.write_text(json.dumps(document) + "\n")
        worker = pathlib.Path(folder, "worker")
        worker.write_text(f'#!/bin/sh\nexec cat "{answer}"\n')
        worker.chmod(0o755)
        subprocess.run([options.preview, "--worker", worker, "large.dwg", "--frames", "50"],
                       check=True, stderr=subprocess.DEVNULL,
                       env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})


if __name__ == "__main__":
    main()
