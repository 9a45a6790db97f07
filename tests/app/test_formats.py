#!/usr/bin/env python3
"""Holds docs/formats.md against the files that the program writes and reads. STATION names the program."""

import json
import os
import pathlib
import plistlib
import re
import struct
import subprocess
import tempfile
import unittest
import zlib

STATION = os.path.abspath(os.environ["STATION"])
PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "formats.md"
INFO = pathlib.Path(STATION).resolve().parent.parent / "PlugIns" / "Dashboard.zorplugin" / "Info.plist"

KINDS = ("textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView", "levelIndicator",
         "roundGauge", "linearGauge")
LINKED = ("textField", "dateTimeField", "led", "plotView", "levelIndicator", "roundGauge", "linearGauge")
NUMBER = r"-?\d+(\.\d+)?"
PAIR = rf"\{{{NUMBER}, {NUMBER}\}}"
TEXTS = {"text": ".*", "string": ".*", "color": "#[0-9a-f]{8}", "size": PAIR, "rectangle": rf"\{{{PAIR}, {PAIR}\}}"}
PLAIN = {"boolean": bool, "integer": int, "real": float, "data": bytes}
FONT = {"family": str, "size": float, "bold": bool, "italic": bool}


def tables():
    """Each table of the page: the heading above it, its header, its rows as dictionaries by the header."""
    section, header = None, None
    for line in PAGE.read_text().splitlines():
        if line.startswith("#"):
            section = line.lstrip("# ")
        if not line.startswith("|"):
            header = None
            continue
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if header is None:
            header = cells
            yield section, header, []
        elif not set(line) <= set("|-"):
            yield section, header, [dict(zip(header, cells))]


def rows_under(first_cell):
    """{section: [row]} of the tables whose first column has that title."""
    found = {}
    for section, header, rows in tables():
        if header[0] == first_cell:
            found.setdefault(section, []).extend(rows)
    return found


KEYS = {section: {row["key"].strip("`"): row for row in rows} for section, rows in rows_under("key").items()
        if section[0].isupper() and " " not in section}
WITHOUT_KEYS = set(re.findall(r"^### (\w+)$", PAGE.read_text(), re.M)) - set(KEYS)
CLASSES = set(KEYS) | WITHOUT_KEYS


class Archive:
    """A keyed archive and the objects in it that have a class."""

    def __init__(self, data):
        self.list = plistlib.loads(data)
        self.items = self.list["$objects"]
        self.root = self.resolved(self.list["$top"]["root"])
        self.objects = [item for item in self.items if isinstance(item, dict) and "$class" in item]

    def resolved(self, value):
        if not isinstance(value, plistlib.UID):
            return value
        return self.items[value.data] if value.data else None

    def chain(self, thing):
        """The class, then its base classes."""
        return self.resolved(thing["$class"])["$classes"] if isinstance(thing, dict) else []

    def array(self, thing):
        return [self.resolved(entry) for entry in thing["NS.objects"]]

    def dictionary(self, thing):
        return dict(zip(map(self.resolved, thing["NS.keys"]), self.array(thing)))

    def rows(self, thing):
        """The page's rows for the object's keys, its own class's before those of its base classes."""
        rows = {}
        for name in self.chain(thing):
            for key, row in KEYS.get(name, {}).items():
                rows.setdefault(key, row)
        return rows

    def fits(self, value, kind):
        """Whether a value is of a type as the page names it."""
        if kind == "UIDs":
            return all(isinstance(entry, plistlib.UID) and entry.data > 0 for entry in value)
        value = self.resolved(value)
        if kind.endswith("?"):
            return value is None or self.fits(value, kind[:-1])
        if kind in PLAIN:
            return type(value) is PLAIN[kind]
        if kind in TEXTS:
            text = self.resolved(value["NS.string"]) if "NSMutableString" in self.chain(value) else value
            return isinstance(text, str) and re.fullmatch(TEXTS[kind], text, re.S) is not None
        chain = self.chain(value)
        if kind == "font":
            return "NSDictionary" in chain and {key: type(each) for key, each in self.dictionary(value).items()} == FONT
        if kind == "thresholds":
            return "NSArray" in chain and all(
                set(self.dictionary(each)) == {"value", "color"} and type(self.dictionary(each)["value"]) is float and
                self.fits(self.dictionary(each)["color"], "color") for each in self.array(value))
        if kind == "dictionary":
            return "NSDictionary" in chain
        if kind.startswith("array of "):
            return "NSArray" in chain and all(kind.removeprefix("array of ") in self.chain(each)
                                              for each in self.array(value))
        return kind in chain

    def plain(self, value):
        """What a default on the page is compared with."""
        value = self.resolved(value)
        if "NSArray" in self.chain(value):
            return self.array(value)
        if "NSDictionary" in self.chain(value):
            entries = self.dictionary(value)
            return [entries[key] for key in FONT] if set(entries) == set(FONT) else entries
        return value


def png(side):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    rows = (b"\0" + b"\x40\x80\xc0" * side) * side
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def widgets(linked=()):
    return [{"kind": kind, "frame": [100 * index + 0.25, 10, 80, 60]} |
            ({"title": kind, "property": "outdoorTemperature"} if kind in linked else {})
            for index, kind in enumerate(KINDS)]


class FormatsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.path = pathlib.Path(cls.folder.name)
        cls.environment = {**os.environ, "HOME": cls.folder.name, "XDG_DATA_HOME": str(cls.path / "data"),
                           "XDG_CONFIG_HOME": str(cls.path / "config"), "TZ": "UTC"}
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "STATION_PLUGIN_PATH", "QT_QPA_PLATFORM"):
            cls.environment.pop(name, None)

        (cls.path / "picture.png").write_bytes(png(4))
        agent = {"name": "Garden", "properties": {"outdoorTemperature": {"value": 21.5, "unit": "°C"}}}
        cls.drive({"do": "new", "agent": agent, "widgets": widgets()}, {"do": "save", "file": "fresh.site"})

        def settings(kind, **values):
            return [{"do": "set", "target": KINDS.index(kind) + 1, "key": key, "value": value}
                    for key, value in values.items()]

        warm = [{"value": 30, "color": "#ff3b30"}, {"value": -5.5, "color": "#0a6ed180"}]
        font = {"family": "Crysta", "size": 31.5, "bold": True, "italic": True}
        cls.drive(
            {"do": "new", "agent": agent, "widgets": widgets(LINKED), "size": [1300, 200]},
            {"do": "command", "name": "editDashboard:"},
            {"do": "set", "target": "canvas", "key": "image", "value": [300, 200]},
            *settings("textField", title="$null", stringToDraw="Grüße", separateUnit=True, unitFont=font,
                      propertyFormat="unitStringValue", alignment="right"),
            *settings("dateTimeField", font=font, textColor="#123456", useProperty=True, dateFormat="HH:mm"),
            *settings("box", fillColor="#00ff0080", borderColor="#ff0000", borderWidth=2.5, cornerRadius=3),
            *settings("imageView", image="picture.png", backgroundColor="#ffffff"),
            *settings("led", offColor="#101010", onColor="#eeeeee", thresholds=warm),
            *settings("mapView", latitude=47.377, longitude=8.54, zoom=11),
            *settings("webView", url="https://example.org/"),
            *settings("plotView", period=1885614457, lineColor="#000000", lineWidth=3, fillsArea=False, fontSize=14,
                      drawsGrid=False, drawsHeader=False, drawsBorder=False, backgroundColor="#22222280"),
            *settings("levelIndicator", minimum=-40, maximum=60.5, barColor="#ff0000", thresholds=warm),
            *settings("roundGauge", caption="Out", valueFont=font, drawsRim=False, needleColor="#00ff00",
                      faceColor="#000000"),
            {"do": "command", "name": "selectAllObjects"},
            {"do": "command", "name": "copy:"},
            {"do": "pasteboard", "file": "copied"},
            {"do": "answer", "sheet": "save", "response": "ok", "path": "made.zordashboard"},
            {"do": "command", "name": "exportDashboard:"},
            {"do": "save", "file": "made.site"})
        cls.station("new", "--name", "Roof", "-o", "new.site")
        cls.archives = {name: Archive((cls.path / name).read_bytes())
                        for name in ("fresh.site", "made.site", "new.site", "made.zordashboard", "copied")}

    @classmethod
    def station(cls, *words, text=None):
        run = subprocess.run([STATION, *words], input=text, capture_output=True, text=True, timeout=120, cwd=cls.path,
                             env=cls.environment)
        if run.returncode != 0:
            raise AssertionError(f"{words}: {run.returncode} {run.stderr}")
        return run.stdout

    @classmethod
    def drive(cls, *lines):
        answers = list(map(json.loads, cls.station("drive", text="\n".join(map(json.dumps, lines))).splitlines()))
        for line, answer in zip(lines, answers, strict=True):
            if not answer.get("ok"):
                raise AssertionError(f"{line}: {answer}")
        return answers

    def every_object(self):
        for name, archive in self.archives.items():
            for thing in archive.objects:
                yield name, archive, thing, archive.chain(thing)[0]

    def test_the_archives_begin_as_the_page_says(self):
        for name, archive in self.archives.items():
            with self.subTest(name):
                self.assertTrue((self.path / name).read_bytes().startswith(b"bplist00"))
                self.assertEqual(set(archive.list), {"$archiver", "$version", "$top", "$objects"})
                self.assertEqual((archive.list["$archiver"], archive.list["$version"]), ("NSKeyedArchiver", 100000))
                self.assertEqual(archive.list["$top"], {"root": plistlib.UID(1)})
                self.assertEqual(archive.items[0], "$null")
        for name in ("fresh.site", "made.site", "new.site"):
            self.assertEqual(self.archives[name].chain(self.archives[name].root)[0], "ZORSiteDocument")
        copied = self.archives["copied"]
        self.assertTrue(copied.fits(copied.root, "array of ZORWidgetHostView"))
        self.assertEqual(len(copied.array(copied.root)), len(KINDS))

    def test_the_exported_dashboard_has_the_keys_listed(self):
        archive = self.archives["made.zordashboard"]
        root = archive.dictionary(archive.root)
        listed = rows_under("key of the root")["The exported dashboard"]
        rows = {row["key of the root"].strip("`"): row for row in listed}
        self.assertEqual(set(root), set(rows))
        for key, row in rows.items():
            self.assertTrue(archive.fits(root[key], row["type"]), key)

    def test_every_class_key_and_type_is_listed(self):
        for name, archive, thing, its_class in self.every_object():
            self.assertLessEqual(set(archive.chain(thing)) - {"NSObject", "NSString"}, CLASSES, name)
            rows = archive.rows(thing)
            for key, value in thing.items():
                if key == "$class":
                    continue
                self.assertIn(key, rows, f"{name}: {its_class}")
                self.assertNotEqual(rows[key]["written"], "not by us", f"{name}: {its_class}: {key}")
                self.assertTrue(archive.fits(value, rows[key]["type"]),
                                f"{name}: {its_class}: {key}: {archive.resolved(value)!r}")

    def test_every_listed_class_and_key_occurs(self):
        met = {name: set() for name in CLASSES}
        present = set()
        for name, archive, thing, its_class in self.every_object():
            for each in archive.chain(thing):
                present.add(each)
                met.setdefault(each, set()).update(thing)
            for key, row in archive.rows(thing).items():
                # A widget stands in for its target: it has a view's frame and no children.
                if row["written"] == "always":
                    self.assertIn(key, thing, f"{name}: {its_class}")
        unwritten = {name for name, rows in KEYS.items() if all(row["written"] == "not by us" for row in rows.values())}
        self.assertEqual(CLASSES - present, unwritten | {"NSNull"})
        for name, rows in KEYS.items():
            for key, row in rows.items():
                self.assertIn(row["written"], ("always", "if set", "not by us"), f"{name}: {key}")
                if row["written"] != "not by us":
                    self.assertIn(key, met[name], name)

    def test_new_instruments_have_the_defaults_listed(self):
        archive = self.archives["fresh.site"]
        instruments = [thing for thing in archive.objects if "ZORInstrumentView" in archive.chain(thing) and
                       "ZORDashboardEditView" not in archive.chain(thing)]
        self.assertEqual(len(instruments), len(KINDS))
        self.check_defaults(archive, instruments)

    def test_what_is_missing_has_the_default_listed(self):
        archive = Archive((self.path / "made.site").read_bytes())
        for thing in archive.objects:
            for key, row in archive.rows(thing).items():
                if row["default"]:
                    thing.pop(key, None)
        (self.path / "stripped.site").write_bytes(plistlib.dumps(archive.list, fmt=plistlib.FMT_BINARY))
        self.drive({"do": "open", "file": "stripped.site"}, {"do": "save", "file": "stripped.site"})
        read = Archive((self.path / "stripped.site").read_bytes())
        # The selection is among what was taken away, the rest is all there.
        for each in ("ZORWidgetHostView", "ZORInstrumentView", "ZORPlugIn"):
            self.assertEqual(sum(each in read.chain(thing) for thing in read.objects),
                             sum(each in archive.chain(thing) for thing in archive.objects), each)
        self.check_defaults(read, read.objects)

    def check_defaults(self, archive, objects):
        for thing in objects:
            for key, row in archive.rows(thing).items():
                if row["default"] and row["written"] == "always":
                    self.assertEqual(archive.plain(thing[key]), json.loads(row["default"].strip("`")),
                                     f"{archive.chain(thing)[0]}: {key}")

    def rewritten(self, name, sort_keys=True):
        """The same archive as another writer stores it."""
        copy = pathlib.Path("rewritten-" + name)
        data = (self.path / name).read_bytes()
        data = plistlib.dumps(plistlib.loads(data), fmt=plistlib.FMT_BINARY, sort_keys=sort_keys)
        self.assertNotEqual(data, (self.path / name).read_bytes())
        (self.path / copy).write_bytes(data)
        return str(copy)

    def test_what_plistlib_rewrites_is_shown_alike(self):
        for name in self.archives:
            with self.subTest(name):
                # An object is shown where it is first met, so that the order of the keys counts.
                self.assertEqual(self.station("inspect", self.rewritten(name, sort_keys=False)),
                                 self.station("inspect", name))

    def test_the_xml_form_is_shown_alike(self):
        def with_references(value):
            if isinstance(value, plistlib.UID):
                return {"CF$UID": value.data}
            if isinstance(value, list):
                return list(map(with_references, value))
            return {key: with_references(each) for key, each in value.items()} if isinstance(value, dict) else value

        for name, archive in self.archives.items():
            xml = plistlib.dumps(with_references(archive.list), fmt=plistlib.FMT_XML, sort_keys=False)
            (self.path / "written.xml").write_bytes(xml)
            self.assertEqual(self.station("inspect", "written.xml"), self.station("inspect", name), name)

    def test_what_plistlib_rewrites_is_opened_alike(self):
        for name in ("made.site", "new.site"):
            with self.subTest(name):
                # What a clock shows is not the file's.
                lines = [{"do": "dashboards"}, {"do": "set", "target": 2, "key": "dateFormat", "value": "'now'"},
                         {"do": "state"}]
                if name == "new.site":
                    lines[1] = {"do": "select", "index": 3}
                one, other = (self.drive({"do": "open", "file": file}, *lines) for file in (name, self.rewritten(name)))
                self.assertEqual(one, other)
                self.assertGreater(len(one[-1]["widgets"]), 3)

    def test_what_plistlib_rewrites_is_imported_alike(self):
        def imported(file):
            lines = ({"do": "new", "agent": {"name": "Garden"}},
                     {"do": "answer", "sheet": "open", "response": "ok", "path": file},
                     {"do": "toolbar", "name": "importDashboard:"}, {"do": "select", "index": 0},
                     {"do": "set", "target": 2, "key": "dateFormat", "value": "'now'"}, {"do": "state"})
            state = self.drive(*lines)[-1]
            del state["dashboard"]["uniqueIdentifier"]
            return state

        state = imported("made.zordashboard")
        self.assertEqual([each["kind"] for each in state["widgets"]], list(KINDS))
        self.assertEqual(imported(self.rewritten("made.zordashboard")), state)

    def test_the_plug_in_says_what_is_listed(self):
        info = plistlib.loads(INFO.read_bytes())
        rows = {row["Info key"].strip("`"): row for row in rows_under("Info key")["Info.plist"]}
        self.assertEqual(set(info), set(rows))
        for key, row in rows.items():
            self.assertIsInstance(info[key], {"text": str, "integer": int}[row["type"]], key)


if __name__ == "__main__":
    unittest.main()
