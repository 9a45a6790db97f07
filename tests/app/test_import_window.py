#!/usr/bin/env python3
"""Choosing and importing a dashboard and linking what it left unlinked, with real keys and clicks. STATION names the
program."""

import json
import subprocess
import unittest

from window_support import STATION, WindowTestCase, wait_for

TOOLBAR_ITEM = (60, 45)
# In the selection window.
IMPORT_OR_BACK = (79, 569)
CONTINUE = (679, 569)
FOURTH_ROW = (180, 84 + 6 + 3 * 88 + 44)
# In the list of unlinked instruments.
FIRST_LINK = (801, 91)
FIRST_CHOOSER = (630, 91)
ROOF = {"name": "Roof", "properties": {"anemometerSpeed": {"value": 3, "unit": "m/s"},
                                       "insideTemp": {"value": 20, "unit": "°C"},
                                       "outdoorTemperature": {"value": 5, "unit": "°C"}}}
WIDGETS = [{"kind": "roundGauge", "frame": [10, 10, 150, 150], "title": "Wind", "property": "anemometerSpeed"},
           {"kind": "textField", "frame": [170, 10, 100, 30], "property": "outdoorTemperature"},
           {"kind": "plotView", "frame": [10, 170, 300, 120], "property": "insideTemp"}]


class WithSelectionWindow(WindowTestCase):
    def open_selection(self):
        self.site = self.make_site()
        self.before = self.titles_in(self.site)
        self.open(self.site)
        self.click(*TOOLBAR_ITEM)
        return self.window_titled("New Dashboard")

    def click_in(self, window, place):
        self.xdotool("mousemove", "--window", window, *place, "click", 1)

    def wait_until_gone(self, title):
        wait_for(lambda: not self.xdotool("search", "--onlyvisible", "--name", title), f"{title} closed")

    def save(self):
        self.key("ctrl+s")
        wait_for(lambda: "*" not in self.title(), "the document counts as saved")


class SelectionWindow(WithSelectionWindow):
    def test_arrows_choose_and_return_adds(self):
        self.open_selection()
        self.key("Down", "Down", "Down", "Up", "Down", "Return")
        self.wait_until_gone("New Dashboard")
        wait_for(lambda: "*" in self.title(), "the document counts as changed")
        self.save()
        self.assertEqual(self.titles_in(self.site), self.before + ["Quad Plots"])

    def test_escape_adds_nothing_from_either_page(self):
        window = self.open_selection()
        self.key("Down", "Escape")
        self.wait_until_gone("New Dashboard")
        self.click(*TOOLBAR_ITEM)
        window = self.window_titled("New Dashboard")
        self.click_in(window, CONTINUE)
        self.key("Escape")
        self.wait_until_gone("New Dashboard")
        self.assertNotIn("*", self.title())

    def test_a_click_on_a_picture_chooses_and_the_second_page_shows_it_large(self):
        window = self.open_selection()
        first = self.settled("first", window, moving=2000)
        self.click_in(window, FOURTH_ROW)
        wait_for(lambda: self.differ(first, self.picture("fourth", window)) > 20000, "another preview")
        fourth = self.settled("fourth", window, moving=2000)
        self.click_in(window, CONTINUE)
        wait_for(lambda: self.differ(fourth, self.picture("large", window)) > 50000, "the second page")
        self.key("Return")
        self.wait_until_gone("New Dashboard")
        self.save()
        self.assertEqual(self.titles_in(self.site), self.before + ["Quad Plots"])

    def test_back_returns_to_the_list_which_takes_the_keys_again(self):
        window = self.open_selection()
        self.click_in(window, CONTINUE)
        self.click_in(window, IMPORT_OR_BACK)
        self.key("Down", "Return")
        self.wait_until_gone("New Dashboard")
        self.save()
        self.assertEqual(self.titles_in(self.site), self.before + ["Current Weather"])


    def test_tab_reaches_every_button(self):
        window = self.open_selection()
        first = self.settled("first", window, moving=2000)
        # Past Import and Cancel.
        self.key("Tab", "Tab", "Tab", "space")
        wait_for(lambda: self.differ(first, self.picture("large", window)) > 50000, "the second page")
        # To Back; the list has the keyboard again after it.
        self.key("Tab", "space")
        wait_for(lambda: self.differ(first, self.picture("first again", window)) < 20000, "the first page")
        self.key("Down", "Tab", "space")
        self.wait_until_gone("New Dashboard")
        self.xdotool("windowactivate", "--sync", self.window_titled("^Open$"))
        self.key("Escape")
        self.wait_until_gone("^Open$")
        self.assertNotIn("*", self.title())


class Unlinked(WithSelectionWindow):
    def export_of_the_roof(self):
        lines = [{"do": "new", "agent": ROOF, "widgets": WIDGETS, "size": [330, 300]},
                 {"do": "set", "target": "dashboard", "key": "title", "value": "From the Roof"},
                 {"do": "answer", "sheet": "save", "response": "ok", "path": "roof.zordashboard"},
                 {"do": "command", "name": "exportDashboard:"}]
        subprocess.run([STATION, "drive"], input="\n".join(map(json.dumps, lines)), text=True, check=True,
                       stdout=subprocess.DEVNULL, cwd=self.path)
        return self.path / "roof.zordashboard"

    def import_the_roof(self):
        file = self.export_of_the_roof()
        window = self.open_selection()
        self.click_in(window, IMPORT_OR_BACK)
        self.wait_until_gone("New Dashboard")
        self.xdotool("windowactivate", "--sync", self.window_titled("^Open$"))
        self.xdotool("type", file)
        self.key("Return")
        self.wait_until_gone("^Open$")
        # The warning is a window without a name.
        wait_for(lambda: self.active_window() not in ("", self.window), "the warning")
        self.key("Return")
        wait_for(lambda: "*" in self.title() and self.active_window() == self.window, "the dashboard is added")

    def active_window(self):
        return self.xdotool("getactivewindow")

    def open_list(self):
        self.key("alt+v")
        self.key("n")
        return self.window_titled("Unlinked Instruments")

    def linked_names(self):
        dashboard = self.plug_ins_in(self.site)[-1]
        self.assertEqual(dashboard["title"], "From the Roof")
        names = []

        def look(node):
            if isinstance(node, dict):
                if node.get("$class") in ("ZORRoundGaugeView", "ZORTextFieldView", "ZORPlotView"):
                    names.append(node.get("propertyName"))
                for each in node.values():
                    look(each)
            elif isinstance(node, list):
                for each in node:
                    look(each)
        look(dashboard)
        return names

    def test_the_list_links_what_an_import_left_unlinked(self):
        self.import_the_roof()
        self.save()
        self.assertEqual(self.linked_names(), [None, "outdoorTemperature", None])
        # Nothing opens by itself.
        self.assertEqual(self.xdotool("search", "--onlyvisible", "--name", "Unlinked Instruments"), "")
        window = self.open_list()
        shown = self.settled("list", window)
        self.click_in(window, FIRST_LINK)
        wait_for(lambda: self.differ(shown, self.picture("shorter", window)) > 200, "one row fewer")
        wait_for(lambda: "*" in self.title(), "the document counts as changed")
        # What was the second is the first now.
        self.click_in(window, FIRST_LINK)
        wait_for(lambda: self.differ(shown, self.picture("empty", window)) > 1500, "no rows")
        self.key("Escape")
        self.wait_until_gone("Unlinked Instruments")
        self.activate(self.window)
        self.save()
        self.assertEqual(self.linked_names(), ["windSpeed", "outdoorTemperature", "indoorTemperature"])

    def test_another_property_can_be_chosen(self):
        self.import_the_roof()
        window = self.open_list()
        shown = self.settled("list", window)
        screen = self.settled("screen", "root", moving=2000)
        self.click_in(window, FIRST_CHOOSER)
        wait_for(lambda: self.differ(screen, self.picture("choices", "root")) > 20000, "the choices")
        self.key("Down", "Return")
        wait_for(lambda: self.differ(shown, self.picture("chosen", window)) > 100, "another choice")
        self.click_in(window, FIRST_LINK)
        wait_for(lambda: self.differ(shown, self.picture("shorter", window)) > 200, "one row fewer")
        self.key("Escape")
        self.wait_until_gone("Unlinked Instruments")
        self.activate(self.window)
        self.save()
        self.assertEqual(self.linked_names(), ["windGust", "outdoorTemperature", None])


if __name__ == "__main__":
    unittest.main()
