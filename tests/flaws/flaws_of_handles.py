"""Flaws of handles, subclass markers and owners."""

import re

from dxf_lines import HANDLE_CODES
from flaw import MAY, NONE, flaw, near


# -- handles

@flaw("R2000")
def handle_missing(d):
    i = d.group("CIRCLE", 5)
    d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def handles_missing_in_all_entities(d):
    for i, code, _ in reversed(list(d.pairs(*d.section("ENTITIES")))):
        if code == 5:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def handle_empty(d):
    i = d.group("CIRCLE", 5)
    d.set(i, "")
    return near(1, i)


@flaw("R2000")
def handle_duplicate(d):
    i = d.group("CIRCLE", 5)
    d.set(i, d.lines[d.group("LINE", 5) + 1])
    return near(1, i)


@flaw("R2000")
def handle_of_a_block_record_taken_by_an_entity(d):
    begin, end = d.table("BLOCK_RECORD")
    record = d.find(2, "WINDOW", begin, end)
    owner = max(i for i, code, _ in d.pairs(begin, record) if code == 5)
    i = d.group("CIRCLE", 5)
    d.set(i, d.lines[owner + 1])
    return near(1, i)


@flaw("R2000")
def handle_not_hexadecimal(d):
    i = d.group("CIRCLE", 5)
    d.set(i, "XYZ")
    return near(1, i)


@flaw("R2000")
def handles_of_layers_empty(d):
    begin, end = d.table("LAYER")
    positions = [i for i, code, _ in d.pairs(d.find(0, "LAYER", begin), end) if code == 5]
    for i in positions:
        d.set(i, "")
    return near(len(positions), positions[0])


def map_handles(d, change):
    for i, code, value in list(d.pairs()):
        if code in HANDLE_CODES and re.fullmatch("[0-9A-Fa-f]+", value.strip()):
            d.set(i, change(int(value, 16)))


@flaw("R2000")
def handles_of_sixteen_digits(d):
    map_handles(d, lambda handle: f"{handle:016X}" if handle == 0 else f"71FF5600{handle:08X}")
    return MAY


@flaw("R2018")
def handles_that_differ_in_the_upper_half_only(d):
    map_handles(d, lambda handle: f"{handle:08X}0000002A" if handle else "0")
    return MAY


@flaw("R2000")
def handles_with_zeros_before_and_in_lower_case(d):
    map_handles(d, lambda handle: f"{handle:08x}" if handle else "0")
    return NONE


@flaw("R2000")
def handle_1F_for_a_block(d):
    begin, end = d.table("BLOCK_RECORD")
    record = d.find(2, "WINDOW", begin, end)
    own = max(i for i, code, _ in d.pairs(begin, record) if code == 5)
    old = int(d.lines[own + 1], 16)
    swap = {old: 0x1F, 0x1F: old}
    map_handles(d, lambda handle: f"{swap.get(handle, handle):X}")
    return NONE


# -- groups of other programs

def vendor_group(d, kind, section, behind_owner):
    for begin, end in reversed([d.entity(kind, number, section) for number in range(1)]):
        i = d.find(330, None, begin, end) + 2 if behind_owner else begin + 2
        d.insert(i, "102", "{VENDOR", "330", "1F", "360", "0", "102", "}")


@flaw("R2000")
def group_of_another_program_behind_the_owner(d):
    vendor_group(d, "CIRCLE", "BLOCKS", True)
    return NONE


@flaw("R12")
def group_of_another_program_in_R12(d):
    vendor_group(d, "CIRCLE", "BLOCKS", False)
    return NONE


# -- subclass markers and owners

@flaw("R2000")
def subclass_markers_missing_in_one_entity(d):
    begin, end = d.entity("LINE")
    for i, code, _ in reversed(list(d.pairs(begin, end))):
        if code == 100:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def subclass_markers_missing_in_all_entities(d):
    for i, code, _ in reversed(list(d.pairs(*d.section("ENTITIES")))):
        if code == 100:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def subclass_markers_missing_everywhere(d):
    for i, code, _ in reversed(list(d.pairs())):
        if code == 100:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def subclass_marker_misspelt(d):
    i = d.find(100, "AcDbLine", d.entity("LINE")[0])
    d.set(i, "AcDbLines")
    return MAY


@flaw("R2000")
def owners_missing_in_all_entities(d):
    for i, code, _ in reversed(list(d.pairs(*d.section("ENTITIES")))):
        if code == 330:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def owners_missing_in_blocks(d):
    for i, code, _ in reversed(list(d.pairs(*d.section("BLOCKS")))):
        if code == 330:
            d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def common_properties_behind_the_type_s_marker(d):
    meant = d.copy()
    begin, _ = d.entity("LINE")
    for code in (8, 62):
        i = d.find(code, None, begin)
        pair = d.lines[i:i + 2]
        d.remove(i, i + 2)
        d.insert(d.find(100, "AcDbLine", begin) + 2, *pair)
    return [MAY, meant]


@flaw("R2000")
def lineweight_behind_the_type_s_marker(d):
    begin, _ = d.entity("ELLIPSE")
    i = d.find(370, None, begin)
    pair = d.lines[i:i + 2]
    d.remove(i, i + 2)
    d.insert(d.find(100, "AcDbEllipse", begin) + 2, *pair)
    return MAY
