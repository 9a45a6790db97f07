"""Crysta: characters lit on a lattice of bevelled segments, as on a glass display."""

from math import hypot, inf, radians, tan
from pathlib import Path
from unicodedata import combining

from letters import ACCENTED, CEDILLA, named, taken_apart
from truetype import Face, Glyph

DRAWING = Path(__file__).with_name("crysta.txt")
STROKE = 96
THIN = 64        # stroke of accents and raised digits
GAP = 16         # between segments that meet
BEARING = 54     # free space on each side of a character
SPACE = 280
SLANT = 5        # degrees
CAP_HEIGHT, X_HEIGHT = 780, 540
MIDDLE = CAP_HEIGHT / 2
ASCENT, DESCENT = 980, 220
TAIL = -150      # middle of the bar of a descender
MARK_SPACE = 36  # between a letter and its accent

# What a character may be drawn in: width and height from middle to middle of the outer
# segments, height of the lowest ones' middle, and stroke.
TALL, SMALL = CAP_HEIGHT - STROKE, X_HEIGHT - STROKE
CELLS = {
    "digit": (400, TALL, STROKE / 2, STROKE),
    "cap": (400, TALL, STROKE / 2, STROKE),
    "broad": (560, TALL, STROKE / 2, STROKE),
    "slab": (400, TALL, STROKE / 2, STROKE),
    "thin": (130, TALL, STROKE / 2, STROKE),
    "low": (330, SMALL, STROKE / 2, STROKE),
    "wide": (490, SMALL, STROKE / 2, STROKE),
    "slim": (210, SMALL, STROKE / 2, STROKE),
    "sign": (400, 400, MIDDLE - 200, STROKE),
    "raised": (180, 330, CAP_HEIGHT - 330 - THIN / 2, THIN),
    "mark": (0, 0, 0, THIN),
    "ring": (0, 0, 0, THIN * 0.55),
    "bold": (0, 0, 0, STROKE * 2),
}
MIDDLE_COLUMN = {"slab": 0.2}  # part of the width, where it is not the half
EQUAL_ADVANCE = "digit", "sign"  # the others are as wide as what is lit

# Straight segments by column 0..2 and row: 2 is the bar d, 3 the middle, 4 the bar a;
# 1 and 5 are where descenders and ascenders end. The picture is in crysta.txt.
STRAIGHT = {
    "a": ((0, 4), (2, 4)), "g": ((0, 3), (2, 3)), "d": ((0, 2), (2, 2)),
    "f": ((0, 3), (0, 4)), "b": ((2, 3), (2, 4)), "e": ((0, 2), (0, 3)), "c": ((2, 2), (2, 3)),
    "p": ((0, 3), (1, 3)), "q": ((1, 3), (2, 3)), "i": ((1, 3), (1, 4)), "m": ((1, 2), (1, 3)),
    "A": ((0, 5), (2, 5)), "F": ((0, 4), (0, 5)), "B": ((2, 4), (2, 5)),
    "D": ((0, 1), (2, 1)), "E": ((0, 1), (0, 2)), "C": ((2, 1), (2, 2)),
}
OUTREACHING = set("AFBDEC")
# Diagonal segments, and the straight ones on the left, right, lower and upper side of each.
DIAGONAL = {
    "h": ((0, 4), (1, 3), "f", "i", "gp", "a"), "s": ((0, 3), (1, 4), "f", "i", "gp", "a"),
    "j": ((2, 4), (1, 3), "i", "b", "gq", "a"), "t": ((2, 3), (1, 4), "i", "b", "gq", "a"),
    "k": ((0, 2), (1, 3), "e", "m", "d", "gp"), "x": ((0, 3), (1, 2), "e", "m", "d", "gp"),
    "n": ((2, 2), (1, 3), "m", "c", "d", "gq"), "y": ((2, 3), (1, 2), "m", "c", "d", "gq"),
}


def clip(polygon, normal, least):
    """The part of a convex polygon whose distance along normal is at least that much."""
    heights = [x * normal[0] + y * normal[1] - least for x, y in polygon]
    kept = []
    for (x0, y0), h0, (x1, y1), h1 in zip(polygon, heights, polygon[1:] + polygon[:1],
                                          heights[1:] + heights[:1]):
        if h0 >= 0:
            kept.append((x0, y0))
        if h0 * h1 < 0:
            part = h0 / (h0 - h1)
            kept.append((x0 + (x1 - x0) * part, y0 + (y1 - y0) * part))
    return kept


def towards(start, end):
    length = hypot(end[0] - start[0], end[1] - start[1])
    return (end[0] - start[0]) / length, (end[1] - start[1]) / length


def band(start, end, stroke, reach):
    """A straight stroke that goes on for reach at both ends."""
    (x0, y0), (x1, y1), (ux, uy) = start, end, towards(start, end)
    x0, y0, x1, y1 = x0 - ux * reach, y0 - uy * reach, x1 + ux * reach, y1 + uy * reach
    sx, sy = -uy * stroke / 2, ux * stroke / 2
    return [(x0 + sx, y0 + sy), (x1 + sx, y1 + sy), (x1 - sx, y1 - sy), (x0 - sx, y0 - sy)]


def bevelled(edge, edges, stroke):
    """A stroke cut, wherever it meets others, halfway between the two directions."""
    polygon = band(*edge, stroke, stroke / 2)
    for node, far in edge, edge[::-1]:
        own = towards(node, far)
        for other in edges:
            if node not in other or other in (edge, edge[::-1]):
                continue
            its = towards(node, other[1] if other[0] == node else other[0])
            if hypot(own[0] - its[0], own[1] - its[1]) > 0.01:
                normal = towards(its, own)
                polygon = clip(polygon, normal,
                               node[0] * normal[0] + node[1] * normal[1] + GAP / 2)
    return polygon


def within(polygon, left, right, low, high):
    for normal, least in ((1, 0), left), ((-1, 0), -right), ((0, 1), low), ((0, -1), -high):
        polygon = clip(polygon, normal, least)
    return polygon


def lattice(cell, lit):
    """The polygons of the lit segments of a cell."""
    width, height, low, stroke = CELLS[cell]
    columns = 0, width * MIDDLE_COLUMN.get(cell, 0.5), width
    rows = None, TAIL, low, low + height / 2, low + height, CAP_HEIGHT - STROKE / 2

    def placed(start, end):
        return (columns[start[0]], rows[start[1]]), (columns[end[0]], rows[end[1]])

    def stop(names, axis, way, otherwise):
        """Where an inner segment ends: short of a lit one in its way, or else further on."""
        at = [edges[name][0][axis] for name in names if name in lit]
        return at[0] + way * (stroke / 2 + GAP) if at else otherwise

    # Unlit segments cut the lit ones too, as on glass, but not where a letter ends in a corner.
    present = set(lit) & OUTREACHING | set(STRAIGHT) - OUTREACHING
    present |= {"A"} if present & set("FB") else set()
    edges = {name: placed(*STRAIGHT[name]) for name in sorted(present)}

    polygons = []
    for name in lit:
        if name in DIAGONAL:
            start, end, left, right, under, over = DIAGONAL[name]
            # A diagonal keeps to its quarter of the cell.
            edge, gap = stroke / 2, GAP / 2
            x0, x1 = (columns[0] - edge, columns[1] - gap), (columns[1] + gap, columns[2] + edge)
            y0, y1 = (rows[2] - edge, rows[3] - gap), (rows[3] + gap, rows[4] + edge)
            x = x0 if 0 in (start[0], end[0]) else x1
            y = y0 if 2 in (start[1], end[1]) else y1
            polygon = within(band(*placed(start, end), stroke, stroke),
                             stop(left, 0, 1, x[0]), stop(right, 0, -1, x[1]),
                             stop(under, 1, 1, y[0]), stop(over, 1, -1, y[1]))
        else:
            polygon = within(bevelled(edges[name], edges.values(), stroke), -inf, inf,
                             stop("d" if name == "m" else "", 1, 1, -inf),
                             stop("a" if name == "i" else "", 1, -1, inf))
        polygons.append(polygon)
    return polygons


def square_dot(x, y, stroke):
    """A square whose corners are bevelled like the segments' ends."""
    outer, inner = stroke * 0.6, stroke * 0.36
    return [(x - outer, y - inner), (x - outer, y + inner), (x - inner, y + outer),
            (x + inner, y + outer), (x + outer, y + inner), (x + outer, y - inner),
            (x + inner, y - outer), (x - inner, y - outer)]


def extra(words, stroke):
    """Polygons for words like "@12,5" (a dot) and "0,10:30,40:60,10" (joined strokes)."""
    dots, edges = [], []
    for word in words:
        nodes = [tuple(float(number) * 10 for number in point.split(","))
                 for point in word.lstrip("@").split(":")]
        dots += nodes if word.startswith("@") else []
        edges += zip(nodes, nodes[1:])
    return ([square_dot(*node, stroke) for node in dots]
            + [bevelled(edge, edges, stroke) for edge in edges])


def read_drawing():
    """Cell and polygons by character."""
    shapes = {}
    for line in DRAWING.read_text(encoding="utf-8").splitlines():
        if not line.strip() or line.startswith("--"):
            continue
        name, cell, lit, *words = line.split()
        shapes[named(name)] = cell, lattice(cell, lit.strip(".")) + extra(words, CELLS[cell][3])
    return shapes


def bounds(polygons):
    xs, ys = zip(*(point for polygon in polygons for point in polygon))
    return min(xs), min(ys), max(xs), max(ys)


def moved(polygons, dx, dy):
    return [[(x + dx, y + dy) for x, y in polygon] for polygon in polygons]


def with_mark(shapes, char):
    """A letter with its accent over it (or tail under it), in the middle."""
    base, mark = taken_apart(char)
    cell, letter = shapes[base]
    left, bottom, right, top = bounds(letter)
    accent = shapes[mark][1]
    dy = 0 if mark == CEDILLA else top + MARK_SPACE - bounds(accent)[1]
    return cell, letter + moved(accent, (left + right) / 2, dy)


def draw(cell, polygons):
    width, _, _, stroke = CELLS[cell]
    left, _, right, _ = bounds(polygons)
    if cell in EQUAL_ADVANCE:
        left, right = -stroke / 2, width + stroke / 2
    # Leaning about the middle of the capitals leaves the space on both sides even.
    lean = tan(radians(SLANT))
    contours = [[(x - left + BEARING + (y - MIDDLE) * lean, y, True) for x, y in polygon]
                for polygon in polygons]
    return Glyph(contours, round(right - left + 2 * BEARING))


def face():
    shapes = read_drawing()
    shapes |= {char: with_mark(shapes, char) for char in ACCENTED}
    glyphs = {char: draw(*shape) for char, shape in shapes.items() if not combining(char)}
    glyphs[" "] = Glyph([], SPACE)
    everything = draw("cap", lattice("cap", "adfbecpqimhjkn"))
    return Face(family="Crysta", glyphs=glyphs, missing=everything, stroke=STROKE, slant=SLANT,
                cap_height=CAP_HEIGHT, x_height=X_HEIGHT, ascent=ASCENT, descent=DESCENT)
