#include <gmock/gmock.h>

#include "host/foundation/ClassBuilder.h"
#include "host/views/Controls.h"
#include "host/views/RecordingContext.h"
#include "host/views/TextLines.h"
#include "host/views/Window.h"
#include "tests/support/FakeToolkit.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

/// Notes what it is told, with the sender's class.
class Listener : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Listener>("TestListener", &Object::staticClass())
                                               .action("done:", &Listener::done)
                                               .action("cancel:", &Listener::cancel)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    void done(const ObjectPtr& sender) { told.push_back("done from " + sender->classRecord().name()); }
    void cancel(const ObjectPtr&) { told.emplace_back("cancel"); }
    std::vector<std::string> told;
};

class FormControls : public testing::Test {
protected:
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<View> content = std::make_shared<View>(Rect{0, 0, 400, 300});
    std::shared_ptr<Listener> listener = std::make_shared<Listener>();
    std::shared_ptr<TableView> list = std::make_shared<TableView>(Rect{10, 10, 200, 200});
    std::shared_ptr<Button> done = std::make_shared<Button>(Rect{300, 250, 80, 30});
    std::shared_ptr<Button> cancel = std::make_shared<Button>(Rect{200, 250, 80, 30});

    void SetUp() override {
        FakeToolkit::install();
        list->setRows({"a", "b", "c"});
        list->setDoubleAction({listener, "done:"});
        done->setAction({listener, "done:"});
        done->setKeyEquivalent(std::u16string(Button::returnKey));
        cancel->setAction({listener, "cancel:"});
        cancel->setKeyEquivalent(std::u16string(Button::escapeKey));
        window->setContentView(content);
        for (const std::shared_ptr<View>& each :
             {std::shared_ptr<View>(list), std::shared_ptr<View>(done), std::shared_ptr<View>(cancel)}) {
            content->addSubview(each);
        }
    }
    void mouse(EventType type, Point at, int clicks = 1) { window->sendEvent(Event::mouse(type, at, 0, clicks)); }
    void key(std::u16string characters, int code = 0) { window->sendEvent(Event::key(std::move(characters), code, 0)); }
};

TEST_F(FormControls, AButtonActsWhenItIsReleasedInside) {
    mouse(EventType::mouseDown, {310, 260});
    EXPECT_THAT(listener->told, IsEmpty());
    mouse(EventType::mouseDragged, {100, 100});
    mouse(EventType::mouseDragged, {379, 279});
    mouse(EventType::mouseUp, {379, 279});
    EXPECT_THAT(listener->told, ElementsAre("done from Button"));
}

TEST_F(FormControls, AButtonReleasedOutsideDoesNothing) {
    mouse(EventType::mouseDown, {310, 260});
    mouse(EventType::mouseUp, {380, 260});
    EXPECT_THAT(listener->told, IsEmpty());
}

TEST_F(FormControls, KeysThatNobodyTakesClickTheirButtons) {
    key(u"\r");
    key(u"\x1b");
    key(u"x");
    EXPECT_THAT(listener->told, ElementsAre("done from Button", "cancel"));
}

TEST_F(FormControls, AHiddenButtonHasNoKey) {
    done->setHidden(true);
    key(u"\r");
    EXPECT_THAT(listener->told, IsEmpty());
}

TEST_F(FormControls, AButtonWithoutATargetDoesNothing) {
    listener.reset();
    done->click();
    cancel->setAction({window, "unknown:"});
    cancel->click();
}

TEST_F(FormControls, AListTakesTheKeyboardWhereNobodyHasIt) {
    EXPECT_EQ(window->firstResponder(), list.get());
    list->removeFromSuperview();
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(FormControls, ArrowsMoveTheSelectionAndStopAtTheEnds) {
    list->selectRow(0);
    key(u"\uF700", upArrowKeyCode);
    EXPECT_EQ(list->selectedRow(), 0);
    for (int count = 0; count < 5; ++count) key(u"\uF701", downArrowKeyCode);
    EXPECT_EQ(list->selectedRow(), 2);
    key(u"\uF700", upArrowKeyCode);
    EXPECT_EQ(list->selectedRow(), 1);
}

TEST_F(FormControls, TabGoesThroughTheControlsAndRound) {
    for (const View* expected : std::initializer_list<const View*>{done.get(), cancel.get(), list.get(), done.get()}) {
        key(u"\t");
        EXPECT_EQ(window->firstResponder(), expected);
    }
    key(u"\x19");
    EXPECT_EQ(window->firstResponder(), list.get());
    key(u"\x19");
    EXPECT_EQ(window->firstResponder(), cancel.get());
}

TEST_F(FormControls, TabPassesWhatIsHiddenAndBeginsWhereNobodyHasTheKeyboard) {
    done->setHidden(true);
    window->makeFirstResponder({});
    key(u"\t");
    EXPECT_EQ(window->firstResponder(), list.get());
    window->makeFirstResponder({});
    key(u"\x19");
    EXPECT_EQ(window->firstResponder(), cancel.get());
    key(u"\x19");
    EXPECT_EQ(window->firstResponder(), list.get());
}

TEST_F(FormControls, SpaceClicksTheButtonThatHasTheKeyboardAndReturnTheDefaultOne) {
    key(u"\x19");
    ASSERT_EQ(window->firstResponder(), cancel.get());
    key(u" ");
    EXPECT_THAT(listener->told, ElementsAre("cancel"));
    key(u"\r");
    EXPECT_THAT(listener->told, ElementsAre("cancel", "done from Button"));
}

TEST_F(FormControls, AButtonShowsThatItHasTheKeyboard) {
    const auto strokes = [&] {
        RecordingContext context;
        cancel->drawRect(context, cancel->bounds());
        return context.operationsNamed("strokePath").size();
    };
    EXPECT_EQ(strokes(), 1u);
    key(u"\x19");
    EXPECT_EQ(strokes(), 2u);
}

TEST_F(FormControls, APressOnAListTakesTheKeyboardBack) {
    key(u"\t");
    const Rect row = list->rectOfRow(1);
    mouse(EventType::mouseDown, {list->frame().x + row.center().x, list->frame().y + row.center().y});
    EXPECT_EQ(window->firstResponder(), list.get());
}

TEST_F(FormControls, APressSelectsItsRowAndTheSecondClickActs) {
    const Rect row = list->rectOfRow(1);
    const Point at{list->frame().x + row.center().x, list->frame().y + row.center().y};
    mouse(EventType::mouseDown, at);
    EXPECT_EQ(list->selectedRow(), 1);
    EXPECT_THAT(listener->told, IsEmpty());
    mouse(EventType::mouseDown, at, 2);
    EXPECT_THAT(listener->told, ElementsAre("done from TableView"));
    mouse(EventType::mouseDown, {at.x, list->frame().maxY() - 1}, 2);
    EXPECT_EQ(list->selectedRow(), 1);
    EXPECT_EQ(listener->told.size(), 1u);
}

TEST_F(FormControls, SelectionActionsAreToldOfEverySelection) {
    list->addSelectionAction({listener, "done:"});
    list->selectRow(1);
    list->clickRow(2);
    EXPECT_EQ(listener->told.size(), 2u);
}

TEST_F(FormControls, ATextThatWrapsIsBrokenToTheWidth) {
    // The fake toolkit's characters are half the font's size wide: six points at twelve.
    const Font font{.size = 12};
    EXPECT_EQ(textBrokenToWidth("one two three", font, 42), "one two\nthree");
    EXPECT_EQ(textBrokenToWidth("one two three", font, 41), "one\ntwo\nthree");
    EXPECT_EQ(textBrokenToWidth("extraordinary", font, 12), "extraordinary");
    EXPECT_EQ(textBrokenToWidth("a\n\nb\n", font, 60), "a\n\nb\n");
    EXPECT_EQ(textBrokenToWidth("  \u2022 one two", font, 48), "  \u2022 one\n    two");
    EXPECT_EQ(textBrokenToWidth("", font, 48), "");

    TextField field({0, 0, 50, 100});
    field.setFont(font);
    field.setWraps(true);
    field.setStringValue("one two three");
    RecordingContext context;
    field.drawRect(context, field.bounds());
    EXPECT_EQ(context.operationsNamed("drawText").at(0).text, "one two\nthree");
}

TEST_F(FormControls, ClosingAWindowIsToldAfterwardsAndOnce) {
    bool wasVisible = true;
    int count = 0;
    window->show();
    window->setCloseObserver([&] {
        wasVisible = window->isVisible();
        ++count;
    });
    window->close();
    window->close();
    EXPECT_FALSE(wasVisible);
    EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace zor
