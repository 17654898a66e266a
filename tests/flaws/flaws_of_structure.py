"""Flaws of the structure: missing ends, sections and tables, files that break off."""

from dxf_lines import DxfLines, line_number
from flaw import MAY, NONE, SPREAD, Flawed, flaw, near


# -- missing ends, sections, tables

@flaw("R2018")
def section_name_of_the_header_missing(d):
    begin, _ = d.section("HEADER")
    d.remove(begin - 2, begin)
    return (1, None)


@flaw("R2000")
def groups_before_the_first_header_variable(d):
    d.insert(d.section("HEADER")[0], " 70", "5", "  5", "7A")
    return MAY


def missing_end(name, base, where):
    """A flaw that leaves out the pair at the position that `where` gives."""
    def edit(d):
        i = where(d)
        d.remove(i, i + 2)
        return (1, near(1, i)[1])
    flaw(base, name)(edit)


missing_end("ENDSEC_missing_behind_the_header", "R2000", lambda d: d.section("HEADER")[1])
missing_end("ENDSEC_missing_behind_the_tables", "R2000", lambda d: d.section("TABLES")[1])
missing_end("ENDSEC_missing_behind_the_blocks", "R12", lambda d: d.section("BLOCKS")[1])
missing_end("ENDSEC_missing_behind_the_entities", "R2000", lambda d: d.section("ENTITIES")[1])
missing_end("ENDSEC_missing_before_EOF", "R12", lambda d: d.section("ENTITIES")[1])
missing_end("ENDTAB_missing_behind_the_layers", "R2000", lambda d: d.table("LAYER")[1])
missing_end("ENDTAB_missing_at_the_end_of_the_tables", "R2000",
            lambda d: d.table("BLOCK_RECORD")[1])


def without_entity(d, kind, number=0, section="ENTITIES"):
    begin, end = d.entity(kind, number, section)
    d.remove(begin, end)
    return (1, range(line_number(begin) - SPREAD, line_number(end) + SPREAD))


@flaw("R2000")
def ENDBLK_missing(d):
    return without_entity(d, "ENDBLK", 2, "BLOCKS")


@flaw("R12")
def ENDBLK_missing_in_R12(d):
    return without_entity(d, "ENDBLK", 2, "BLOCKS")


@flaw("R12")
def SEQEND_missing_behind_a_polyline(d):
    return without_entity(d, "SEQEND")


@flaw("R2000")
def SEQEND_missing_behind_a_polyline_of_R2000(d):
    return without_entity(d, "SEQEND")


@flaw("R2000")
def SEQEND_missing_behind_attributes(d):
    return without_entity(d, "SEQEND", 1)


@flaw("R2000")
def SEQEND_without_a_polyline(d):
    i, _ = d.entity("CIRCLE")
    d.insert(i, "  0", "SEQEND", "  8", "0")
    return MAY


@flaw("R2000")
def entities_in_two_sections(d):
    i, _ = d.entity("ARC")
    d.insert(i, "  0", "ENDSEC", "  0", "SECTION", "  2", "ENTITIES")
    return MAY


@flaw("R2000")
def header_twice(d):
    begin, end = d.section("HEADER")
    d.insert(end + 2, "  0", "SECTION", "  2", "HEADER", "  9", "$ACADVER", "  1", "AC1015",
             "  0", "ENDSEC")
    return MAY


@flaw("R2000")
def unknown_section(d):
    i = d.section("ENTITIES")[0] - 4
    d.insert(i, "  0", "SECTION", "  2", "VENDORDATA", "  0", "LINE", "  8", "0", " 10", "1.0",
             "  0", "THING", "  1", "x", "  0", "ENDSEC")
    return MAY


@flaw("R12")
def unknown_section_in_R12(d):
    i = d.section("ENTITIES")[0] - 4
    d.insert(i, "  0", "SECTION", "  2", "VENDORDATA", "  1", "words", " 70", "7",
             "  0", "ENDSEC")
    return MAY


@flaw("R2000")
def unknown_table(d):
    begin, _ = d.table("LAYER")
    d.insert(begin, "  0", "TABLE", "  2", "PENS", " 70", "1", "  0", "PEN", "  2", "RED",
             "  0", "ENDTAB")
    return MAY


@flaw("R2000")
def unknown_header_variables(d):
    d.insert(d.section("HEADER")[0], "  9", "$VENDORSCALE", " 40", "2.0", "  9", "$VENDORPOINT",
             " 10", "1.0", " 20", "2.0", " 30", "3.0", "  9", "$VENDORNAME", "  1", "x")
    return MAY


@flaw("R2000")
def header_variable_without_a_value(d):
    d.insert(d.section("HEADER")[0], "  9", "$LTSCALE")
    return MAY


def acadver(d):
    return d.find(9, "$ACADVER") + 2


@flaw("R2000")
def release_unknown_and_new(d):
    i = acadver(d)
    d.set(i, "AC9999")
    return near(1, i)


@flaw("BARE")
def release_unknown_and_old(d):
    i = acadver(d)
    d.set(i, "AC1000")
    return MAY


@flaw("R2018")
def release_in_lower_case(d):
    i = acadver(d)
    d.set(i, "ac1032")
    return MAY


@flaw("R2018")
def release_behind_another_group_code(d):
    d.lines[acadver(d)] = "  3"
    return MAY


@flaw("R2000")
def release_that_is_no_release(d):
    i = acadver(d)
    d.set(i, "DXF 2000")
    return near(1, i)


@flaw("BARE")
def release_missing(d):
    i = acadver(d)
    d.remove(i - 2, i + 2)
    return MAY


@flaw("R2000")
def release_missing_in_R2000(d):
    i = acadver(d)
    d.remove(i - 2, i + 2)
    return MAY


@flaw("R2000")
def code_page_spelt_in_another_way(d):
    i = d.find(9, "$DWGCODEPAGE") + 2
    d.set(i, "cp1252")
    return MAY


@flaw("R12")
def code_page_unknown(d):
    i = d.find(9, "$DWGCODEPAGE") + 2
    d.set(i, "MARS_7")
    return MAY


def without_section(d, name):
    begin, end = d.section(name)
    d.remove(begin - 4, end + 2)


@flaw("BARE")
def no_header(d):
    without_section(d, "HEADER")
    return MAY


@flaw("R2000")
def no_header_in_R2000(d):
    without_section(d, "HEADER")
    return MAY


@flaw("BARE", no_flags=True)
def no_tables(d):
    without_section(d, "TABLES")
    return MAY


@flaw("R2000", no_flags=True)
def no_tables_in_R2000(d):
    without_section(d, "TABLES")
    return MAY


@flaw("BARE", no_flags=True)
def blocks_and_entities_only(d):
    without_section(d, "HEADER")
    without_section(d, "TABLES")
    return MAY


def entities_of(d, section, *kinds):
    """The lines of the sections' entities of some types, as a good R12 file has them."""
    begin, end = d.section(section)
    found, keep = [], False
    for i, code, _ in d.pairs(begin, end):
        if code == 0:
            keep = d.lines[i + 1] in kinds
        if keep:
            found += d.lines[i:i + 2]
    return found


def only_entities(lines):
    return ["  0", "SECTION", "  2", "ENTITIES", *lines, "  0", "ENDSEC", "  0", "EOF"]


@flaw("BARE")
def entities_only(d):
    meant = DxfLines(only_entities(entities_of(d, "ENTITIES", "LINE", "CIRCLE", "ARC", "TEXT")))
    d.lines = list(meant.lines)
    return [MAY, meant]


@flaw("BARE")
def file_of_less_than_256_bytes(d):
    begin, end = d.entity("LINE")
    d.lines = only_entities(d.lines[begin:end])
    d.lines = [line.strip() for line in d.lines]
    assert len(d.bytes()) < 256
    return [MAY, d.copy()]


@flaw("BARE")
def file_of_less_than_128_bytes(d):
    d.lines = only_entities(["0", "POINT", "8", "A", "10", "1.5", "20", "2.5"])
    assert len(d.bytes()) < 128
    return [MAY, d.copy()]


@flaw("BARE")
def blocks_only(d):
    without_section(d, "HEADER")
    without_section(d, "TABLES")
    without_section(d, "ENTITIES")
    return [MAY, d.copy()]


@flaw("R2000")
def no_block_record_table(d):
    begin, end = d.table("BLOCK_RECORD")
    d.remove(begin, end + 2)
    return MAY


@flaw("R2000")
def no_block_records_but_those_of_layouts(d):
    begin, end = d.table("BLOCK_RECORD")
    for name in ("HANDLE", "WINDOW"):
        i = d.find(2, name, begin)
        start = max(p for p, code, _ in d.pairs(begin, i) if code == 0)
        d.remove(start, d.find(0, None, i))
    return MAY


def doubled(d, table):
    begin, _ = d.table(table)
    first = d.find(0, table, begin)
    behind = d.find(0, None, first + 2)
    d.insert(behind, *d.lines[first:behind])
    return near(1, behind)


@flaw("R2000")
def layer_twice_in_the_table(d):
    return doubled(d, "LAYER")


@flaw("R12")
def layer_twice_in_the_table_of_R12(d):
    return doubled(d, "LAYER")


@flaw("R2000")
def block_record_twice(d):
    return doubled(d, "BLOCK_RECORD")


@flaw("R2000")
def block_records_without_names(d):
    begin, end = d.table("BLOCK_RECORD")
    for i, code, value in reversed(list(d.pairs(begin, end))):
        if code == 2 and value in ("*Model_Space", "WINDOW"):
            d.remove(i, i + 2)
    return (2, range(begin + 1, end))


@flaw("R2000")
def table_of_layers_twice(d):
    begin, end = d.table("LAYER")
    d.insert(end + 2, *d.lines[begin:end + 2])
    return MAY


def blanks_behind_names(d, table):
    for i, code, value in list(d.pairs(*d.table(table))):
        if code == 2 and value != table:
            d.set(i, value + "  ")
    return NONE


@flaw("R2000")
def layer_names_in_the_table_with_blanks_behind(d):
    return blanks_behind_names(d, "LAYER")


@flaw("R12")
def layer_names_in_the_table_of_R12_with_blanks_behind(d):
    return blanks_behind_names(d, "LAYER")


@flaw("R2018")
def block_records_with_blanks_behind_their_names(d):
    return blanks_behind_names(d, "BLOCK_RECORD")


@flaw("R2000")
def block_name_with_a_blank_behind_in_a_reference(d):
    i = d.group("INSERT", 2)
    d.set(i, d.lines[i + 1] + " ")
    return NONE


@flaw("R2000")
def names_of_spaces_in_capitals(d):
    for i, code, value in list(d.pairs()):
        if code in (2, 3) and value.startswith(("*Model_Space", "*Paper_Space")):
            d.set(i, value.upper())
    return NONE


@flaw("R12")
def blocks_with_their_second_name_only(d):
    names = [i for i, code, _ in d.pairs(*d.section("BLOCKS")) if code in (0, 2)]
    for i, behind in reversed(list(zip(names, names[1:]))):
        if d.lines[i + 1] == "BLOCK" and d.lines[behind].strip() == "2":
            d.remove(behind, behind + 2)
    return NONE


@flaw("R2000")
def no_classes_and_no_objects(d):
    without_section(d, "CLASSES")
    without_section(d, "OBJECTS")
    return MAY


@flaw("R2000")
def table_counts_too_large_and_too_small(d):
    begin, end = d.table("LAYER")
    d.set(d.find(70, None, begin, end), "99999")
    begin, end = d.table("BLOCK_RECORD")
    d.set(d.find(70, None, begin, end), "0")
    return MAY


# -- the end of the file

@flaw("R2000")
def junk_behind_EOF(d):
    return Flawed(d.bytes() + b"junk\nmore junk 12\n0\nLINE\n", repairs=MAY)


@flaw("R12")
def NULs_behind_EOF(d):
    return Flawed(d.bytes() + b"\0" * 1000, repairs=MAY)


@flaw("R12")
def control_Z_behind_EOF(d):
    return Flawed(d.bytes() + b"\x1a", repairs=MAY)


@flaw("BARE")
def control_Z_and_NULs_behind_EOF(d):
    return Flawed(d.bytes("\r\n") + b"\x1a" + b"\0" * 127, repairs=MAY)


@flaw("R2000")
def EOF_missing(d):
    i = d.find(0, "EOF")
    d.remove(i, i + 2)
    return (1, None)


@flaw("BARE")
def EOF_missing_in_R12(d):
    i = d.find(0, "EOF")
    d.remove(i, i + 2)
    return (1, None)


def cut(name, base, where):
    """A file that breaks off in its last line but holds whole entities before it."""
    def edit(d):
        position = where(d)
        start = max(i for i, code, _ in d.pairs(0, position) if code == 0)
        meant = d.copy()
        meant.lines = d.lines[:start] + ["  0", "ENDSEC", "  0", "EOF"]
        d.lines = d.lines[:position]
        return Flawed(d.bytes().rstrip(b"\n"), meant.bytes(), (None, None), warned=True)
    flaw(base, name)(edit)


cut("cut_behind_a_group_code", "R12", lambda d: d.group("TEXT", 40) + 1)
cut("cut_within_an_entity", "BARE", lambda d: d.group("TEXT", 20))
cut("cut_within_an_entity_of_R2000", "R2000", lambda d: d.group("MTEXT", 10))
cut("cut_behind_the_name_of_an_entity", "R2000", lambda d: d.entity("SOLID")[0] + 2)
