#include "toolbar/ZORDashboardListView.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

namespace {

constexpr double listInset = 6;
constexpr double rowHeight = 88;
constexpr double pictureInset = 9;
constexpr double pictureWidth = 118;
constexpr double titleGap = 12;

}  // namespace

const ClassRecord& ZORDashboardListView::staticClass() {
    using T = ZORDashboardListView;
    static const ClassRecord& record = ClassBuilder<T>("ZORDashboardListView", &TableView::staticClass())
                                           .creatable()
                                           .property("owner", &T::owner, &T::setOwner)
                                           .registered();
    return record;
}

Rect ZORDashboardListView::rectOfRow(std::int64_t row) const {
    return {listInset, listInset + rowHeight * static_cast<double>(row), frame().width - 2 * listInset, rowHeight};
}

void ZORDashboardListView::viewDidMoveToWindow() {
    TableView::viewDidMoveToWindow();
    if (!window()) stages_.clear();
}

const DashboardStage& ZORDashboardListView::stageOfRow(std::int64_t row) {
    const auto known = stages_.find(row);
    if (known != stages_.end()) return known->second;
    const auto plugIn = owner();
    return stages_
        .try_emplace(row, plugIn ? plugIn->dashboardForRow(static_cast<std::size_t>(row)) : nullptr,
                     [this, row] { setNeedsDisplayInRect(rectOfRow(row)); })
        .first->second;
}

void ZORDashboardListView::drawRow(DrawingContext& context, std::int64_t row, const Rect& place, Color color) {
    const Rect inside = insetRect(place, pictureInset, pictureInset);
    stageOfRow(row).draw(context, {inside.x, inside.y, pictureWidth, inside.height});
    const double left = inside.x + pictureWidth + titleGap;
    context.drawText(rows()[static_cast<std::size_t>(row)], {left, inside.y, inside.maxX() - left, inside.height},
                     Font{.size = 14}, color, TextAlignment::left, VerticalAlignment::center);
}

}  // namespace zor
