"""Writes DXF files: the drawings that tests and benchmarks make up.

A file is a sequence of pairs, (group code, value). `Dxf` knows the frame that all
drawings share: sections, tables, records, blocks and the beginning of an entity.
It hands pairs to a sink as they come, so that a drawing may be larger than memory.
"""

import contextlib
import struct

MODEL_SPACE = "1F"
PAPER_SPACE = "1E"

BINARY_SENTINEL = b"AutoCAD Binary DXF\r\n\x1a\x00"
BINARY_FORMATS = {"real": "<d", "long": "<i", "short": "<h", "byte": "<B"}


def point(code, x, y, z=0):
    """A point whose X has the group code `code`."""
    return [(code, x), (code + 10, y), (code + 20, z)]


def text(pairs, width=0):
    """The lines of a text file; `width` is the least of a group code."""
    return "".join(f"{code:>{width}}\n{value}\n" for code, value in pairs)


def kind_of(code):
    """How a binary file stores the value of a group."""
    if code < 10 or code in (100, 102, 105) or 300 <= code < 370:
        return "text"
    if code < 60 or 110 <= code < 150 or 210 <= code < 240:
        return "real"
    if 90 <= code < 100:
        return "long"
    return "byte" if 290 <= code < 300 else "short"


def binary(pairs, encoding):
    """A whole binary file of release 14 or later."""
    parts = [BINARY_SENTINEL]
    for code, value in pairs:
        parts.append(struct.pack("<h", code))
        kind = kind_of(code)
        parts.append(str(value).encode(encoding) + b"\0" if kind == "text" else
                     struct.pack(BINARY_FORMATS[kind], value))
    return b"".join(parts)


def text_sink(file, width=0):
    """A sink that writes pairs to a text file at once."""
    return lambda pairs: file.write(text(pairs, width))


class Dxf:
    """A drawing under construction. Handles count up from `first_handle`."""

    def __init__(self, sink, first_handle=0x101):
        self.sink = sink
        self.next_handle = first_handle

    def put(self, *pairs):
        self.sink(pairs)

    def handle(self):
        """A new handle, as files write it."""
        self.next_handle += 1
        return f"{self.next_handle - 1:X}"

    def object(self, kind, *pairs, handle=None, owner=None):
        """Begins an object and gives its handle. Without an owner it names none, which
        readers accept: they know it from where the object stands."""
        handle = handle or self.handle()
        self.put((0, kind), (5, handle), *([] if owner is None else [(330, owner)]), *pairs)
        return handle

    @contextlib.contextmanager
    def section(self, name):
        self.put((0, "SECTION"), (2, name))
        yield
        self.put((0, "ENDSEC"))

    def header(self, version, *pairs):
        """A section of variables: the release, and others as (9, name), value."""
        with self.section("HEADER"):
            self.put((9, "$ACADVER"), (1, version), *pairs)

    @contextlib.contextmanager
    def table(self, name, handle, count=1, owner=0):
        self.put((0, "TABLE"), (2, name), (5, handle),
                 *([] if owner is None else [(330, owner)]), (100, "AcDbSymbolTable"), (70, count))
        yield
        self.put((0, "ENDTAB"))

    def record(self, kind, subclass, name, *pairs, handle=None, owner=None):
        """A record of a table, which its `owner` names; gives its handle."""
        return self.object(kind, (100, "AcDbSymbolTableRecord"), (100, subclass), (2, name), *pairs,
                           handle=handle, owner=owner)

    def entity(self, kind, subclass, *pairs, layer="0", owner=MODEL_SPACE, paper=False):
        """Begins an entity and gives its handle."""
        return self.object(kind, (100, "AcDbEntity"), *([(67, 1)] if paper else []), (8, layer),
                           (100, subclass), *pairs, owner=owner)

    @contextlib.contextmanager
    def block(self, name, record, base=(0, 0, 0)):
        """A block definition, whose entities are written within."""
        self.entity("BLOCK", "AcDbBlockBegin", (2, name), (70, 0), *point(10, *base), (3, name),
                    (1, ""), owner=record)
        yield
        self.entity("ENDBLK", "AcDbBlockEnd", owner=record)

    def end(self):
        self.put((0, "EOF"))
