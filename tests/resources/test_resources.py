#!/usr/bin/python3
"""Checks of the fonts and the icon that the scripts in tools/ make."""

import os
import struct
import subprocess
import tempfile
import unittest
import zlib
from pathlib import Path

from fontTools.pens.recordingPen import DecomposingRecordingPen
from fontTools.ttLib import TTFont

TOOLS = Path(__file__).resolve().parents[2] / "tools"
FAMILIES = "LCDPHONE", "Crysta"
ASCII = [chr(code) for code in range(0x20, 0x7F)]
MORE = list("°•²³µ−–\u00a0·±×ÄÖÜäöüßÀÉÇÑÅàéçñåæøÆØ←↑→↓")
DIGITS = "0123456789"
# A segment display cannot tell these apart; a dot display can.
ALIKE = {"LCDPHONE": set(), "Crysta": {frozenset("0O"), frozenset("5S")}}


def run(tool, *arguments, **environment):
    return subprocess.run([TOOLS / tool, *arguments], env={**os.environ, **environment},
                          capture_output=True, text=True)


def area(contour):
    return sum(x0 * y1 - x1 * y0
               for (x0, y0), (x1, y1) in zip(contour, contour[1:] + contour[:1])) / 2


def turns(contour):
    """The cross products at all corners: of one sign if the contour is convex."""
    corners = zip(contour, contour[1:] + contour[:1], contour[2:] + contour[:2])
    return [(x1 - x0) * (y2 - y1) - (y1 - y0) * (x2 - x1)
            for (x0, y0), (x1, y1), (x2, y2) in corners]


def apart(one, other):
    """Whether two convex contours have no inner point in common: some side divides them."""
    for a, b in (one, other), (other, one):
        for (x0, y0), (x1, y1) in zip(a, a[1:] + a[:1]):
            # Clockwise contours are on the right of their sides.
            if all((x1 - x0) * (y - y0) - (y1 - y0) * (x - x0) >= 0 for x, y in b):
                return True
    return False


def for_each_font(test):
    def test_all(self):
        for family, font in self.fonts.items():
            with self.subTest(family=family):
                test(self, family, font)
    return test_all


def for_each_glyph(test):
    def test_all(self):
        for family, font in self.fonts.items():
            for name in font.getGlyphOrder():
                with self.subTest(family=family, glyph=name):
                    test(self, font, name)
    return test_all


class Fonts(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name) / "new"  # the script makes it
        made = run("make-fonts", cls.folder)
        assert made.returncode == 0, made.stderr
        cls.fonts = {family: TTFont(cls.folder / f"{family}.ttf") for family in FAMILIES}

    @staticmethod
    def contours(font, name):
        """All points of each contour, those beside the curve too: they bound it."""
        points, ends, _ = font["glyf"][name].getCoordinates(font["glyf"])
        starts = [0] + [end + 1 for end in ends]
        return [[tuple(point) for point in points[start:end + 1]]
                for start, end in zip(starts, ends)]

    @staticmethod
    def name_of(font, char):
        return font.getBestCmap()[ord(char)]

    def advance(self, font, char):
        return font["hmtx"][self.name_of(font, char)][0]

    def test_writes_these_two_files_only(self):
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                         ["Crysta.ttf", "LCDPHONE.ttf"])

    def test_same_bytes_every_time(self):
        for seed in "1", "2":
            with tempfile.TemporaryDirectory() as again:
                run("make-fonts", again, PYTHONHASHSEED=seed, TZ=f"UTC{seed}")
                for family in FAMILIES:
                    file = f"{family}.ttf"
                    self.assertEqual((self.folder / file).read_bytes(),
                                     (Path(again) / file).read_bytes(), file)

    def test_refuses_wrong_usage(self):
        for arguments in [], ["one", "two"], ["--help"]:
            answer = run("make-fonts", *arguments)
            self.assertEqual(answer.returncode, 2)
            self.assertIn("usage", answer.stderr)

    @for_each_font
    def test_names(self, family, font):
        names = [font["name"].getDebugName(number) for number in (1, 2, 4, 6)]
        self.assertEqual(names, [family, "Regular", f"{family} Regular", f"{family}-Regular"])

    @for_each_font
    def test_tables(self, family, font):
        self.assertLessEqual({"cmap", "glyf", "head", "hhea", "hmtx", "loca", "maxp",
                              "name", "OS/2", "post"}, set(font.keys()))
        subtables = {(table.platformID, table.platEncID, table.format)
                     for table in font["cmap"].tables}
        self.assertLessEqual({(0, 3, 4), (3, 1, 4)}, subtables)
        self.assertEqual(font.getGlyphOrder()[0], ".notdef")
        self.assertEqual(font["OS/2"].usWeightClass, 400)
        self.assertEqual(font["OS/2"].fsType, 0)  # no restriction
        self.assertEqual(font["OS/2"].fsSelection & 0x61, 0x40)  # regular
        self.assertEqual(font["head"].macStyle, 0)

    @for_each_font
    def test_covers_all_characters(self, family, font):
        cmap = font.getBestCmap()
        self.assertEqual([char for char in ASCII + MORE if ord(char) not in cmap], [])

    @for_each_glyph
    def test_only_spaces_are_empty(self, font, name):
        self.assertEqual(not self.contours(font, name), name == "space")
        self.assertGreater(font["hmtx"][name][0], 0)

    @for_each_font
    def test_characters_look_different(self, family, font):
        looks = {}
        for char in ASCII[1:]:
            pen = DecomposingRecordingPen(font.getGlyphSet())
            font.getGlyphSet()[self.name_of(font, char)].draw(pen)
            # Where a shape stands within its advance tells it from no other one.
            look = pen.value
            left = font["hmtx"][self.name_of(font, char)][1]
            key = str([(step, [(x - left, y) for x, y in points]) for step, points in look])
            looks.setdefault(key, set()).add(char)
        alike = {frozenset(chars) for chars in looks.values() if len(chars) > 1}
        self.assertEqual(alike, ALIKE[family])

    @for_each_font
    def test_vertical_metrics(self, family, font):
        em, os2, hhea = font["head"].unitsPerEm, font["OS/2"], font["hhea"]
        self.assertAlmostEqual((hhea.ascent - hhea.descent) / em, 1.2, delta=0.02)
        self.assertEqual((hhea.ascent, hhea.descent, hhea.lineGap),
                         (os2.sTypoAscender, os2.sTypoDescender, os2.sTypoLineGap))
        self.assertEqual((hhea.ascent, -hhea.descent), (os2.usWinAscent, os2.usWinDescent))
        # Capitals fill the line, and stand in its middle.
        self.assertGreater(os2.sCapHeight / em, 0.7)
        middle = (hhea.ascent + hhea.descent) / 2
        self.assertAlmostEqual(os2.sCapHeight / 2 / em, middle / em, delta=0.03)
        for char, height in ("H", os2.sCapHeight), ("x", os2.sxHeight):
            glyph = font["glyf"][self.name_of(font, char)]
            self.assertAlmostEqual(glyph.yMax / em, height / em, delta=0.02)
            self.assertAlmostEqual(glyph.yMin / em, 0, delta=0.02)

    @for_each_glyph
    def test_glyphs_stay_in_the_line_and_near_their_advance(self, font, name):
        points = [point for contour in self.contours(font, name) for point in contour]
        for x, y in points:
            self.assertLessEqual(font["hhea"].descent, y)
            self.assertLessEqual(y, font["hhea"].ascent)
            self.assertLessEqual(-10, x)
            self.assertLessEqual(x, font["hmtx"][name][0] + 10)

    @for_each_font
    def test_digits_are_equally_wide_and_points_narrow(self, family, font):
        widths = {self.advance(font, digit) for digit in DIGITS}
        self.assertEqual(len(widths), 1)
        for char in ".:":
            self.assertLess(self.advance(font, char), 0.6 * min(widths))

    def test_minus_is_the_middle_bar(self):
        for char in "-−":
            font = self.fonts["Crysta"]
            minus = font["glyf"][self.name_of(font, char)]
            heights = {(min(y for _, y in contour), max(y for _, y in contour))
                       for contour in self.contours(font, self.name_of(font, "8"))}
            self.assertIn((minus.yMin, minus.yMax), heights)

    def test_digits_are_seven_segments(self):
        font = self.fonts["Crysta"]
        lit = [len(self.contours(font, self.name_of(font, digit))) for digit in DIGITS]
        self.assertEqual(lit, [6, 2, 5, 5, 4, 5, 6, 3, 7, 6])

    @for_each_glyph
    def test_contours_are_convex_and_clockwise(self, font, name):
        for contour in self.contours(font, name):
            self.assertGreaterEqual(len(contour), 3)
            self.assertEqual(len(contour), len(set(contour)), "repeated point")
            self.assertLess(area(contour), -300)
            # Rounding to whole units may bend a side by a hair.
            self.assertLessEqual(max(turns(contour)), 200)

    @for_each_glyph
    def test_contours_do_not_touch(self, font, name):
        contours = self.contours(font, name)
        for index, one in enumerate(contours):
            for other in contours[:index]:
                self.assertTrue(apart(one, other), (one, other))


class Icon(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            cls.data = []
            for name in "a.png", "b.png":
                made = run("make-icon", Path(folder) / name)
                assert made.returncode == 0, made.stderr
                cls.data.append((Path(folder) / name).read_bytes())
        cls.header, cls.rows = cls.read(cls.data[0])

    @staticmethod
    def read(data):
        """Size and kind of a PNG of ours, and its rows of (red, green, blue, alpha)."""
        assert data[:8] == b"\x89PNG\r\n\x1a\n"
        chunks, at = {}, 8
        while at < len(data):
            length, kind = struct.unpack_from(">I4s", data, at)
            body = data[at + 8:at + 8 + length]
            assert struct.unpack_from(">I", data, at + 8 + length)[0] == zlib.crc32(kind + body)
            chunks[kind] = chunks.get(kind, b"") + body
            at += 12 + length
        assert kind == b"IEND"
        header = struct.unpack(">IIBBBBB", chunks[b"IHDR"])
        width, pixels = header[0], zlib.decompress(chunks[b"IDAT"])
        lines = [pixels[start:start + 1 + 4 * width]
                 for start in range(0, len(pixels), 1 + 4 * width)]
        assert all(line[0] == 0 for line in lines)  # no filter
        return header, [list(zip(*[iter(line[1:])] * 4)) for line in lines]

    def test_size_and_kind(self):
        self.assertEqual(self.header, (512, 512, 8, 6, 0, 0, 0))
        self.assertEqual([len(row) for row in self.rows], [512] * 512)

    def test_same_bytes_every_time(self):
        self.assertEqual(*self.data)

    def test_transparent_around_solid_within(self):
        for y, x in (0, 0), (0, 511), (511, 0), (511, 511), (0, 256), (256, 511):
            self.assertEqual(self.rows[y][x][3], 0)
        for y in range(100, 412):
            self.assertEqual({pixel[3] for pixel in self.rows[y][100:412]}, {255})

    def test_edges_are_soft(self):
        alphas = {pixel[3] for row in self.rows for pixel in row}
        self.assertGreater(len(alphas), 50)

    def test_dial_is_bright_on_a_darker_board(self):
        def brightness(x, y):
            return sum(self.rows[y][x][:3]) / 3
        self.assertGreater(brightness(200, 210), 200)
        self.assertLess(brightness(256, 490), 120)

    def test_refuses_wrong_usage(self):
        answer = run("make-icon")
        self.assertEqual(answer.returncode, 2)
        self.assertIn("usage", answer.stderr)


if __name__ == "__main__":
    unittest.main()
