#!/usr/bin/env python3
"""A GNUstep program reads our exports with its own keyed unarchiver, and what its archiver writes opens here."""

import json
import os
import shlex
import shutil
import subprocess
import tempfile
import unittest
import pathlib

from documents import GARDEN, KINDS, WIDGETS, DocumentTest, inspected

SOURCE = pathlib.Path(__file__).resolve().parent / "peer.m"
CLASSES = ("ZORTextFieldView", "ZORDateTimeFieldView", "ZORBoxView", "ZORImageView", "ZORLEDView", "ZORMapView",
           "ZORWebView", "ZORPlotView", "ZORLevelIndicatorView", "ZORRoundGaugeView", "ZORLinearGaugeView")


def flags(which):
    return shlex.split(subprocess.run(["gnustep-config", which], capture_output=True, text=True, check=True).stdout)


class GNUstep(DocumentTest):
    @classmethod
    def setUpClass(cls):
        if not shutil.which("gnustep-config"):
            raise unittest.SkipTest("GNUstep is not installed")
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.peer = os.path.join(folder.name, "peer")
        subprocess.run(["gcc", *flags("--objc-flags"), "-MF", "/dev/null", str(SOURCE), "-o", cls.peer,
                        *flags("--base-libs")], check=True)

    def ask(self, *words):
        result = subprocess.run([self.peer, *words], capture_output=True)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        return result.stdout

    def test_reads_an_export_by_class_name(self):
        _, export, _ = self.make()
        found = json.loads(self.ask("describe", export))
        self.assertEqual(found["title"], "Übersicht 🌦")
        self.assertEqual(found["agentName"], "Garden")
        self.assertEqual(found["frame"], [0, 0, 640, 480])
        self.assertEqual([widget["class"] for widget in found["widgets"]], list(CLASSES))
        self.assertEqual([widget["frame"] for widget in found["widgets"]], [widget["frame"] for widget in WIDGETS])
        self.assertEqual([widget["title"] for widget in found["widgets"]], [widget["title"] for widget in WIDGETS])
        self.assertEqual([widget["zOrder"] for widget in found["widgets"]], list(range(1, 12)))
        self.assertEqual([widget["property"] for widget in found["widgets"]],
                         [widget.get("property") for widget in WIDGETS])

    def test_what_it_rewrites_holds_the_same(self):
        for path in self.make():
            with self.subTest(path=path):
                self.ask("rewrite", path, path + ".rewritten")
                self.assertEqual(inspected(path + ".rewritten"), inspected(path))

    def test_a_rewritten_export_is_imported_as_before(self):
        _, export, _ = self.make()
        before = self.seen_in_import(export)
        self.assertEqual([widget["kind"] for widget in before["widgets"]], list(KINDS))
        self.ask("rewrite", export, self.path("rewritten"))
        self.assertEqual(self.seen_in_import("rewritten"), before)

    def test_a_rewritten_site_opens_as_before(self):
        site, _, _ = self.make()
        before = self.seen_in_site(site)
        self.ask("rewrite", site, self.path("rewritten"))
        self.assertEqual(self.seen_in_site("rewritten"), before)

    def test_an_export_of_its_own_is_imported(self):
        self.ask("make", self.path("made"))
        seen = self.seen_in_import("made")
        self.assertEqual(seen["title"], "Made elsewhere")
        self.assertEqual(seen["canvas"]["frame"], [0, 0, 640, 480])
        label, gauge = seen["widgets"]
        self.assertEqual((label["kind"], label["frame"], label["zOrder"], label["title"], label["property"]),
                         ("textField", [10, 20.5, 200, 40], 1, "Außen", "outdoorTemperature"))
        self.assertEqual((gauge["kind"], gauge["frame"], gauge["zOrder"], gauge["title"], gauge["property"]),
                         ("roundGauge", [-5, 100, 120, 120], 2, "Wind", "windSpeed"))
        self.assertEqual(label["instrument"]["text"], "21.5 °C")


if __name__ == "__main__":
    if not shutil.which("gnustep-config"):
        print("SKIP: GNUstep is not installed (gobjc gnustep-make libgnustep-base-dev), "
              "so nothing was tried against its keyed archiver")
        raise SystemExit(77)
    unittest.main()
