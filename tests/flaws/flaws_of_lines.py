"""Flaws of lines: names, comments, line ends, lines that are no pair, unexpected codes."""

from flaw import MAY, NONE, Flawed, flaw, near


# -- names behind group 0

def rename(d, begin, end, change):
    positions = [i for i, code, _ in d.pairs(begin, end) if code == 0]
    for i in positions:
        d.set(i, change(d.lines[i + 1]))
    return positions


@flaw("R2000")
def entity_names_in_lower_case(d):
    positions = rename(d, *d.section("ENTITIES"), str.lower)
    return near(len(positions), positions[0])


@flaw("R12")
def entity_names_with_blanks_behind(d):
    positions = rename(d, *d.section("ENTITIES"), lambda name: name + "  ")
    return MAY if positions else NONE


@flaw("R12")
def one_entity_name_with_a_blank_behind(d):
    i, _ = d.entity("CIRCLE")
    d.set(i, "CIRCLE ")
    return MAY


@flaw("R12")
def all_names_in_lower_case(d):
    positions = rename(d, 0, len(d.lines), str.lower)
    return near(len(positions), positions[0])


@flaw("R2000")
def section_names_with_blanks_behind(d):
    for i, code, value in list(d.pairs()):
        if code == 0 and value in ("SECTION", "ENDSEC", "TABLE", "ENDTAB", "EOF"):
            d.set(i, value + " ")
    return MAY


@flaw("R2000")
def header_variables_in_lower_case(d):
    positions = [i for i, code, _ in d.pairs(*d.section("HEADER")) if code == 9]
    for i in positions:
        d.set(i, d.lines[i + 1].lower())
    return near(len(positions), positions[0])


@flaw("R2018")
def header_variables_with_blanks_around(d):
    positions = [i for i, code, _ in d.pairs(*d.section("HEADER")) if code == 9]
    for i in positions:
        d.set(i, f"  {d.lines[i + 1]} ")
    return near(len(positions), positions[0])


# -- comments, line ends, what stands before and between pairs

@flaw("R2000")
def comment_at_the_start(d):
    d.insert(0, "999", "written by hand")
    return NONE


@flaw("R2000")
def comments_between_entities(d):
    for number in range(2):
        i, _ = d.entity("LINE", number)
        d.insert(i, "999", "a comment")
    return NONE


@flaw("R2000")
def comments_between_groups(d):
    d.insert(d.group("LINE", 10), "999", "the start")
    d.insert(d.group("LINE", 20), "999", "0")
    d.insert(d.group("LWPOLYLINE", 20), "999", "a vertex")
    return NONE


@flaw("R12")
def comment_in_the_header_and_tables(d):
    d.insert(d.section("TABLES")[0], "999", "SECTION")
    d.insert(d.section("HEADER")[0], "999", "$ACADVER")
    d.insert(d.table("LAYER")[0] + 6, "999", "layers")
    return NONE


@flaw("R2018")
def comment_before_the_name_of_the_header(d):
    d.insert(d.section("HEADER")[0] - 2, "999", "a comment")
    return NONE


@flaw("R12")
def comment_before_the_end(d):
    d.insert(d.find(0, "EOF"), "999", "the end")
    return NONE


@flaw("R2018")
def byte_order_mark(d):
    return Flawed(b"\xef\xbb\xbf" + d.bytes(), repairs=MAY)


@flaw("BARE", "byte_order_mark_in_R12")
def byte_order_mark_old(d):
    return Flawed(b"\xef\xbb\xbf" + d.bytes(), repairs=MAY)


@flaw("R2000")
def line_ends_CRLF(d):
    return Flawed(d.bytes("\r\n"))


@flaw("R2000")
def line_ends_CR(d):
    return Flawed(d.bytes("\r"), repairs=MAY)


@flaw("R2018")
def line_ends_LFCR(d):
    return Flawed(d.bytes("\n\r"), repairs=(len(d.lines), range(1, 2)))


@flaw("R2000")
def line_ends_mixed(d):
    data = b"".join(line.encode() + (b"\r\n", b"\n", b"\r")[i % 3]
                    for i, line in enumerate(d.lines))
    return Flawed(data, repairs=MAY)


@flaw("R12")
def line_ends_double_CR(d):
    return Flawed(d.bytes("\r\r\n"), repairs=(None, None))


@flaw("R2000")
def line_ends_doubled(d):
    return Flawed(d.bytes("\n\n"), repairs=(len(d.lines), range(2, 3)))


@flaw("R12")
def line_ends_CRLF_doubled(d):
    return Flawed(d.bytes("\r\n\r\n"), repairs=(len(d.lines), range(2, 3)))


@flaw("R2018")
def characters_of_16_bits_without_a_mark(d):
    return Flawed(d.bytes().decode().encode("utf-16-le"), repairs=(1, range(1, 2)))


@flaw("BARE")
def characters_of_16_bits_without_a_mark_in_R12(d):
    return Flawed(d.bytes().decode().encode("utf-16-be"), repairs=(1, range(1, 2)))


@flaw("R2000")
def file_of_32_bit_characters(d):
    return Flawed(d.bytes().decode().encode("utf-32"), repairs=(1, range(1, 2)))


@flaw("BARE")
def file_of_32_bit_characters_the_other_way_without_a_mark(d):
    return Flawed(d.bytes().decode().encode("utf-32-be"), repairs=(1, range(1, 2)))


@flaw("R12")
def NUL_at_the_end_of_every_line(d):
    return Flawed(d.bytes().replace(b"\n", b"\0\n"), repairs=MAY)


@flaw("R2000")
def no_line_end_behind_EOF(d):
    return Flawed(d.bytes().rstrip(b"\n"))


@flaw("R2000")
def blank_line_between_pairs(d):
    i = d.group("LINE", 10)
    d.insert(i, "")
    return near(1, i)


@flaw("R12")
def blank_line_between_entities(d):
    i, _ = d.entity("CIRCLE")
    d.insert(i, "")
    return near(1, i)


@flaw("R12")
def blank_lines_between_entities(d):
    i, _ = d.entity("CIRCLE")
    d.insert(i, "", "", "")
    return (None, near(1, i)[1])


@flaw("R12")
def blank_lines_at_the_start(d):
    d.insert(0, "", "")
    return (None, range(1, 5))


@flaw("R12")
def blank_lines_after_every_entity(d):
    starts = [i for i, code, _ in d.pairs(*d.section("ENTITIES")) if code == 0]
    for i in reversed(starts[1:]):
        d.insert(i, "")
    return near(len(starts) - 1, starts[1])


@flaw("R2000")
def stray_line_between_pairs(d):
    i = d.group("LINE", 10)
    d.insert(i, "stray words")
    return near(1, i)


@flaw("R12")
def stray_line_between_entities(d):
    i, _ = d.entity("ARC")
    d.insert(i, "--- arcs ---")
    return near(1, i)


@flaw("R12")
def stray_line_at_the_start(d):
    d.insert(0, "A drawing")
    return near(1, 0)


@flaw("R12")
def group_code_line_lost(d):
    """The value is left alone, and goes with it."""
    i = d.group("LINE", 62)
    meant = d.copy()
    meant.remove(i, i + 2)
    d.remove(i, i + 1)
    return [near(1, i), meant]


@flaw("R12")
def lines_of_different_entities_lost(d):
    """The pairs between the two lines are whole again by chance."""
    second = d.group("TEXT", 50)
    first = d.group("LINE", 62)
    meant = d.copy()
    for position in (second, first):
        meant.remove(position, position + 2)
        d.remove(position + 1, position + 2)
    return [(None, near(1, first)[1]), meant]


@flaw("R2000", any_text=True)
def text_broken_over_two_lines(d):
    i = d.group("TEXT", 1)
    d.insert(i + 2, "and a second line")
    return near(1, i)


@flaw("R2000", any_text=True)
def text_broken_before_a_number(d):
    i = d.group("TEXT", 1)
    d.insert(i + 2, "40")
    return near(1, i)


@flaw("R2018", any_text=True)
def multi_line_text_broken_over_three_lines(d):
    i = d.group("MTEXT", 1)
    d.insert(i + 2, "second line", "third line")
    return (None, near(1, i)[1])


# -- unexpected group codes

@flaw("R2000")
def unknown_group_codes_in_entities(d):
    d.insert(d.group("LINE", 10), "299", "1", " 95", "7", "469", "0.5", " 77", "3")
    d.insert(d.group("CIRCLE", 40), "298", "0", " 96", "7", "  4", "words")
    return MAY


@flaw("R12")
def unknown_group_codes_in_R12(d):
    d.insert(d.group("LINE", 10), "299", "1", " 95", "7", "  4", "words")
    d.insert(d.group("TEXT", 40), "298", "0", " 96", "7")
    return MAY


@flaw("R2000")
def negative_group_codes(d):
    d.insert(d.group("LINE", 10), "-5", "(application)", "-666", "7")
    return MAY


@flaw("R2000")
def group_codes_above_1071(d):
    d.insert(d.group("LINE", 10), "1080", "words", "5000", "7", "70000", "x")
    return MAY


@flaw("R2000")
def unknown_group_codes_in_a_layer(d):
    begin, end = d.table("LAYER")
    i = d.find(62, None, d.find(2, "WALLS", begin, end), end)
    d.insert(i, "299", "1", " 95", "7", "  4", "words")
    return MAY


@flaw("R2000")
def extended_data_without_an_application(d):
    _, end = d.entity("CIRCLE")
    d.insert(end, "1000", "words", "1070", "7", "1071", "99999999", "1040", "0.5")
    return MAY
