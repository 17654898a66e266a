"""A DXF file as a list of lines, to be edited by flaws.

A pair is a line with a group code and the line with its value. Positions are
indexes of lines from 0; `line_number` gives what people count.
"""

import copy

HANDLE_CODES = {5, 105, *range(320, 370), *range(390, 400), *range(480, 482), 1005}


class Missing(Exception):
    """What a flaw looks for is not in its base."""


class DxfLines:
    """Lines of a good file; every edit keeps what is not edited."""

    def __init__(self, lines):
        self.lines = list(lines)

    def copy(self):
        return copy.deepcopy(self)

    def pairs(self, start=0, end=None):
        """(position, code, value) of the pairs from a position on."""
        end = len(self.lines) if end is None else end
        for i in range(start, end - 1, 2):
            yield i, int(self.lines[i]), self.lines[i + 1]

    def find(self, code, value=None, start=0, end=None):
        for i, c, v in self.pairs(start, end):
            if c == code and (value is None or v.strip() == value):
                return i
        raise Missing(f"no group {code} {value}")

    def section(self, name):
        """Where the section's pairs begin, behind its name, and its ENDSEC."""
        i = 0
        while True:
            i = self.find(0, "SECTION", i)
            if self.lines[i + 3].strip() == name:
                return i + 4, self.find(0, "ENDSEC", i)
            i += 2

    def entity(self, kind, number=0, section="ENTITIES"):
        """Where the entity of a type begins and the next group 0 stands."""
        start, end = self.section(section)
        for _ in range(number + 1):
            begin = self.find(0, kind, start, end)
            start = begin + 2
        return begin, self.find(0, None, start)

    def group(self, kind, code, number=0, section="ENTITIES"):
        """The position of a group's code within an entity."""
        begin, end = self.entity(kind, number, section)
        return self.find(code, None, begin + 2, end)

    def table(self, name):
        """Where a table begins and where its ENDTAB stands."""
        i = 0
        while True:
            i = self.find(0, "TABLE", i)
            if self.lines[i + 3].strip() == name:
                return i, self.find(0, "ENDTAB", i)
            i += 2

    def set(self, position, value):
        self.lines[position + 1] = value

    def insert(self, position, *lines):
        self.lines[position:position] = [str(line) for line in lines]

    def remove(self, begin, end):
        del self.lines[begin:end]

    def bytes(self, end="\n"):
        return (end.join(self.lines) + end).encode("utf-8")


def line_number(position):
    return position + 1
