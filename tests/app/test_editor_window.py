#!/usr/bin/env python3
"""Editing a dashboard as a person does: real presses, drags and keys under a virtual display, judged by what the saved
document holds. STATION names the program."""

import re
import time
import unittest

from window_support import WindowTestCase, wait_for

def objects_by_id(tree):
    """An object that is named twice, such as a selected widget, stands in full only where it is named first."""
    found = {}
    waiting = [tree]
    while waiting:
        each = waiting.pop()
        if isinstance(each, dict):
            if "$id" in each:
                found[each["$id"]] = each
            waiting += each.values()
        elif isinstance(each, list):
            waiting += each
    return found


BLANK = 4
"""The row of the empty dashboard, which opens in edit mode."""


class EditorWindowTest(WindowTestCase):
    def setUp(self):
        super().setUp()
        self.site = self.make_site()
        self.open_blank(self.site)

    def open_blank(self, site):
        self.open(site)
        self.choose_blank()

    def choose_blank(self):
        self.click(80, 100)
        self.key("End")
        time.sleep(0.5)

    def save(self):
        wait_for(lambda: "*" in self.title(), "the document counts as changed")
        self.key("ctrl+s")
        wait_for(lambda: "*" not in self.title(), "the document counts as saved")

    def widgets(self, site=None):
        plug_ins = self.plug_ins_in(site or self.site)
        known = objects_by_id(plug_ins)
        canvas = plug_ins[BLANK]["editView"]
        return [known[each["$ref"]] if "$ref" in each else each for each in canvas["subviews"]]

    def frames(self, site=None):
        return [[float(number) for number in re.findall(r"-?[0-9.]+", widget["frame"])]
                for widget in self.widgets(site)]

    def move(self, x, y):
        self.xdotool("mousemove", "--window", self.window, x, y)
        time.sleep(0.1)

    def drag(self, start, end):
        self.move(*start)
        self.xdotool("mousedown", 1)
        middle = [(a + b) // 2 for a, b in zip(start, end)]
        for place in (middle, end, end):
            self.move(*place)
        self.xdotool("mouseup", 1)
        time.sleep(0.2)

    def insert_box(self, x, y):
        """By the context menu, whose second entry it is."""
        self.click(x, y, 3)
        time.sleep(0.5)
        self.key("Down", "Down", "Return")
        time.sleep(0.5)

    def insert_box_and_find_it(self):
        """A box of 256 by 256 points whose top left corner is 20 points above and left of the click."""
        self.insert_box(500, 300)
        self.save()
        self.assertEqual(len(self.frames()), 2)
        self.assertEqual(self.frames()[1][2:], [256, 256])

    def panel(self):
        return self.window_titled("Properties")

    def panel_is_open(self):
        return self.xdotool("search", "--onlyvisible", "--name", "Properties") != ""

    def type_into_x(self, text):
        """The first field of the panel, which has the keyboard."""
        self.key("ctrl+a")
        self.xdotool("type", text)
        time.sleep(0.3)

    def test_press_and_drag_moves_the_widget_and_undo_puts_it_back(self):
        self.insert_box_and_find_it()
        before = self.frames()
        self.drag((560, 360), (620, 400))
        self.save()
        self.assertEqual(self.frames()[1][:2], [before[1][0] + 60, before[1][1] + 40])
        self.assertEqual(self.frames()[0], before[0])
        self.key("ctrl+z")
        self.save()
        self.assertEqual(self.frames(), before)

    def test_the_handle_resizes(self):
        self.insert_box_and_find_it()
        before = self.frames()[1]
        self.click(560, 360)
        time.sleep(0.6)
        corner = (480 + 256 - 5, 280 + 256 - 5)
        self.drag(corner, (corner[0] + 40, corner[1] + 30))
        self.save()
        self.assertEqual(self.frames()[1], [before[0], before[1], 296, 286])

    def test_a_band_selects_what_it_touches_and_delete_removes_it(self):
        self.insert_box_and_find_it()
        self.drag((470, 270), (520, 320))
        self.key("Delete")
        self.save()
        self.assertEqual(len(self.frames()), 1)

    def test_double_click_opens_the_panel_and_its_fields_change_the_instrument(self):
        self.insert_box_and_find_it()
        before = self.frames()[1]
        self.assertFalse(self.panel_is_open())
        self.move(560, 360)
        self.xdotool("click", "--repeat", 2, "--delay", 80, 1)
        panel = self.panel()
        self.xdotool("windowactivate", "--sync", panel)
        self.type_into_x("77")
        self.xdotool("windowactivate", "--sync", self.window)
        self.save()
        self.assertEqual(self.frames()[1], [77, *before[1:]])

    def test_keys_of_the_menus_stay_in_the_fields_of_the_panel(self):
        self.insert_box_and_find_it()
        before = self.frames()
        self.click(560, 360)
        time.sleep(0.6)
        self.key("ctrl+i")
        self.panel()
        time.sleep(0.5)
        # Select all, duplicate and delete would each change the dashboard.
        self.type_into_x("88")
        self.key("ctrl+a", "Delete")
        self.xdotool("type", "99")
        self.key("ctrl+d")
        self.xdotool("windowactivate", "--sync", self.window)
        self.save()
        self.assertEqual(self.frames(), [before[0], [99, *before[1][1:]]])

    def test_escape_closes_the_panel(self):
        self.insert_box_and_find_it()
        self.click(560, 360)
        time.sleep(0.6)
        self.key("ctrl+i")
        self.panel()
        time.sleep(0.5)
        self.key("Escape")
        wait_for(lambda: not self.panel_is_open(), "the panel closed")

    def test_menus_insert_and_arrange(self):
        self.key("alt+i")
        self.key("l")
        self.key("ctrl+a", "alt+a")
        self.key("l")
        self.save()
        frames = self.frames()
        self.assertEqual(len(frames), 2)
        self.assertEqual(frames[1][2:], [40, 40])
        self.assertEqual(frames[0][0], frames[1][0])

    def test_widgets_travel_between_two_copies_of_the_program(self):
        self.insert_box_and_find_it()
        copied = self.frames()[1]
        self.click(560, 360)
        time.sleep(0.6)
        self.key("ctrl+c")
        other = self.path / "other.site"
        other.write_bytes(self.site.read_bytes())
        first = len(self.widgets(other))
        self.open_another(other, title="other")
        self.choose_blank()
        self.key("ctrl+v")
        self.save()
        frames = self.frames(other)
        self.assertEqual(len(frames), first + 1)
        self.assertEqual(frames[-1], [copied[0] + 10, copied[1] - 10, 256, 256])

    def test_a_drag_scrolls_at_the_edge(self):
        self.xdotool("windowsize", "--sync", self.window, 900, 600)
        self.insert_box(400, 200)
        self.save()
        before = self.frames()[1]
        self.move(460, 260)
        self.xdotool("mousedown", 1)
        self.move(500, 400)
        self.move(500, 555)
        time.sleep(1.5)
        self.xdotool("mouseup", 1)
        self.save()
        # Farther than the pointer went.
        self.assertGreater(self.frames()[1][1], before[1] + (555 - 260) + 50)

    def test_dashboards_are_renamed_in_place_and_removed(self):
        self.key("F2")
        time.sleep(0.3)
        self.key("ctrl+a")
        self.xdotool("type", "Greenhouse")
        self.key("Return")
        self.save()
        self.assertEqual(self.titles_in(self.site)[BLANK], "Greenhouse")
        self.key("Delete")
        self.window_titled("Remove")
        time.sleep(0.3)
        self.key("Return")
        self.save()
        self.assertEqual(len(self.titles_in(self.site)), BLANK)


if __name__ == "__main__":
    unittest.main()
