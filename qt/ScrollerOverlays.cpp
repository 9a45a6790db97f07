#include "qt/ScrollerOverlays.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <cmath>

#include "host/instruments/ZORImageView.h"
#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr int arrowStep = 20;

bool isCanvas(const View& view) {
    const auto* image = dynamic_cast<const ZORImageView*>(&view);
    return image && image->isCanvas();
}

/// The widgets of a canvas, which may be thousands, hold no scroll views.
void collect(View& view, std::vector<std::shared_ptr<ScrollView>>& found) {
    if (view.isHidden() || isCanvas(view)) return;
    if (auto scrollView = std::dynamic_pointer_cast<ScrollView>(view.shared_from_this())) {
        found.push_back(std::move(scrollView));
    }
    for (const auto& child : view.subviews()) collect(*child, found);
}

}  // namespace

class ScrollerOverlays::Pair {
public:
    Pair(QWidget& parent, const std::shared_ptr<ScrollView>& view)
        : view_(view),
          horizontal_(std::make_unique<QScrollBar>(Qt::Horizontal, &parent)),
          vertical_(std::make_unique<QScrollBar>(Qt::Vertical, &parent)) {
        for (QScrollBar* bar : {horizontal_.get(), vertical_.get()}) {
            bar->setSingleStep(arrowStep);
            bar->setCursor(Qt::ArrowCursor);
            bar->hide();
        }
        QObject::connect(horizontal_.get(), &QScrollBar::valueChanged, horizontal_.get(), [this](int value) {
            scroll([value](Point offset) { return Point{static_cast<double>(value), offset.y}; });
        });
        QObject::connect(vertical_.get(), &QScrollBar::valueChanged, vertical_.get(), [this](int value) {
            scroll([value](Point offset) { return Point{offset.x, static_cast<double>(value)}; });
        });
        view->setObserver([this] { arrange(); });
        arrange();
    }

    ~Pair() {
        const auto view = view_.lock();
        if (!view) return;
        view->setObserver({});
        view->setScrollerRoom({});
    }

    Pair(const Pair&) = delete;
    Pair& operator=(const Pair&) = delete;

    std::shared_ptr<ScrollView> view() const { return view_.lock(); }

    void arrange() {
        const auto view = view_.lock();
        // Making room changes the viewport, which tells the observer again.
        if (!view || arranging_) return;
        arranging_ = true;
        makeRoom(*view);
        place(*view);
        arranging_ = false;
    }

private:
    template <typename Change>
    void scroll(Change change) {
        if (const auto view = view_.lock()) view->setContentOffset(change(view->contentOffset()));
    }

    void makeRoom(ScrollView& view) {
        const auto document = view.documentView();
        const Size size = document ? document->frame().size() : Size{};
        const double extent = vertical_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, vertical_.get());
        const double width = view.viewport().width + room_.width, height = view.viewport().height + room_.height;
        bool across = size.width > width;
        const bool down = size.height > height - (across ? extent : 0);
        across = across || (down && size.width > width - extent);
        room_ = {down ? extent : 0, across ? extent : 0};
        view.setScrollerRoom(room_);
    }

    void place(ScrollView& view) {
        const Rect port = view.convertRectToView(view.viewport(), nullptr);
        const Point largest = view.largestOffset(), offset = view.contentOffset();
        set(*horizontal_, {port.x, port.maxY(), port.width, room_.height}, port.width, largest.x, offset.x);
        set(*vertical_, {port.maxX(), port.y, room_.width, port.height}, port.height, largest.y, offset.y);
    }

    static void set(QScrollBar& bar, const Rect& frame, double page, double largest, double value) {
        const QSignalBlocker quiet(bar);
        bar.setRange(0, static_cast<int>(std::ceil(largest)));
        bar.setPageStep(static_cast<int>(page));
        bar.setValue(static_cast<int>(std::lround(value)));
        bar.setGeometry(zor::toQt(frame).toAlignedRect());
        bar.setVisible(!frame.isEmpty());
    }

    std::weak_ptr<ScrollView> view_;
    std::unique_ptr<QScrollBar> horizontal_;
    std::unique_ptr<QScrollBar> vertical_;
    Size room_;
    bool arranging_ = false;
};

ScrollerOverlays::ScrollerOverlays(QWidget& parent) : parent_(parent) {}

ScrollerOverlays::~ScrollerOverlays() = default;

void ScrollerOverlays::follow(View* root) {
    std::vector<std::shared_ptr<ScrollView>> found;
    if (root) collect(*root, found);
    std::erase_if(pairs_, [&](const auto& pair) { return std::ranges::find(found, pair->view()) == found.end(); });
    for (const auto& view : found) {
        const auto known = std::ranges::find(pairs_, view, [](const auto& pair) { return pair->view(); });
        if (known == pairs_.end()) {
            pairs_.push_back(std::make_unique<Pair>(parent_, view));
        } else {
            (*known)->arrange();
        }
    }
}

}  // namespace zor
