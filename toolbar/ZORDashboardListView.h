#pragma once

#include <map>

#include "toolbar/DashboardStage.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

/// The list of the catalogue: each row with its title and a small live picture of the dashboard that it stands for, as
/// it would look in this Site Document. Form files name it; it is told its owner by the loader.
class ZORDashboardListView : public TableView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    std::shared_ptr<ZORDashboardToolbarPlugIn> owner() const { return owner_.lock(); }
    void setOwner(const std::shared_ptr<ZORDashboardToolbarPlugIn>& owner) { owner_ = owner; }
    Rect rectOfRow(std::int64_t row) const override;
    /// The dashboards go when the page leaves its window.
    void viewDidMoveToWindow() override;

protected:
    /// A dashboard is made when its row is first drawn.
    void drawRow(DrawingContext& context, std::int64_t row, const Rect& place, Color color) override;

private:
    const DashboardStage& stageOfRow(std::int64_t row);

    std::weak_ptr<ZORDashboardToolbarPlugIn> owner_;
    std::map<std::int64_t, DashboardStage> stages_;
};

}  // namespace zor
