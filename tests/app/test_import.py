#!/usr/bin/env python3
"""Importing dashboard files: of this station, of another, of earlier programs, and what is none; and what `inspect`
says of it beforehand."""

import json
import pathlib
import plistlib
import subprocess
import sys
import unittest

from driving import STATION, DrivenTest

RENAME = pathlib.Path(__file__).resolve().parents[2] / "tools" / "rename-classes"
GARDEN = {"name": "Garden", "properties": {"outdoorTemperature": {"value": 21.5, "unit": "°C"},
                                           "windSpeed": {"value": 3, "unit": "m/s"}}}
ROOF = {"name": "Roof", "properties": {"outdoorTemperature": {"value": 4, "unit": "°C"}}}
WIDGETS = [{"kind": "textField", "frame": [10, 10, 100, 30], "property": "outdoorTemperature"},
           {"kind": "box", "frame": [0, 0, 400, 200]},
           {"kind": "roundGauge", "frame": [200, 10, 120, 120], "property": "windSpeed"},
           {"kind": "webView", "frame": [10, 100, 80, 60]},
           {"kind": "imageView", "frame": [100, 100, 80, 60]},
           {"kind": "led", "frame": [340, 10, 40, 40]}]
OPEN_SHEET = {"kind": "open", "allowedTypes": ["zordashboard", "qm4dashboard", "qmxdashboard"]}


def warning(agent):
    return {"kind": "alert", "message": "Warning",
            "informative": f"This Dashboard was exported from a Site Document configured for the {agent}.\n\nSince "
                           "property names can vary between agents, some widgets may need to be relinked to a "
                           "property in this agent.",
            "buttons": ["OK"]}


class Import(DrivenTest):
    def export(self, file="out.zordashboard", agent=GARDEN, widgets=WIDGETS):
        self.do("new", agent=agent, widgets=widgets, size=[400, 200])
        self.do("set", target="dashboard", key="title", value="Mine")
        self.do("answer", sheet="save", response="ok", path=file)
        self.do("command", name="exportDashboard:")
        return self.path(file)

    def import_file(self, file, warned=None, response="ok", through="importDashboard:"):
        self.do("answer", sheet="open", response="ok", path=file)
        if warned:
            self.do("answer", sheet="alert", response=response)
        answer = self.do("toolbar", name=through)
        self.assertEqual(answer["sheets"], [OPEN_SHEET] + ([warning(warned)] if warned else []))
        return answer

    def rewrite(self, change, file="out.zordashboard"):
        """Changes the parsed archive of a file in place."""
        with open(self.path(file), "rb") as stream:
            archive = plistlib.load(stream)
        change(archive)
        with open(self.path(file), "wb") as stream:
            plistlib.dump(archive, stream, fmt=plistlib.FMT_BINARY, sort_keys=False)

    def rename(self, out, *pairs):
        subprocess.run([sys.executable, RENAME, self.path("out.zordashboard"), self.path(out), *pairs], check=True)

    def kinds(self):
        return [each["kind"] for each in self.state()["widgets"]]


class OfTheSameStation(Import):
    def test_is_added_at_once_and_selected(self):
        self.export()
        self.do("new", agent=GARDEN)
        answer = self.import_file("out.zordashboard")
        self.assertEqual(answer["log"], ["OK"] * 3)
        self.assertEqual([(each["title"], each["selected"]) for each in self.dashboards()], [("Mine", True)])
        state = self.state()
        self.assertEqual(state["canvas"]["frame"], [0, 0, 400, 200])
        self.assertEqual([each["kind"] for each in state["widgets"]], [each["kind"] for each in WIDGETS])
        self.assertEqual([each["frame"] for each in state["widgets"]], [each["frame"] for each in WIDGETS])
        self.assertEqual([each["property"] for each in state["widgets"]],
                         ["outdoorTemperature", None, "windSpeed", None, None, None])
        self.assertEqual(state["firstResponder"], "other")

    def test_is_shown_as_any_dashboard_and_can_be_edited(self):
        self.export()
        self.do("new", agent=GARDEN)
        self.import_file("out.zordashboard")
        self.assertEqual(self.state()["viewTree"][1][0][0], "ScrollView")
        self.do("command", name="editDashboard:")
        self.do("press", at=[345, 15])
        self.do("release", at=[345, 15])
        state = self.state()
        self.assertEqual(state["selection"], [state["widgets"][5]["id"]])

    def test_comes_through_the_selection_window_too(self):
        self.export()
        self.do("new", agent=GARDEN)
        self.do("toolbar", name="toolbarItemAction:")
        self.import_file("out.zordashboard", through="importClicked:")
        self.assertEqual(self.titles(), ["Mine"])

    def test_stands_at_the_end_of_the_list_with_its_title_unchanged(self):
        self.export()
        self.import_file("out.zordashboard")
        self.assertEqual(self.titles(), ["Mine", "Mine"])
        one, two = self.dashboards()
        self.assertNotEqual(one["uniqueIdentifier"], two["uniqueIdentifier"])

    def test_cancelled_nothing_happens(self):
        self.do("new", agent=GARDEN)
        answer = self.do("toolbar", name="importDashboard:")
        self.assertEqual((answer["sheets"], answer["log"]), ([OPEN_SHEET], []))
        self.assertEqual(self.dashboards(), [])

    def test_without_a_title_the_dashboard_has_none(self):
        self.export()
        self.rewrite(lambda archive: self.forget(archive, "title"))
        self.do("new", agent=GARDEN)
        self.import_file("out.zordashboard")
        self.assertEqual(self.titles(), [None])

    @staticmethod
    def forget(archive, key):
        objects = archive["$objects"]
        root = objects[archive["$top"]["root"].data]
        index = [objects[each.data] for each in root["NS.keys"]].index(key)
        del root["NS.keys"][index], root["NS.objects"][index]

    def test_without_a_station_name_it_counts_as_another_stations(self):
        self.export()
        self.rewrite(lambda archive: self.forget(archive, "agentName"))
        self.do("new", agent=GARDEN)
        self.import_file("out.zordashboard", warned="(null)")
        self.assertEqual(self.titles(), ["Mine"])

    def test_names_are_compared_exactly(self):
        self.export()
        self.do("new", agent={**GARDEN, "name": "garden"})
        self.import_file("out.zordashboard", warned="Garden")


class OfAnotherStation(Import):
    def test_a_warning_names_it_and_its_widgets_are_relinked(self):
        self.export()
        self.do("new", agent=ROOF)
        answer = self.import_file("out.zordashboard", warned="Garden")
        self.assertEqual(answer["log"], ["OK"] * 3)
        widgets = self.state()["widgets"]
        self.assertEqual((widgets[0]["property"], widgets[0]["instrument"]["text"]), ("outdoorTemperature", "4.0 °C"))
        self.assertIsNone(widgets[2]["property"])

    def test_refusing_the_warning_adds_nothing(self):
        self.export()
        self.do("new", agent=ROOF)
        answer = self.import_file("out.zordashboard", warned="Garden", response="cancel")
        self.assertEqual(answer["log"], [])
        self.assertEqual(self.dashboards(), [])

    def test_an_unknown_name_leaves_a_label_without_a_value(self):
        self.export(widgets=[{"kind": "textField", "frame": [0, 0, 90, 20], "property": "windSpeed"}])
        self.do("new", agent=ROOF)
        self.import_file("out.zordashboard", warned="Garden")
        widget, = self.state()["widgets"]
        self.assertIsNone(widget["property"])
        self.assertNotIn("m/s", widget["instrument"].get("text", ""))

    def test_an_unknown_name_stays_unlinked_in_a_saved_document(self):
        self.export(widgets=[{"kind": "textField", "frame": [0, 0, 90, 20], "property": "windSpeed"}])
        self.do("new", agent=ROOF)
        self.import_file("out.zordashboard", warned="Garden")
        self.do("roundtrip")
        self.assertIsNone(self.state()["widgets"][0]["property"])


class OfEarlierPrograms(Import):
    def test_old_prefixes_become_the_present_classes(self):
        self.export()
        self.rename("old.qm4dashboard", "ZORTextFieldView=QM4TextFieldView", "ZORRoundGaugeView=QM4RoundGaugeView",
                    "ZORWidgetHostView=QM4WidgetHostView", "ZORDashboardEditView=QM4DashboardEditView")
        self.do("new", agent=GARDEN)
        answer = self.import_file("old.qm4dashboard")
        self.assertEqual(answer["log"], ["OK"] * 3)
        self.assertEqual(self.kinds(), [each["kind"] for each in WIDGETS])

    def test_old_names_of_canvas_and_direction_gauge(self):
        self.export()
        self.rename("old.qmxdashboard", "ZORRoundGaugeView=ZORDirectionGaugeView",
                    "ZORDashboardEditView=DashboardEditView")
        self.do("new", agent=GARDEN)
        self.import_file("old.qmxdashboard")
        self.assertEqual(self.kinds(), [each["kind"] for each in WIDGETS])

    def test_the_old_prefix_wins_over_the_old_names_and_a_class_that_it_does_not_lead_to_spoils_the_file(self):
        self.export()
        self.rename("old.qm4dashboard", "ZORRoundGaugeView=QM4DirectionGaugeView")
        self.do("new", agent=GARDEN)
        self.import_file("old.qm4dashboard", warned="(null)")
        self.assertEqual(self.titles(), [None])
        self.assertIsNone(self.state()["canvas"])

    def test_an_unknown_instrument_does_not_stop_the_import(self):
        self.export()
        self.rename("old.zordashboard", "ZORTextFieldView=OldLabel")
        self.do("new", agent=GARDEN)
        answer = self.import_file("old.zordashboard")
        self.assertEqual(answer["log"], ["OK"] * 2)
        self.do("png", file="out.png")
        self.do("roundtrip")

    def test_an_unknown_widget_class_leaves_the_widgets_out(self):
        self.export()
        self.rename("old.zordashboard", "ZORWidgetHostView=OldWidget")
        self.do("new", agent=GARDEN)
        answer = self.import_file("old.zordashboard")
        self.assertEqual(answer["log"], [])
        self.assertEqual(self.state()["widgets"], [])
        self.assertEqual(self.state()["canvas"]["frame"], [0, 0, 400, 200])

    def test_an_unknown_canvas_leaves_the_dashboard_without_one(self):
        self.export()
        self.rename("old.zordashboard", "ZORDashboardEditView=OldCanvas")
        self.do("new", agent=GARDEN)
        self.import_file("old.zordashboard")
        self.assertEqual(self.titles(), ["Mine"])
        self.assertIsNone(self.state()["canvas"])


class Foretold(Import):
    """What `inspect` says of an import, and that it comes true."""

    def foretell(self, file, *words):
        run = subprocess.run([STATION, "inspect", self.path(file), *words], capture_output=True, text=True,
                             cwd=self.folder.name, check=True)
        return json.loads(run.stdout)["import"]

    def refuse_to_foretell(self, named, *words):
        run = subprocess.run([STATION, "inspect", *words], capture_output=True, text=True, cwd=self.folder.name)
        self.assertNotEqual(run.returncode, 0)
        self.assertIn(named, run.stderr)

    def test_stands_beside_what_is_in_the_file(self):
        self.export()
        plain, more = (json.loads(subprocess.run([STATION, "inspect", self.path("out.zordashboard"), *words],
                                                 capture_output=True, text=True, check=True).stdout)
                       for words in ((), ("--import",)))
        self.assertEqual(list(plain), ["root", "import"])
        self.assertEqual(plain["root"]["agentName"], "Garden")
        self.assertEqual(plain, more)

    def test_a_whole_file_for_the_demo_station(self):
        self.export()
        self.assertEqual(self.foretell("out.zordashboard"), {
            "agent": "Demo Station", "readable": True, "fault": None, "title": "Mine", "exportedBy": "Garden",
            "warns": True, "canvas": [0, 0, 400, 200], "widgets": 6, "renamedClasses": {}, "unknownClasses": [],
            "unlinked": []})

    def test_a_site_of_the_files_own_name_is_not_warned(self):
        self.export()
        subprocess.run([STATION, "new", "--name", "Garden", "-o", self.path("garden.site")], check=True)
        told = self.foretell("out.zordashboard", "--site", self.path("garden.site"))
        self.assertEqual((told["agent"], told["warns"]), ("Garden", False))

    def test_what_the_station_lacks_with_the_nearest_it_has(self):
        agent = {"name": "Roof", "properties": {"anemometerSpeed": {"value": 3, "unit": "m/s"},
                                                "insideTemp": {"value": 20, "unit": "°C"},
                                                "outdoorTemperature": {"value": 5, "unit": "°C"}}}
        self.export(agent=agent, widgets=[
            {"kind": "roundGauge", "frame": [10, 10, 150, 150], "title": "Wind", "property": "anemometerSpeed"},
            {"kind": "textField", "frame": [170, 10, 100, 30], "property": "outdoorTemperature"},
            {"kind": "plotView", "frame": [10, 170, 300, 120], "property": "insideTemp"}])
        told = self.foretell("out.zordashboard")["unlinked"]
        self.assertEqual([(each["kind"], each["title"], each["frame"], each["property"]) for each in told],
                         [("roundGauge", "Wind", [10, 10, 150, 150], "anemometerSpeed"),
                          ("plotView", None, [10, 170, 300, 120], "insideTemp")])
        self.assertEqual(told[0]["nearest"], ["windSpeed", "windGust"])
        self.assertEqual(told[1]["nearest"][0], "indoorTemperature")
        self.do("new", agent=ROOF)
        self.import_file("out.zordashboard")
        self.assertEqual([each["property"] for each in self.state()["widgets"]], [None, "outdoorTemperature", None])

    def test_names_of_earlier_programs(self):
        self.export()
        self.rename("old.qm4dashboard", "ZORTextFieldView=QM4TextFieldView",
                    "ZORRoundGaugeView=ZORDirectionGaugeView", "ZORDashboardEditView=DashboardEditView")
        told = self.foretell("old.qm4dashboard")
        self.assertEqual(told["renamedClasses"], {"QM4TextFieldView": "ZORTextFieldView",
                                                  "ZORDirectionGaugeView": "ZORRoundGaugeView",
                                                  "DashboardEditView": "ZORDashboardEditView"})
        self.assertEqual((told["unknownClasses"], told["canvas"], told["widgets"]), ([], [0, 0, 400, 200], 6))

    def test_unknown_classes_are_left_out(self):
        self.export()
        self.rename("old.qmxdashboard", "ZORTextFieldView=OldLabel", "ZORLEDView=OldLamp")
        told = self.foretell("old.qmxdashboard")
        self.assertEqual((told["readable"], sorted(told["unknownClasses"]), told["renamedClasses"], told["widgets"]),
                         (True, ["OldLabel", "OldLamp"], {}, 6))

    def test_an_old_prefix_that_leads_nowhere_spoils_the_file(self):
        self.export()
        self.rename("old.qm4dashboard", "ZORRoundGaugeView=QM4DirectionGaugeView")
        told = self.foretell("old.qm4dashboard", "--import")
        self.assertEqual((told["readable"], told["canvas"], told["title"], told["warns"], told["unknownClasses"]),
                         (False, None, None, True, ["QM4DirectionGaugeView"]))
        self.assertIn("QM4DirectionGaugeView", told["fault"])

    def test_a_site_document_is_no_dashboard(self):
        subprocess.run([STATION, "new", "--name", "Garden", "-o", self.path("garden.site")], check=True)
        told = self.foretell("garden.site", "--import")
        self.assertEqual((told["canvas"], told["title"], told["warns"], told["unlinked"]), (None, None, True, []))

    def test_what_is_wrong_is_named(self):
        self.export()
        self.refuse_to_foretell("missing.zordashboard", "missing.zordashboard", "--import")
        self.refuse_to_foretell("missing.site", "out.zordashboard", "--import", "--site", "missing.site")
        subprocess.run([STATION, "new", "--name", "Garden", "-o", self.path("garden.site")], check=True)
        self.refuse_to_foretell("--site", "garden.site", "--site", "demo")
        self.refuse_to_foretell("FILE", "--import")


class WhatIsNoDashboard(Import):
    def test_brings_the_warning_and_then_a_dashboard_without_a_canvas(self):
        with open(self.path("junk.zordashboard"), "wb") as file:
            file.write(b"no archive at all")
        self.do("new", agent=GARDEN)
        for number, file in enumerate(("junk.zordashboard", "missing.zordashboard"), 1):
            self.import_file(file, warned="(null)")
            self.assertEqual(self.titles(), [None] * number)
            state = self.state()
            self.assertEqual((state["canvas"], state["widgets"]), (None, None))

    def test_such_a_dashboard_takes_every_line_without_harm(self):
        self.do("new", agent=GARDEN)
        self.import_file("missing.zordashboard", warned="(null)")
        for name in ("editDashboard:", "selectAll:", "addPlot:", "undo:", "exitEditMode:", "exportDashboard:",
                     "printDocument"):
            self.do("command", name=name)
        self.do("save", file="garden.site")
        self.do("open", file="garden.site")
        self.assertEqual(len(self.dashboards()), 1)


if __name__ == "__main__":
    unittest.main()
