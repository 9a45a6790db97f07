#!/usr/bin/env python3
"""The program as a person calls it: commands, files, errors. STATION names the program."""

import json
import os
import pathlib
import plistlib
import shutil
import signal
import sqlite3
import struct
import subprocess
import tempfile
import time
import unittest
import urllib.error
import urllib.request

STATION = os.path.abspath(os.environ["STATION"])
BUNDLE = pathlib.Path(STATION).resolve().parent.parent / "PlugIns" / "Dashboard.zorplugin"
TITLES = ["Standard Dashboard", "Current Weather", "Hi-Def Dashboard", "Quad Plots", "Blank"]


def png_size(path):
    data = pathlib.Path(path).read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    return struct.unpack(">II", data[16:24])


class CommandLineTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)
        # Whatever a person has set up must not be seen or touched.
        self.environment = {**os.environ, "HOME": self.folder.name, "XDG_DATA_HOME": str(self.path / "data"),
                            "XDG_CONFIG_HOME": str(self.path / "config"), "TZ": "UTC"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "STATION_PLUGIN_PATH", "QT_QPA_PLATFORM"):
            self.environment.pop(name, None)

    def tearDown(self):
        self.folder.cleanup()

    def station(self, *words, **more):
        return subprocess.run([STATION, *map(str, words)], capture_output=True, text=True, timeout=120,
                              cwd=self.path, env={**self.environment, **more})

    def succeed(self, *words, **more):
        run = self.station(*words, **more)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run

    def refuse(self, text, *words, **more):
        run = self.station(*words, **more)
        self.assertNotEqual(run.returncode, 0)
        self.assertIn(text, run.stderr)
        self.assertEqual(run.stdout, "")

    def make_archive(self, name="weewx.sdb"):
        file = self.path / name
        with sqlite3.connect(file) as database:
            database.execute("CREATE TABLE archive (dateTime INTEGER PRIMARY KEY, usUnits INTEGER, interval INTEGER,"
                             " outTemp REAL, outHumidity REAL, barometer REAL)")
            now = int(time.time()) // 300 * 300
            database.executemany("INSERT INTO archive VALUES (?, 1, 5, ?, 60, 29.92)",
                                 [(now - 300 * step, 70 + step % 10) for step in range(100)])
        return file

    # What it says of itself

    def test_version(self):
        self.assertRegex(self.succeed("--version").stdout, r"^station \d+\.\d+\.\d+\n$")

    def test_help_lists_every_command(self):
        text = self.succeed("--help").stdout
        for command in ("open", "new", "render", "serve", "catalogue", "inspect", "drive"):
            self.assertIn(f"station {command}", text)

    def test_help_says_what_a_site_and_a_source_are(self):
        text = " ".join(self.succeed("--help").stdout.split())
        self.assertIn('SITE is a saved Site Document (.site), a SOURCE, or "demo"', text)
        self.assertIn("SOURCE is where readings come from: simulated or weewx:FILE", text)

    def test_unknown_command_is_named(self):
        self.refuse('"fly"', "fly")

    def test_unknown_option_is_named(self):
        self.refuse("--wide", "render", "demo", "--wide", "-o", "x.png")

    def test_catalogue_lists_the_five_dashboards_in_order(self):
        lines = self.succeed("catalogue").stdout.splitlines()
        self.assertEqual([line for line in lines if line and not line.startswith(" ")],
                         ["Standard Dashboard", "Current Weather", "Hi-Def Dashboard", "Quad Plots", "Clean Slate"])
        self.assertIn("        • Wind Speed & Direction", lines)

    def test_without_a_display_the_window_is_refused_with_a_hint(self):
        self.refuse("station serve", "open", "demo")

    # Pictures

    def test_renders_a_dashboard_as_png_of_its_own_size(self):
        self.succeed("render", "demo", "--dashboard", "Quad Plots", "-o", "plots.png")
        self.assertEqual(png_size(self.path / "plots.png"), (1000, 776))
        checked = subprocess.run(["pngcheck", self.path / "plots.png"], capture_output=True, text=True)
        self.assertEqual(checked.returncode, 0, checked.stdout + checked.stderr)

    def test_renders_pdf_with_one_page_of_the_canvas_size_and_embedded_fonts(self):
        self.succeed("render", "demo", "--dashboard", "Quad Plots", "-o", "plots.pdf")
        info = subprocess.run(["pdfinfo", self.path / "plots.pdf"], capture_output=True, text=True, check=True).stdout
        self.assertRegex(info, r"Pages: +1\n")
        self.assertRegex(info, r"Page size: +1000 x 776 pts")
        fonts = subprocess.run(["pdffonts", self.path / "plots.pdf"], capture_output=True, text=True, check=True)
        rows = fonts.stdout.splitlines()[2:]
        self.assertTrue(rows)
        for row in rows:
            self.assertEqual(row.split()[-5], "yes", row)
        checked = subprocess.run(["qpdf", "--check", self.path / "plots.pdf"], capture_output=True, text=True)
        self.assertEqual(checked.returncode, 0, checked.stdout + checked.stderr)

    def test_unknown_dashboard_is_refused_with_those_that_are_there(self):
        self.refuse('"Quad Plots"', "render", "demo", "--dashboard", "Five Plots", "-o", "x.png")

    def test_the_catalogues_title_names_a_dashboard_of_a_source_too(self):
        for title in ("Clean Slate", "Blank"):
            for site in ("demo", "simulated", "--source=simulated"):
                self.succeed("render", site, "--dashboard", title, "-o", "blank.png")
        self.refuse('"Blank" (in the catalogue "Clean Slate")', "render", "demo", "--dashboard", "Slate", "-o", "x.png")

    def test_a_documents_dashboards_have_their_own_titles_only(self):
        self.succeed("new", "-o", "home.site")
        self.succeed("render", "home.site", "--dashboard", "Blank", "-o", "blank.png")
        self.refuse('there are: "Standard Dashboard", "Current Weather", "Hi-Def Dashboard", "Quad Plots", "Blank"\n',
                    "render", "home.site", "--dashboard", "Clean Slate", "-o", "x.png")

    def test_output_must_be_png_or_pdf(self):
        self.refuse("x.gif", "render", "demo", "-o", "x.gif")

    def test_unwritable_output_is_named(self):
        self.refuse("no/such", "render", "demo", "-o", "no/such/x.png")

    # Documents

    def test_new_document_of_a_weewx_archive_renders_its_values(self):
        archive = self.make_archive()
        self.succeed("new", "--source", f"weewx:{archive}", "--units", "us", "-o", "home.site")
        self.succeed("render", "home.site", "--dashboard", "Current Weather", "-o", "now.pdf")
        text = subprocess.run(["pdftotext", self.path / "now.pdf", "-"], capture_output=True, text=True).stdout
        self.assertIn("70.0 °F", text)
        self.assertIn("29.92 inHg", text)
        self.assertEqual(sorted(each.name for each in self.path.iterdir() if each.name.startswith("weewx")),
                         ["weewx.sdb"])

    def test_a_source_renders_without_a_document(self):
        source = f"weewx:{self.make_archive()}"
        for words in (["--source", source], [source]):
            self.succeed("render", *words, "--dashboard", "Current Weather", "-o", "now.pdf")
            text = subprocess.run(["pdftotext", self.path / "now.pdf", "-"], capture_output=True, text=True).stdout
            self.assertIn("hPa", text)
        self.succeed("render", "--source", "simulated", "--dashboard", "Quad Plots", "-o", "plots.png")
        self.refuse("SITE or --source", "render", "demo", "--source", "simulated", "-o", "x.png")
        self.refuse("barometric", "render", "--source", "barometric", "-o", "x.png")
        self.refuse("gone.sdb", "render", "--source", "weewx:gone.sdb", "-o", "x.png")

    def test_the_simulated_stations_weather_is_that_of_its_seed_and_start(self):
        def picture(settings):
            # Time stands still, as far as a picture shows.
            self.succeed("render", f"simulated:{settings},speed=1e-9", "--dashboard", "Quad Plots", "-o", "plots.png")
            return (self.path / "plots.png").read_bytes()
        seventh = picture("seed=7,start=1700000000")
        self.assertEqual(picture("seed=7,start=1700000000"), seventh)
        self.assertNotEqual(picture("seed=8,start=1700000000"), seventh)
        self.assertNotEqual(picture("seed=7,start=1710000000"), seventh)

    def test_settings_of_the_simulated_station_are_kept_in_the_document(self):
        self.succeed("new", "--source", "simulated:seed=7,speed=60", "-o", "home.site")
        agent = json.loads(self.succeed("inspect", "home.site").stdout)["root"]["agent"]
        self.assertEqual(agent["driver"], "simulated")
        self.assertEqual(agent["settings"], {"seed": 7, "speed": 60})

    def test_faulty_settings_of_the_simulated_station_are_named(self):
        for settings, fault in (("sped=60", '"sped"'), ("speed=fast", '"fast"'), ("seed", '"seed"'),
                                ("speed=0", "“speed”"), ("seed=1.5", "“seed”")):
            self.refuse(fault, "render", f"simulated:{settings}", "-o", "x.png")
            self.refuse(fault, "new", "--source", f"simulated:{settings}", "-o", "x.site")

    def test_missing_archive_is_named(self):
        self.refuse("gone.sdb", "new", "--source", "weewx:gone.sdb", "-o", "x.site")
        self.assertFalse((self.path / "x.site").exists())

    def test_unknown_driver_and_units_are_named(self):
        self.refuse("barometric", "new", "--source", "barometric", "-o", "x.site")
        self.refuse("weewx:FILE", "new", "--source", "weewx:", "-o", "x.site")
        self.refuse("furlongs", "new", "--units", "furlongs", "-o", "x.site")

    def test_a_document_is_a_keyed_archive_that_other_readers_open(self):
        self.succeed("new", "-o", "demo.site")
        root = plistlib.loads((self.path / "demo.site").read_bytes())
        self.assertEqual(root["$archiver"], "NSKeyedArchiver")
        self.assertEqual(root["$version"], 100000)
        self.assertEqual(root["$top"]["root"].data, 1)
        self.assertEqual(root["$objects"][0], "$null")

    def test_damaged_document_is_refused_by_name(self):
        (self.path / "bad.site").write_bytes(b"bplist00 nothing of the kind")
        self.refuse("bad.site", "render", "bad.site", "-o", "x.png")
        self.refuse("gone.site", "render", "gone.site", "-o", "x.png")

    def test_inspect_shows_a_document_as_json(self):
        self.succeed("new", "-o", "demo.site")
        root = json.loads(self.succeed("inspect", "demo.site").stdout)["root"]
        self.assertEqual(root["$class"], "ZORSiteDocument")
        self.assertEqual([each["title"] for each in root["plugIns"]], TITLES)
        plots = root["plugIns"][3]["editView"]
        self.assertEqual(plots["$class"], "ZORDashboardEditView")
        self.assertEqual(plots["frame"], "{{0, 0}, {1000, 776}}")
        self.assertEqual(len(plots["subviews"]), 4)

    def test_inspect_refuses_what_is_no_archive(self):
        (self.path / "note.txt").write_text("hello")
        self.refuse("note.txt", "inspect", "note.txt")

    # Plug-ins

    def plugin_folder(self):
        folder = self.path / "plugins"
        folder.mkdir()
        return folder

    def changed_info(self, bundle, **values):
        info = plistlib.loads((bundle / "Info.plist").read_bytes())
        info.update(values)
        (bundle / "Info.plist").write_bytes(plistlib.dumps(info))

    def test_faulty_bundles_are_named_and_skipped(self):
        folder = self.plugin_folder()
        old, damaged, broken = (folder / name for name in
                                ("Old.zorplugin", "Damaged.zorplugin", "Broken.zorplugin"))
        shutil.copytree(BUNDLE, old)
        self.changed_info(old, ZORInterfaceVersion=999, CFBundleIdentifier="org.example.old")
        damaged.mkdir()
        (damaged / "Info.plist").write_bytes(b"<plist><dict><key>")
        shutil.copytree(BUNDLE, broken)
        self.changed_info(broken, CFBundleIdentifier="org.example.broken")
        (broken / "Dashboard.so").write_bytes(b"this is no module")
        run = self.succeed("catalogue", STATION_PLUGIN_PATH=str(folder))
        for name in ("Old.zorplugin", "Damaged.zorplugin", "Broken.zorplugin"):
            self.assertIn(name, run.stderr)
        self.assertIn("999", run.stderr)
        self.assertIn("Quad Plots", run.stdout)

    def test_a_bundle_met_first_wins_over_a_later_one_of_the_same_identifier(self):
        folder = self.plugin_folder()
        copy = folder / "Copy.zorplugin"
        shutil.copytree(BUNDLE, copy)
        (copy / "Resources" / "Hi-Def.zordashboard").unlink()
        self.succeed("new", "-o", "x.site", STATION_PLUGIN_PATH=str(folder))
        root = json.loads(self.succeed("inspect", "x.site").stdout)["root"]
        self.assertNotIn("Hi-Def Dashboard", [each["title"] for each in root["plugIns"]])

    # Pages

    def test_serves_an_index_and_the_pictures_on_loopback_only(self):
        server = subprocess.Popen([STATION, "serve", "demo", "--http", "127.0.0.1:0"], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, text=True, env=self.environment)
        try:
            url = server.stdout.readline().split()[-1]
            self.assertRegex(url, r"^http://127\.0\.0\.1:\d+/$")
            page = urllib.request.urlopen(url, timeout=30).read().decode()
            for title in TITLES:
                self.assertIn(f">{title}</a></h2>", page)
            picture = page.split('<h2><a href="')[1].split('"')[0]
            with urllib.request.urlopen(url[:-1] + picture, timeout=30) as answer:
                self.assertEqual(answer.headers["Content-Type"], "image/png")
                self.assertEqual(answer.headers["Cache-Control"], "no-store")
                self.assertTrue(answer.read().startswith(b"\x89PNG"))
            with urllib.request.urlopen(url[:-1] + picture.replace(".png", ".pdf"), timeout=30) as answer:
                self.assertEqual(answer.headers["Content-Type"], "application/pdf")
            for address, status in (("nothing", 404), ("nothing.png", 404), (picture[1:].replace(".png", ".PNG"), 404)):
                with self.assertRaises(urllib.error.HTTPError) as refused:
                    urllib.request.urlopen(url + address, timeout=30)
                self.assertEqual(refused.exception.code, status)
                refused.exception.close()
            stranger = urllib.request.Request(url, headers={"Host": "evil.example"})
            with self.assertRaises(urllib.error.HTTPError) as refused:
                urllib.request.urlopen(stranger, timeout=30)
            self.assertEqual(refused.exception.code, 421)
            refused.exception.close()
        finally:
            server.send_signal(signal.SIGTERM)
            _, errors = server.communicate(timeout=30)
        self.assertEqual(server.returncode, 0, errors)

    def test_serving_on_an_address_of_another_machine_is_refused(self):
        self.refuse("203.0.113.1", "serve", "demo", "--http", "203.0.113.1:0")
        self.refuse("garden", "serve", "demo", "--http", "garden:0")


if __name__ == "__main__":
    unittest.main()
