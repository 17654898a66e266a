"""Converts CAD drawings, DWG and DXF, with the program that this package holds.

    import dwg_import_worker
    result = dwg_import_worker.convert("plan.dwg", seconds=60, megabytes=2048)
    if result.kind == "document":
        print(len(result.document["entities"]))

The program runs as a process of its own, under limits. What a drawing does never raises:
`kind` says how the run ended, `message` why.
"""

import os
import pathlib

from . import _host

__all__ = ["Result", "convert", "program"]
__version__ = "@VERSION@"

Result = _host.Result


def program():
    """The path of the program, which needs the file beside it for crash reports only."""
    name = "dwg_import_worker.exe" if os.name == "nt" else "dwg_import_worker"
    return pathlib.Path(__file__).with_name("programs") / name


def convert(path, seconds=60, megabytes=2048, on_progress=lambda line: None, complete=False):
    """Converts one drawing and gives a Result: its `kind` is document, refused, crashed,
    timeout or bad; `document` is the parsed document of the first kind, in its complete form
    when asked for. The limit of memory holds on POSIX systems."""
    return _host.convert(os.fspath(program()), os.path.abspath(path), seconds, megabytes, on_progress,
                         ["--complete"] if complete else [])
