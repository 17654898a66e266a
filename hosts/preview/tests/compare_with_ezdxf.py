#!/usr/bin/env python3
"""Compares dwg_preview's pictures with those of an independent program.

    compare_with_ezdxf.py --preview PATH --worker PATH [--keep FOLDER] [--all] [--jobs N]
                          [NAME...]

The add-on of ezdxf that draws DXF files and dwg_preview make a picture of the same
area of model space, in black and with thin lines. The extents must agree within one
per cent and the pictures be similar; nothing is taken from either drawing first.
Pictures that were damaged on purpose must not be similar.

Compared are the sample of drawings.json, with --all every DXF file of the repository
and of DWG_CORPUS. Its exceptions are drawings that may differ, each with whose fault
that is and why; one that does not differ any more must leave the list.

Drawings outside of the repository are looked for in DWG_CORPUS and skipped
without it. Exits with 77 where a Python package is missing, unless CI is set.
"""

import argparse
import concurrent.futures
import json
import math
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

try:
    import numpy
    from ezdxf import recover
    from ezdxf.addons.drawing import Frontend, RenderContext
    from ezdxf.addons.drawing.config import (BackgroundPolicy, ColorPolicy, Configuration,
                                             HatchPolicy, LinePolicy, LineweightPolicy,
                                             TextPolicy)
    from ezdxf.addons.drawing.recorder import (FilledPathsRecord, ImageRecord, PathRecord,
                                               PointsRecord, Recorder, SolidLinesRecord)
    from ezdxf.fonts import fonts
    from PIL import Image, ImageChops, ImageDraw
except ImportError as error:
    print(f"a package is missing: {error}")
    sys.exit(1 if os.environ.get("CI") else 77)

HERE = pathlib.Path(__file__).resolve().parent
COMMITTED = HERE.parents[2] / "tests" / "drawings"

# Texts are compared in one family, whatever fonts the machine has: both programs take
# the narrow cut of DejaVu Sans for a font that is not at hand when there is no other
# family.
FONTS = pathlib.Path("/usr/share/fonts/truetype/dejavu")
FAMILY = ("DejaVuSans.ttf", "DejaVuSans-*.ttf", "DejaVuSansCondensed*.ttf")

WIDTH = 800
# How far, in pixels, ink may lie from ink to count as the same.
REACH = 3
# The least share of ink that has its like in the other picture, both ways.
SIMILAR = 0.95
EXTENTS = 0.01

# The least share of drawings that must be similar, of those that differ through nobody
# else's fault.
MOST = 0.95
# The longest that ezdxf may take for one drawing, in seconds.
PATIENCE = 120

# In blocks too, which dimensions and tables are drawn by.
WITH_TEXT = {"TEXT", "ATTRIB", "ATTDEF", "MTEXT", "MULTILEADER", "MLEADER"}
INFINITE = {"RAY", "XLINE"}


class OurFrontend(Frontend):
    """Draws all but what is left out of extents."""

    leave_out = frozenset()

    def draw_entity(self, entity, properties):
        if entity.dxftype() not in self.leave_out:
            super().draw_entity(entity, properties)

    def draw_wipeout_entity(self, entity, properties):
        # In the paper's colour, which the policy of black would make ink.
        records = self.recorder.records
        before = len(records)
        super().draw_wipeout_entity(entity, properties)
        for record in records[before:]:
            record.erases = True


def configuration(reach):
    return Configuration(
        background_policy=BackgroundPolicy.WHITE, color_policy=ColorPolicy.BLACK,
        line_policy=LinePolicy.ACCURATE, hatch_policy=HatchPolicy.NORMAL,
        lineweight_policy=LineweightPolicy.ABSOLUTE, lineweight_scaling=0.0,
        text_policy=TextPolicy.FILLING, infinite_line_length=reach)


def draw(document, backend, leave_out=frozenset(), reach=1e6):
    frontend = OurFrontend(RenderContext(document), backend, configuration(reach))
    frontend.leave_out = leave_out
    frontend.recorder = backend
    frontend.draw_layout(document.modelspace(), finalize=True)


def points_of(record, step):
    if isinstance(record, PathRecord):
        return [p for loop in loops_of(record.path, step) for p in loop] if len(record.path) else []
    if isinstance(record, FilledPathsRecord):
        return [p for path in record.paths if len(path) for loop in loops_of(path, step)
                for p in loop]
    if isinstance(record, SolidLinesRecord):
        return record.lines.vertices()
    return (record.points if isinstance(record, PointsRecord) else record.boundary).vertices()


def extents_of(document, leave_out):
    """Of points on the curves: ezdxf's own box holds their control points too."""
    recorder = Recorder()
    draw(document, recorder, leave_out | INFINITE)
    box = recorder.player().bbox()
    if not box.has_data:
        return None
    step = max(box.size.x, box.size.y) / 10000
    points = [p for record in recorder.records for p in points_of(record, step)]
    return (min(p.x for p in points), min(p.y for p in points),
            max(p.x for p in points), max(p.y for p in points))


class Sheet:
    """Ink on paper: a mask, and where the drawing lies on it."""

    def __init__(self, area):
        self.mask = Image.new("1", (WIDTH, height_of(area)))
        self.pen = ImageDraw.Draw(self.mask)
        self.scale = WIDTH / (area[2] - area[0])
        self.left, self.top = area[0], area[3]

    def place(self, points):
        # Pillow takes coordinates of 32 bits only.
        return [(min(max((p.x - self.left) * self.scale, -1e6), 1e6),
                 min(max((self.top - p.y) * self.scale, -1e6), 1e6)) for p in points]

    def line(self, points):
        self.pen.line(self.place(points), fill=1)

    def erase(self, loop):
        self.pen.polygon(self.place(loop), fill=0)

    def point(self, point):
        self.pen.point(self.place([point]), fill=1)

    def area(self, loops):
        """Even-odd, as the loops of hatches and letters are."""
        inside = Image.new("1", self.mask.size)
        for loop in loops:
            one = Image.new("1", self.mask.size)
            ImageDraw.Draw(one).polygon(self.place(loop), fill=1, outline=1)
            inside = ImageChops.logical_xor(inside, one)
        self.mask.paste(1, mask=inside)


def loops_of(path, step):
    """The loops of a path of ezdxf as straight segments."""
    return [list(loop.flattening(step)) for loop in path.to_path().sub_paths()]


def paint_record(sheet, record, step):
    """One thing that ezdxf wanted to be drawn."""
    if isinstance(record, PathRecord) and len(record.path):
        for loop in loops_of(record.path, step):
            sheet.line(loop)
    elif isinstance(record, FilledPathsRecord):
        sheet.area([loop for path in record.paths if len(path)
                    for loop in loops_of(path, step) if len(loop) > 2])
    elif isinstance(record, SolidLinesRecord):
        ends = record.lines.vertices()
        for start, end in zip(ends[::2], ends[1::2]):
            sheet.line((start, end))
    elif isinstance(record, PointsRecord):
        points = record.points.vertices()
        if len(points) == 1:
            sheet.point(points[0])
        else:
            sheet.line(points) if len(points) == 2 else sheet.area([points])
    elif isinstance(record, ImageRecord):
        corners = record.boundary.vertices()
        sheet.line([*corners, corners[0]])


def picture_of(document, area):
    recorder = Recorder()
    size = max(area[2] - area[0], area[3] - area[1])
    draw(document, recorder, reach=10 * size)
    sheet = Sheet(area)
    for record in recorder.records:
        if getattr(record, "erases", False):
            sheet.erase(record.points.vertices())
        else:
            paint_record(sheet, record, size / 2000)
    return sheet.mask


def height_of(area):
    return max(1, round(WIDTH * (area[3] - area[1]) / (area[2] - area[0])))


def ink(image):
    """Which pixels of a picture of dwg_preview are not white."""
    return numpy.asarray(image.convert("L")) < 230


def grown(mask, reach):
    """The mask with every pixel spread over the square around it."""
    for axis in (0, 1):
        spread = mask.copy()
        for step in range(1, reach + 1):
            for sign in (step, -step):
                moved = numpy.roll(mask, sign, axis)
                edge = [slice(None)] * 2
                edge[axis] = slice(None, sign) if sign > 0 else slice(sign, None)
                moved[tuple(edge)] = False
                spread |= moved
        mask = spread
    return mask


def edges(mask):
    """The ink that has paper beside it: filled areas would hide how far off they are."""
    return mask & grown(~mask, 1)


def similarity(a, b):
    """The smaller of the shares of one picture's edges that lie at the other's."""
    a, b = edges(a), edges(b)
    if not a.any() or not b.any():
        return 1.0 if a.any() == b.any() else 0.0
    return float(min((a & grown(b, REACH)).sum() / a.sum(), (b & grown(a, REACH)).sum() / b.sum()))


def damages(mask):
    """The same picture, damaged in ways that a wrong program would."""
    height, width = mask.shape
    rows, columns = numpy.nonzero(mask)
    missing = mask.copy()
    missing[rows.min():int(numpy.quantile(rows, 0.2)) + 1, :] = False
    yield "a fifth is missing", missing
    yield "moved by two per cent", numpy.roll(mask, width // 50, 1)
    yield "mirrored", mask[:, ::-1]
    yield "larger by a tenth", resized(mask, 1.1)


def resized(mask, factor):
    height, width = mask.shape
    y = numpy.clip((numpy.arange(height) / factor).astype(int), 0, height - 1)
    x = numpy.clip((numpy.arange(width) / factor).astype(int), 0, width - 1)
    return mask[numpy.ix_(y, x)]


def run_preview(options, drawing, *arguments):
    done = subprocess.run([options.preview, "--worker", options.worker, *arguments, str(drawing)],
                          capture_output=True, timeout=600)
    if done.returncode != 0:
        raise RuntimeError(done.stderr.decode("utf-8", "replace")[-500:])
    return done.stdout


def picture_area(extents):
    """The area that dwg_preview shows without being told."""
    width, height = extents[2] - extents[0], extents[3] - extents[1]
    longer = max(width, height, 1e-6)
    width, height = (max(side, longer / 20) + 0.04 * longer for side in (width, height))
    x, y = (extents[0] + extents[2]) / 2, (extents[1] + extents[3]) / 2
    return [x - width / 2, y - height / 2, x + width / 2, y + height / 2]


def preview_picture(options, drawing):
    """The sheet of model space and its picture, from one run."""
    with tempfile.TemporaryDirectory() as folder:
        file = os.path.join(folder, "picture.png")
        sheets = run_preview(options, drawing, "--list", "--png", file, "--width", str(WIDTH),
                             "--monochrome", "--no-lineweights")
        with Image.open(file) as picture:
            return json.loads(sheets)[0], picture.convert("L")


def largest_difference(a, b):
    """Of the extents' sides, as a share of their size."""
    size = max(a[2] - a[0], a[3] - a[1], 1e-9)
    return max(abs(x - y) for x, y in zip(a, b)) / size


def compare(options, name, drawing):
    """The difference of the extents and the two pictures' ink."""
    sheet, ours = preview_picture(options, drawing)
    document = recover.readfile(drawing)[0]
    reference = extents_of(document, frozenset(WITH_TEXT))
    difference = largest_difference(sheet["geometryExtents"], reference) if reference else 0.0
    theirs = picture_of(document, picture_area(sheet["extents"]))
    if theirs.size != ours.size:
        theirs = theirs.resize(ours.size)
    if options.keep:
        stem = os.path.join(options.keep, name.replace("/", "_"))
        ours.save(stem + ".preview.png")
        ImageChops.invert(theirs.convert("L")).save(stem + ".ezdxf.png")
    return difference, ink(ours), numpy.asarray(theirs)


def find(name):
    for folder in (COMMITTED, pathlib.Path(os.environ.get("DWG_CORPUS") or "/nonexistent")):
        if (folder / name).is_file():
            return folder / name
    return None


def check_damages(name, ours, theirs, least=SIMILAR):
    """The damaged pictures that pass for similar."""
    return [f"{name}: {what}, and still similar ({similarity(damaged, theirs):.3f})"
            for what, damaged in damages(ours)
            if what != "mirrored" or not similarity(ours[:, ::-1], ours) >= least
            if similarity(damaged, theirs) >= least]


class TooSlow(Exception):
    """ezdxf took longer than its patience for a drawing."""


def give_up(_signal, _frame):
    raise TooSlow


def check(options, name):
    """The likeness of one drawing and what is wrong with it; None when it is not at hand,
    or when ezdxf does not read or draw it."""
    drawing = find(name)
    if drawing is None:
        print(f"skip  {name}: not in the repository, and DWG_CORPUS is not set")
        return None
    try:
        if hasattr(signal, "alarm"):
            signal.signal(signal.SIGALRM, give_up)
            signal.alarm(PATIENCE)
        difference, ours, theirs = compare(options, name, drawing)
    except Exception as error:  # ezdxf has many ways not to read a drawing
        print(f"skip  {name}: {type(error).__name__} {str(error)[:200]!r}", flush=True)
        return None
    finally:
        if hasattr(signal, "alarm"):
            signal.alarm(0)
    if not theirs.any():
        print(f"skip  {name}: ezdxf draws nothing", flush=True)
        return None
    likeness = similarity(ours, theirs)
    problems = []
    if not difference <= EXTENTS:
        problems.append(f"{name}: the extents differ by {difference:.2%}")
    if not likeness >= SIMILAR:
        problems.append(f"{name}: the pictures are not similar ({likeness:.3f})")
    elif not problems:
        problems = check_damages(name, ours, theirs)
    print(f"{'differs' if problems else 'ok     '} {name}: extents {difference:.3%}, "
          f"similarity {likeness:.3f}", flush=True)
    return name, likeness, problems


def all_names():
    """Every DXF file at hand, by its path below its folder."""
    names = set()
    for folder in (COMMITTED, pathlib.Path(os.environ.get("DWG_CORPUS") or "/nonexistent")):
        names |= {path.relative_to(folder).as_posix() for path in folder.rglob("*")
                  if path.suffix.lower() == ".dxf"}
    return sorted(names)


def unexpected(results, exceptions):
    """Problems that no exception names, and exceptions without a problem."""
    problems = []
    for name, _, found in results:
        if name not in exceptions:
            problems += found
        elif not found:
            problems.append(f"{name}: is an exception, but does not differ")
    return problems


def print_distribution(results):
    likenesses = sorted(likeness for _, likeness, _ in results)
    bounds = [0, 0.5, 0.8, 0.9, 0.95, 0.98, 0.995, 1.0001]
    for low, high in zip(bounds, bounds[1:]):
        count = sum(low <= likeness < high for likeness in likenesses)
        print(f"  {low:.3f} to {min(high, 1):.3f}: {count}")
    print(f"  median {likenesses[len(likenesses) // 2]:.3f}")


def share_similar(results, least=SIMILAR):
    return sum(likeness >= least for _, likeness, _ in results) / max(1, len(results))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--preview", required=True)
    parser.add_argument("--worker", required=True)
    parser.add_argument("--keep", help="folder for the pictures")
    parser.add_argument("--all", action="store_true", help="every DXF file at hand")
    parser.add_argument("--jobs", type=int, default=2, help="drawings at a time")
    parser.add_argument("names", nargs="*")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        if FONTS.is_dir():
            family = copy_family(pathlib.Path(folder))
            os.environ["FONTCONFIG_FILE"] = str(only_these_fonts(family))
            fonts.font_manager.clear()
            fonts.font_manager.build([str(family)])
        return compare_all(options)


def copy_family(folder):
    """A folder with the fonts of the one family."""
    family = folder / "family"
    family.mkdir()
    for pattern in FAMILY:
        for font in FONTS.glob(pattern):
            shutil.copy(font, family)
    return family


def only_these_fonts(family):
    """A file of settings for fontconfig: the system's, but for the folders of fonts."""
    settings = family.parent / "fonts.conf"
    settings.write_text(f"<fontconfig><dir>{family}</dir><cachedir>{family.parent}/cache</cachedir>"
                        "<include ignore_missing='yes'>/etc/fonts/conf.d</include>"
                        "</fontconfig>\n", encoding="utf-8")
    return settings


def compare_all(options):
    known = json.loads((HERE / "drawings.json").read_text())
    exceptions = {case["drawing"] for case in known["exceptions"]}
    names = options.names or (all_names() if options.all else known["sample"])
    with concurrent.futures.ProcessPoolExecutor(options.jobs) as pool:
        checked = list(pool.map(check, [options] * len(names), names))
    results = [result for result in checked if result]
    if not results:
        print("nothing was compared")
        return 1
    problems = unexpected(results, exceptions)
    print("\n".join(problems))
    print_distribution(results)
    excused = {case["drawing"] for case in known["exceptions"] if case["fault"] != "ours"}
    similar = share_similar(results)
    own = share_similar([result for result in results
                         if result[1] >= SIMILAR or result[0] not in excused])
    print(f"{len(results)} drawings compared, {len(names) - len(results)} skipped, "
          f"{similar:.1%} similar, {own:.1%} without those that differ through ezdxf or through "
          f"nobody's fault, {len(problems)} problems")
    if options.all and own < MOST:
        problems.append("too few are similar")
    return 1 if problems or (len(results) < 15 and not options.names) else 0


if __name__ == "__main__":
    sys.exit(main())
