#!/usr/bin/env python3
"""The window as a person uses it: real keys and clicks under a virtual display. STATION names the program."""

import subprocess
import unittest

from window_support import STATION, WindowTestCase, wait_for


class WindowTest(WindowTestCase):
    def test_demo_is_live(self):
        self.open("demo")
        self.assertIn("Demo Station", self.title())
        first = self.picture("first")
        # Wind and time move on by themselves.
        wait_for(lambda: self.differ(first, self.picture("later")) > 20, "the picture changed")

    def test_choosing_in_the_list_shows_another_dashboard(self):
        self.open(self.make_site())
        first = self.settled("first", moving=2000)
        self.click(80, 100)
        wait_for(lambda: self.differ(first, self.picture("second")) > 20000, "another dashboard")

    def test_new_dashboard_from_the_menu_is_saved_with_the_document(self):
        site = self.make_site()
        before = self.titles_in(site)
        self.open(site)
        self.key("alt+f")
        self.key("d")
        self.key("Down", "Down", "Down", "Return")
        wait_for(lambda: "*" in self.title(), "the document counts as changed")
        self.key("ctrl+s")
        wait_for(lambda: "*" not in self.title(), "the document counts as saved")
        self.assertEqual(self.titles_in(site), before + ["Quad Plots 2"])

    def test_full_screen_and_back(self):
        self.open(self.make_site())
        def size():
            return self.xdotool("getwindowgeometry", "--shell", self.window)
        before = size()
        self.key("F11")
        wait_for(lambda: "WIDTH=1500" in size() and "HEIGHT=1000" in size(), "full screen")
        self.key("F11")
        wait_for(lambda: size() == before or "WIDTH=1500" not in size(), "the window of before")

    def mean_of(self, crop, what="mean"):
        """From 0, black, to 1, of a part of the window."""
        run = subprocess.run(["convert", self.picture("window"), "-crop", crop, "-format", f"%[fx:{what}]", "info:"],
                             capture_output=True, text=True, check=True)
        return float(run.stdout)

    def brightness_of_the_list(self):
        """Where the list has no entries."""
        return self.mean_of("40x40+60+600")

    def shows_the_list(self):
        """The end of its first entry is blue; without the list white canvas is there."""
        return self.mean_of("10x10+175+78", "mean.r") < 0.5

    def test_a_hidden_list_stays_hidden_until_it_is_shown_again(self):
        site = self.make_site()
        self.open(site)
        wait_for(self.shows_the_list, "the list")
        for shown in (False, True):
            self.key("F9")
            wait_for(lambda: self.shows_the_list() == shown, f"F9, the list shown: {shown}")
            self.key("ctrl+w")
            self.assertEqual(self.program.wait(timeout=30), 0)
            self.open(site)
            # The dashboard's name is drawn black on white.
            wait_for(lambda: self.mean_of("300x60+30+70", "minima") < 0.3, "the dashboard")
            self.assertEqual(self.shows_the_list(), shown)

    def test_the_dark_appearance_reaches_the_list_at_once(self):
        self.open(self.make_site())
        self.assertGreater(self.brightness_of_the_list(), 0.9)
        self.key("alt+v")
        self.key("a")
        self.key("Down", "Down", "Return")
        wait_for(lambda: self.brightness_of_the_list() < 0.2, "a dark list")

    def test_help_opens_at_f1(self):
        self.open(self.make_site())
        self.key("F1")
        self.window_titled("Station Help")

    def test_about_plug_ins_shows_the_plug_ins_own_words(self):
        self.open(self.make_site())
        self.key("alt+h")
        self.key("p")
        self.window_titled("About Plug-ins")

    def test_closing_quits_and_the_next_start_opens_the_same_document(self):
        site = self.make_site()
        self.open(site)
        self.key("ctrl+w")
        self.assertEqual(self.program.wait(timeout=30), 0, self.program.stderr.read())
        self.open()
        self.assertIn("home", self.title())

    def test_size_is_remembered(self):
        site = self.make_site()
        self.open(site)
        self.xdotool("windowsize", "--sync", self.window, "900", "640")
        self.key("ctrl+w")
        self.assertEqual(self.program.wait(timeout=30), 0)
        self.open(site)
        wait_for(lambda: "WIDTH=900" in self.xdotool("getwindowgeometry", "--shell", self.window), "the size of before")

    def test_a_damaged_document_is_told_and_nothing_opens(self):
        bad = self.path / "bad.site"
        bad.write_bytes(b"no document")
        self.program = subprocess.Popen([STATION, "open", bad], env=self.environment, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, text=True)
        self.window_titled(".")
        self.key("Return")
        self.assertNotEqual(self.program.wait(timeout=30), 0)


if __name__ == "__main__":
    unittest.main()
