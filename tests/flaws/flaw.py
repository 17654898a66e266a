"""What a flaw is, and how one is registered.

A flaw edits the lines of a good file and says what is still to be found in it: the
entities of the good file, or those of another good file that means the same. It also
says which repair is to be named in the warnings.
"""

import dataclasses
import typing

from dxf_lines import DxfLines, Missing, line_number

NONE, MAY = "none", "may"
SPREAD = 2


@dataclasses.dataclass
class Flawed:
    """A flawed file, and what it means.

    `repairs`: NONE where a reader has nothing to repair, MAY where a reader may take
    the flaw for the usual, else the number of repairs (None for any) and the lines
    among which the first has to be named (None for any).
    """
    data: bytes
    meant: typing.Optional[bytes] = None
    repairs: object = NONE
    skipped: typing.Dict[str, int] = dataclasses.field(default_factory=dict)
    # The text of this type of entity may come out in more than one way.
    any_text: bool = False
    # The layers' own properties are not in the file; their names are.
    no_flags: bool = False
    # A file that breaks off needs any warning, whatever its words.
    warned: bool = False


FLAWS = []


def flaw(base, name=None, **options):
    """Registers a flaw; its function edits the lines of a base and returns Flawed or,
    with the lines edited in place, its repairs."""
    def register(function):
        FLAWS.append((name or function.__name__, base, function, options))
        return function
    return register


def flawed_files(bases):
    """(name, base, Flawed) of every flaw."""
    for name, base, function, options in FLAWS:
        lines = DxfLines(bases[base])
        try:
            made = function(lines)
        except Missing as error:
            raise ValueError(f"{name}: {error}") from error
        if not isinstance(made, Flawed):
            repairs, meant = made if isinstance(made, list) else (made, None)
            made = Flawed(lines.bytes(), None if meant is None else meant.bytes(), repairs)
        for key, value in options.items():
            setattr(made, key, value)
        yield name, base, made


def near(count, position):
    """`count` repairs, the first within the pair at the position or close to it."""
    line = line_number(position)
    return count, range(line - SPREAD, line + 2 + SPREAD)
