"""Text DXF files made from good ones by small random changes, the same for the
same seed."""

import random

MOST_BYTES = 1_000_000  # of a file that is changed
MOST_CHANGES = 6
CODES = b"0 1 2 3 5 6 7 8 10 11 20 21 30 39 40 41 42 43 50 51 60 62 66 67 70 71 72 73 90 91 92 93 " \
        b"98 100 102 210 220 230 280 310 330 340 360 370 390 410 420 430 440 999 1000 1001 1070".split()
VALUES = [b"", b"0", b"1", b"-1", b"256", b"65536", b"1e5", b"-0.0", b"1.7976931348623157e308", b"nan",
          b"12345678901234567890.5", b".5", b"5.", b"0.000000000000000000000000001", b"123.4567890123456789",
          b" 7", b"7 ", b"+7", b"0x1F", b"FFFFFFFFFFFFFFFF", b"}", b"{ACAD_REACTORS", b"AcDbEntity",
          b"AcDbText", b"AcDbRotatedDimension", b"Standard", b"BYLAYER", b"Continuous", b"^Jtext",
          b"\\M+1ABCD", b"\\U+00D8", b"$MODEL_SPACE", b"*Model_Space", b"LINE", b"TEXT", b"VERTEX", b"SEQEND",
          b"ENDSEC", b"3DFACE", b"\xc3\x84", b"\xff"]


def is_text_dxf(path):
    if path.suffix.lower() != ".dxf" or not 0 < path.stat().st_size <= MOST_BYTES:
        return False
    with path.open("rb") as file:
        return not file.read(22).startswith(b"AutoCAD Binary DXF")


def change_character(chance, lines):
    at = chance.randrange(len(lines))
    line = bytearray(lines[at])
    if line:
        line[chance.randrange(len(line))] = chance.choice(b"0123456789 .-+eEAF\r\t^\\")
    lines[at] = bytes(line)


def change_number(chance, lines):
    at = chance.randrange(len(lines))
    line = lines[at].strip()
    if line.lstrip(b"-").replace(b".", b"", 1).isdigit():
        digits = "".join(chance.choice("0123456789") for _ in range(chance.randrange(1, 20)))
        lines[at] = line[:chance.randrange(len(line)) + 1] + digits.encode()


def set_code(chance, lines):
    lines[chance.randrange(0, len(lines), 2)] = chance.choice(CODES)


def set_value(chance, lines):
    lines[chance.randrange(len(lines) // 2) * 2 + 1] = chance.choice(VALUES)


def remove_pair(chance, lines):
    at = chance.randrange(0, len(lines) - 1, 2)
    del lines[at:at + 2]


def insert_pair(chance, lines):
    at = chance.randrange(0, len(lines), 2)
    lines[at:at] = [chance.choice(CODES), chance.choice(VALUES)]


def move_pairs(chance, lines):
    at = chance.randrange(0, len(lines) - 1, 2)
    pairs = lines[at:at + 2 * chance.randrange(1, 8)]
    to = chance.randrange(0, len(lines), 2)
    lines[to:to] = pairs


def exchange_values(chance, lines):
    one, other = (chance.randrange(len(lines) // 2) * 2 + 1 for _ in range(2))
    lines[one], lines[other] = lines[other], lines[one]


def remove_line(chance, lines):
    del lines[chance.randrange(len(lines))]


def cut_off(chance, lines):
    del lines[chance.randrange(len(lines) // 2, len(lines)):]


CHANGES = [change_character, change_number, change_number, set_code, set_value, set_value,
           remove_pair, insert_pair, insert_pair, move_pairs, exchange_values, remove_line]


def mutated(data, chance):
    """The bytes of one file, changed in a few places."""
    ending = b"\r\n" if b"\r\n" in data else b"\n"
    lines = data.split(ending)
    for _ in range(chance.randrange(1, MOST_CHANGES + 1)):
        if len(lines) < 8:
            break
        change = cut_off if chance.random() < 0.02 else chance.choice(CHANGES)
        change(chance, lines)
    if chance.random() < 0.05:
        ending = b"\n" if ending == b"\r\n" else b"\r\n"
    return ending.join(lines)


def write_mutated(originals, count, folder, seed=1):
    """Writes so many changed copies and yields their paths."""
    originals = sorted(originals)
    for number in range(count):
        chance = random.Random(f"{seed} {number}")
        original = originals[number % len(originals)]
        path = folder / f"{number:05}_{original.stem}.dxf"
        path.write_bytes(mutated(original.read_bytes(), chance))
        yield path
