#pragma once

#include <optional>

#include "toolbar/DashboardStage.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

namespace zor {

/// The selected entry of the catalogue as it would look in this Site Document, drawn to fit and kept up to date. Form
/// files name it; it is told its owner by the loader and its row by the list.
class ZORDashboardPreviewView : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    std::shared_ptr<ZORDashboardToolbarPlugIn> owner() const { return owner_.lock(); }
    void setOwner(const std::shared_ptr<ZORDashboardToolbarPlugIn>& owner) { owner_ = owner; }
    /// Whether the title that the dashboard will get stands above the picture.
    bool captioned() const { return captioned_; }
    void setCaptioned(bool captioned) { captioned_ = captioned; }
    /// A dashboard of that row is made when it is first drawn.
    void takeRowFrom(const std::shared_ptr<TableView>& list);
    /// The dashboard goes when the page leaves its window.
    void viewDidMoveToWindow() override;
    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    void drawCaption(DrawingContext& context, const Rect& area) const;

    std::weak_ptr<ZORDashboardToolbarPlugIn> owner_;
    std::int64_t row_ = -1;
    bool captioned_ = false;
    std::optional<DashboardStage> stage_;
};

}  // namespace zor
