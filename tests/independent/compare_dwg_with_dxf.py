#!/usr/bin/env python3
"""Compares the documents of drawings that were saved both as DWG and as DXF.

A pair is two files of one folder that differ in the extension only. Both
documents have to name the same layers in the same colours, with the same
visibility and lock. The two formats are read by different code from different
bytes, so that each checks the other. Pairs that differ for a known reason are
listed below. Exits with 77 without a folder of drawings.
"""

import argparse
import json
import os
import pathlib
import subprocess
import sys

SKIPPED = 77
REQUIRED = [f"libredwg/example_{release}" for release in (2000, 2004, 2007, 2010, 2013, 2018)]
KNOWN = {
    "libredwg/2018/Leader": "the DXF file itself has one layer more",
}


def convert(worker, path):
    run = subprocess.run([worker, str(path)], capture_output=True, check=False)
    if run.returncode != 0:
        return None
    return json.loads(run.stdout.decode("utf-8", "surrogateescape"))


def layers(document):
    return {layer["name"]: (layer["visible"], layer["locked"], tuple(layer["color"].values()))
            for layer in document["layers"]}


def differences_of(of_dwg, of_dxf):
    differences = []
    for name in sorted(set(of_dwg) | set(of_dxf)):
        dwg, dxf = of_dwg.get(name, "missing"), of_dxf.get(name, "missing")
        if dwg != dxf:
            differences.append(f"layer {name!r}: DWG {dwg}, DXF {dxf}")
    return differences


def pairs_in(folder):
    for dxf in sorted(folder.rglob("*.dxf")):
        for suffix in (".dwg", ".DWG"):
            if dxf.with_suffix(suffix).is_file():
                yield dxf.with_suffix("").relative_to(folder).as_posix(), dxf.with_suffix(suffix), dxf


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--worker", required=True)
    parser.add_argument("--drawings", type=pathlib.Path,
                        default=os.environ.get("DWG_CORPUS") or None)
    options = parser.parse_args()
    if options.drawings is None:
        print("no folder of drawings given (--drawings or DWG_CORPUS)")
        return SKIPPED

    passed = failed = 0
    agreed = set()
    for name, dwg, dxf in pairs_in(options.drawings):
        documents = [convert(options.worker, path) for path in (dwg, dxf)]
        if None in documents:
            continue
        found = differences_of(layers(documents[0]), layers(documents[1]))
        if bool(found) != (name in KNOWN):
            failed += 1
            print(f"FAILED {name}: {'; '.join(found) or 'agrees although listed as different'}")
            continue
        passed += 1
        if found:
            print(f"differs {name}: {'; '.join(found)} ({KNOWN[name]})")
        else:
            agreed.add(name)
    for name in REQUIRED:
        if (options.drawings / f"{name}.dwg").is_file() and name not in agreed:
            failed += 1
            print(f"FAILED {name}: this pair has to agree")
    print(f"{len(agreed)} pairs agree")
    print(f"{passed} passed, {failed} failed")
    return 1 if failed or not passed else 0


if __name__ == "__main__":
    sys.exit(main())
