#!/usr/bin/env python3
"""A dashboard in a window of its own, worked in with real keys and clicks. STATION names the program."""

import json
import unittest

from window_support import WindowTestCase, wait_for

SECOND_DASHBOARD = (90, 110)


class SeparateWindow(WindowTestCase):
    def setUp(self):
        super().setUp()
        self.site = self.make_site()
        self.open(self.site)
        self.site_window = self.window
        self.click(*SECOND_DASHBOARD, button=3)
        # "Duplicate" comes before "Open in Separate Window".
        self.key("Down", "Down", "Return")
        self.own_window = self.window_titled("^Current Weather$")

    def is_shown(self):
        return bool(self.xdotool("search", "--onlyvisible", "--name", "^Current Weather$"))

    def widgets_saved(self):
        return json.dumps(self.plug_ins_in(self.site)[1]).count('"ZORWidgetHostView"')

    def test_the_keys_of_editing_and_saving_work_in_it(self):
        before = self.widgets_saved()
        self.activate(self.own_window)
        self.key("ctrl+e", "ctrl+a", "Delete", "ctrl+s")
        wait_for(lambda: self.widgets_saved() < before, "the dashboard is saved without its widgets")
        self.key("ctrl+z", "ctrl+s")
        wait_for(lambda: self.widgets_saved() == before, "the dashboard is saved with them again")

    def test_closed_by_key_it_goes_alone_and_can_be_opened_again(self):
        alone = self.settled("elsewhere", self.site_window, moving=2000)
        self.activate(self.own_window)
        self.key("ctrl+w")
        wait_for(lambda: not self.is_shown(), "the window is gone")
        self.assertIsNone(self.program.poll())
        self.activate(self.site_window)
        # The site window shows the dashboard itself again.
        wait_for(lambda: self.differ(alone, self.picture("here", self.site_window)) > 20000, "the dashboard is back")
        self.click(*SECOND_DASHBOARD, button=3)
        self.key("Down", "Down", "Return")
        wait_for(self.is_shown, "the window is there again")

    def test_it_outlives_its_place_in_the_list_but_not_the_program(self):
        self.activate(self.site_window)
        self.click(*SECOND_DASHBOARD)
        self.key("Delete")
        self.xdotool("windowactivate", "--sync", self.window_titled("^Remove$"))
        self.key("Return")
        wait_for(lambda: "*" in self.title(), "the document counts as changed")
        self.assertTrue(self.is_shown())
        self.key("ctrl+s")
        wait_for(lambda: "Current Weather" not in self.titles_in(self.site), "the document is saved without it")
        wait_for(lambda: "*" not in self.title(), "the document counts as saved")
        self.activate(self.site_window)
        self.key("ctrl+q")
        self.assertEqual(self.program.wait(timeout=30), 0, self.program.stderr.read())
        self.assertFalse(self.is_shown())


if __name__ == "__main__":
    unittest.main()
