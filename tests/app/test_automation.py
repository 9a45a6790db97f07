#!/usr/bin/env python3
"""What scripts are told and allowed, where it takes more than the lines of a scenario. STATION names the program."""

import os
import pathlib
import unittest

from driving import DrivenTest

KINDS = ("textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView", "levelIndicator",
         "roundGauge", "linearGauge")
PRINTED = {"text", "fontFamily", "fontSize", "bold", "alignment", "useProperty"}


class Automation(DrivenTest):
    def new(self, *kinds):
        self.do("new", size=[600, 400], agent={"name": "Garden"},
                widgets=[{"kind": kind, "frame": [20 * index, 20, 200, 200]} for index, kind in enumerate(kinds)])

    def test_an_instrument_tells_what_it_has_and_nothing_else(self):
        self.new(*KINDS)
        told = {widget["kind"]: set(widget["instrument"]) for widget in self.state()["widgets"]}
        self.assertEqual(told, {
            "textField": PRINTED | {"propertyFormat"}, "dateTimeField": PRINTED, "box": set(), "imageView": set(),
            "led": set(), "mapView": set(), "webView": set(), "plotView": {"fontSize", "period", "agent"},
            "levelIndicator": set(), "roundGauge": {"text"}, "linearGauge": {"text"}})

    def test_what_is_told_can_be_set(self):
        self.new("plotView")
        self.do("set", target=1, key="fontSize", value=17)
        self.assertEqual(self.state()["widgets"][0]["instrument"]["fontSize"], 17)

    def test_a_drag_after_a_right_press_needs_no_widget_any_more(self):
        self.new()
        self.do("command", name="editDashboard:")
        self.do("command", name="addBox:")
        self.do("rightPress", at=[100, 100])
        self.do("command", name="undo:")
        self.do("command", name="unselectAllObjects")
        self.assertEqual(self.state()["widgets"], [])
        self.do("drag", at=[120, 120])
        self.assertFalse(self.state()["fields"]["didDrag"])
        self.refuse("do", "release", at=[120, 120])

    def test_only_the_files_named_are_written(self):
        self.new(*KINDS)
        self.do("png", file="picture.png")
        self.do("save", file=self.path("home.site"))
        self.do("toolbar", name="toolbarItemAction:")
        self.do("web", path="/index.html")
        found = {os.path.relpath(file, self.folder.name) for file in pathlib.Path(self.folder.name).rglob("*")}
        self.assertEqual(found, {"picture.png", "home.site"})


if __name__ == "__main__":
    unittest.main()
