#!/usr/bin/env python3
"""Reads programs as users get them and checks that they were built hardened.

    check_hardening.py PROGRAM...

For Linux (ELF): position-independent, the tables of the linker read-only before the
program starts, no executable stack, no segment that is writable and executable,
functions that check their stack, checked variants of the C library's functions,
landing pads for indirect calls (on x86-64 and 64-bit ARM). For Windows (PE): random
addresses of 64 bits, no executable data, functions that check their stack.
Control Flow Guard is only said to be there or not: the cross compiler has none.

What a compiler puts into single functions is counted where that is possible: one
hardened function among thousands is not enough. Every check is also run on the same
program with that protection taken away, which it has to say.
"""

import pathlib
import re
import struct
import sys

SHT_SYMTAB = 2
PT_LOAD, PT_DYNAMIC, PT_GNU_STACK, PT_GNU_RELRO = 1, 2, 0x6474E551, 0x6474E552
DT_NEEDED, DT_STRTAB, DT_SYMTAB, DT_FLAGS, DT_GNU_HASH, DT_FLAGS_1 = 1, 5, 6, 30, 0x6FFFFEF5, 0x6FFFFFFB
DF_BIND_NOW, DF_1_NOW, DF_1_PIE = 8, 1, 0x08000000
ET_DYN = 3
X86_64, AARCH64 = 62, 183
# endbr64 and "bti c".
LANDING_PADS = {X86_64: b"\xf3\x0f\x1e\xfa", AARCH64: b"\x5f\x24\x03\xd5"}
EXECUTE, WRITE = 1, 2
# How a function on x86-64 takes the value that guards its stack: mov %fs:0x28, register.
GUARD = re.compile(rb"\x64[\x48\x4c]\x8b[\x04\x0c\x14\x1c\x24\x2c\x34\x3c]\x25\x28\0\0\0")
GUARDS_WANTED = 200
# Functions whose first instruction has to be one, of LibreDWG, of crashpad and of ours.
# The C++ library, which is linked in, has its own anyway.
PADDED = {
    "dwg_import_worker": (b"main", b"dwg_decode", b"dwg_read_dxf", b"dwg_free", b"bit_read_BS"),
    "crashpad_handler": (b"main", b"_ZN8crashpad12PtraceClient10InitializeEiib",
                         b"_ZN8crashpad14ElfImageReader10InitializeERKNS_18ProcessMemoryRangeEmb"),
    "dwg_preview": (b"main", b"_ZN7preview13WorkerProcess10ReadOutputEv"),
}
FORTIFIED_WANTED = 2

HIGH_ENTROPY, DYNAMIC_BASE, NX_COMPATIBLE, GUARD_CF = 0x20, 0x40, 0x100, 0x4000


class Elf:
    """What the checks look at in a 64-bit little-endian ELF file."""

    def __init__(self, data):
        self.data = data
        self.type, self.machine = struct.unpack_from("<HH", data, 16)
        at, = struct.unpack_from("<Q", data, 32)
        size, count = struct.unpack_from("<HH", data, 54)
        self.segments = []
        for i in range(count):
            kind, flags, offset, address, _, in_file, in_memory, _ = struct.unpack_from(
                "<IIQQQQQQ", data, at + i * size)
            self.segments.append((kind, flags, offset, address, in_file, in_memory))
        self.dynamic = {}
        for kind, _, offset, _, in_file, _ in self.segments:
            if kind == PT_DYNAMIC:
                for i in range(in_file // 16):
                    tag, value = struct.unpack_from("<QQ", data, offset + 16 * i)
                    if tag == 0:
                        break
                    self.dynamic.setdefault(tag, value)

    def kinds(self):
        return {segment[0] for segment in self.segments}

    def offset_of(self, address):
        for kind, _, offset, start, in_file, _ in self.segments:
            if kind == PT_LOAD and start <= address < start + in_file:
                return offset + address - start
        raise ValueError(f"{address:#x} is in no segment")

    def imports(self):
        """The names of the functions that libraries give, with versions left out."""
        table = self.offset_of(self.dynamic[DT_SYMTAB])
        names = self.offset_of(self.dynamic[DT_STRTAB])
        # The table of names follows that of symbols in all that our linkers write.
        found = set()
        for at in range(table + 24, names, 24):
            name, _, _, section = struct.unpack_from("<IBBH", self.data, at)
            if section == 0 and name:
                start = names + name
                found.add(self.data[start:self.data.index(b"\0", start)].decode())
        return found

    def beginnings(self, names):
        """Where the functions of these names begin in the file; the program needs its
        table of symbols for that."""
        at, = struct.unpack_from("<Q", self.data, 40)
        size, count = struct.unpack_from("<HH", self.data, 58)
        sections = [struct.unpack_from("<IIQQQQII", self.data, at + i * size)
                    for i in range(count)]
        for _, kind, _, _, offset, length, link, _ in sections:
            if kind != SHT_SYMTAB:
                continue
            strings = sections[link][4]
            for symbol in range(offset, offset + length, 24):
                name, _, _, _, value = struct.unpack_from("<IBBHQ", self.data, symbol)
                end = self.data.index(b"\0", strings + name)
                if value and self.data[strings + name:end] in names:
                    yield self.offset_of(value)

    def code(self):
        return b"".join(self.data[offset:offset + in_file]
                        for kind, flags, offset, _, in_file, _ in self.segments
                        if kind == PT_LOAD and flags & EXECUTE)


def elf_faults(data, padded):
    elf = Elf(data)
    loads = [segment for segment in elf.segments if segment[0] == PT_LOAD]
    stack = [segment for segment in elf.segments if segment[0] == PT_GNU_STACK]
    imports = elf.imports()
    if elf.type != ET_DYN or not elf.dynamic.get(DT_FLAGS_1, 0) & DF_1_PIE:
        yield "it is not position-independent"
    if PT_GNU_RELRO not in elf.kinds():
        yield "the linker's tables stay writable"
    if not (elf.dynamic.get(DT_FLAGS, 0) & DF_BIND_NOW or elf.dynamic.get(DT_FLAGS_1, 0) & DF_1_NOW):
        yield "functions are bound when they are first called"
    if not stack or any(flags & EXECUTE for _, flags, *_ in stack):
        yield "the stack is executable"
    if any(flags & EXECUTE and flags & WRITE for _, flags, *_ in loads):
        yield "a segment is writable and executable"
    if "__stack_chk_fail" not in imports or (
            elf.machine == X86_64 and len(GUARD.findall(elf.code())) < GUARDS_WANTED):
        yield "no function checks its stack"
    if len([name for name in imports if name.endswith("_chk")]) < FORTIFIED_WANTED:
        yield "the C library's checked functions are not used"
    pad = LANDING_PADS.get(elf.machine)
    beginnings = list(elf.beginnings(padded))
    if pad is not None and (len(beginnings) < len(padded) or any(
            data[at:at + len(pad)] != pad for at in beginnings)):
        yield "indirect calls have no landing pads"


def pe_header(data):
    """The offset of the optional header."""
    start, = struct.unpack_from("<I", data, 60)
    if data[start:start + 4] != b"PE\0\0":
        raise ValueError("no PE signature")
    return start + 24


def pe_faults(data):
    at = pe_header(data)
    magic, = struct.unpack_from("<H", data, at)
    characteristics, = struct.unpack_from("<H", data, at + 70)
    if magic != 0x20B:
        yield "it is no program of 64 bits"
    for bit, fault in ((DYNAMIC_BASE, "its address is fixed"),
                       (HIGH_ENTROPY, "its address has 32 bits"),
                       (NX_COMPATIBLE, "its data is executable")):
        if not characteristics & bit:
            yield fault
    if not b"stack smashing detected" in data:
        yield "no function checks its stack"


def has_control_flow_guard(data):
    characteristics, = struct.unpack_from("<H", data, pe_header(data) + 70)
    return bool(characteristics & GUARD_CF)


def faults(data, name):
    return sorted(elf_faults(data, PADDED[name]) if data[:4] == b"\x7fELF" else pe_faults(data))


def weakened(data):
    """Each a name, the program with one protection taken away, and the fault to find."""
    if data[:4] != b"\x7fELF":
        at = pe_header(data) + 70
        for bit, fault in ((DYNAMIC_BASE, "its address is fixed"),
                           (HIGH_ENTROPY, "its address has 32 bits"),
                           (NX_COMPATIBLE, "its data is executable")):
            value, = struct.unpack_from("<H", data, at)
            yield data[:at] + struct.pack("<H", value & ~bit) + data[at + 2:], fault
        yield data.replace(b"stack smashing", b"stack caressing"[:14]), "no function checks its stack"
        return
    elf = Elf(data)
    table, = struct.unpack_from("<Q", data, 32)
    for i, (kind, flags, *_) in enumerate(elf.segments):
        at = table + 56 * i
        if kind == PT_GNU_RELRO:
            yield data[:at] + bytes(4) + data[at + 4:], "the linker's tables stay writable"
        if kind == PT_GNU_STACK:
            yield (data[:at + 4] + struct.pack("<I", flags | EXECUTE) + data[at + 8:],
                   "the stack is executable")
        if kind == PT_LOAD and flags & EXECUTE:
            yield (data[:at + 4] + struct.pack("<I", flags | WRITE) + data[at + 8:],
                   "a segment is writable and executable")
    yield data[:16] + struct.pack("<H", 2) + data[18:], "it is not position-independent"
    yield data.replace(b"__stack_chk_fail", b"__stack_chk_pass"), "no function checks its stack"
    if elf.machine == X86_64:
        yield GUARD.sub(bytes(9), data), "no function checks its stack"
    yield data.replace(b"_chk\0", b"_chq\0"), "the C library's checked functions are not used"
    pad = LANDING_PADS.get(elf.machine)
    if pad is not None:
        yield data.replace(pad, bytes(4)), "indirect calls have no landing pads"


def main():
    mistakes = []
    for path in map(pathlib.Path, sys.argv[1:]):
        data = path.read_bytes()
        found = faults(data, path.stem)
        mistakes += [f"{path.name}: {fault}" for fault in found]
        for weak, fault in weakened(data):
            if fault not in faults(weak, path.stem):
                mistakes.append(f"{path.name}: not found although taken away: {fault}")
        guard = "" if data[:4] == b"\x7fELF" else \
            f", Control Flow Guard: {'yes' if has_control_flow_guard(data) else 'no'}"
        print(f"{path.name}: {len(found)} faults{guard}")
    for mistake in mistakes:
        print(mistake)
    return 1 if mistakes or len(sys.argv) < 2 else 0


if __name__ == "__main__":
    sys.exit(main())
