#!/usr/bin/env python3
"""Saving that is stopped at every system call in turn: the program killed there, or the call failing. STATION names the
program; tests/hostile/faults.c is what stops it."""

import errno
import json
import os
import pathlib
import plistlib
import signal
import subprocess
import tempfile
import unittest

STATION = os.path.abspath(os.environ["STATION"])
SHIM = pathlib.Path(__file__).resolve().parents[1] / "hostile" / "faults.c"

ERRORS = (errno.ENOSPC, errno.EIO, errno.EROFS)
KILLED = 0
#: Without these a save may still have gone well: a look at what is there, or at what a crash left. The last call of all
#: closes the folder, into which nothing is written by then.
MAY_PASS = {"lstat", "readlink", "stat", "flock", "fstat", "unlink", "open", "last"}


def agent_name(path):
    """The station's name in a document, which must be whole."""
    with open(path, "rb") as stream:
        archive = plistlib.load(stream)
    objects = archive["$objects"]
    root = objects[archive["$top"]["root"].data]
    if "NS.keys" in root:
        keys = [objects[key.data] for key in root["NS.keys"]]
        return objects[root["NS.objects"][keys.index("agentName")].data]
    return objects[objects[root["agent"].data]["name"].data]


class Saving(unittest.TestCase):
    """One way to save; `save` runs it on a path and gives the finished process."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.shim = os.path.join(folder.name, "faults.so")
        subprocess.run(["gcc", "-shared", "-fPIC", "-Wall", "-Werror", "-o", cls.shim, str(SHIM), "-ldl"], check=True)

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.file = os.path.join(self.folder.name, self.name)
        self.data = tempfile.TemporaryDirectory()
        self.addCleanup(self.data.cleanup)

    def run_station(self, words, lines=(), **faults):
        faults = {f"FAULT_{key.upper()}": str(value) for key, value in faults.items()}
        if faults:
            faults.update(LD_PRELOAD=self.shim, FAULT_FOLDER=self.folder.name)
        return subprocess.run([STATION, *words], capture_output=True, text=True, cwd="/",
                              input="".join(json.dumps(line) + "\n" for line in lines),
                              env={**os.environ, "XDG_DATA_HOME": self.data.name, **faults})

    def left_over(self):
        return sorted(set(os.listdir(self.folder.name)) - {self.name})

    def calls(self):
        """The names of the system calls that saving over an old file makes."""
        log = os.path.join(self.folder.name, "calls")
        self.save("Old")
        result = self.save("New", log=log)
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(log) as stream:
            names = stream.read().split()
        os.unlink(log)
        return names

    def check_every_call(self):
        names = self.calls()
        for needed in ("open", "write", "fchmod", "fsync", "rename", "close"):
            self.assertIn(needed, names)
        self.assertEqual(names.count("fsync"), 2, "the file and its folder")
        self.assertLess(names.index("fsync"), names.index("rename"))
        self.assertEqual(names[-2:], ["fsync", "close"], "the folder")
        before_rename = names.index("rename") + 1
        for number, name in enumerate(names, 1):
            for code in (KILLED, *ERRORS):
                with self.subTest(call=name, number=number, code=errno.errorcode.get(code, "killed")):
                    self.check_call(name if number < len(names) else "last", number, code, number <= before_rename)

    def check_call(self, name, number, code, old_may_stay):
        self.save("Old")
        result = self.save("New", at=number, code=code)
        found = agent_name(self.file)
        self.assertIn(found, ("Old", "New") if old_may_stay else ("New",))
        if code == KILLED:
            self.assertEqual(result.returncode, -signal.SIGKILL)
        else:
            self.assertEqual(self.left_over(), [], "a save that failed leaves nothing about")
            if self.told(result):
                self.assertIn(self.name, self.told(result))
            elif self.tells:
                self.assertIn(name, MAY_PASS)
                self.assertEqual(found, "New")
        self.start_again()
        self.assertEqual(self.left_over(), [])
        self.assertEqual(agent_name(self.file), found)


class NewDocument(Saving):
    """`station new -o`; the next start saves the same document again."""
    name = "garden.site"
    tells = True

    def save(self, station, **faults):
        return self.run_station(["new", "--name", station, "-o", self.file], **faults)

    def told(self, result):
        return result.stderr if result.returncode == 1 else ""

    def start_again(self):
        found = agent_name(self.file)
        self.assertEqual(self.save(found).returncode, 0)

    def test_every_call(self):
        self.check_every_call()

    def test_a_full_disk_is_named_as_the_reason(self):
        self.save("Old")
        number = self.calls().index("write") + 1
        result = self.save("New", at=number, code=errno.ENOSPC)
        self.assertEqual(result.returncode, 1)
        self.assertIn(f'cannot write "{self.file}": No space left on device', result.stderr)


class SavedDocument(Saving):
    """The line "save" of `station drive`; the next start opens the document."""
    name = "garden.site"
    tells = True

    def save(self, station, **faults):
        lines = [{"do": "new", "agent": {"name": station, "properties": {}}}, {"do": "save", "file": self.file}]
        return self.run_station(["drive"], lines, **faults)

    def told(self, result):
        answers = [json.loads(line) for line in result.stdout.splitlines()]
        return answers[1].get("error", "") if len(answers) == 2 else ""

    def start_again(self):
        result = self.run_station(["drive"], [{"do": "open", "file": self.file}])
        self.assertTrue(json.loads(result.stdout).get("ok"), result.stdout)

    def test_every_call(self):
        self.check_every_call()


class Export(Saving):
    """An export, which is silent about its failure; the next start exports the same again."""
    name = "panel.zordashboard"
    tells = False

    def save(self, station, **faults):
        lines = [{"do": "new", "agent": {"name": station, "properties": {}}, "size": [200, 100],
                  "widgets": [{"kind": "box", "frame": [0, 0, 50, 50]}] * 40},
                 {"do": "answer", "sheet": "save", "response": "ok", "path": self.file},
                 {"do": "command", "name": "exportDashboard:"}]
        return self.run_station(["drive"], lines, **faults)

    def told(self, result):
        return ""

    def start_again(self):
        self.assertEqual(self.save(agent_name(self.file)).returncode, 0)

    def test_every_call(self):
        self.check_every_call()


del Saving

if __name__ == "__main__":
    unittest.main()
