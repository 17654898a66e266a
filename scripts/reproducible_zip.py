#!/usr/bin/env python3
"""Packs a folder's contents into a zip whose bytes depend on nothing else:
sorted names, one time for all, no owners.

    reproducible_zip.py FOLDER ZIP SECONDS_SINCE_1970
"""

import pathlib
import sys
import time
import zipfile

folder, target, seconds = pathlib.Path(sys.argv[1]), sys.argv[2], int(sys.argv[3])
moment = time.gmtime(seconds)[:6]
with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
    for path in sorted(p for p in folder.rglob("*") if p.is_file()):
        entry = zipfile.ZipInfo(path.relative_to(folder).as_posix(), moment)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.create_system = 0
        archive.writestr(entry, path.read_bytes())
