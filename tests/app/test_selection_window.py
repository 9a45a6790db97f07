#!/usr/bin/env python3
"""The window in which a dashboard is chosen, as scripts see it."""

import unittest

from driving import DrivenTest

STATION = {"name": "Garden", "properties": {"outdoorTemperature": {"value": 20, "unit": "°C"}}}


class SelectionWindow(DrivenTest):
    def setUp(self):
        super().setUp()
        self.do("new", agent=STATION)

    def window(self):
        return self.state()["selectionWindow"]

    def toolbar(self, name, *arguments):
        return self.do("toolbar", name=name, **({"arguments": list(arguments)} if arguments else {}))

    def test_before_its_first_showing_it_stands_at_the_first_entry(self):
        window = self.window()
        self.assertEqual((window["visible"], window["page"], window["row"]), (False, 1, 0))
        self.assertEqual(window["dashboardTitle"], "Standard Dashboard")
        self.assertEqual(window["description"],
                         "This Dashboard shows the current weather using a mixture of gauges and labels with custom "
                         "fonts.\n\nContains:\n    • Wind Speed & Direction\n    • Barometric Pressure\n"
                         "    • Temperature\n    • Humidity\n    • Dew Point")

    def test_the_toolbar_item_shows_it(self):
        answer = self.toolbar("toolbarItemAction:")
        self.assertEqual(answer["sheets"], [])
        self.assertTrue(self.window()["visible"])

    def test_a_row_brings_its_description_and_title(self):
        self.toolbar("toolbarItemAction:")
        self.do("row", row=4)
        self.assertEqual(self.window(), {
            "visible": True, "page": 1, "row": 4, "dashboardTitle": "Clean Slate",
            "description": "This Dashboard starts in edit mode and contains a single text field.\n\n"
                           "Use this as a starting point for your own custom dashboard."})

    def test_asking_the_delegate_alone_selects_nothing(self):
        self.toolbar("tableView:shouldSelectRow:", 3)
        window = self.window()
        self.assertEqual((window["row"], window["dashboardTitle"]), (0, "Quad Plots"))

    def test_rows_outside_the_list_are_refused(self):
        for row in (-1, 5, 1e18):
            self.refuse("row", "row", row=row)
            self.refuse("row", "catalogue", row=row)
        self.refuse("arguments", "toolbar", name="tableView:shouldSelectRow:", arguments=[5])
        self.refuse("arguments", "toolbar", name="tableView:shouldSelectRow:")
        self.refuse("arguments", "toolbar", name="doneClicked:", arguments=[1, 2])
        self.refuse("name", "toolbar", name="fly:")
        self.assertEqual(self.window()["dashboardTitle"], "Standard Dashboard")

    def test_done_adds_the_chosen_dashboard_and_selects_it(self):
        self.do("catalogue", row=4)
        self.toolbar("toolbarItemAction:")
        self.do("row", row=3)
        self.toolbar("doneClicked:")
        self.assertEqual([(each["title"], each["selected"]) for each in self.dashboards()],
                         [("Blank", False), ("Quad Plots", True)])
        state = self.state()
        self.assertFalse(state["selectionWindow"]["visible"])
        self.assertEqual(state["dashboard"]["title"], "Quad Plots")
        self.assertEqual([each["kind"] for each in state["widgets"]], ["plotView"] * 4)
        self.assertEqual(state["firstResponder"], "other")

    def test_done_gives_the_catalogues_title_to_every_kind_of_entry(self):
        for row, title in ((2, "Hi-Def Dashboard"), (4, "Clean Slate")):
            self.toolbar("toolbarItemAction:")
            self.do("row", row=row)
            self.toolbar("doneClicked:")
            self.assertEqual(self.state()["dashboard"]["title"], title)

    def test_cancel_adds_nothing_and_keeps_the_row(self):
        self.toolbar("toolbarItemAction:")
        self.do("row", row=1)
        self.toolbar("cancelClicked:")
        self.assertEqual(self.dashboards(), [])
        self.toolbar("toolbarItemAction:")
        window = self.window()
        self.assertEqual((window["visible"], window["row"], window["dashboardTitle"]), (True, 1, "Current Weather"))

    def test_continue_and_back_turn_the_pages_and_are_harmless_on_the_wrong_one(self):
        self.toolbar("toolbarItemAction:")
        for name, page in (("backClicked:", 1), ("continueClicked:", 2), ("continueClicked:", 2),
                           ("backClicked:", 1), ("backClicked:", 1)):
            self.toolbar(name)
            self.assertEqual(self.window()["page"], page, name)

    def test_every_showing_begins_at_the_first_page(self):
        self.toolbar("toolbarItemAction:")
        self.toolbar("continueClicked:")
        self.toolbar("cancelClicked:")
        self.assertEqual(self.window()["page"], 2)
        self.toolbar("toolbarItemAction:")
        self.assertEqual(self.window()["page"], 1)

    def test_buttons_work_from_the_second_page(self):
        self.toolbar("toolbarItemAction:")
        self.do("row", row=3)
        self.toolbar("continueClicked:")
        self.toolbar("doneClicked:")
        self.assertEqual(self.titles(), ["Quad Plots"])

    def test_buttons_do_nothing_while_it_is_hidden(self):
        for name in ("doneClicked:", "cancelClicked:", "importClicked:"):
            self.assertEqual(self.toolbar(name)["sheets"], [])
        self.assertEqual(self.dashboards(), [])

    def test_import_closes_it_before_the_open_panel_appears(self):
        self.toolbar("toolbarItemAction:")
        answer = self.toolbar("importClicked:")
        self.assertEqual(answer["sheets"],
                         [{"kind": "open", "allowedTypes": ["zordashboard", "qm4dashboard", "qmxdashboard"]}])
        self.assertFalse(self.window()["visible"])

    def test_the_title_of_the_last_use_stays_with_the_document(self):
        self.toolbar("setLastUsedTitle:", "Mine")
        self.do("save", file="garden.site")
        self.do("new")
        self.assertEqual(self.do("query", target="toolbar", name="lastUsedTitle")["result"], "Dashboard")
        self.do("open", file="garden.site")
        self.assertEqual(self.do("query", target="toolbar", name="lastUsedTitle")["result"], "Mine")

    def test_a_document_read_back_has_a_window_of_its_own(self):
        self.toolbar("toolbarItemAction:")
        self.do("row", row=3)
        self.do("save", file="garden.site")
        self.do("open", file="garden.site")
        window = self.window()
        self.assertEqual((window["visible"], window["row"]), (False, 0))
        self.toolbar("toolbarItemAction:")
        self.toolbar("doneClicked:")
        self.assertEqual(self.titles(), ["Standard Dashboard"])


class WithoutADocument(DrivenTest):
    def test_the_state_still_has_a_selection_window(self):
        self.assertEqual(self.state()["selectionWindow"]["page"], 1)
        self.refuse("do", "toolbar", name="toolbarItemAction:")
        self.refuse("do", "row", row=0)


if __name__ == "__main__":
    unittest.main()
