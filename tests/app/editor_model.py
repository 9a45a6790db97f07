"""The editor told a second time, as plainly as it goes, to compare the program with: one object for one dashboard, one
method for each line of a script that it understands. A line that must fail gives the key at fault."""

SIZES = {"addTextLabel:": ("textField", 256, 40), "addDateTimeLabel:": ("dateTimeField", 256, 40),
         "addBox:": ("box", 256, 256), "addImage:": ("imageView", 256, 256), "addLED:": ("led", 40, 40),
         "addMapView:": ("mapView", 240, 240), "addWebView:": ("webView", 240, 240), "addPlot:": ("plotView", 480, 360),
         "addLevelIndicator:": ("levelIndicator", 180, 34), "addRoundGauge:": ("roundGauge", 240, 240),
         "addLinearGauge:": ("linearGauge", 112, 512)}
ALIGNMENTS = {"alignTopEdges:": "top", "alignLeftEdges:": "left", "alignBottomEdges:": "bottom",
              "alignRightEdges:": "right"}
ALIGNING = [("Align Top Edges", "alignTopEdges:"), ("Align Left Edges", "alignLeftEdges:"),
            ("Align Bottom Edges", "alignBottomEdges:"), ("Align Right Edges", "alignRightEdges:")]
INSERTING = [("Add Text Label", "addTextLabel:"), ("Add Box", "addBox:"), ("Add Image", "addImage:"),
             ("Add LED", "addLED:"), ("Add Map View", "addMapView:"), ("Add Web View", "addWebView:"),
             ("Add Plot", "addPlot:"), ("Add Level Indicator", "addLevelIndicator:"),
             ("Add Round Gauge", "addRoundGauge:"), ("Add Linear Gauge", "addLinearGauge:")]
SEPARATOR = (None, None)
DELETING = "\x7f\x08\uf728"
BAND = {"lineWidth": 1, "dash": [10, 5], "stroke": "#000000ff", "fill": "#00000000",
        "animation": {"keyPath": "lineDashPhase", "from": 0, "to": 15, "duration": 0.75, "repeats": "infinite",
                      "key": "linePhase"}}
PANEL_SIZE = [320, 300]
RULER = 16
HANDLE = 12
LEAST_SIDE = 10
STEP = 20


def contains_point(rect, point):
    (x, y, width, height), (px, py) = rect, point
    return x <= px < x + width and y <= py < y + height


def intersects(one, other):
    (ax, ay, aw, ah), (bx, by, bw, bh) = one, other
    return min(aw, ah, bw, bh) > 0 and ax < bx + bw and bx < ax + aw and ay < by + bh and by < ay + ah


def contains_rect(outer, inner):
    (ax, ay, aw, ah), (bx, by, bw, bh) = outer, inner
    return min(bw, bh) > 0 and ax <= bx and ay <= by and bx + bw <= ax + aw and by + bh <= ay + ah


class Widget:
    def __init__(self, kind, frame, title=None):
        self.id = None
        self.kind, self.frame, self.title = kind, list(frame), title
        self.z_order = 0
        self.selected = self.allow_resize = self.editable = self.in_live_resize = False
        self.offset = [0, 0]
        self.resizing_from = None

    def copy(self):
        copy = Widget(self.kind, self.frame, self.title)
        copy.editable = self.editable
        return copy

    def shifted_copy(self):
        copy = self.copy()
        copy.frame[0] += 10
        copy.frame[1] -= 10
        return copy

    def state(self):
        return {"id": self.id, "kind": self.kind, "frame": self.frame, "zOrder": self.z_order,
                "selected": self.selected, "allowResize": self.allow_resize, "editable": self.editable,
                "inLiveResize": self.in_live_resize, "title": self.title}


class Editor:
    def __init__(self, widgets, size, view_origin):
        self.frame = [0, 0, *size]
        self.view_origin = view_origin
        self.container = Widget("container", self.frame)
        self.container.id = "container"
        self.widgets, self.selection, self.undo_steps = [], [], []
        self.edit_mode = self.grid = False
        self.click_offset, self.mouse_down, self.dragged = [0, 0], [0, 0], [0, 0]
        self.did_drag = self.draw_selection_box = self.last_was_right = False
        self.snapshots = []
        self.label = self.band = self.panel = self.menu = self.shown_menu = self.pasteboard = None
        self.first_responder = "other"
        self.pointer = [0, 0]
        self.is_down = self.is_right_down = False
        self.pressed = self.right_pressed = None
        self.last_id = 0
        for widget in widgets:
            self.add(widget)
        self.meet_widgets()

    def meet_widgets(self):
        for widget in self.widgets:
            if widget.id is None:
                self.last_id += 1
                widget.id = self.last_id

    # The canvas

    def add(self, widget):
        self.remove([widget])
        self.widgets.append(widget)
        for number, each in enumerate(self.widgets, 1):
            each.z_order = number

    def remove(self, widgets):
        self.widgets = [each for each in self.widgets if each not in widgets]

    def topmost_at(self, point):
        return next((each for each in reversed(self.widgets) if contains_point(each.frame, point)), None)

    def set_edit_mode(self, on):
        self.edit_mode, self.grid = on, True
        for widget in self.widgets:
            widget.editable = on

    # Selection and panel

    def select(self, widget):
        widget.selected = True
        if widget not in self.selection:
            self.selection.append(widget)

    def unselect(self, widget):
        widget.selected = False
        self.selection = [each for each in self.selection if each is not widget]

    def unselect_all(self):
        for widget in self.selection:
            widget.selected = widget.allow_resize = False
        self.selection = []

    def show_panel(self):
        first = self.selection[0] if self.selection else None
        if not self.panel:
            corner = [self.pointer[0] - 10, self.pointer[1] - PANEL_SIZE[1] + 10]
            self.panel = {"title": "", "frame": corner + PANEL_SIZE}
        self.panel.update(target=first, visible=True)
        if first and first.title is not None:
            self.panel["title"] = first.title

    def hide_panel(self):
        if self.panel:
            self.panel["visible"] = False

    # Presses

    def mouse_down_event(self, point, flags, clicks):
        if "control" in flags:
            return self.right_mouse_down(point)
        self.last_was_right = False
        if not self.edit_mode:
            return
        self.first_responder = "dashboard"
        self.mouse_down = point
        self.click_offset = self.relative_to_view(point)
        self.label = {"hidden": False, "text": "(%.1f,%.1f)" % tuple(self.click_offset)}
        if clicks == 2:
            self.press_twice(point)
        else:
            self.press_once(point, "shift" in flags)

    def relative_to_view(self, point):
        return [point[0] - self.view_origin[0], point[1] - self.view_origin[1]]

    def press_twice(self, point):
        hit = self.topmost_at(point)
        if not hit:
            self.select(self.container)
        elif hit not in self.selection:
            self.unselect_all()
            self.select(hit)
        self.show_panel()

    def press_once(self, point, extend):
        for widget in self.widgets:
            widget.offset = [self.click_offset[0] - widget.frame[0], self.click_offset[1] - widget.frame[1]]
        if any(contains_point(each.frame, point) for each in self.selection):
            return
        hit = self.topmost_at(point)
        if hit:
            if not extend:
                self.unselect_all()
            self.select(hit)
            if self.panel and self.panel["visible"] and len(self.selection) == 1:
                self.show_panel()
            return
        self.unselect_all()
        self.hide_panel()
        self.draw_selection_box, self.band = True, {"path": None}
        if self.panel:
            self.select(self.container)
            self.show_panel()

    def right_mouse_down(self, point):
        self.last_was_right = True
        if not self.edit_mode:
            items = [("Edit Dashboard", "editDashboard:"), ("Export Dashboard...", "exportDashboard:")]
        else:
            items = self.editing_items(point)
        self.menu = self.shown_menu = items

    def editing_items(self, point):
        orders = [self.widgets[0].z_order, self.widgets[-1].z_order] if self.widgets else [0, 0]
        self.first_responder = "dashboard"
        self.click_offset, self.mouse_down = point, point
        items = ALIGNING + [SEPARATOR] if len(self.selection) > 1 else []
        hit = None
        for widget in self.widgets:
            if contains_point(widget.frame, point) and (not hit or widget.z_order > hit.z_order):
                hit = widget
        if hit:
            self.select(hit)
            self.click_offset = [point[0] - hit.frame[0], point[1] - hit.frame[1]]
            items = items + [("Bring to Front", "bringToFront:")] * (hit.z_order < orders[1])
            items = items + [("Send to Back", "sendToBack:")] * (hit.z_order > orders[0])
            items = items + [("Duplicate", "duplicateObject:"), ("Delete", "deleteObject:"), SEPARATOR]
        return items + INSERTING + [("Exit Edit Mode", "exitEditMode:")]

    # Drags and releases

    def mouse_dragged_event(self, point, flags):
        if not self.edit_mode:
            self.did_drag = False
            return
        if self.last_was_right:
            return
        if not self.did_drag:
            self.snapshots += [(each, list(each.frame)) for each in self.selection]
            self.did_drag = True
            self.unselect(self.container)
            if self.draw_selection_box:
                self.hide_panel()
        self.dragged = point
        if self.label:
            self.label["text"] = "(%.1f,%.1f)" % tuple(point)
        if self.draw_selection_box:
            self.move_band(point, "shift" in flags)
        elif not any(each.in_live_resize for each in self.selection):
            for widget in self.selection:
                widget.frame[:2] = [point[0] - widget.offset[0], point[1] - widget.offset[1]]
                widget.allow_resize = False

    def move_band(self, point, extend):
        (x, y), (right, bottom) = self.mouse_down, point
        if self.band:
            self.band["path"] = [[x, y], [right, y], [right, bottom], [x, bottom]]
        covered = [min(x, right), min(y, bottom), abs(right - x), abs(bottom - y)]
        for widget in self.widgets:
            touches = intersects(covered, widget.frame)
            if touches and not widget.selected:
                self.select(widget)
            elif not touches and widget.selected and not extend:
                self.unselect(widget)

    def mouse_up_event(self, point, flags):
        if self.label:
            self.label["hidden"] = True
        if not self.edit_mode:
            self.did_drag = False
            return
        self.remember_frames(self.snapshots)
        self.snapshots = []
        self.click_offset = point
        widget, extend = self.topmost_at(point), "shift" in flags
        if not widget and not self.draw_selection_box:
            return self.unselect_all()
        self.click_offset = self.relative_to_view(point)
        if widget and not self.did_drag:
            self.unselect(widget)
            if not extend:
                self.unselect_all()
            self.select(widget)
            if len(self.selection) > 1:
                self.hide_panel()
        for each in self.selection:
            each.allow_resize = len(self.selection) == 1
        if not widget and not extend and not self.did_drag:
            self.unselect_all()
        self.band = None
        self.draw_selection_box = self.did_drag = False

    def remember_frames(self, snapshots):
        def restore():
            for widget, frame in snapshots:
                if widget in self.widgets:
                    widget.frame = list(frame)
        self.undo_steps.append(restore)

    # Commands

    def perform(self, name):
        plain = {"editDashboard:": lambda: self.set_edit_mode(True), "exitEditMode:": self.exit_edit_mode,
                 "bringToFront:": self.bring_to_front, "sendToBack:": self.send_to_back,
                 "duplicateObject:": self.duplicate, "deleteObject:": self.delete, "copy:": self.copy,
                 "paste:": self.paste, "undo:": self.undo, "redo:": lambda: None, "selectAll:": self.select_all}
        if name in SIZES:
            self.insert(*SIZES[name])
        elif name in ALIGNMENTS:
            self.align(ALIGNMENTS[name])
        else:
            plain[name]()

    def exit_edit_mode(self):
        self.unselect_all()
        self.set_edit_mode(False)
        self.grid = False
        self.hide_panel()

    def insert(self, kind, width, height):
        frame = [self.click_offset[0] - 20, self.click_offset[1] - 20, width, height]
        widget = Widget(kind, frame if contains_rect(self.frame, frame) else [0, 0, width, height])
        self.add(widget)
        widget.editable = self.edit_mode
        self.undo_steps.append(lambda: self.remove([widget]))

    def align(self, side):
        if not self.selection:
            return
        reach = {"top": lambda f: -f[1], "left": lambda f: -f[0], "bottom": lambda f: f[1] + f[3],
                 "right": lambda f: f[0] + f[2]}[side]
        first = self.selection[0]
        reference = next((each for each in self.selection if reach(each.frame) > reach(first.frame)), first)
        x, y, width, height = reference.frame
        others = [each for each in self.selection if each is not reference]
        self.remember_frames([(each, list(each.frame)) for each in others])
        for widget in others:
            frame = widget.frame
            frame[:2] = {"top": [frame[0], y], "left": [x, frame[1]], "bottom": [frame[0], y + height - frame[3]],
                         "right": [x + width - frame[2], frame[1]]}[side]

    def bring_to_front(self):
        top = self.widgets[-1].z_order if self.widgets else 0
        for number, widget in enumerate(self.selection, 1):
            widget.z_order = top + number
        self.widgets.sort(key=lambda each: each.z_order)

    def send_to_back(self):
        bottom = self.widgets[0].z_order if self.widgets else 0
        for number, widget in enumerate(self.selection, 1):
            widget.z_order = bottom - number
        self.widgets.sort(key=lambda each: each.z_order)

    def duplicate(self):
        sources = list(self.selection)
        for widget in sources:
            self.unselect(widget)
        self.add_selected([each.shifted_copy() for each in sources])

    def add_selected(self, widgets):
        for widget in widgets:
            self.add(widget)
            self.select(widget)
        self.undo_steps.append(lambda: self.remove(widgets))

    def delete(self):
        group = [each for each in self.selection if each is not self.container]

        def restore():
            for widget in group:
                self.add(widget)
        self.undo_steps.append(restore)
        for widget in group:
            widget.selected = False
        self.remove(group)
        self.first_responder = "canvas"
        self.selection = []
        self.hide_panel()

    def copy(self):
        self.pasteboard = [each.copy() for each in self.selection]

    def paste(self):
        if self.pasteboard is not None:
            self.unselect_all()
            self.add_selected([each.shifted_copy() for each in self.pasteboard])

    def undo(self):
        if self.edit_mode and self.undo_steps:
            self.undo_steps.pop()()

    def select_all(self):
        if self.edit_mode:
            for widget in self.widgets:
                self.select(widget)

    # Lines

    def is_on_canvas(self, widget):
        return widget is None or widget in self.widgets

    def view_at(self, point):
        """The widget that a press reaches first; none where the label, or nothing, lies above it."""
        under_label = self.label and not self.label["hidden"] and -RULER <= point[0] < 200 - RULER and point[1] < 24
        return None if under_label or not contains_point(self.frame, point) else self.topmost_at(point)

    def press(self, at, flags=(), clicks=1):
        if self.is_down:
            return "do"
        self.is_down, self.is_right_down = True, False
        widget = self.pressed = self.view_at(at)
        if widget and widget.allow_resize and "control" not in flags:
            x, y, width, height = widget.frame
            if contains_point([x + width - HANDLE, y + height - HANDLE, HANDLE, HANDLE], at):
                widget.resizing_from, widget.in_live_resize = (at, [width, height]), True
        self.mouse_down_event(at, flags, clicks)

    def drag(self, at, flags=()):
        if not self.is_down and not self.is_right_down:
            return "do"
        widget = self.pressed if self.is_down else self.right_pressed
        if not self.is_on_canvas(widget):
            return
        self.mouse_dragged_event(at, flags)
        if widget and widget.resizing_from:
            start, size = widget.resizing_from
            widget.frame[2:] = [max(LEAST_SIDE, size[i] + at[i] - start[i]) for i in (0, 1)]

    def release(self, at, flags=()):
        if not self.is_down:
            return "do"
        widget, self.pressed, self.is_down = self.pressed, None, False
        if widget:
            widget.resizing_from, widget.in_live_resize = None, False
        if self.is_on_canvas(widget):
            self.mouse_up_event(at, flags)

    def rightPress(self, at, flags=()):
        self.is_right_down, self.right_pressed = True, self.view_at(at)
        self.right_mouse_down(at)

    def choose(self, title):
        action = dict(self.menu or []).get(title)
        if not action:
            return "title"
        self.perform(action)

    def key(self, characters, keyCode=0, flags=()):
        if self.first_responder == "other" or not self.edit_mode or not characters:
            return
        if characters[0] in DELETING:
            self.delete()
        elif characters[0] == "d" and "command" in flags:
            self.duplicate()
        else:
            step = STEP if "shift" in flags else 1
            axis, way = {123: (0, -step), 124: (0, step), 125: (1, step), 126: (1, -step)}.get(keyCode, (0, 0))
            for widget in self.selection:
                widget.frame[axis] += way

    def action(self, name):
        if self.first_responder != "other":
            self.perform(name)

    def command(self, name):
        self.perform(name)

    def state(self):
        panel = self.panel and {"visible": self.panel["visible"], "title": self.panel["title"],
                                "frame": self.panel["frame"], "target": self.panel_target()}
        return {"canvas": {"frame": self.frame, "editMode": self.edit_mode, "drawGridLines": self.grid, "step": STEP},
                "container": {"frame": self.container.frame, "selected": self.container.selected},
                "widgets": [each.state() for each in self.widgets],
                "selection": [each.id for each in self.selection],
                "undo": {"depth": len(self.undo_steps), "canUndo": bool(self.undo_steps), "canRedo": False},
                "fields": {"clickOffset": self.click_offset, "mouseDownPoint": self.mouse_down,
                           "currentDraggedPoint": self.dragged, "didDrag": self.did_drag,
                           "drawSelectionBox": self.draw_selection_box,
                           "lastMouseClickWasRight": self.last_was_right,
                           "selectedObjectFrames": len(self.snapshots)},
                "label": self.label and {**self.label, "frame": [0, 0, 200, 24]},
                "band": self.band and {**BAND, **self.band},
                "panel": panel, "firstResponder": self.first_responder}

    def panel_target(self):
        target = self.panel["target"]
        return "canvas" if target is self.container else target and target.id
