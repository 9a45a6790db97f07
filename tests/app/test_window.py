#!/usr/bin/env python3
"""The window as a person uses it: real keys and clicks under a virtual display. STATION names the program."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

STATION = os.path.abspath(os.environ["STATION"])
TOOLS = ("Xvfb", "openbox", "xdotool", "import", "compare")


def wait_for(question, what, seconds=30):
    """Asks until the answer is yes: what a person sees takes its time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        answer = question()
        if answer:
            return answer
        time.sleep(0.1)
    raise AssertionError("never happened: " + what)


@unittest.skipUnless(all(shutil.which(tool) for tool in TOOLS), "needs " + ", ".join(TOOLS))
class WindowTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        read, write = os.pipe()
        cls.display_process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1500x1000x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            cls.display = ":" + answer.readline().strip()
        cls.window_manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL,
                                              env={**os.environ, "DISPLAY": cls.display})

    @classmethod
    def tearDownClass(cls):
        cls.window_manager.terminate()
        cls.window_manager.wait()
        cls.display_process.terminate()
        cls.display_process.wait()

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        self.environment = {**os.environ, "HOME": self.folder.name, "XDG_DATA_HOME": str(self.path / "data"),
                            "XDG_CONFIG_HOME": str(self.path / "config"), "DISPLAY": self.display, "TZ": "UTC",
                            "XDG_RUNTIME_DIR": self.folder.name, "QT_QPA_PLATFORM": "xcb"}
        self.program = None

    def tearDown(self):
        self.end()
        self.folder.cleanup()

    def end(self):
        """Ends the program of before, if it still runs."""
        if self.program:
            if self.program.poll() is None:
                self.program.kill()
            self.program.communicate()
        self.program = None

    def open(self, *words):
        self.end()
        self.program = subprocess.Popen([STATION, "open", *map(str, words)], env=self.environment, cwd=self.path,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.window = self.window_titled(".")
        self.xdotool("windowactivate", "--sync", self.window)

    def xdotool(self, *words):
        return subprocess.run(["xdotool", *words], env=self.environment, capture_output=True, text=True).stdout.strip()

    def window_titled(self, pattern):
        # Nothing else shows windows on this display.
        found = wait_for(lambda: self.xdotool("search", "--onlyvisible", "--name", pattern),
                         f"a window named {pattern}")
        return found.splitlines()[-1]

    def title(self):
        return self.xdotool("getwindowname", self.window)

    def key(self, *keys):
        self.xdotool("key", "--clearmodifiers", *keys)

    def click(self, x, y, button=1):
        self.xdotool("mousemove", "--window", self.window, str(x), str(y), "click", str(button))

    def picture(self, name, window=None):
        file = self.path / (name + ".png")
        subprocess.run(["import", "-window", window or self.window, file], env=self.environment, check=True)
        return file

    def differ(self, one, other):
        run = subprocess.run(["compare", "-metric", "AE", "-fuzz", "5%", one, other, "null:"], capture_output=True,
                             text=True)
        return float(run.stderr.split()[0])

    def make_site(self):
        site = self.path / "home.site"
        subprocess.run([STATION, "new", "--name", "Garden", "-o", site], env=self.environment, check=True)
        return site

    def titles_in(self, site):
        run = subprocess.run([STATION, "inspect", site], env=self.environment, capture_output=True, text=True,
                             check=True)
        return [each["title"] for each in json.loads(run.stdout)["root"]["plugIns"]]

    def test_demo_is_live(self):
        self.open("demo")
        self.assertIn("Demo Station", self.title())
        first = self.picture("first")
        # Wind and time move on by themselves.
        wait_for(lambda: self.differ(first, self.picture("later")) > 20, "the picture changed")

    def test_choosing_in_the_list_shows_another_dashboard(self):
        self.open(self.make_site())
        first = self.picture("first")
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
