// Children in great number: found as a plain search finds them, and leaving in order.

#include <gmock/gmock.h>
#include <rapidcheck.h>

#include <algorithm>

#include "host/views/Window.h"
#include "tests/host/views/ProbeView.h"

using testing::ElementsAre;

namespace zor {
namespace {

/// Says that it keeps within its frame.
class Tile : public View {
public:
    using View::View;
    bool keepsWithinFrame() const override { return true; }
};

/// Is hit up to 20 points around its frame, whatever the class View does.
class Halo : public View {
public:
    using View::View;
    View* hitTest(Point point) override {
        return !isHidden() && pointInRect(point, insetRect(frame(), -20, -20)) ? this : nullptr;
    }
};

View* plainHit(View& parent, Point point) {
    if (!pointInRect(point, parent.frame())) return nullptr;
    for (auto child = parent.subviews().rbegin(); child != parent.subviews().rend(); ++child) {
        if (View* hit = (*child)->hitTest({point.x - parent.frame().x, point.y - parent.frame().y})) return hit;
    }
    return &parent;
}

std::shared_ptr<View> plainTopmost(const View& parent, Point point) {
    for (auto child = parent.subviews().rbegin(); child != parent.subviews().rend(); ++child) {
        if (pointInRect(point, (*child)->frame())) return *child;
    }
    return {};
}

rc::Gen<Rect> anyFrame() {
    using rc::gen::inRange;
    return rc::gen::apply(
        [](int x, int y, int width, int height) {
            return Rect{x * 5.0, y * 5.0, width * 5.0, height * 5.0};
        },
        inRange(-4, 40), inRange(-4, 40), inRange(-1, 8), inRange(-1, 8));
}

std::shared_ptr<View> viewOfKind(int kind, const Rect& frame) {
    switch (kind) {
        case 0:
            return std::make_shared<View>(frame);
        case 1:
            return std::make_shared<Halo>(frame);
        default:
            return std::make_shared<Tile>(frame);
    }
}

/// A parent and, beside it, the list of children that a plain list would have.
struct Model {
    std::shared_ptr<View> parent = std::make_shared<View>(Rect{10, 20, 200, 200});
    std::vector<std::shared_ptr<View>> children;

    void change() {
        using rc::gen::inRange;
        const auto what = *inRange(0, 12);
        const auto chosen = children.empty() ? 0 : *inRange<std::size_t>(0, children.size());
        const auto place = children.begin() + static_cast<std::ptrdiff_t>(chosen);
        if (what < 4 || children.empty()) {
            children.push_back(viewOfKind(*inRange(0, 5), *anyFrame()));
            parent->addSubview(children.back());
        } else if (what < 6) {
            (*place)->removeFromSuperview();
            children.erase(place);
        } else if (what < 9) {
            (*place)->setFrame(*anyFrame());
        } else if (what == 9) {
            (*place)->setHidden(!(*place)->isHidden());
        } else if (what == 10) {
            parent->addSubview(*place);
            std::rotate(place, place + 1, children.end());
        } else if (*inRange(0, 2) == 0) {
            const auto replacement = viewOfKind(*inRange(0, 5), *anyFrame());
            parent->replaceSubview(*place, replacement);
            *place = replacement;
        } else {
            const auto byWidth = [](const View& a, const View& b) {
                return a.frame().width < b.frame().width ? -1 : a.frame().width > b.frame().width ? 1 : 0;
            };
            parent->sortSubviews(byWidth);
            std::ranges::stable_sort(children, [&](const auto& a, const auto& b) { return byWidth(*a, *b) < 0; });
        }
    }
};

TEST(ViewChildren, AreFoundAsAPlainSearchFindsThemWhateverHappened) {
    const bool held = rc::check("after every change", [] {
        Model model;
        // Few and many.
        const int before = *rc::gen::element(0, 30, 80);
        for (int index = 0; index < before; ++index) {
            model.children.push_back(viewOfKind(index % 4, *anyFrame()));
            model.parent->addSubview(model.children.back());
        }
        const int changes = *rc::gen::inRange(0, 60);
        for (int index = 0; index < changes; ++index) {
            model.change();
            // Not after each, so that several leave before anybody looks.
            if (*rc::gen::inRange(0, 3) > 0) continue;
            const Point point{*rc::gen::inRange(-20, 240) * 1.0, *rc::gen::inRange(-20, 240) * 1.0};
            RC_ASSERT(model.parent->hitTest(point) == plainHit(*model.parent, point));
            RC_ASSERT(model.parent->topmostChildAt(point) == plainTopmost(*model.parent, point));
        }
        RC_ASSERT(model.parent->subviews() == model.children);
    });
    EXPECT_TRUE(held);
}

TEST(ViewChildren, WhoIsToldOfALeavingSeesTheRest) {
    /// Notes, when it leaves, how many are left.
    class Leaving : public View {
    public:
        explicit Leaving(std::shared_ptr<View> from, std::vector<std::size_t>& left)
            : from_(std::move(from)), left_(left) {}
        void viewDidMoveToSuperview() override {
            if (!superview()) left_.push_back(from_->subviews().size());
        }

    private:
        std::shared_ptr<View> from_;
        std::vector<std::size_t>& left_;
    };
    std::vector<std::size_t> left;
    const auto parent = std::make_shared<View>(Rect{0, 0, 100, 100});
    std::vector<std::shared_ptr<View>> children;
    for (int index = 0; index < 4; ++index) {
        children.push_back(std::make_shared<Leaving>(parent, left));
        parent->addSubview(children.back());
    }
    for (const auto place : {2, 0, 3, 1}) children[static_cast<std::size_t>(place)]->removeFromSuperview();
    EXPECT_THAT(left, ElementsAre(3, 2, 1, 0));
}

TEST(ViewChildren, LeaveOneAfterTheOtherInTheOrderInWhichTheyAreTaken) {
    ProbeView::Notes notes;
    const auto parent = makeProbe("parent", {0, 0, 100, 100}, notes);
    const auto a = makeProbe("a", {0, 0, 10, 10}, notes);
    const auto b = makeProbe("b", {0, 0, 10, 10}, notes);
    const auto c = makeProbe("c", {0, 0, 10, 10}, notes);
    const auto window = std::make_shared<Window>();
    window->setContentView(parent);
    for (const auto& child : {a, b, c}) parent->addSubview(child);
    notes.clear();
    b->removeFromSuperview();
    a->removeFromSuperview();
    EXPECT_THAT(notes, ElementsAre("b has no parent", "b leaves window", "a has no parent", "a leaves window"));
    parent->addSubview(b);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b));
}

TEST(ViewChildren, TensOfThousandsLeaveInAnyOrder) {
    const auto parent = std::make_shared<View>(Rect{0, 0, 100, 100});
    std::vector<std::shared_ptr<View>> children;
    for (int index = 0; index < 50'000; ++index) {
        children.push_back(std::make_shared<Tile>(Rect{0, 0, 10, 10}));
        parent->addSubview(children.back());
    }
    // Every second from the bottom up, then the rest from the top down.
    for (std::size_t index = 0; index < children.size(); index += 2) children[index]->removeFromSuperview();
    ASSERT_EQ(parent->subviews().size(), 25'000u);
    EXPECT_EQ(parent->hitTest({5, 5}), children.back().get());
    for (std::size_t index = children.size() - 1; index > 1; index -= 2) children[index]->removeFromSuperview();
    EXPECT_THAT(parent->subviews(), ElementsAre(children[1]));
    EXPECT_EQ(parent->hitTest({5, 5}), children[1].get());
    children[1]->removeFromSuperview();
    EXPECT_EQ(parent->hitTest({5, 5}), parent.get());
}

TEST(ViewChildren, AParentThatDiesLetsAllOfThemGo) {
    auto parent = std::make_shared<View>(Rect{0, 0, 100, 100});
    const auto a = std::make_shared<View>();
    const auto b = std::make_shared<View>();
    parent->addSubview(a);
    parent->addSubview(b);
    a->removeFromSuperview();
    parent.reset();
    EXPECT_EQ(a->superview(), nullptr);
    EXPECT_EQ(b->superview(), nullptr);
}

}  // namespace
}  // namespace zor
