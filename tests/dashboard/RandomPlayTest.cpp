// Random gestures and commands, after each of which the editor must still be in order.

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "tests/dashboard/HostedDashboard.h"

namespace zor::test {
namespace {

struct Move {
    enum Kind { gesture, doubleClicked, rightClicked, keyed, commanded, undone } kind;
    std::vector<Point> points;
    std::uint32_t flags;
    int choice;
};

std::ostream& operator<<(std::ostream& stream, const Move& move) {
    stream << "{" << move.kind << " flags " << move.flags << " choice " << move.choice;
    for (const auto& point : move.points) stream << " " << stringFromPoint(point);
    return stream << "}";
}

rc::Gen<Point> anyPoint() {
    // Beyond the canvas too: drags end anywhere.
    return rc::gen::apply(
        [](int x, int y) {
            return Point{x / 4.0, y / 4.0};
        },
        rc::gen::inRange(0, 2600), rc::gen::inRange(0, 2200));
}

rc::Gen<Move> anyMove() {
    using rc::gen::inRange;
    return rc::gen::apply(
        [](int kind, std::vector<Point> points, bool shift, bool command, int choice) {
            // Gestures are what a person does most.
            static constexpr std::array kinds{Move::gesture,      Move::gesture, Move::gesture,   Move::doubleClicked,
                                              Move::rightClicked, Move::keyed,   Move::commanded, Move::undone};
            return Move{kinds[static_cast<std::size_t>(kind)], std::move(points),
                        (shift ? shiftKeyMask : 0) | (command ? commandKeyMask : 0), choice};
        },
        inRange(0, 8), rc::gen::resize(4, rc::gen::nonEmpty(rc::gen::container<std::vector<Point>>(anyPoint()))),
        rc::gen::arbitrary<bool>(), rc::gen::arbitrary<bool>(), inRange(0, 1000));
}

constexpr std::array commands{"alignTopEdges:", "alignLeftEdges:", "alignBottomEdges:", "alignRightEdges:",
                              "bringToFront:",  "sendToBack:",     "duplicateObject:",  "deleteObject:",
                              "copy:",          "paste:",          "selectAll:",        "addTextLabel:",
                              "addPlot:",       "addRoundGauge:",  "addLED:",           "redo:",
                              "exitEditMode:",  "editDashboard:"};

struct KeyStroke {
    const char16_t* characters;
    int code;
};
constexpr std::array<KeyStroke, 8> keys{{{u"\uF702", leftArrowKeyCode},
                                         {u"\uF703", rightArrowKeyCode},
                                         {u"\uF701", downArrowKeyCode},
                                         {u"\uF700", upArrowKeyCode},
                                         {u"d", 2},
                                         {u"\x7F", 51},
                                         {u"\uF728", 117},
                                         {u"a", 0}}};

class Player : public HostedDashboard {
public:
    Player() {
        WidgetList widgets;
        for (int index = 0; index < 6; ++index) {
            widgets.push_back(box({40.0 + 90 * index, 60.0 + 70 * (index % 3), 120, 90}));
        }
        hostForEditing(std::move(widgets));
    }

    void play(const Move& move) {
        const auto before = undoSteps();
        switch (move.kind) {
            case Move::gesture:
                playGesture(move);
                break;
            case Move::doubleClicked:
                doubleClick(move.points.front());
                break;
            case Move::rightClicked:
                playMenu(move);
                break;
            case Move::keyed:
                playKey(move);
                break;
            case Move::commanded:
                dashboard->performWithSender(commands[index(move, commands.size())], {});
                break;
            case Move::undone:
                playUndo();
                return;
        }
        while (static_cast<std::int64_t>(history_.size()) < undoSteps()) history_.emplace_back();
        // A drag's step carries the frames from before it.
        if (move.kind == Move::gesture && undoSteps() > before) history_.back() = snapshots_;
    }

    void requireOrder() const {
        std::set<const View*> listed;
        for (const auto& widget : selection()) {
            RC_ASSERT(widget->selected());
            RC_ASSERT(listed.insert(widget.get()).second);
        }
        std::int64_t last = std::numeric_limits<std::int64_t>::min();
        for (auto& widget : canvas->widgets()) {
            RC_ASSERT(widget.selected() == listed.contains(&widget));
            RC_ASSERT(widget.zOrder() >= last);
            last = widget.zOrder();
        }
        RC_ASSERT(!dashboard->undoManager()->canRedo());
    }

    std::weak_ptr<Object> watched() const { return dashboard; }

private:
    void TestBody() override {}

    static std::size_t index(const Move& move, std::size_t count) {
        return static_cast<std::size_t>(move.choice) % count;
    }

    void playGesture(const Move& move) {
        press(move.points.front(), move.flags & shiftKeyMask);
        for (std::size_t next = 1; next < move.points.size(); ++next) {
            drag(move.points[next], move.flags & shiftKeyMask);
        }
        snapshots_ = dashboard->selectedObjectFrames();
        release(move.points.back(), move.flags & shiftKeyMask);
    }

    void playMenu(const Move& move) {
        rightPress(move.points.front());
        const auto shown = menu();
        const auto& items = shown->items();
        const auto chosen = index(move, items.size());
        // A sheet for exporting is not this test's business.
        if (!items[chosen].isSeparator && items[chosen].action != "exportDashboard:") shown->performItemAtIndex(chosen);
    }

    void playKey(const Move& move) {
        const auto& stroke = keys[index(move, keys.size())];
        key(stroke.characters, stroke.code, move.flags);
    }

    void playUndo() {
        if (!canvas->editMode() || history_.empty()) {
            dashboard->undo({});
            return;
        }
        const auto expected = history_.back();
        history_.pop_back();
        dashboard->undo({});
        for (const auto& entry : expected) {
            for (auto& widget : canvas->widgets()) {
                if (widget.hash() != entry["objectHash"].asInteger()) continue;
                RC_ASSERT(stringFromRect(widget.frame()) == entry["frame"].asString());
            }
        }
        // What an undone insertion takes off the canvas stays in the selection, as it does for a person.
        for (const auto& widget : selection()) {
            if (!widget->superview()) dashboard->unselectObject(std::shared_ptr(widget));
        }
    }

    std::vector<std::vector<Value>> history_;
    std::vector<Value> snapshots_;
};

TEST(RandomPlay, LeavesTheEditorInOrder) {
    const bool held = rc::check("after every gesture and command", [] {
        const auto moves = *rc::gen::resize(60, rc::gen::container<std::vector<Move>>(anyMove()));
        std::weak_ptr<Object> dashboard;
        {
            Player player;
            dashboard = player.watched();
            for (const auto& move : moves) {
                player.play(move);
                player.requireOrder();
            }
        }
        RC_ASSERT(dashboard.expired());
    });
    EXPECT_TRUE(held);
}

}  // namespace
}  // namespace zor::test
