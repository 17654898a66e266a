"""Unknown entities and objects, layers that no table names, what newer files hold."""

import io

from base_drawings import drawing_of
from flaw import MAY, NONE, Flawed, flaw


# -- unknown entities and objects

WALL = ("  0", "TCH_WALL", "  5", "{}", "330", "{}", "100", "AcDbEntity", "  8", "WALLS",
        "100", "TDbWall", " 10", "1.0", " 20", "2.0", " 40", "240.0", " 90", "7", "290", "1",
        "310", "0102FF", "1001", "TCH", "1000", "words")


def wall(handle, owner):
    return [line.format(handle if i == 3 else owner) if line == "{}" else line
            for i, line in enumerate(WALL)]


@flaw("R2000", skipped={"TCH_WALL": 3})
def unknown_entity_type(d):
    owner = d.lines[d.group("LINE", 330) + 1]
    for number, kind in enumerate(("CIRCLE", "TEXT", "INSERT")):
        i, _ = d.entity(kind)
        d.insert(i, *wall(f"F{number}0F", owner))
    return NONE


@flaw("BARE", skipped={"TCH_OPENING": 1})
def unknown_entity_type_in_R12(d):
    i, _ = d.entity("ARC")
    d.insert(i, "  0", "TCH_OPENING", "  8", "DOORS", " 10", "1.0", " 20", "2.0", "  1", "x")
    return NONE


@flaw("BARE", skipped={"VENDORTHING": 1})
def unknown_entity_type_at_the_start(d):
    i, _ = d.entity("LINE")
    d.insert(i, "  0", "VENDORTHING", "  8", "DOORS", " 10", "1.0", " 20", "2.0")
    return NONE


@flaw("R2000", skipped={"TCH_WALL": 1})
def unknown_entity_type_in_a_block(d):
    i, _ = d.entity("CIRCLE", 0, "BLOCKS")
    owner = d.lines[d.group("CIRCLE", 330, 0, "BLOCKS") + 1]
    d.insert(i, *wall("FF0F", owner))
    return NONE


@flaw("R2000")
def unknown_object(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "VENDOROBJECT", "  5", "FE01", "330", "0", "100", "VdObject",
             " 90", "7", " 10", "1.0", "162", "3", "1", "x")
    return MAY


@flaw("R2000")
def proxy_object_with_unusual_codes(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "ACAD_PROXY_OBJECT", "  5", "FE02", "330", "0",
             "100", "AcDbProxyObject", " 90", "499", " 91", "500", " 95", "2", " 70", "0",
             "162", "8", " 93", "16", "310", "0102")
    return MAY


@flaw("R2000")
def field_with_unusual_codes(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "FIELD", "  5", "FE03", "330", "0", "100", "AcDbField", "  1", "AcVar",
             "  2", "\\AcVar Date", " 90", "0", " 97", "0", " 91", "63", " 92", "0", " 94", "59",
             " 95", "2", " 96", "0", "300", "", " 93", "0", "  7", "ACFD_FIELD_VALUE", " 93", "4",
             "298", "1", "177", "3")
    return MAY


@flaw("R2000")
def section_settings_with_unusual_codes(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "SECTIONSETTINGS", "  5", "FE06", "330", "0",
             "100", "AcDbSectionSettings", " 90", "2", " 91", "1", "  1", "SectionTypeSettings",
             " 90", "1", " 91", "0", " 92", "0", "177", "3", "  3", "SectionTypeSettingsEnd")
    return MAY


@flaw("R2000")
def associative_network_with_unusual_codes(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "ACDBASSOCNETWORK", "  5", "FE07", "330", "0", "100", "AcDbAssocAction",
             " 90", "2", " 90", "0", "330", "0", "360", "0", " 90", "0", " 90", "0", " 90", "0",
             "100", "AcDbAssocNetwork", " 90", "0", " 90", "0", " 90", "0", " 90", "0", "177", "3",
             "162", "1")
    return MAY


@flaw("R2000", skipped={"ACAD_PROXY_ENTITY|PROXY_ENTITY": 1})
def proxy_entity_with_unusual_codes(d):
    i, _ = d.entity("CIRCLE")
    owner = d.lines[d.group("LINE", 330) + 1]
    d.insert(i, "  0", "ACAD_PROXY_ENTITY", "  5", "FE04", "330", owner, "100", "AcDbEntity",
             "  8", "WALLS", "100", "AcDbProxyEntity", " 90", "498", " 91", "500", " 92", "8",
             "310", "0800000000000000", "162", "16", "310", "01", " 94", "0")
    return MAY


@flaw("R2000")
def block_rotate_action(d):
    begin, _ = d.section("OBJECTS")
    i = d.find(0, None, d.find(0, "DICTIONARY", begin) + 2)
    d.insert(i, "  0", "BLOCKROTATEACTION", "  5", "FE05", "330", "0",
             "100", "AcDbEvalExpr", " 90", "2", " 98", "33", " 99", "29",
             "100", "AcDbBlockElement", "300", "Rotate", " 98", "33", " 99", "29", "1071", "0",
             "100", "AcDbBlockAction", " 70", "0", " 71", "0", "1010", "1.0", "1020", "2.0",
             "1030", "0.0", "100", "AcDbBlockActionWithBasePt", "1011", "1.0", "1021", "2.0",
             "1031", "0.0", "280", "0", " 92", "2", "301", "UpdateBaseX", " 93", "2",
             "302", "UpdateBaseY", "100", "AcDbBlockRotationAction", " 94", "2",
             "303", "DeltaAngle")
    return MAY


@flaw("BARE")
def vertices_with_subclass_codes(d):
    """As older programs write them: codes of a polyface mesh on any vertex."""
    for number in range(3):
        i = d.group("VERTEX", 10, number)
        d.insert(i, "100", "AcDbVertex", "100", "AcDb2dVertex")
        _, end = d.entity("VERTEX", number)
        d.insert(end, " 71", "0", " 72", "0", " 70", "0")
    return MAY


@flaw("BARE", skipped={"POLYLINE_PFACE": 1})
def polyface_mesh(d):
    i, _ = d.entity("ARC")
    mesh = ["  0", "POLYLINE", "  8", "WALLS", " 66", "1", " 70", "64", " 71", "4", " 72", "1"]
    for x, y in ((0, 0), (1, 0), (1, 1), (0, 1)):
        mesh += ["  0", "VERTEX", "  8", "WALLS", " 10", f"{x}.0", " 20", f"{y}.0", " 30", "0.0",
                 " 70", "192"]
    mesh += ["  0", "VERTEX", "  8", "WALLS", " 10", "0.0", " 20", "0.0", " 30", "0.0",
             " 70", "128", " 71", "1", " 72", "2", " 73", "3", " 74", "4", "  0", "SEQEND"]
    d.insert(i, *mesh)
    return NONE


# -- layers

@flaw("R2000")
def layer_that_no_table_names(d):
    i = d.group("CIRCLE", 8)
    meant = d.copy()
    d.set(i, "ELSEWHERE")
    meant.set(i, "ELSEWHERE")
    return [MAY, meant]


@flaw("R12")
def layer_that_no_table_names_in_R12(d):
    i = d.group("CIRCLE", 8)
    d.set(i, "ELSEWHERE")
    return [MAY, d.copy()]


@flaw("R12")
def layer_name_with_blanks_behind(d):
    i = d.group("CIRCLE", 8)
    d.set(i, d.lines[i + 1] + "  ")
    return MAY


@flaw("R2000")
def layer_name_with_blanks_behind_in_R2000(d):
    i = d.group("CIRCLE", 8)
    d.set(i, d.lines[i + 1] + "  ")
    return MAY


@flaw("R12")
def layer_name_in_another_case(d):
    i = d.group("CIRCLE", 8)
    d.set(i, d.lines[i + 1].lower())
    return MAY


@flaw("R2000")
def layer_name_in_another_case_in_R2000(d):
    i = d.group("CIRCLE", 8)
    d.set(i, d.lines[i + 1].lower())
    return MAY


@flaw("R2000", no_flags=True)
def layer_table_empty(d):
    begin, end = d.table("LAYER")
    d.remove(d.find(0, "LAYER", begin), end)
    return MAY


@flaw("R12")
def block_name_in_another_case(d):
    i = d.group("INSERT", 2)
    d.set(i, "Window")
    return MAY


# -- what newer and good files hold

@flaw("R2018")
def embedded_object_in_a_multi_line_text(d):
    _, end = d.entity("MTEXT")
    d.insert(end, "101", "Embedded Object", " 70", "1", " 10", "1.0", " 20", "0.0", " 30", "0.0",
             " 11", "50.5", " 21", "40.5", " 31", "0.0", " 40", "30.25", " 41", "0.0",
             " 42", "12.5", " 43", "4.25", " 71", "0", " 72", "0", " 44", "0.0", " 45", "0.0")
    return NONE


def with_true_color(d, kind):
    i = d.group(kind, 62)
    d.insert(i + 2, "420", str(0x3264C8))
    return i


@flaw("R2018")
def true_colour_beside_an_index(d):
    with_true_color(d, "LINE")
    return [NONE, d.copy()]


@flaw("R2018")
def true_colour_before_the_index(d):
    i = with_true_color(d, "LINE")
    meant = d.copy()
    pair = d.lines[i:i + 2]
    d.remove(i, i + 2)
    d.insert(i + 2, *pair)
    return [NONE, meant]


@flaw("R2018")
def true_colour_with_a_name(d):
    i = with_true_color(d, "ARC")
    meant = d.copy()
    d.insert(i + 4, "430", "PANTONE$Blue")
    return [NONE, meant]


def binary(release):
    stream = io.BytesIO()
    drawing_of(release).write(stream, fmt="bin")
    return stream.getvalue()


@flaw("R2000")
def binary_with_wide_codes(_):
    return Flawed(binary("R2000"))


@flaw("R12")
def binary_with_narrow_codes(_):
    return Flawed(binary("R12"))


@flaw("R2018")
def binary_of_R2018(_):
    return Flawed(binary("R2018"))


def sentinel_flaw(name, release, sentinel, repairs=NONE):
    def edit(_):
        return Flawed(sentinel + binary(release)[22:], repairs=repairs)
    flaw(release, name)(edit)


sentinel_flaw("binary_sent_as_text", "R2000", b"AutoCAD Binary DXF\n\x1a\0")
sentinel_flaw("binary_of_R12_sent_as_text", "R12", b"AutoCAD Binary DXF\r\r\n\x1a\0")
sentinel_flaw("binary_with_a_byte_order_mark", "R2018",
              b"\xef\xbb\xbfAutoCAD Binary DXF\r\n\x1a\0", MAY)
sentinel_flaw("binary_with_a_comment_at_the_start", "R2018",
              b"AutoCAD Binary DXF\r\n\x1a\0\xe7\x03a comment\0")
sentinel_flaw("binary_of_R12_with_a_comment_at_the_start", "R12",
              b"AutoCAD Binary DXF\r\n\x1a\0\xff\xe7\x03a comment\0")


@flaw("R2000")
def binary_cut_in_the_middle(d):
    data = binary("R2000")
    mark = data.index(b"\0\0SOLID\0")
    meant = d.copy()
    begin, _ = d.entity("SOLID")
    meant.lines = d.lines[:begin] + ["  0", "ENDSEC", "  0", "EOF"]
    return Flawed(data[:mark + 20], meant.bytes(), (None, None), warned=True)


@flaw("R12")
def binary_without_EOF(_):
    data = binary("R12")
    return Flawed(data[:data.rindex(b"\0EOF\0")], repairs=(1, None))
