#!/usr/bin/env python3
"""Packs a Python wheel around the worker.

    make_wheel.py --version V --tag PLATFORM --epoch SECONDS --programs FOLDER
                  --extras FOLDER WHEEL

--programs holds the worker and its handler, --extras the licences and the bill of
materials. The same input gives the same bytes.
"""

import argparse
import base64
import hashlib
import pathlib
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
NAME = "dwg_import_worker"


def metadata(version):
    return f"""Metadata-Version: 2.1
Name: dwg-import-worker
Version: {version}
Summary: Converts CAD drawings, DWG and DXF, to JSON in a process of its own
License: GPL-3.0-or-later
Requires-Python: >=3.10
Provides-Extra: models
Requires-Dist: pydantic>=2; extra == "models"
Description-Content-Type: text/markdown

{(ROOT / "packaging/python/README.md").read_text(encoding="utf-8")}"""


def contents(options):
    """The files of the wheel by their names, with whether they are programs."""
    info = f"{NAME}-{options.version}.dist-info"
    init = (ROOT / "packaging/python/__init__.py").read_text(encoding="utf-8")
    yield f"{NAME}/__init__.py", init.replace("@VERSION@", options.version).encode(), False
    yield f"{NAME}/models.py", (ROOT / "models/python/dwg_document.py").read_bytes(), False
    yield (f"{NAME}/models_complete.py",
           (ROOT / "models/python/dwg_document_complete.py").read_bytes(), False)
    yield f"{NAME}/_host.py", (ROOT / "hosts/small/host.py").read_bytes(), False
    for path in sorted(options.programs.iterdir()):
        yield f"{NAME}/programs/{path.name}", path.read_bytes(), True
    yield f"{info}/METADATA", metadata(options.version).encode(), False
    yield f"{info}/WHEEL", (f"Wheel-Version: 1.0\nGenerator: {pathlib.Path(__file__).name}\n"
                            f"Root-Is-Purelib: false\nTag: py3-none-{options.tag}\n").encode(), False
    for path in sorted(p for p in options.extras.rglob("*") if p.is_file()):
        yield f"{info}/{path.relative_to(options.extras).as_posix()}", path.read_bytes(), False


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--version", required=True)
    parser.add_argument("--tag", required=True)
    parser.add_argument("--epoch", required=True, type=int)
    parser.add_argument("--programs", required=True, type=pathlib.Path)
    parser.add_argument("--extras", required=True, type=pathlib.Path)
    parser.add_argument("wheel", type=pathlib.Path)
    options = parser.parse_args()
    record = []
    with zipfile.ZipFile(options.wheel, "w") as archive:
        def add(name, data, is_program):
            entry = zipfile.ZipInfo(name, time.gmtime(options.epoch)[:6])
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 3
            entry.external_attr = (0o100755 if is_program else 0o100644) << 16
            archive.writestr(entry, data, compresslevel=9)

        for name, data, is_program in contents(options):
            add(name, data, is_program)
            digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
            record.append(f"{name},sha256={digest},{len(data)}")
        name = f"{NAME}-{options.version}.dist-info/RECORD"
        add(name, "\n".join([*record, f"{name},,", ""]).encode(), False)


if __name__ == "__main__":
    main()
