#include "host/views/Controls.h"

#include <array>

#include "host/foundation/ClassBuilder.h"
#include "host/views/DrawingContext.h"

namespace zor {

const ClassRecord& TextField::staticClass() {
    static const ClassRecord& record = ClassBuilder<TextField>("TextField", &View::staticClass())
                                           .property("stringValue", &TextField::stringValue, &TextField::setStringValue)
                                           .registered();
    return record;
}

void TextField::setStringValue(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    setNeedsDisplay(true);
}

void TextField::drawRect(DrawingContext& context, const Rect&) {
    context.fillRect(bounds(), Color::white());
    context.drawText(text_, insetRect(bounds(), 4, 0), Font{.size = 13}, Color::black(), TextAlignment::left,
                     VerticalAlignment::center);
}

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
}

}  // namespace zor
