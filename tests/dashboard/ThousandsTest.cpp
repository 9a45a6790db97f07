// Commands on thousands of widgets do what they do with three.

#include <rapidcheck.h>

#include <algorithm>

#include "tests/dashboard/HostedDashboard.h"

namespace zor {
namespace {

using test::framesOf;
using test::widgetsOn;
using ::testing::IsEmpty;

class Thousands : public test::HostedDashboard {
protected:
    Thousands() {
        for (int index = 0; index < 3000; ++index) {
            widgets.push_back(test::box({index % 60 * 10.0, index / 60 * 10.0, 12, 12}));
        }
        hostForEditing(widgets);
    }

    /// Every third one, from the top down.
    WidgetList someFromTheTop() const {
        WidgetList some;
        for (std::size_t index = widgets.size(); index-- > 0;) {
            if (index % 3 == 0) some.push_back(widgets[index]);
        }
        return some;
    }
    WidgetList without(const WidgetList& some) const {
        WidgetList rest;
        std::ranges::copy_if(widgets, std::back_inserter(rest),
                             [&](const auto& widget) { return std::ranges::count(some, widget) == 0; });
        return rest;
    }

    WidgetList widgets;
};

TEST_F(Thousands, AreDeletedInTheSelectionsOrderAndComeBackInIt) {
    const auto some = someFromTheTop();
    for (const auto& widget : some) dashboard->selectObject(widget);
    dashboard->deleteObject({});
    EXPECT_EQ(widgetsOn(canvas), without(some));
    EXPECT_THAT(selection(), IsEmpty());
    EXPECT_EQ(undoSteps(), 1);
    EXPECT_EQ(window->firstResponder(), canvas.get());
    for (const auto& widget : some) ASSERT_TRUE(!widget->superview() && !widget->selected());

    dashboard->undo({});
    auto expected = without(some);
    expected.insert(expected.end(), some.begin(), some.end());
    EXPECT_EQ(widgetsOn(canvas), expected);
    EXPECT_EQ(test::zOrdersOn(canvas).front(), 1);
    EXPECT_EQ(test::zOrdersOn(canvas).back(), 3000);
    EXPECT_EQ(dashboard->objectUnderPoint({5, 5}), widgets[0]);
}

TEST_F(Thousands, ThatWerePastedGoWithOneUndo) {
    dashboard->selectAllObjects();
    dashboard->copySelection({});
    dashboard->paste({});
    EXPECT_EQ(widgetsOn(canvas).size(), 6000u);
    const auto pasted = selection();
    EXPECT_EQ(framesOf(pasted).front(), (Rect{10, -10, 12, 12}));
    dashboard->undo({});
    EXPECT_EQ(widgetsOn(canvas), widgets);
    // They stay in the selection, which no undo changes.
    EXPECT_EQ(selection(), pasted);
}

TEST_F(Thousands, AreHitWhereTheyAreWhateverHappened) {
    const bool held = rc::check("after every command", [this] {
        using rc::gen::inRange;
        const Point point{*inRange(-20, 700) * 1.0, *inRange(-20, 620) * 1.0};
        dashboard->unselectAllObjects();
        const auto all = widgetsOn(canvas);
        for (int count = *inRange(0, 5); count > 0; --count) {
            dashboard->selectObject(all[*inRange<std::size_t>(0, all.size())]);
        }
        const char* const commands[] = {"deleteObject:",  "undo:",         "bringToFront:",    "sendToBack:",
                                        "alignTopEdges:", "addTextLabel:", "duplicateObject:", "paste:"};
        dashboard->performWithSender(commands[*inRange(0, 8)], {});
        if (*inRange(0, 2) == 0) all.front()->setFrame({point.x - 1, point.y - 1, 30, 30});

        std::shared_ptr<ZORWidgetHostView> topmost;
        for (const auto& widget : widgetsOn(canvas)) {
            if (pointInRect(point, widget->frame())) topmost = widget;
        }
        RC_ASSERT(dashboard->objectUnderPoint(point) == topmost);
    });
    EXPECT_TRUE(held);
}

}  // namespace
}  // namespace zor
