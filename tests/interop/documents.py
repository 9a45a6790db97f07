"""Documents made by the program, for other programs to read and rewrite. STATION names the program."""

import json
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "app"))

from driving import STATION, DrivenTest  # noqa: E402

KINDS = ("textField", "dateTimeField", "box", "imageView", "led", "mapView", "webView", "plotView", "levelIndicator",
         "roundGauge", "linearGauge")
GARDEN = {"name": "Garden", "properties": {"outdoorTemperature": {"value": 21.5, "unit": "°C"},
                                           "windSpeed": {"value": 3, "unit": "m/s"}}}
#: Numbers that no shorter text reads back as, and frames outside the canvas.
FRAMES = [[0.1, 1 / 3, 120.125, 60], [-40, 5e-7, 1e6, 33.3], [10, 20, 0.30000000000000004, 17]]
WIDGETS = [{"kind": kind, "frame": FRAMES[number % len(FRAMES)], "title": f"{kind} — № {number}"}
           for number, kind in enumerate(KINDS)]
for widget in WIDGETS:
    if widget["kind"] in ("textField", "led", "plotView", "roundGauge"):
        widget["property"] = "outdoorTemperature"


class DocumentTest(DrivenTest):
    def make(self):
        """A Site Document, an export and copied widgets with every kind of widget: their paths."""
        self.do("new", agent=GARDEN, widgets=WIDGETS, size=[640, 480])
        self.do("set", target="dashboard", key="title", value="Übersicht 🌦")
        self.do("set", target="canvas", key="image", value=[64, 48])
        self.do("command", name="editDashboard:")
        self.do("command", name="selectAll:")
        self.do("command", name="copy:")
        self.do("pasteboard", file="copied")
        self.do("answer", sheet="save", response="ok", path="out.zordashboard")
        self.do("command", name="exportDashboard:")
        self.do("save", file="out.site")
        return [self.path(name) for name in ("out.site", "out.zordashboard", "copied")]

    def seen_in_site(self, path):
        """What a person sees of the dashboard that is selected in the document."""
        self.do("open", file=path)
        return self.seen()

    def seen_in_import(self, path):
        """What a person sees of an import into a fresh document of the same station."""
        self.do("new", agent=GARDEN)
        self.do("answer", sheet="open", response="ok", path=path)
        self.do("toolbar", name="importDashboard:")
        return self.seen()

    def seen(self):
        state = self.state()
        widgets = [{key: value for key, value in widget.items() if key != "id"} for widget in state["widgets"]]
        return {"title": state["dashboard"]["title"], "canvas": state["canvas"], "widgets": widgets}


def inspected(path):
    """`station inspect`, whatever the order in which a writer stores objects and keys: those are taken by name, and
    each object is told where it is first met, with a number of its own."""
    result = subprocess.run([STATION, "inspect", path], capture_output=True, text=True, check=True)
    told = json.loads(result.stdout)
    objects, numbers = {}, {}

    def collect(value):
        for entry in value.values() if isinstance(value, dict) else value if isinstance(value, list) else ():
            collect(entry)
        if isinstance(value, dict) and "$id" in value:
            objects[value["$id"]] = value

    def ordered(value):
        if isinstance(value, list):
            return [ordered(entry) for entry in value]
        if not isinstance(value, dict):
            return value
        number = value.get("$id", value.get("$ref"))
        if number in numbers:
            return {"$ref": numbers[number]}
        if number is not None:
            value = {**objects[number], "$id": numbers.setdefault(number, len(numbers))}
        return {key: ordered(value[key]) for key in sorted(value)}

    collect(told)
    return ordered(told)
