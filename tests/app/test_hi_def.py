#!/usr/bin/env python3
"""The built-in dashboard "Hi-Def": its file, and what the program makes of it. STATION names the program."""

import json
import os
import pathlib
import plistlib
import re
import subprocess
import sys
import tempfile
import unittest

STATION = os.environ["STATION"]
SOURCE = pathlib.Path(__file__).resolve().parents[2]
FILE = SOURCE / "resources" / "Hi-Def.zordashboard"

OUTDOOR = {
    "outdoorTemperature", "outdoorHumidity", "outdoorDewPoint", "outdoorHeatIndex", "windChill", "feelsLike",
    "windSpeed", "windGust", "windDirection", "rainRate", "rainToday", "rainLastHour", "barometricPressureRelative",
    "barometricPressureTrend", "solarRadiation", "uvIndex",
}
INDOOR = {"indoorTemperature", "indoorHumidity", "indoorDewPoint"}
TEXTS = ("ZORTextFieldView", "ZORDateTimeFieldView")


def archived_root(file):
    """The root of a keyed archive, with an object's class name under "$class"."""
    with open(file, "rb") as stream:
        archive = plistlib.load(stream)
    objects = archive["$objects"]

    def resolved(value):
        if isinstance(value, plistlib.UID):
            return resolved(objects[value.data])
        if not isinstance(value, dict):
            return None if value == "$null" else [resolved(each) for each in value] if isinstance(value, list) else value
        if "NS.keys" in value:
            return dict(zip(resolved(value["NS.keys"]), resolved(value["NS.objects"])))
        if "NS.objects" in value:
            return resolved(value["NS.objects"])
        return {key: resolved(each)["$classname"] if key == "$class" else resolved(each)
                for key, each in value.items()}

    return resolved(archive["$top"]["root"])


def rect(text):
    return [float(number) for number in re.findall(r"[-0-9.e]+", text)]


def overlap(one, other):
    return all(one[axis] < other[axis] + other[axis + 2] and other[axis] < one[axis] + one[axis + 2]
               for axis in (0, 1))


class HiDefFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = archived_root(FILE)
        cls.canvas = cls.root["editView"]
        cls.widgets = cls.canvas["subviews"]
        cls.instruments = [widget["targetView"] for widget in cls.widgets]

    def of_class(self, *names):
        return [widget for widget in self.widgets if widget["targetView"]["$class"] in names]

    def test_is_what_the_script_makes(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("one", "two"):
                subprocess.run([sys.executable, SOURCE / "tools" / "make-hi-def", STATION, pathlib.Path(folder, name)],
                               check=True, timeout=120)
                self.assertEqual(pathlib.Path(folder, name).read_bytes(), FILE.read_bytes())

    def test_fills_a_large_screen_and_is_ready_to_be_looked_at(self):
        self.assertEqual(self.root["title"], "Hi-Def Dashboard")
        self.assertEqual(self.canvas["$class"], "ZORDashboardEditView")
        self.assertEqual(rect(self.canvas["frame"]), [0, 0, 1920, 1080])
        self.assertFalse(self.canvas["editMode"])
        for widget in self.widgets:
            x, y, width, height = rect(widget["frame"])
            self.assertTrue(x >= 0 and y >= 0 and x + width <= 1920 and y + height <= 1080, widget["frame"])

    def test_shows_what_a_davis_station_measures_indoors_and_outdoors(self):
        names = {instrument["propertyName"] for instrument in self.instruments if "propertyName" in instrument}
        self.assertEqual(names, OUTDOOR | INDOOR)
        keys = (SOURCE / "host" / "station" / "PropertyKeys.h").read_text()
        for name in names:
            self.assertIn(f'= "{name}";', keys)

    def test_has_every_kind_of_instrument_that_belongs_on_a_wall(self):
        classes = [instrument["$class"] for instrument in self.instruments]
        self.assertEqual(classes[0], "ZORBoxView")
        self.assertEqual(rect(self.widgets[0]["frame"]), [0, 0, 1920, 1080])
        self.assertEqual({name: classes.count(name) for name in classes if name not in ("ZORBoxView", TEXTS[0])},
                         {"ZORRoundGaugeView": 3, "ZORPlotView": 3, "ZORLevelIndicatorView": 2,
                          "ZORLinearGaugeView": 1, "ZORLEDView": 1, "ZORDateTimeFieldView": 3})

    def test_no_text_lies_on_another_or_on_an_instrument(self):
        shown = [widget for widget in self.widgets if widget["targetView"]["$class"] != "ZORBoxView"]
        for index, one in enumerate(shown):
            for other in shown[index + 1:]:
                if {one["targetView"]["$class"], other["targetView"]["$class"]} & set(TEXTS):
                    self.assertFalse(overlap(rect(one["frame"]), rect(other["frame"])),
                                     (one["frame"], other["frame"]))

    def test_its_words_can_be_read_from_across_the_room(self):
        sizes = {widget["targetView"]["font"]["size"] for widget in self.of_class(*TEXTS)}
        self.assertGreaterEqual(min(sizes), 22)
        self.assertLessEqual(len(sizes), 7)
        for plot in self.of_class("ZORPlotView"):
            self.assertEqual(plot["targetView"]["fontSize"], 17)

    def test_its_stacking_numbers_follow_the_order(self):
        self.assertEqual([widget["zOrder"] for widget in self.widgets], list(range(1, len(self.widgets) + 1)))


class HiDefInTheProgram(unittest.TestCase):
    def test_the_catalogue_opens_it_linked_and_in_view_mode(self):
        properties = {"outdoorTemperature": {"value": -12.3, "unit": "°C"},
                      "indoorTemperature": {"value": 104.4, "unit": "°F"}}
        lines = [{"do": "new", "agent": {"name": "Garden", "properties": properties}}, {"do": "catalogue", "row": 2},
                 {"do": "state"}]
        run = subprocess.run([STATION, "drive"], input="\n".join(map(json.dumps, lines)) + "\n", text=True,
                             capture_output=True, timeout=120, check=True)
        _, catalogue, state = map(json.loads, run.stdout.splitlines())
        self.assertTrue(catalogue["dashboard"])
        self.assertEqual(state["dashboard"]["title"], "Hi-Def Dashboard")
        self.assertEqual(state["canvas"]["frame"], [0, 0, 1920, 1080])
        self.assertFalse(state["canvas"]["editMode"])
        texts = {widget["property"]: widget["instrument"]["text"] for widget in state["widgets"]
                 if widget["kind"] == "textField" and widget["property"]}
        self.assertEqual(texts["outdoorTemperature"], "-12.3 °C")
        self.assertEqual(texts["indoorTemperature"], "104.4 °F")
        self.assertEqual(texts["windGust"], "--")


if __name__ == "__main__":
    unittest.main()
