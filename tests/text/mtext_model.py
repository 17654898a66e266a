"""A second converter of multi-line text, to check the program's own.

Written from the rules in docs/document.md and docs/document-text.md and not from the
program: it works on a list of bytes by plain functions, keeps each group as a small
object, and reads numbers with regular expressions. Slow and simple on purpose.
"""

import re
from dataclasses import dataclass, field

ESCAPES = {ord("<"): b"&lt;", ord(">"): b"&gt;", ord("&"): b"&amp;"}

BASIC = [(0, 0, 0), (255, 0, 0), (255, 255, 0), (0, 255, 0), (0, 255, 255), (0, 0, 255),
         (255, 0, 255), (255, 255, 255), (65, 65, 65), (128, 128, 128)]
SHADES = [(1.0, 1.0), (0.8, 1.0), (0.6, 1.0), (0.4, 1.0), (0.2, 1.0), (1.0, 0.75), (1.0, 0.5),
          (1.0, 0.25), (0.0, 0.75), (0.0, 0.5)]
GREYS = [51, 102, 153, 204, 255, 0]

FAMILIES = {}
for _family, _fonts in {
        "Arial": "txt txt2 standard simplex greeks gothicg gothice gothici isocpeur isocpeur2 "
                 "isocp isocp2 isocp3 iso complex complexc complexs symap symusic italic "
                 "italiccs italics",
        "Times New Roman": "romans romanc romand romant",
        "Courier New": "monotxt",
        "Comic Sans MS": "scriptc scripts"}.items():
    for _font in _fonts.split():
        FAMILIES[_font.encode()] = _family.encode()

INT32 = (-(2**31), 2**31 - 1)
DECIMAL = re.compile(rb"[ \t\n\v\f\r]*([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?)")
HEXADECIMAL = re.compile(
    rb"[ \t\n\v\f\r]*([+-]?0[xX](?:[0-9a-fA-F]+\.?[0-9a-fA-F]*|\.[0-9a-fA-F]+)"
    rb"(?:[pP][+-]?\d+)?)")
NAMED = re.compile(rb"[ \t\n\v\f\r]*([+-]?)(infinity|inf|nan)", re.IGNORECASE)
INTEGER = re.compile(rb"[ \t\n\v\f\r]*([+-]?)(\d+)")
SMALLEST_NORMAL = 2.2250738585072014e-308


def escaped(data):
    return b"".join(ESCAPES.get(byte, bytes([byte])) for byte in data)


def real(data):
    """The number at the start of the bytes, or None."""
    named = NAMED.match(data)
    if named:
        value = float(named[2].decode())
        return -value if named[1] == b"-" else value
    match = HEXADECIMAL.match(data)
    if match:
        try:
            value = float.fromhex(match[1].decode())
        except OverflowError:
            return None
        mantissa = re.split(rb"[pP]", match[1])[0]
        has_digits = any(c in b"123456789abcdefABCDEF" for c in mantissa[2:].replace(b"0x", b""))
    else:
        match = DECIMAL.match(data)
        if not match:
            return None
        value = float(match[1])
        mantissa = re.split(rb"[eE]", match[1])[0]
        has_digits = any(c in b"123456789" for c in mantissa)
    if value in (float("inf"), float("-inf")):
        return None
    if has_digits and abs(value) < SMALLEST_NORMAL:
        return None
    return value


def integer(data):
    match = INTEGER.match(data)
    if not match:
        return None
    value = int(match[1] + match[2])
    return value if INT32[0] <= value <= INT32[1] else None


def unsigned(data):
    match = INTEGER.match(data)
    if not match or int(match[2]) >= 2**32:
        return None
    return int(match[1] + match[2]) % 2**32


def truncated(value):
    """A double as a 32-bit integer, limited first; None for not-a-number."""
    if value != value:
        return None
    return int(min(max(value, INT32[0]), INT32[1]))


def aci(index):
    if index < 0 or index > 255:
        return (0, 0, 0)
    if index < 10:
        return BASIC[index]
    if index >= 250:
        return (GREYS[index - 250],) * 3
    hue = ((index - 10) // 10) * 15.0
    saturation, value = SHADES[(index - 10) % 10]
    if saturation <= 0:
        return (int(value * 255),) * 3
    h = hue / 60.0
    sector = int(h)
    f = h - sector
    p = (1.0 - saturation) * value
    q = (1.0 - saturation * f) * value
    t = (1.0 - (1.0 - f) * saturation) * value
    channels = [(value, t, p), (q, value, p), (p, value, t), (p, q, value), (t, p, value),
                (value, p, q)][sector % 6]
    return tuple(int(c * 255.0) for c in channels)


def family(name):
    key = name.lower()
    is_shape = len(key) > 4 and key.endswith(b".shx")
    if is_shape:
        key = key[:-4]
    return FAMILIES.get(key, b"Arial" if is_shape else name)


@dataclass
class Group:
    spans: int = 0
    markers: list = field(default_factory=list)


class Converter:
    """After run(): html, runs (tuples), blocks (dicts), non_western, obliques."""

    def __init__(self, text, base_height):
        self.text = text.split(b"\0")[0]
        self.base = base_height
        self.html = b""
        self.runs = []
        self.blocks = []
        self.non_western = False
        self.obliques = 0
        self.chars = 0
        self.paragraph = 0
        self.stack = [Group()]

    def run(self):
        if not self.text:
            self.html = b"<p></p>"
            return self
        parts = [b"<p>"]
        self.emit = parts.append
        rest = self.text
        position = 0
        while position < len(rest):
            byte = rest[position:position + 1]
            if byte == b"{":
                self.stack.append(Group())
                position += 1
            elif byte == b"}":
                if len(self.stack) > 1:
                    self.close()
                position += 1
            elif byte == b"\\":
                position = self.code(position)
            else:
                self.emit(escaped(byte))
                if byte >= b"\xf0":
                    self.chars += 2
                elif not b"\x80" <= byte < b"\xc0":
                    self.chars += 1
                position += 1
        while self.stack:
            self.close()
        self.emit(b"</p>")
        self.html = b"".join(parts)
        return self

    def close(self):
        group = self.stack.pop()
        for start, stretch, tracking, fixed in group.markers:
            if self.chars > start and (stretch or tracking or fixed):
                self.runs.append((start, self.chars - start, stretch, tracking, fixed))
        self.emit(b"</span>" * group.spans)

    def span(self, style):
        self.emit(b'<span style="' + style + b'">')
        self.stack[-1].spans += 1

    def code(self, position):
        c = self.text[position + 1:position + 2]
        if not c:
            return len(self.text)
        simple = {b"P": b"</p><p>", b"n": b"</p><p>", b"X": b"<br/>", b"x": b"<br/>",
                  b"~": b"&nbsp;", b"\\": b"\\", b"{": b"&#123;", b"}": b"&#125;"}
        tags = {b"L": b"<u>", b"l": b"</u>", b"K": b"<s>", b"k": b"</s>"}
        if c in simple:
            self.emit(simple[c])
            self.chars += 1
            self.paragraph += c in (b"P", b"n")
            return position + 2
        if c in tags:
            self.emit(tags[c])
            return position + 2
        if c == b"O":
            self.span(b"text-decoration:overline")
            return position + 2
        if c == b"o":
            self.emit(b"</span>")
            self.stack[-1].spans = max(self.stack[-1].spans - 1, 0)
            return position + 2
        if c == b"U":
            return self.unicode(position)
        handler = {b"A": self.alignment, b"Q": self.oblique, b"C": self.color_index,
                   b"c": self.true_color, b"H": self.height, b"W": self.width,
                   b"T": self.tracking, b"f": self.font, b"F": self.font, b"S": self.stacked,
                   b"p": self.format}.get(c)
        if handler is None:
            return position + 1
        argument, semicolon, _ = self.text[position + 2:].partition(b";")
        handler(argument)
        return position + 2 + len(argument) + len(semicolon)

    def unicode(self, position):
        match = re.match(rb"\\U\+([0-9a-fA-F]{1,6})", self.text[position:position + 9])
        if not match:
            return position + 1
        point = int(match[1], 16)
        if point < 0x80:
            data = [point]
        elif point < 0x800:
            data = [0xC0 | point >> 6, 0x80 | point & 63]
        elif point < 0x10000:
            data = [0xE0 | point >> 12, 0x80 | point >> 6 & 63, 0x80 | point & 63]
        else:
            data = [0xF0 | point >> 18, 0x80 | point >> 12 & 63, 0x80 | point >> 6 & 63,
                    0x80 | point & 63]
        self.emit(escaped(bytes(data)))
        self.chars += 1 if point < 0x10000 else 2
        return position + len(match[0])

    def alignment(self, argument):
        pass

    def oblique(self, argument):
        self.obliques += 1

    def color(self, rgb):
        self.span(b"color:rgb(%d,%d,%d)" % rgb)

    def color_index(self, argument):
        index = integer(argument)
        if index is not None:
            self.color(aci(index))

    def true_color(self, argument):
        word = unsigned(argument)
        if word is not None:
            self.color((word >> 16 & 255, word >> 8 & 255, word & 255))

    def height(self, argument):
        relative = argument.endswith(b"x")
        value = real(argument[:-1] if relative else argument)
        if value is None:
            return
        if relative:
            value *= self.base
        if value > 0:
            self.span(b"font-size:" + (b"%.4f" % (value / 25.4))[:63] + b"pt")

    def mark(self, stretch, tracking, fixed):
        self.stack[-1].markers.append((self.chars, stretch, tracking, fixed))

    def percent(self, argument):
        value = real(argument)
        return None if value is None else truncated(value * 100 + 0.5)

    def width(self, argument):
        value = self.percent(argument)
        if value is not None:
            self.mark(max(min(value, 200), 50), 0, False)

    def tracking(self, argument):
        value = self.percent(argument)
        if value is not None:
            self.mark(0, value, False)

    def font(self, argument):
        name, *fields = argument.split(b"|")
        bold = italic = False
        for item in fields:
            if len(item) < 2:
                continue
            kind, rest = item[:1], item[1:]
            if kind == b"b":
                bold = rest[:1] == b"1"
            elif kind == b"i":
                italic = rest[:1] == b"1"
            elif kind == b"c":
                charset = integer(rest)
                self.non_western |= charset is not None and charset > 2
            elif kind == b"p":
                pitch = integer(rest)
                if pitch is not None and pitch % 2:
                    self.mark(0, 0, True)
        style = b"font-family:" + family(name) + b";" if name else b""
        style += b"font-weight:bold;" * bold + b"font-style:italic;" * italic
        if style:
            self.span(style)

    def stacked(self, argument):
        self.chars += len(argument)
        match = re.search(rb"[#/^]", argument)
        if not match:
            self.emit(escaped(argument))
            return
        self.emit(b'<span style="vertical-align:super">' + escaped(argument[:match.start()]) +
                  b"</span>" + (b"" if match[0] == b"^" else b"/") +
                  b'<span style="vertical-align:sub">' + escaped(argument[match.end():]) +
                  b"</span>")

    def format(self, argument):
        block = {"index": self.paragraph, "alignment": b"", "textIndent": 0.0, "leftMargin": 0.0,
                 "rightMargin": 0.0, "tabStops": []}
        lengths = {b"i": "textIndent", b"l": "leftMargin", b"r": "rightMargin"}
        in_list = False
        for item in argument.split(b","):
            if in_list and item[:1] in (b".", *(b"%d" % d for d in range(10))):
                stop = real(item)
                if stop is not None:
                    block["tabStops"].append(stop)
                continue
            in_list = False
            if len(item) < 2:
                continue
            kind, rest = item[:1], item[1:]
            if kind in lengths:
                value = real(rest)
                if value is not None:
                    block[lengths[kind]] = value
            elif kind == b"q":
                block["alignment"] = re.match(rb".[\x80-\xbf]*", rest, re.DOTALL)[0]
            elif kind == b"t":
                in_list = True
                stop = real(rest)
                if stop is not None:
                    block["tabStops"].append(stop)
        if (block["alignment"] or block["textIndent"] != 0 or block["leftMargin"] != 0
                or block["rightMargin"] != 0 or block["tabStops"]):
            self.blocks.append(block)
