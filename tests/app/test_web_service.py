#!/usr/bin/env python3
"""Pictures of dashboards over the web service, and dashboards in windows of their own."""

import unittest

from driving import DrivenTest

STATION = {"name": "Garden", "properties": {"outdoorTemperature": {"value": 20, "unit": "°C"}}}
WIDGETS = [{"kind": "textField", "frame": [10, 10, 100, 30], "property": "outdoorTemperature"}]
INTRODUCTION = ("<h1>REST API for Dashboard</h1>You can view PNG representations of this Site Document's available "
                "Dashboards here.<p>")


class WebService(DrivenTest):
    def setUp(self):
        super().setUp()
        self.do("new", agent=STATION, widgets=WIDGETS, size=[320, 200])
        self.do("set", target="dashboard", key="title", value="Mine")
        self.identifier = self.dashboards()[0]["uniqueIdentifier"]

    def served(self, path, **keys):
        return self.do("web", path=path, **keys)["response"]

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def heading(self, base, identifier, title):
        return f'<h2><a href="{base}/{identifier}.png" target="_blank">{title}</a></h2>'


class Pictures(WebService):
    def test_a_png_is_the_dashboards_own_picture(self):
        self.do("png", file="own.png")
        response = self.served(f"/{self.identifier}.png", file="served.png")
        self.assertEqual(response, {"contentType": "image/png", "bytes": len(self.read("served.png"))})
        self.assertEqual(self.read("served.png"), self.read("own.png"))
        self.assertEqual(int.from_bytes(self.read("served.png")[16:20], "big"), 320)

    def test_a_pdf_is_the_dashboards_own_document(self):
        self.do("pdf", file="own.pdf")
        response = self.served(f"/{self.identifier}.pdf", file="served.pdf")
        self.assertEqual(response["contentType"], "application/pdf")
        self.assertEqual(self.read("served.pdf"), self.read("own.pdf"))

    def test_only_the_last_component_counts(self):
        for path in ("/some/dir/{}.png", "{}.png", "/{}.png/", "/0.png/x.pdf/{}.png"):
            self.served(path.format(self.identifier), file="served.png")
            self.do("png", file="own.png")
            self.assertEqual(self.read("served.png"), self.read("own.png"), path)

    def test_anything_else_gives_no_response(self):
        for path in ("/{}.PNG", "/{}.Pdf", "/{}.jpg", "/{}", "/{}.", "/{}.png.x", "/{}.x.png", "/{}.png/x", "/x{}.png",
                     "/0.png", "/.png", "/", ""):
            self.assertIsNone(self.served(path.format(self.identifier)), path)
        self.assertIsNone(self.served(f"/{self.identifier.upper()}0.png"))

    def test_every_dashboard_of_the_list_is_served_selected_or_not(self):
        self.do("catalogue", row=4)
        for each in self.dashboards():
            self.assertEqual(self.served(f"/{each['uniqueIdentifier']}.png")["contentType"], "image/png")

    def test_edit_mode_and_later_values_show_in_a_fresh_picture(self):
        before = self.served(f"/{self.identifier}.png", file="before.png")
        self.do("set", target="agent", key="outdoorTemperature", value={"value": -31.5, "unit": "°C"})
        self.served(f"/{self.identifier}.png", file="after.png")
        self.assertIsNotNone(before)
        self.assertNotEqual(self.read("before.png"), self.read("after.png"))

    def test_a_dashboard_taken_out_of_the_list_is_gone(self):
        self.do("remove", index=0)
        self.assertIsNone(self.served(f"/{self.identifier}.png"))

    def test_a_file_that_cannot_be_written_is_named(self):
        self.refuse("file", "web", path=f"/{self.identifier}.png", file="no/such/folder/x.png")
        self.refuse("path", "web")


class Advertisement(WebService):
    def test_lists_the_dashboards_in_order(self):
        self.do("catalogue", row=3)
        one, two = (each["uniqueIdentifier"] for each in self.dashboards())
        self.assertEqual(self.do("advertise", base="http://h:1/d")["html"],
                         INTRODUCTION + self.heading("http://h:1/d", one, "Mine") +
                         self.heading("http://h:1/d", two, "Quad Plots"))

    def test_a_document_without_dashboards_has_the_introduction_alone(self):
        self.do("new", agent=STATION)
        self.assertEqual(self.do("advertise", base="/b")["html"], INTRODUCTION)

    def test_a_separate_window_comes_first_with_its_title(self):
        self.do("catalogue", row=3)
        self.do("detach", index=1)
        one, two = (each["uniqueIdentifier"] for each in self.dashboards())
        self.assertEqual(self.do("advertise", base="")["html"],
                         INTRODUCTION + self.heading("", two, "Quad Plots") + self.heading("", one, "Mine") +
                         self.heading("", two, "Quad Plots"))

    def test_a_separate_window_is_renamed_with_its_dashboard(self):
        self.do("detach", index=0)
        self.do("set", target="dashboard", key="title", value="Other")
        self.assertEqual(self.do("advertise", base="")["html"],
                         INTRODUCTION + 2 * self.heading("", self.identifier, "Other"))


class SeparateWindows(WebService):
    def test_is_in_the_list_as_well(self):
        self.do("detach", index=0)
        self.assertEqual(self.dashboards(), [{"uniqueIdentifier": self.identifier, "title": "Mine", "selected": True,
                                              "separateWindow": True}])

    def test_a_second_time_it_stays_where_it_is(self):
        self.do("detach", index=0)
        self.do("detach", index=0)
        self.assertEqual(self.do("advertise", base="")["html"].count(self.identifier), 2)

    def test_taken_out_of_the_list_it_stays_open_and_is_served(self):
        self.do("png", file="own.png")
        self.do("detach", index=0)
        self.do("remove", index=0)
        self.assertEqual(self.dashboards(), [])
        self.assertIsNone(self.state()["dashboard"])
        self.served(f"/{self.identifier}.png", file="served.png")
        self.assertEqual(self.read("served.png"), self.read("own.png"))
        self.assertEqual(self.do("advertise", base="")["html"],
                         INTRODUCTION + self.heading("", self.identifier, "Mine"))

    def test_it_can_be_edited_there(self):
        self.do("detach", index=0)
        self.do("command", name="editDashboard:")
        self.do("press", at=[20, 20])
        self.do("drag", at=[50, 60])
        self.do("release", at=[50, 60])
        state = self.state()
        self.assertEqual(state["widgets"][0]["frame"], [40, 50, 100, 30])
        self.assertEqual(state["firstResponder"], "dashboard")
        self.assertIsNotNone(self.do("rightPress", at=[60, 60])["menu"])

    def test_the_place_of_the_view_is_kept(self):
        self.do("new", agent=STATION, widgets=WIDGETS, size=[320, 200], viewOrigin=[7, 9], window=[300, 150])
        self.do("detach", index=0)
        self.do("command", name="editDashboard:")
        self.do("press", at=[20, 20])
        self.do("release", at=[20, 20])
        self.assertEqual(self.state()["selection"], [2])
        self.refuse("at", "press", at=[20, 160])

    def test_selecting_another_and_back_leaves_it_in_its_window(self):
        self.do("catalogue", row=4)
        self.do("detach", index=0)
        for index in (0, 1, 0):
            self.do("select", index=index)
        self.assertEqual([(each["selected"], each["separateWindow"]) for each in self.dashboards()],
                         [(True, True), (False, False)])
        self.do("command", name="editDashboard:")
        self.do("press", at=[20, 20])
        self.do("release", at=[20, 20])
        self.assertEqual(self.state()["selection"], [1])

    def test_removing_selects_what_takes_the_place_or_the_last(self):
        self.do("catalogue", row=3)
        self.do("catalogue", row=4)
        self.do("select", index=1)
        self.do("remove", index=1)
        self.assertEqual([(each["title"], each["selected"]) for each in self.dashboards()],
                         [("Mine", False), ("Blank", True)])
        self.do("remove", index=1)
        self.assertEqual(self.state()["dashboard"]["title"], "Mine")

    def test_numbers_outside_the_list_are_refused(self):
        for line in ("detach", "remove", "select"):
            for index in (-1, 1):
                self.refuse("index", line, index=index)
            self.refuse("index", line)
        self.assertEqual(self.titles(), ["Mine"])

    def test_a_new_document_closes_the_windows_of_the_old(self):
        self.do("detach", index=0)
        self.do("new", agent=STATION)
        self.assertIsNone(self.served(f"/{self.identifier}.png"))
        self.assertEqual(self.do("advertise", base="")["html"], INTRODUCTION)


if __name__ == "__main__":
    unittest.main()
