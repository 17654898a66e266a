#!/usr/bin/env python3
"""Writes a folder of starting inputs for every fuzz target: small texts and
numbers from the lists below, and the small drawings of the tests.

    fuzz/make_seeds.py FOLDER
"""

import pathlib
import struct
import sys

DRAWINGS = pathlib.Path(__file__).resolve().parents[1] / "tests" / "drawings"
LARGEST_DRAWING = 80_000

# A base height of 2.5 as the target reads it: a kind of number, then its byte.
BASE_HEIGHT = b"\x06\x64"
MTEXT = [
    b"plain", b"a\\Pb\\~c\\Xd", b"{\\H2x;A}\\H3;B\\H0;", b"{\\C1;red}{\\c255;blue}",
    b"\\W0.8;narrow\\T1.5;wide", b"{\\fArial|b1|i1|c134|p49;bold}", b"\\Fromans.shx;x",
    b"\\S1/2;\\S1#2;\\S1^2;\\S12;", b"\\pi1,l2,r3,qc,t4,5;par\\Pqj", b"\\U+1F600\\U+2205",
    b"\\Lu\\l\\Ks\\k\\Oo\\o", b"\\A1;\\Q15;x", b"}}{{a}", b"\\M+C5FF8", b"\xc3\xa9<&>\\\\\\{\\}",
    b"{" * 40 + b"\\W2;x" + b"}" * 40,
]
TEXT_CODES = [b"%%c10%%p0.1", b"%%uA%%uB", b"%%oA%%uB", b"50%%%", b"%%065%%176%%9", b"%%", b"%%x<&>",
              b"%%321%%d%%D"]
DECODING = [b"romans.shx", b"ISOCP2", b"\x80\x81\x9f\xa0\xff", "\U0001f600".encode("utf-16-le"),
            b"\x00\xde\x3d\xd8", "h\u00e9llo".encode(), b"a\"\\\t\x01"]
NUMBERS = [0.0, -0.0, 0.1, 1 / 3, 1e10, 9999999999.0, 1.5e-7, 123456.789, 3.141592653589793,
           float("nan"), float("inf"), 1.7976931348623157e308, 5e-324]
NUMBER_TEXTS = [b"-12.5e3x", b"2147483648", b"-4294967295", b" +7", b"1e-310", b"0x1.8p3"]


def drawings(suffix):
    return {str(path.relative_to(DRAWINGS)).replace("/", "_"): path.read_bytes()
            for path in sorted(DRAWINGS.rglob("*"))
            if path.suffix.lower() == suffix and path.stat().st_size <= LARGEST_DRAWING}


def numbered(inputs):
    return {f"{i:02}": content for i, content in enumerate(inputs)}


def main():
    folder = pathlib.Path(sys.argv[1])
    seeds = {
        "fuzz_mtext": numbered(BASE_HEIGHT + text for text in MTEXT),
        "fuzz_text_codes": numbered(TEXT_CODES),
        "fuzz_decoding": numbered(DECODING),
        "fuzz_number": numbered([struct.pack("<2d", a, b) for a, b in zip(NUMBERS, NUMBERS[1:])]
                                + NUMBER_TEXTS),
        "fuzz_drawing": {},
        "fuzz_dwg": drawings(".dwg"),
        "fuzz_dxf": drawings(".dxf"),
        "fuzz_dxf_front_end": drawings(".dxf"),
    }
    for target, inputs in seeds.items():
        (folder / target).mkdir(parents=True, exist_ok=True)
        for name, content in inputs.items():
            path = folder / target / name
            # A run that is under way reads them again and again.
            if not path.exists() or path.read_bytes() != content:
                path.write_bytes(content)


if __name__ == "__main__":
    main()
