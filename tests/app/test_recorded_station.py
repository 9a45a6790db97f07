#!/usr/bin/env python3
"""Dashboards of archives that real programs recorded, years ago: their last recorded day is today. The expected values
were read with sqlite3 and converted by hand. STATION names the program."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

STATION = os.path.abspath(os.environ["STATION"])
ARCHIVES = pathlib.Path(__file__).resolve().parents[2] / "../shared/data/weewx"
US = "real-us-2015.sdb"  # up to 2015-07-13 16:50 UTC
METRIC = "simulator-metricwx-45d.sdb"  # up to the midnight after 2025-12-31, UTC
# Quad Plots' frames, two beside and two below each other in 1000 by 776.
QUARTERS = [(x, y, 500, 388) for y in (0, 388) for x in (0, 500)]
HEADER = 50


def is_line(red, green, blue):
    """The plots' blue, not the paler area below the line."""
    return red < 60 and green < 150 and blue > 170


class Picture:
    def __init__(self, path):
        size = subprocess.run(["identify", "-format", "%w %h", path], capture_output=True, text=True, check=True).stdout
        self.width, self.height = map(int, size.split())
        self.pixels = subprocess.run(["convert", path, "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout

    def color(self, column, row):
        start = 3 * (row * self.width + column)
        return self.pixels[start:start + 3]

    def columns_with_line(self, frame):
        """The first and the last column, within the frame, that the line of a plot passes."""
        x, y, width, height = frame
        found = [column for column in range(x, x + width)
                 if any(is_line(*self.color(column, row)) for row in range(y + HEADER, y + height))]
        return (found[0] - x, found[-1] - x) if found else None


@unittest.skipUnless(ARCHIVES.exists(), "*** THE REAL WEEWX ARCHIVES ARE NOT THERE: THEIR DASHBOARDS ARE NOT TESTED ***")
class RecordedStationTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.path = pathlib.Path(self.folder.name)

    def render(self, archive, dashboard, name):
        environment = {**os.environ, "HOME": self.folder.name, "TZ": "UTC"}
        run = subprocess.run([STATION, "render", "--source", f"weewx:{ARCHIVES / archive}", "--dashboard", dashboard,
                              "-o", name], capture_output=True, text=True, cwd=self.path, env=environment)
        self.assertEqual(run.returncode, 0, run.stderr)
        return self.path / name

    def texts(self, archive, dashboard):
        document = self.render(archive, dashboard, "x.pdf")
        return subprocess.run(["pdftotext", document, "-"], capture_output=True, text=True, check=True).stdout

    def test_current_weather_shows_the_last_values(self):
        shown = self.texts(US, "Current Weather")
        for value in ("27.7 °C", "22.2 °C", "72 %", "1008.2 hPa"):  # 81.8875 and 71.8985 °F, 29.77253 inHg
            self.assertIn(value, shown)
        shown = self.texts(METRIC, "Current Weather")
        for value in ("0.4 °C", "-19.9 °C", "20 %", "985.4 hPa"):
            self.assertIn(value, shown)

    def test_the_standard_dashboards_clock_shows_the_last_recorded_moment(self):
        shown = self.texts(US, "Standard Dashboard")
        for value in ("Monday, 13 July 2015 16:50", "27.7", "2.7", "1008.2", "NNW"):  # 1.64705 mph, 332°
            self.assertIn(value, shown)
        # A row at midnight ends the day before.
        self.assertIn("Wednesday, 31 December 2025 23:59", self.texts(METRIC, "Standard Dashboard"))

    def test_quad_plots_show_the_last_recorded_day(self):
        whole = Picture(self.render(METRIC, "Quad Plots", "metric.png"))
        part = Picture(self.render(US, "Quad Plots", "us.png"))
        for frame in QUARTERS:
            left, right = whole.columns_with_line(frame)
            self.assertLess(left, 60)
            self.assertGreater(right, 460)
            ends = part.columns_with_line(frame)
            self.assertIsNotNone(ends)
            # From midnight to 16:50; the labels beside the axis may be narrower.
            self.assertAlmostEqual(ends[0], left, delta=12)
            self.assertAlmostEqual(ends[1], left + (right - left) * (16 * 60 + 50) / (24 * 60), delta=12)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[1:]])
