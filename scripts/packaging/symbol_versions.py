#!/usr/bin/env python3
"""Prints the oldest glibc on which ELF programs start: the highest version that they
ask for, as in 2.36.

    symbol_versions.py PROGRAM...

GLIBC_ABI_DT_RELR, which programs with packed relocations ask for, came with 2.36.
"""

import re
import subprocess
import sys

ASKED = re.compile(r"\bGLIBC_(ABI_DT_RELR|[\d.]+)")
FEATURES = {"ABI_DT_RELR": "2.36"}


def needed(program):
    """The versions of glibc that a program asks for, as tuples of numbers."""
    table = subprocess.run(["objdump", "-p", program], stdout=subprocess.PIPE, text=True,
                           check=True).stdout
    references = table.partition("Version References:")[2]
    names = [FEATURES.get(name, name) for name in ASKED.findall(references)]
    return [tuple(map(int, name.split("."))) for name in names]


def main():
    versions = [version for program in sys.argv[1:] for version in needed(program)]
    if not versions:
        sys.exit("the programs ask for no version of glibc at all")
    print(".".join(map(str, max(versions))))


if __name__ == "__main__":
    main()
