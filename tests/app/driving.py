"""One run of `station drive` that a test talks to line by line. STATION names the program."""

import json
import os
import subprocess
import tempfile
import unittest

STATION = os.path.abspath(os.environ["STATION"])


class DrivenTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.run_ = subprocess.Popen([STATION, "drive"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
                                     cwd=self.folder.name, env={**os.environ, "HOME": self.folder.name})
        self.addCleanup(self.end)

    def end(self):
        self.run_.stdin.close()
        status = self.run_.wait(timeout=60)
        self.run_.stdout.close()
        self.assertEqual(status, 0)

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def answer(self, line, /, **keys):
        """The answer to the line of that name."""
        self.run_.stdin.write(json.dumps({"do": line, **keys}) + "\n")
        self.run_.stdin.flush()
        return json.loads(self.run_.stdout.readline())

    def do(self, line, /, **keys):
        """The answer to a line that must succeed."""
        answer = self.answer(line, **keys)
        self.assertTrue(answer.get("ok"), answer)
        return answer

    def refuse(self, fault, line, /, **keys):
        """A line that must fail, with the key at fault named."""
        answer = self.answer(line, **keys)
        self.assertIn("error", answer)
        self.assertTrue(answer["error"].startswith(fault + ":"), answer)

    def state(self):
        return self.do("state")

    def dashboards(self):
        return self.do("dashboards")["dashboards"]

    def titles(self):
        return [each["title"] for each in self.dashboards()]
