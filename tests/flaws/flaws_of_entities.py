"""Flaws within entities: missing groups and markers, counts, parts in a wrong place."""

from dxf_lines import DxfLines
from flaw import MAY, NONE, flaw, near


def spans(d, kind, section="ENTITIES"):
    """Where each entity of a type begins and ends, the last one first."""
    begin, end = d.section(section)
    starts = [(i, value.strip()) for i, code, value in d.pairs(begin, end) if code == 0]
    found = [(i, behind) for (i, name), (behind, _) in zip(starts, [*starts[1:], (end, "")])
             if name == kind]
    return list(reversed(found))


def without_groups(d, kind, *codes, section="ENTITIES"):
    for begin, end in spans(d, kind, section):
        for i in range(end - 2, begin, -2):
            if int(d.lines[i]) in codes:
                d.remove(i, i + 2)


# -- groups that an entity cannot do without

@flaw("R12")
def fourth_corner_missing(d):
    """A triangle, which good files write with the third corner again."""
    meant = d.copy()
    for code in (13, 23):
        meant.set(meant.group("SOLID", code), d.lines[d.group("SOLID", code - 1) + 1])
    without_groups(d, "SOLID", 13, 23, 33)
    return [near(1, d.entity("SOLID")[0]), meant]


@flaw("R2000")
def fourth_corner_missing_in_R2000(d):
    meant = d.copy()
    for code in (13, 23):
        meant.set(meant.group("SOLID", code), d.lines[d.group("SOLID", code - 1) + 1])
    without_groups(d, "SOLID", 13, 23, 33)
    return [near(1, d.entity("SOLID")[0]), meant]


@flaw("R2000")
def ends_of_an_ellipse_missing(d):
    meant = d.copy()
    meant.set(meant.group("ELLIPSE", 41), "0.0")
    meant.set(meant.group("ELLIPSE", 42), "6.283185307179586")
    without_groups(d, "ELLIPSE", 41, 42)
    return [near(2, d.entity("ELLIPSE")[0]), meant]


@flaw("R2018")
def attachment_of_a_multi_line_text_missing(d):
    meant = d.copy()
    meant.set(meant.group("MTEXT", 71), "1")
    without_groups(d, "MTEXT", 71)
    return [near(1, d.entity("MTEXT")[0]), meant]


@flaw("R12")
def vertices_of_a_3D_polyline_without_flags(d):
    begin, end = d.entity("POLYLINE", 1)
    first = sum(i < begin for i, _ in spans(d, "VERTEX"))
    for i, code, _ in reversed(list(d.pairs(end, d.find(0, "SEQEND", end)))):
        if code == 70:
            d.remove(i, i + 2)
    return near(3, d.entity("VERTEX", first)[0])


@flaw("BARE")
def polyline_that_does_not_announce_its_vertices(d):
    without_groups(d, "POLYLINE", 66)
    return NONE


@flaw("R12")
def text_of_many_bytes(d):
    d.set(d.group("TEXT", 1), "twelve bytes " * 9000)
    return [NONE, d.copy()]


@flaw("R2018")
def multi_line_text_of_many_bytes_in_one_line(d):
    d.set(d.group("MTEXT", 1), "twelve bytes " * 9000)
    return [NONE, d.copy()]


# -- counts

def leader(count):
    return ("  0", "LEADER", "  5", "FA01", "330", "{}", "100", "AcDbEntity", "  8", "NOTES",
            "100", "AcDbLeader", "  3", "Standard", " 71", "1", " 72", "0", " 73", "3", " 74", "1",
            " 75", "0", " 40", "1.0", " 41", "1.0", " 76", count, " 10", "1.5", " 20", "200.5",
            " 30", "0.0", " 10", "5.5", " 20", "205.5", " 30", "0.0")


def count_flaw(name, count):
    def edit(d):
        i, _ = d.entity("CIRCLE")
        owner = d.lines[d.group("CIRCLE", 330) + 1]
        meant = d.copy()
        meant.insert(i, *(line.format(owner) for line in leader("2")))
        d.insert(i, *(line.format(owner) for line in leader(count or "2")))
        if count is None:
            position = d.find(76, None, i)
            d.remove(position, position + 2)
        return [near(1, i), meant]
    flaw("R2000", name)(edit)


count_flaw("count_of_points_too_large", "99999999")
count_flaw("count_of_points_too_small", "1")
count_flaw("count_of_points_negative", "-1")
count_flaw("count_of_points_missing", None)


HATCH_PATHS = {
    "corners": (" 92", "2", " 72", "0", " 73", "1", " 93", "{count}", " 10", "0.0", " 20", "210.0",
                " 10", "4.0", " 20", "210.0", " 10", "4.0", " 20", "214.0"),
    "edges": (" 92", "1", " 93", "{count}", " 72", "1", " 10", "10.0", " 20", "210.0", " 11", "14.0",
              " 21", "210.0", " 72", "1", " 10", "14.0", " 20", "210.0", " 11", "14.0", " 21",
              "214.0", " 72", "1", " 10", "14.0", " 20", "214.0", " 11", "10.0", " 21", "210.0"),
}


def hatch(owner, **counts):
    """A hatch with a path of three corners and one of three edges; a count of None is
    left out with its group."""
    lines = ["  0", "HATCH", "  5", "FA02", "330", owner, "100", "AcDbEntity", "  8", "NOTES", "100",
             "AcDbHatch", " 10", "0.0", " 20", "0.0", " 30", "0.0", "210", "0.0", "220", "0.0",
             "230", "1.0", "  2", "SOLID", " 70", "1", " 71", "0", " 91", "2"]
    for kind, path in HATCH_PATHS.items():
        count = counts.get(kind, "3")
        at = path.index(" 93")
        path = path if count is not None else path[:at] + path[at + 2:]
        lines += [line.format(count=count) for line in path] + [" 97", "0"]
    return (*lines, " 75", "0", " 76", "1", " 98", "0")


def hatch_flaw(name, wrong, **counts):
    def edit(d):
        i, _ = d.entity("CIRCLE")
        owner = d.lines[d.group("CIRCLE", 330) + 1]
        meant = d.copy()
        meant.insert(i, *hatch(owner))
        d.insert(i, *hatch(owner, **counts))
        return [near(wrong, i) if wrong else NONE, meant]
    flaw("R2000", name)(edit)


hatch_flaw("counts_of_paths_as_they_are", 0)
for part in HATCH_PATHS:
    for words, number in (("too_large", "99999999"), ("too_small", "2"), ("missing", None)):
        hatch_flaw(f"count_of_{part}_of_a_path_{words}", 1, **{part: number})
hatch_flaw("counts_of_two_paths_too_small", 2, corners="1", edges="1")


# -- markers, owners and the common part

@flaw("R2000")
def marker_of_the_common_part_missing(d):
    for kind in ("LINE", "ELLIPSE", "MTEXT"):
        for begin, end in spans(d, kind):
            i = d.find(100, "AcDbEntity", begin, end)
            d.remove(i, i + 2)
    return (None, near(1, d.entity("LINE")[0])[1])


@flaw("R2000")
def only_the_marker_of_the_common_part(d):
    for kind in ("LINE", "ELLIPSE", "MTEXT", "LWPOLYLINE", "INSERT"):
        for begin, end in spans(d, kind):
            for i in range(end - 2, begin, -2):
                if d.lines[i].strip() == "100" and d.lines[i + 1] != "AcDbEntity":
                    d.remove(i, i + 2)
    return MAY


@flaw("R2000")
def layer_behind_the_points_of_a_polyline(d):
    i = d.group("LWPOLYLINE", 8)
    layer = d.lines[i:i + 2]
    d.remove(i, i + 2)
    _, end = d.entity("LWPOLYLINE")
    d.insert(end, *layer)
    return near(1, end)


@flaw("R2000")
def owner_of_an_attribute_dangling(d):
    i = d.group("ATTRIB", 330)
    d.set(i, "DEAD")
    return (1, range(d.entity("ATTRIB")[0] - 1, i + 4))


RADIUS = ("  0", "DIMENSION", "  5", "FA02", "330", "{}", "100", "AcDbEntity", "  8", "NOTES",
          "100", "AcDbDimension", " 10", "40.5", " 20", "12.5", " 30", "0.0", " 11", "45.5",
          " 21", "17.5", " 31", "0.0", " 70", "4", "  1", "", "  3", "Standard",
          "100", "AcDbRadialDimension", " 15", "45.625", " 25", "17.625", " 35", "0.0",
          " 40", "0.0")


def radius(d):
    i, _ = d.entity("CIRCLE")
    owner = d.lines[d.group("CIRCLE", 330) + 1]
    d.insert(i, *(line.format(owner) for line in RADIUS))
    return i


@flaw("R2000")
def dimension_without_markers(d):
    i = radius(d)
    meant = d.copy()
    _, end = d.entity("DIMENSION")
    for position, code, _ in reversed(list(d.pairs(i, end))):
        if code == 100:
            d.remove(position, position + 2)
    return [near(1, i), meant]


@flaw("R2000")
def markers_of_a_dimension_in_capitals(d):
    i = radius(d)
    meant = d.copy()
    _, end = d.entity("DIMENSION")
    for position, code, value in list(d.pairs(i, end)):
        if code == 100 and value != "AcDbEntity":
            d.set(position, value.upper())
    return [near(1, i), meant]


@flaw("R2000")
def entity_among_the_objects(d):
    begin, end = d.entity("CIRCLE")
    circle = d.lines[begin:end]
    d.remove(begin, end)
    d.insert(d.section("OBJECTS")[1], *circle)
    return MAY


# -- lines within entities

def in_each(kind, *lines):
    """Lines behind every group of the entities of a type."""
    def edit(d):
        first = d.entity(kind)[0]
        count = 0
        for begin, end in spans(d, kind):
            for i in range(end, begin, -2):
                d.insert(i, *lines)
                count += 1
        return first, count
    return edit


@flaw("R12")
def blank_line_behind_every_group(d):
    first, count = in_each("LINE", "")(d)
    return near(count, first)


@flaw("R2000")
def blank_line_behind_every_group_of_an_ellipse(d):
    first, count = in_each("ELLIPSE", "")(d)
    return near(count, first)


@flaw("R2000")
def negative_group_code_before_numbers(d):
    """What follows are numbers that could be group codes."""
    i = d.group("LWPOLYLINE", 20)
    d.insert(i, "-666", "7")
    return (1, near(1, i)[1])


@flaw("R2000")
def all_integers_of_an_entity_as_decimals(d):
    """Values as 0.0 and 8.0 read like group codes, too."""
    begin, end = spans(d, "LWPOLYLINE")[0]
    positions = [i for i in range(begin, end, 2) if 60 <= int(d.lines[i]) <= 99]
    for i in positions:
        d.set(i, d.lines[i + 1].strip() + ".0")
    return near(len(positions), positions[0])


@flaw("R2000")
def integers_empty_one_behind_another(d):
    i = d.group("LWPOLYLINE", 70)
    meant = d.copy()
    meant.set(i, "0")
    meant.insert(i, " 60", "0", " 66", "0")
    d.set(i, "")
    d.insert(i, " 60", "", " 66", "")
    assert isinstance(meant, DxfLines)
    return [near(3, i), meant]
