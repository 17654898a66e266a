"""Flaws of single values: group codes, whole numbers, decimals, their order."""

from flaw import MAY, NONE, flaw, near


# -- group codes and whole numbers

@flaw("R2000")
def group_codes_with_blanks_and_tabs(d):
    d.lines = [f"\t{line.strip()} \t" if i % 2 == 0 else line for i, line in enumerate(d.lines)]
    return MAY


def integer_positions(d, codes=(62, 70)):
    return [i for i, code, _ in d.pairs(*d.section("ENTITIES")) if code in codes]


@flaw("R2000")
def integers_with_blanks_and_tabs(d):
    for i in integer_positions(d):
        d.set(i, f"\t {d.lines[i + 1].strip()} \t")
    return MAY


@flaw("R2000")
def integer_as_decimal(d):
    i = d.group("LINE", 62)
    d.set(i, "3.0")
    return near(1, i)


@flaw("R12")
def integers_as_decimals(d):
    positions = integer_positions(d)
    for i in positions:
        d.set(i, d.lines[i + 1].strip() + ".0")
    return near(len(positions), positions[0])


@flaw("R2000")
def group_codes_as_decimals(d):
    i = d.group("LINE", 62)
    d.lines[i] = " 62.0"
    return near(1, i)


def changed(d, position, value, means):
    """The lines with a value, and those of a good file with what it means."""
    meant = d.copy()
    meant.set(position, means)
    d.set(position, value)
    return meant


def value_flaw(name, base, kind, code, value, means):
    """A flaw of one value: a repair of one, and what the value means."""
    def edit(d):
        i = d.group(kind, code)
        meant = changed(d, i, value, means)
        return [near(1, i), meant]
    flaw(base, name)(edit)


# Bit 1 is set after clamping, not when only the low bits count.
value_flaw("integer_beyond_its_range", "R2000", "LWPOLYLINE", 70, "4294967296", "1")
value_flaw("integer_far_beyond_its_range", "R2000", "LWPOLYLINE", 70, "99999999999999999999999", "1")
value_flaw("integer_empty", "R2000", "LWPOLYLINE", 70, "", "0")
value_flaw("integer_blank", "R12", "LINE", 62, "   ", "0")
value_flaw("integer_that_is_a_word", "R2000", "LWPOLYLINE", 70, "closed", "0")
value_flaw("integer_as_decimal_in_a_polyline", "R12", "POLYLINE", 70, "1.000000", "1")


# -- decimals

value_flaw("decimal_with_comma", "R2000", "LINE", 10, "1,5", "1.5")
value_flaw("decimal_with_comma_in_R12", "R12", "CIRCLE", 40, "7,25", "7.25")
value_flaw("decimal_with_D_in_the_exponent", "R2000", "LINE", 10, "0.15D+01", "1.5")
value_flaw("decimal_with_small_d_in_the_exponent", "R2000", "CIRCLE", 40, "0.725d1", "7.25")
value_flaw("decimal_with_a_blank_in_the_exponent", "R2000", "LINE", 10, "0.15E 01", "1.5")
value_flaw("decimal_with_a_blank_before_the_exponent", "R12", "LINE", 10, "0.15 E+01", "1.5")
value_flaw("decimal_with_a_sign_for_the_exponent", "R2000", "LINE", 10, "0.15+01", "1.5")
value_flaw("decimal_with_a_blank_for_the_exponent", "R12", "CIRCLE", 40, "0.725 01", "7.25")
value_flaw("decimal_QNAN", "R2000", "LINE", 10, "1.#QNAN", "0.0")
value_flaw("decimal_IND", "R2000", "LINE", 11, "-1.#IND", "0.0")
value_flaw("decimal_INF", "R12", "LINE", 11, "1.#INF", "0.0")
value_flaw("decimal_nan", "R2000", "LINE", 21, "nan", "0.0")
value_flaw("decimal_minus_nan_in_brackets", "R2000", "LINE", 21, "-nan(ind)", "0.0")
value_flaw("decimal_inf", "R12", "LINE", 21, "inf", "0.0")
value_flaw("decimal_empty", "R2000", "LINE", 20, "", "0.0")
value_flaw("decimal_that_is_a_word", "R12", "LINE", 20, "none", "0.0")


@flaw("R2000")
def decimal_subnormal(d):
    meant = changed(d, d.group("LINE", 10), "4.9406564584124654e-324", "0.0")
    return [MAY, meant]


@flaw("R2000")
def decimals_in_rare_but_good_forms(d):
    meant = d.copy()
    d.set(d.group("LINE", 10), "+1.5")
    d.set(d.group("LINE", 11), "31.50000000000000000000000000000000000")
    d.set(d.group("CIRCLE", 40), "  725e-2")
    d.set(d.group("ARC", 50), "30.")
    d.set(d.group("ARC", 40), "00005.75")
    return [NONE, meant]


# -- coordinates and values in another place

@flaw("R2000")
def coordinates_in_another_order(d):
    begin, end = d.entity("LINE")
    points = [i for i, code, _ in d.pairs(begin, end) if code in (10, 20, 30, 11, 21, 31)]
    groups = [d.lines[i:i + 2] for i in points]
    for i, group in zip(points, reversed(groups)):
        d.lines[i:i + 2] = group
    return MAY


@flaw("BARE")
def layer_behind_the_points(d):
    begin, end = d.entity("LINE")
    layer = d.lines[begin + 2:begin + 4]
    d.insert(end, *layer)
    d.remove(begin + 2, begin + 4)
    return MAY


@flaw("BARE")
def third_coordinates_missing(d):
    for i, code, _ in reversed(list(d.pairs(*d.section("ENTITIES")))):
        if code in (30, 31):
            d.remove(i, i + 2)
    return MAY
