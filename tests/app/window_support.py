"""What a test needs that uses the program's windows: a virtual display, real keys and clicks. STATION names the
program."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

STATION = os.path.abspath(os.environ["STATION"])
TOOLS = ("Xvfb", "openbox", "xdotool", "xprop", "import", "compare")


def wait_for(question, what, seconds=30):
    """Asks until the answer is yes: what a person sees takes its time."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        answer = question()
        if answer:
            return answer
        time.sleep(0.1)
    raise AssertionError("never happened: " + what)


def stop(program):
    if program.poll() is None:
        program.kill()
    program.communicate()


@unittest.skipUnless(all(shutil.which(tool) for tool in TOOLS), "needs " + ", ".join(TOOLS))
class WindowTestCase(unittest.TestCase):
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
        # A window that appears while the window manager is still starting may never become visible.
        wait_for(cls.window_manager_is_ready, "the window manager started")

    @classmethod
    def window_manager_is_ready(cls):
        run = subprocess.run(["xprop", "-display", cls.display, "-root", "_NET_SUPPORTING_WM_CHECK"],
                             capture_output=True, text=True)
        return "window id" in run.stdout

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
        self.others = []

    def tearDown(self):
        self.end()
        for program in self.others:
            stop(program)
        self.folder.cleanup()

    def end(self):
        """Ends the program of before, if it still runs."""
        if self.program:
            stop(self.program)
        self.program = None

    def start(self, *words):
        return subprocess.Popen([STATION, "open", *map(str, words)], env=self.environment, cwd=self.path,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def open(self, *words):
        self.end()
        self.program = self.start(*words)
        self.activate(self.window_titled("."))

    def open_another(self, *words, title):
        """A second copy of the program beside the first; its window is the one worked in from now on."""
        self.others.append(self.start(*words))
        self.activate(self.window_titled(title))

    def activate(self, window):
        self.window = window
        self.xdotool("windowactivate", "--sync", window)

    def xdotool(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True,
                             timeout=60)
        return run.stdout.strip()

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
        self.xdotool("mousemove", "--window", self.window, x, y, "click", button)

    def picture(self, name, window=None):
        file = self.path / (name + ".png")
        subprocess.run(["import", "-window", window or self.window, file], env=self.environment, check=True,
                       timeout=60)
        return file

    def settled(self, name, window=None, take=None, moving=0, colours=4):
        """The picture once the window has been drawn: so many colours at least, and twice the same but for so many
        pixels that move by themselves."""
        take = take or (lambda each: self.picture(each, window))
        last = take(name + " earlier")

        def is_still():
            nonlocal last
            now = take(name)
            count = subprocess.run(["identify", "-format", "%k", now], capture_output=True, text=True, check=True)
            still = int(count.stdout) >= colours and self.differ(last, now) <= moving
            last = now.rename(now.with_stem(name + " earlier"))
            return still

        wait_for(is_still, f"{name} drawn")
        return last

    def differ(self, one, other):
        run = subprocess.run(["compare", "-metric", "AE", "-fuzz", "5%", one, other, "null:"], capture_output=True,
                             text=True)
        return float(run.stderr.split()[0])

    def make_site(self):
        site = self.path / "home.site"
        subprocess.run([STATION, "new", "--name", "Garden", "-o", site], env=self.environment, check=True)
        return site

    def plug_ins_in(self, site):
        run = subprocess.run([STATION, "inspect", site], env=self.environment, capture_output=True, text=True,
                             check=True)
        return json.loads(run.stdout)["root"]["plugIns"]

    def titles_in(self, site):
        return [each["title"] for each in self.plug_ins_in(site)]
