#!/usr/bin/env python3
"""A short turn of the soak, with random real events; its seed is always the same. STATION names the program."""

import os
import pathlib
import shutil
import subprocess
import sys
import unittest

from window_support import TOOLS

SOAK = pathlib.Path(__file__).resolve().parents[2] / "tools" / "soak"


@unittest.skipUnless(all(shutil.which(tool) for tool in TOOLS), "needs " + ", ".join(TOOLS))
class SoakTest(unittest.TestCase):
    def test_a_short_turn_reports_nothing(self):
        run = subprocess.run([sys.executable, SOAK, "0.33", "20"], env=dict(os.environ), capture_output=True, text=True,
                             timeout=400)
        self.assertEqual(run.returncode, 0, run.stdout + run.stderr)
        self.assertIn(" 0 reports", run.stdout)


if __name__ == "__main__":
    unittest.main()
