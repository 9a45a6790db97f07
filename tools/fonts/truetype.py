"""Turns a drawn face into a TrueType file."""

from dataclasses import dataclass, field

from fontTools.agl import UV2AGL
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPointPen
from fontTools.ttLib import newTable

from letters import TWINS

EM = 1000
VERSION = "1.000"
BIRTHDAY = 3786912000  # 2024-01-01, in seconds since 1904: a fixed date keeps the bytes the same

# A sans serif of medium weight; what is zero does not matter.
PANOSE = dict(bFamilyType=2, bSerifStyle=11, bWeight=6, bProportion=3, bContrast=0,
              bStrokeVariation=0, bArmStyle=0, bLetterForm=0, bMidline=0, bXHeight=0)


@dataclass
class Glyph:
    """Contours are lists of (x, y, on_curve); the advance is in font units."""
    contours: list
    advance: int


@dataclass
class Face:
    family: str
    cap_height: int
    x_height: int
    ascent: int
    descent: int
    stroke: int
    missing: Glyph
    glyphs: dict = field(default_factory=dict)  # by character
    slant: float = 0.0  # degrees, clockwise


def clockwise(contour):
    """Filled contours run clockwise, so that every renderer agrees on the inside."""
    area = sum(x0 * y1 - x1 * y0
               for (x0, y0, _), (x1, y1, _) in zip(contour, contour[1:] + contour[:1]))
    return contour if area < 0 else contour[::-1]


def outline(glyph):
    pen = TTGlyphPointPen(None)
    for contour in map(clockwise, glyph.contours):
        pen.beginPath()
        for (_, _, after_curve), (x, y, on) in zip(contour[-1:] + contour, contour):
            kind = None if not on else "line" if after_curve else "qcurve"
            pen.addPoint((round(x), round(y)), kind)
        pen.endPath()
    return pen.glyph()


def glyph_name(char):
    return UV2AGL.get(ord(char), f"uni{ord(char):04X}")


def save(face, path):
    glyphs = {glyph_name(char): glyph for char, glyph in sorted(face.glyphs.items())}
    glyphs = {".notdef": face.missing} | glyphs
    cmap = {ord(char): glyph_name(char) for char in face.glyphs}
    cmap |= {ord(twin): glyph_name(char) for twin, char in TWINS.items()}
    outlines = {name: outline(glyph) for name, glyph in glyphs.items()}

    font = FontBuilder(EM, isTTF=True)
    font.setupGlyphOrder(list(glyphs))
    font.setupCharacterMap(cmap)
    font.setupGlyf(outlines)
    font.setupHorizontalMetrics({name: (glyph.advance, getattr(outlines[name], "xMin", 0))
                                 for name, glyph in glyphs.items()})
    font.setupHead(unitsPerEm=EM, fontRevision=float(VERSION), created=BIRTHDAY,
                   modified=BIRTHDAY, lowestRecPPEM=9)
    font.setupHorizontalHeader(ascent=face.ascent, descent=-face.descent, lineGap=0)
    font.setupNameTable({
        "familyName": face.family,
        "styleName": "Regular",
        "uniqueFontIdentifier": f"{VERSION};{face.family}-Regular",
        "fullName": f"{face.family} Regular",
        "version": f"Version {VERSION}",
        "psName": f"{face.family}-Regular",
    })
    setup_os2(font, face)
    font.setupPost(italicAngle=-face.slant, isFixedPitch=0,
                   underlinePosition=-face.descent // 2, underlineThickness=face.stroke)
    # Smoothing at all sizes, grid fitting at none: fitting would make dots and gaps uneven.
    font.font["gasp"] = gasp = newTable("gasp")
    gasp.gaspRange = {0xFFFF: 0x000A}
    font.save(path)


def setup_os2(font, face):
    font.setupOS2(
        version=4, usWeightClass=400, usWidthClass=5, fsType=0, achVendID="DASH",
        fsSelection=0x40 | 0x80,  # regular, and the typographic metrics are the ones to use
        panose=PANOSE,
        sTypoAscender=face.ascent, sTypoDescender=-face.descent, sTypoLineGap=0,
        usWinAscent=face.ascent, usWinDescent=face.descent,
        sxHeight=face.x_height, sCapHeight=face.cap_height,
        yStrikeoutPosition=face.x_height // 2, yStrikeoutSize=face.stroke,
        ySubscriptXSize=600, ySubscriptYSize=600, ySubscriptYOffset=150,
        ySuperscriptXSize=600, ySuperscriptYSize=600, ySuperscriptYOffset=350,
        usDefaultChar=0, usBreakChar=32, ulCodePageRange1=1)
