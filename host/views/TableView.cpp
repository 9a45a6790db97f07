#include <array>

#include "host/foundation/ClassBuilder.h"
#include "host/views/ControlColors.h"
#include "host/views/Controls.h"
#include "host/views/Window.h"

namespace zor {

namespace {

constexpr double rowHeight = 40;
constexpr double listInset = 6;
constexpr double rowRadius = 6;
constexpr double titleInset = 12;
constexpr double listRadius = 8;

}  // namespace

const ClassRecord& TableView::staticClass() {
    static const ClassRecord& record = ClassBuilder<TableView>("TableView", &View::staticClass())
                                           .property("rows", &TableView::rows, &TableView::setRows)
                                           .property("selectedRow", &TableView::selectedRow, &TableView::selectRow)
                                           .property("delegate", &TableView::delegate, &TableView::setDelegate)
                                           .registered();
    return record;
}

void TableView::setRows(std::vector<std::string> rows) {
    rows_ = std::move(rows);
    if (!hasRow(selectedRow_)) selectedRow_ = -1;
    changed();
}

void TableView::selectRow(std::int64_t row) {
    selectedRow_ = hasRow(row) ? row : -1;
    changed();
}

bool TableView::clickRow(std::int64_t row) {
    if (!hasRow(row)) return false;
    const auto self = sharedAs<TableView>();
    const auto asked = delegate();
    if (asked && asked->respondsTo("tableView:shouldSelectRow:")) {
        const std::array<Value, 2> arguments{Value(self), Value(row)};
        if (!asked->perform("tableView:shouldSelectRow:", arguments).asBool()) return false;
    }
    selectRow(row);
    return true;
}

bool TableView::hasRow(std::int64_t row) const {
    return row >= 0 && std::cmp_less(row, rows_.size());
}

void TableView::changed() {
    setNeedsDisplay(true);
    if (observer_) observer_();
    for (const auto& action : selectionActions_) action.perform(weak_from_this().lock());
}

Rect TableView::rectOfRow(std::int64_t row) const {
    return {listInset, listInset + rowHeight * static_cast<double>(row), frame().width - 2 * listInset, rowHeight};
}

void TableView::viewDidMoveToWindow() {
    Window* const shownIn = window();
    if (shownIn && shownIn->firstResponder() == shownIn) shownIn->makeFirstResponder(sharedAs<TableView>());
}

void TableView::mouseDown(const EventPtr& event) {
    const auto alive = sharedAs<TableView>();
    if (Window* const shownIn = window()) shownIn->makeFirstResponder(alive);
    const Point place = convertPointFromView(event->locationInWindow(), nullptr);
    for (std::int64_t row = 0; hasRow(row); ++row) {
        if (!pointInRect(place, rectOfRow(row))) continue;
        if (clickRow(row) && event->clickCount() == 2) doubleAction_.perform(alive);
        return;
    }
}

void TableView::keyDown(const EventPtr& event) {
    if (event->keyCode() == upArrowKeyCode) {
        clickRow(selectedRow_ - 1);
    } else if (event->keyCode() == downArrowKeyCode) {
        clickRow(selectedRow_ + 1);
    } else {
        View::keyDown(event);
    }
}

void TableView::drawRect(DrawingContext& context, const Rect&) {
    const auto& colors = ControlColors::current();
    const Path outline = Path::roundedRect(insetRect(bounds(), 0.5, 0.5), listRadius);
    context.fillPath(outline, colors.field);
    context.strokePath(outline, {.color = colors.edge});
    for (std::int64_t row = 0; hasRow(row); ++row) {
        const Rect place = rectOfRow(row);
        const bool selected = row == selectedRow_;
        if (selected) context.fillPath(Path::roundedRect(place, rowRadius), colors.accent);
        drawRow(context, row, place, selected ? colors.onAccent : colors.text);
    }
}

void TableView::drawRow(DrawingContext& context, std::int64_t row, const Rect& place, Color color) {
    context.drawText(rows_[static_cast<std::size_t>(row)], insetRect(place, titleInset, 0), Font{.size = 14}, color,
                     TextAlignment::left, VerticalAlignment::center);
}

}  // namespace zor
