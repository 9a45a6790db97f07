"""LCDPHONE: every character is a pattern of separate round-cornered dots."""

from pathlib import Path
from unicodedata import combining

from letters import ACCENTED, CEDILLA, named, taken_apart
from truetype import Face, Glyph

DRAWING = Path(__file__).with_name("lcdphone.txt")
PITCH = 110   # from dot to dot
DOT = 94      # side of one dot
ROUND = 36    # radius of its corners
CAP_ROWS = 7  # the baseline is under the seventh row of a drawing
X_ROWS = 5
MARK_ROWS = 2  # for an accent above, and for a tail below the baseline
SPACE = 3     # columns



def read_drawing():
    """Patterns by character: a width, and a set of (column, row) with row 0 at a capital's top."""
    patterns = {}
    bands = DRAWING.read_text(encoding="utf-8").split("\n\n")[1:]  # the first explains
    for band in bands:
        header, *rows = map(str.split, band.strip().splitlines())
        for index, name in enumerate(header):
            lit = {(column, row) for row, cells in enumerate(rows)
                   for column, cell in enumerate(cells[index]) if cell == "#"}
            patterns[named(name)] = len(rows[0][index]), lit
    return patterns


def with_mark(patterns, char):
    """A letter with an accent in the two rows over it, or a tail under the baseline."""
    base, mark = taken_apart(char)
    width, letter = patterns[base]
    mark_width, accent = patterns[mark]
    wide = max(width, mark_width)
    down = CAP_ROWS if mark == CEDILLA else min(row for _, row in letter) - MARK_ROWS
    return wide, ({(column + (wide - width) // 2, row) for column, row in letter}
                  | {(column + (wide - mark_width + 1) // 2, row + down) for column, row in accent})


def dot(column, row):
    left = column * PITCH + (PITCH - DOT) / 2
    low = (CAP_ROWS - 1 - row) * PITCH + (PITCH - DOT) / 2
    right, high = left + DOT, low + DOT
    return [(left, high - ROUND, True), (left, high, False), (left + ROUND, high, True),
            (right - ROUND, high, True), (right, high, False), (right, high - ROUND, True),
            (right, low + ROUND, True), (right, low, False), (right - ROUND, low, True),
            (left + ROUND, low, True), (left, low, False), (left, low + ROUND, True)]


def draw(width, lit):
    """Half a free column on each side makes one between any two characters."""
    return Glyph([dot(column + 0.5, row) for column, row in sorted(lit)], (width + 1) * PITCH)


def face():
    patterns = read_drawing()
    patterns |= {char: with_mark(patterns, char) for char in ACCENTED}
    glyphs = {char: draw(*pattern) for char, pattern in patterns.items() if not combining(char)}
    glyphs[" "] = draw(SPACE, set())
    frame = {(column, row) for column in range(5) for row in range(CAP_ROWS)
             if column in (0, 4) or row in (0, CAP_ROWS - 1)}
    return Face(family="LCDPHONE", glyphs=glyphs, missing=draw(5, frame), stroke=DOT,
                cap_height=CAP_ROWS * PITCH, x_height=X_ROWS * PITCH,
                ascent=(CAP_ROWS + MARK_ROWS) * PITCH, descent=MARK_ROWS * PITCH)
