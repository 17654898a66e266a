"""One drawing of an archive: what a process of this or another machine does.

`convert_one` takes and returns plain data, so that it can be sent anywhere. It
may run twice for a drawing, also at the same time: a document appears under its
name only when it is complete.
"""

import collections
import dataclasses
import gzip
import hashlib
import os
import re
import time
import uuid

import host

PART_PREFIX, PART_SUFFIX = ".archive-", ".part"
KINDS = {"document": "converted", "timeout": "over time"}
NO_MEMORY = re.compile(r"OUTOFMEM|bad_alloc|out of memory|cannot allocate memory|MemoryError",
                       re.IGNORECASE)


@dataclasses.dataclass(frozen=True)
class Settings:
    """What is the same for all drawings of a run; the paths are absolute."""

    source: str
    target: str
    worker: str
    seconds: int
    megabytes: int


def document_name(path):
    """Where the document of the drawing `path` stands, both relative."""
    return path + ".json.gz"


def sha256_of(file):
    """The digest of a file's content, in hexadecimal."""
    with open(file, "rb") as stream:
        return hashlib.file_digest(stream, "sha256").hexdigest()


def out_of_memory(result, last_lines):
    """Whether a failed run failed because it could not get memory."""
    if result.kind in ("document", "timeout"):
        return False
    # The reason stands behind the path, which may hold any word.
    reason = result.message.rpartition(": ")[2] if result.kind == "refused" else ""
    return bool(NO_MEMORY.search(reason)) or any(map(NO_MEMORY.search, last_lines))


def write_compressed(file, content):
    """Replaces a file whole or not at all; gives the size of the new one."""
    os.makedirs(os.path.dirname(file), exist_ok=True)
    # A name of its own: the drawing's may be as long as names can be.
    part = os.path.join(os.path.dirname(file), PART_PREFIX + uuid.uuid4().hex + PART_SUFFIX)
    # Neither name nor time inside, so that equal documents are equal files.
    packed = gzip.compress(content, mtime=0)
    try:
        with open(part, "wb") as stream:
            stream.write(packed)
        os.replace(part, file)
    except OSError:
        remove(part)
        raise
    return len(packed)


def remove(file):
    """Removes a file that may be missing."""
    try:
        os.remove(file)
    except FileNotFoundError:
        pass


def run_worker(settings, drawing):
    """The host's result of one run, and the status that it means here."""
    last_lines = collections.deque(maxlen=20)

    def keep(line):
        if not line.startswith("[DWG worker] "):  # those may hold the path
            last_lines.append(line[:500])

    result = host.convert(settings.worker, drawing, settings.seconds, settings.megabytes, keep)
    if out_of_memory(result, last_lines):
        return result, "over memory"
    return result, KINDS.get(result.kind, result.kind)


def convert_one(settings, path):
    """Converts the drawing `path` and gives its line of the manifest."""
    begin = time.monotonic()
    drawing = os.path.join(settings.source, path)
    document = os.path.join(settings.target, document_name(path))
    line = {"path": path, "size": None, "mtimeNs": None, "sha256": None, "status": "", "error": "",
            "seconds": 0.0, "entities": None, "warnings": None, "documentSize": None}
    try:
        # Before the run: a drawing changed meanwhile differs from its line.
        state = os.stat(drawing)
        line.update(size=state.st_size, mtimeNs=state.st_mtime_ns, sha256=sha256_of(drawing))
        result, line["status"] = run_worker(settings, drawing)
    except OSError as error:
        line.update(status="unreadable", error=str(error))
        return line
    try:
        if result.kind == "document":
            line.update(documentSize=write_compressed(document, result.output),
                        entities=len(result.document["entities"]),
                        warnings=len(result.document.get("warnings", [])))
        else:
            line["error"] = result.message
            remove(document)  # of an earlier state of the drawing
    except OSError as error:
        line.update(status="unwritten", error=str(error))
    line["seconds"] = round(time.monotonic() - begin, 3)
    return line
