#!/usr/bin/env python3
"""Random gestures, keys and commands, after each of which the program's state must be that of a second account of the
editor. STATION names the program; SEEDS, where given, how many plays there are."""

import os
import random
import unittest

import editor_model
from driving import DrivenTest

KINDS = ("box", "textField", "led", "roundGauge", "plotView", "imageView")
COMMANDS = [*editor_model.SIZES, *editor_model.ALIGNMENTS] + 2 * [
    "bringToFront:", "sendToBack:", "duplicateObject:", "deleteObject:", "copy:", "paste:", "selectAll:", "redo:",
    "undo:", "undo:", "undo:", "exitEditMode:"]
COPYING = ("copy:", "duplicateObject:")
UNCHOSEN = ("exportDashboard:", *COPYING)
MOST_WIDGETS = 40


class Play:
    """One dashboard, and a person who does anything at any time."""

    def __init__(self, test, seed):
        self.test, self.random = test, random.Random(seed)
        pick = self.random.choice
        size = pick([[400, 300], [900, 700], [1200, 900]])
        origin = pick([[0, 0], [0, 0], [100, 50], [10.5, 20.25]])
        widgets = [{"kind": pick(KINDS), "title": pick([None, "A", "B", ""]),
                    "frame": [self.random.randrange(-80, 2000) / 4, self.random.randrange(-80, 1600) / 4,
                              self.random.randrange(10, 200), self.random.randrange(10, 150)]}
                   for _ in range(self.random.randrange(1, 8))]
        test.do("new", widgets=widgets, size=size, viewOrigin=origin)
        self.editor = editor_model.Editor([editor_model.Widget(**each) for each in widgets], size, origin)
        # Ids run on from one dashboard to the next.
        ids = [each["id"] for each in test.state()["widgets"]]
        for widget, number in zip(self.editor.widgets, ids):
            widget.id = self.editor.last_id = number
        self.history = []
        # Both outlive a dashboard.
        self.line("command", name="copy:")
        test.do("pointer", at=self.editor.pointer)

    def line(self, name, /, **keys):
        self.history.append((name, keys))
        self.editor.shown_menu = None
        fault = getattr(self.editor, name)(**keys)
        self.editor.meet_widgets()
        last = f"after {self.history[-8:]}"
        answer = self.test.answer(name, **keys)
        if fault:
            self.test.assertTrue(answer.get("error", "").startswith(fault + ":"), f"{answer} {last}")
            return
        self.test.assertTrue(answer.get("ok"), f"{answer} {last}")
        items = answer["menu"] and [(item.get("title"), item.get("action")) for item in answer["menu"]["items"]]
        self.test.assertEqual(items, self.editor.shown_menu, last)
        self.compare(last)

    def compare(self, last):
        state, expected = self.test.state(), self.editor.state()
        for told, widget in zip(state["widgets"], expected["widgets"]):
            for key in set(told) - set(widget):
                del told[key]
        target = self.editor.panel and self.editor.panel["target"]
        if target and target not in self.editor.widgets and target is not self.editor.container:
            # Of a widget that is gone for good nothing is known.
            expected["panel"]["target"] = state["panel"]["target"]
        del state["canvas"]["image"]
        for part, value in expected.items():
            self.test.assertEqual(state[part], value, f"{part} {last}")

    def point(self):
        """On a widget's edges, middle and handle, or anywhere."""
        if self.random.random() < 0.5 and self.editor.widgets:
            x, y, width, height = self.random.choice(self.editor.widgets).frame
            return [start + self.random.choice([0, side / 2, side - 1, side - 6, side - 12, side, side - 12.25])
                    for start, side in ((x, width), (y, height))]
        return [self.random.randrange(5600) / 4, self.random.randrange(4000) / 4]

    def flags(self):
        return self.random.choice([[], [], [], [], ["shift"], ["shift"], ["command"], ["control"]])

    def command_name(self):
        name = self.random.choice(COMMANDS)
        # Copies of the canvas within itself hold widgets that the model knows nothing of.
        return "undo:" if name in COPYING and self.editor.container in self.editor.selection else name

    def move(self):
        pick, editor = self.random.choice, self.editor
        if not editor.edit_mode and self.random.random() < 0.5:
            return self.line("command", name="editDashboard:")
        if len(editor.widgets) > MOST_WIDGETS:
            self.line("command", name="selectAll:")
            return self.line("command", name="deleteObject:")
        kind = pick(5 * ["press", "drag"] + 3 * ["release"] + 2 * ["key", "command"] + ["rightPress", "choose",
                                                                                      "action", "pointer"])
        point = self.point()
        if kind in ("press", "rightPress") and not (0 <= point[0] < 1400 and 0 <= point[1] < 1000):
            return
        if kind == "press":
            self.line("press", at=point, flags=self.flags(), clicks=pick([1, 1, 1, 2, 3, 0]))
        elif kind in ("drag", "release"):
            self.line(kind, at=pick([point, point, point, [-500.5, 3000]]), flags=self.flags())
        elif kind == "rightPress":
            self.line("rightPress", at=point, flags=self.flags())
        elif kind == "choose":
            titles = [title for title, name in editor.menu or [] if title and name not in UNCHOSEN]
            self.line("choose", title=pick([*titles, "No such item"]))
        elif kind == "key":
            duplicating = "a" if editor.container in editor.selection else "d"
            self.line("key", characters=pick(["\x7f", "\x08", "\uf728", duplicating, "D", "", "\uf702"]),
                      keyCode=pick([123, 124, 125, 126, 0]), flags=self.flags())
        elif kind == "pointer":
            editor.pointer = [self.random.randrange(1000), self.random.randrange(800)]
            self.test.do("pointer", at=editor.pointer)
        else:
            self.line(kind, name=self.command_name())


class EditorModel(DrivenTest):
    def test_the_program_does_what_the_model_does(self):
        for seed in range(int(os.environ.get("SEEDS", "20"))):
            with self.subTest(seed=seed):
                play = Play(self, seed)
                for _ in range(250):
                    play.move()


if __name__ == "__main__":
    unittest.main()
