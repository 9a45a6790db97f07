#!/usr/bin/env python3
"""Editing a dashboard as a person does: real presses, drags and keys under a virtual display, judged by what the saved
document holds. STATION names the program."""

import re
import subprocess
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

    def choose_in_context_menu(self, x, y, *keys):
        self.click(x, y, 3)
        time.sleep(0.5)
        self.key(*keys, "Return")
        time.sleep(0.5)

    def insert_box(self, x, y):
        """By the context menu, whose second entry it is."""
        self.choose_in_context_menu(x, y, "Down", "Down")

    def open_panel(self, x, y):
        """Of the widget there."""
        self.click(x, y)
        time.sleep(0.6)
        self.key("ctrl+i")
        panel = self.panel()
        time.sleep(1)
        return panel

    def click_in(self, window, x, y):
        self.xdotool("mousemove", "--window", window, x, y, "click", 1)
        time.sleep(0.5)

    def instrument(self):
        """That of the topmost widget."""
        return self.widgets()[-1]["targetView"]

    def canvas_picture(self, name):
        """Part of the canvas, where nothing changes by itself."""
        file = self.path / (name + ".png")
        subprocess.run(["import", "-window", self.window, "-crop", "500x400+450+200", file], env=self.environment,
                       check=True, timeout=60)
        return file

    def settled_canvas(self, name):
        return self.settled(name, take=self.canvas_picture, colours=1)

    def wait_until_canvas_is(self, picture, name):
        wait_for(lambda: self.differ(picture, self.canvas_picture(name)) == 0, name)

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

    def test_the_band_shows_crawls_and_goes(self):
        before = self.settled_canvas("before")
        self.move(480, 230)
        self.xdotool("mousedown", 1)
        self.move(600, 300)
        self.move(700, 420)
        time.sleep(0.3)
        band = self.canvas_picture("band")
        time.sleep(0.3)
        crawled = self.canvas_picture("crawled")
        self.xdotool("mouseup", 1)
        self.move(20, 500)
        time.sleep(0.5)
        # Most of two lines of 220 and two of 190 points, of which each dash moves.
        self.assertGreater(self.differ(before, band), 400)
        self.assertGreater(self.differ(band, crawled), 50)
        self.wait_until_canvas_is(before, "after")

    def test_a_band_scrolls_at_the_edge(self):
        self.xdotool("windowsize", "--sync", self.window, 900, 600)
        time.sleep(0.5)
        # The box reaches to 536 points below the window's top; the band begins below it.
        self.insert_box(500, 300)
        self.drag((560, 320), (560, 460))
        self.save()
        before = self.frames()[1]
        self.move(260, 500)
        self.xdotool("mousedown", 1)
        self.move(300, 540)
        self.move(880, 560)
        time.sleep(1.5)
        self.xdotool("mouseup", 1)
        time.sleep(0.3)
        self.key("Right")
        self.save()
        self.assertEqual(self.frames()[1], [before[0] + 1, *before[1:]])

    def test_a_click_selects_and_shows_the_handle(self):
        self.insert_box_and_find_it()
        before = self.settled_canvas("before")
        self.click(560, 360)
        time.sleep(0.6)
        wait_for(lambda: self.differ(before, self.canvas_picture("selected")) > 500, "selected")
        self.click(900, 700)
        time.sleep(0.6)
        self.wait_until_canvas_is(before, "unselected")

    def test_the_context_menu_leaves_and_enters_edit_mode(self):
        edited = self.settled_canvas("edited")
        self.choose_in_context_menu(600, 400, "Up")
        self.move(20, 500)
        viewed = self.settled_canvas("viewed")
        # The grid.
        self.assertGreater(self.differ(edited, viewed), 1000)
        self.click(600, 400)
        time.sleep(0.3)
        self.assertEqual(self.differ(viewed, self.canvas_picture("pressed")), 0)
        self.choose_in_context_menu(600, 400, "Down")
        self.move(20, 500)
        self.wait_until_canvas_is(edited, "edited again")

    def test_a_picture_is_chosen_by_the_keyboard_alone(self):
        picture = self.path / "red.png"
        subprocess.run(["convert", "-size", "40x30", "xc:red", picture], check=True)
        self.choose_in_context_menu(500, 300, "Down", "Down", "Down")
        self.save()
        self.assertNotIn("image", self.instrument())
        self.open_panel(560, 360)
        self.key("Tab", "Tab", "Tab", "Tab", "space")
        self.window_titled("Choose a Picture")
        time.sleep(0.5)
        self.xdotool("type", str(picture))
        self.key("Return")
        time.sleep(1)
        self.activate(self.window)
        self.save()
        self.assertEqual(self.instrument()["image"]["size"], "{40, 30}")

    def test_a_colour_is_picked_in_the_popup(self):
        self.insert_box_and_find_it()
        before = self.instrument()
        panel = self.open_panel(560, 360)
        # The well of the fill colour, and the first colour below it.
        self.click_in(panel, 138, 173)
        self.click_in(panel, 140, 206)
        self.activate(self.window)
        self.save()
        after = self.instrument()
        self.assertNotEqual(after["fillColor"], before["fillColor"])
        self.assertEqual(after["borderColor"], before["borderColor"])

    def test_a_property_is_linked_in_the_popup(self):
        self.choose_in_context_menu(500, 300, "Down")
        panel = self.open_panel(520, 300)
        self.click_in(panel, 206, 174)
        # The second entry; the first is "None".
        self.click_in(panel, 80, 242)
        self.activate(self.window)
        self.save()
        self.assertEqual(self.instrument()["propertyName"], "outdoorTemperature")

    def test_a_property_is_searched_by_the_keyboard_alone(self):
        self.choose_in_context_menu(500, 300, "Down")
        self.open_panel(520, 300)
        self.key("Tab", "Tab", "Tab", "Tab", "space")
        time.sleep(0.5)
        self.xdotool("type", "Rain Rate")
        self.key("Return")
        time.sleep(0.3)
        self.activate(self.window)
        self.save()
        self.assertEqual(self.instrument()["propertyName"], "rainRate")

    def test_an_untouched_document_that_was_never_saved_closes_without_a_question(self):
        self.open("demo")
        self.key("ctrl+w")
        wait_for(lambda: self.program.poll() is not None, "the program ended")
        self.assertEqual(self.program.returncode, 0)

    def test_an_edited_document_that_was_never_saved_asks(self):
        self.open("demo")
        self.choose_blank()
        self.insert_box(500, 300)
        self.key("ctrl+w")
        wait_for(lambda: self.xdotool("getactivewindow") != self.window, "a question")
        self.key("Escape")
        time.sleep(0.5)
        self.assertIsNone(self.program.poll())
        self.assertEqual(self.xdotool("getactivewindow"), self.window)

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

    def test_revert_has_a_key_and_takes_a_drag_back_too(self):
        self.insert_box_and_find_it()
        before = self.frames()
        panel = self.open_panel(560, 360)
        self.type_into_x("300")
        self.activate(self.window)
        # Of the box, what the panel leaves free.
        self.drag((570, 290), (590, 300))
        self.save()
        self.assertEqual(self.frames(), [before[0], [320, before[1][1] + 10, 256, 256]])
        self.xdotool("windowactivate", "--sync", panel)
        self.key("alt+r")
        self.activate(self.window)
        self.save()
        self.assertEqual(self.frames(), before)

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

    def test_widgets_travel_between_two_windows_of_one_program(self):
        self.insert_box_and_find_it()
        copied = self.frames()[1]
        other = self.path / "other.site"
        other.write_bytes(self.site.read_bytes())
        self.open(self.site, other)
        self.activate(self.window_titled("home"))
        self.choose_blank()
        self.click(560, 360)
        time.sleep(0.6)
        self.key("ctrl+c")
        self.activate(self.window_titled("other"))
        self.choose_blank()
        self.key("ctrl+v")
        self.save()
        self.assertEqual(self.frames(other), [*self.frames(), [copied[0] + 10, copied[1] - 10, 256, 256]])

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

    def test_the_menu_of_an_entry_duplicates_renames_and_removes(self):
        titles = self.titles_in(self.site)
        # Its entries: the dashboard's own, one for a window, rename and remove.
        self.choose_in_context_menu(80, 100, "Down")
        self.save()
        # The click is on the second.
        duplicate = titles[1] + " 2"
        self.assertEqual(self.titles_in(self.site), [*titles, duplicate])
        self.choose_in_context_menu(80, 100, "Down", "Down", "Down")
        self.key("ctrl+a")
        self.xdotool("type", "Orchard")
        self.key("Return")
        self.save()
        self.assertEqual(self.titles_in(self.site), [titles[0], "Orchard", *titles[2:], duplicate])
        self.choose_in_context_menu(80, 100, "Up")
        self.window_titled("Remove")
        time.sleep(0.3)
        self.key("Return")
        self.save()
        self.assertEqual(self.titles_in(self.site), [titles[0], *titles[2:], duplicate])

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
