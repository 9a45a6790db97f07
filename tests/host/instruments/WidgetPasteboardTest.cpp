#include "host/instruments/ZORTextFieldView.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor {
namespace {

class WidgetPasteboard : public ::testing::Test {
protected:
    void SetUp() override {
        FakeToolkit::install();
        registerInstrumentClasses();
    }
    void put(const Value& root) {
        const auto data = KeyedArchiver::archivedDataWithRootObject(root);
        ASSERT_TRUE(data);
        pasteboard.setDataForType(*data, widgetPasteType);
    }
    std::optional<std::vector<std::shared_ptr<ZORWidgetHostView>>> read() const {
        return ZORWidgetHostView::readFromPasteboard(pasteboard);
    }
    FakePasteboard pasteboard;
};

TEST_F(WidgetPasteboard, GivesTheWidgetsInOrderEachTimeAnew) {
    const auto field = ZORWidgetHostView::textFieldWithRect({0, 0, 100, 30});
    put(Value::Array{field, ZORWidgetHostView::ledWithRect({50, 60, 40, 40})});
    EXPECT_TRUE(ZORWidgetHostView::canReadFromPasteboard(pasteboard));
    const auto first = read();
    const auto second = read();
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    ASSERT_EQ(first->size(), 2u);
    EXPECT_EQ(first->at(0)->kind(), "textField");
    EXPECT_EQ(first->at(0)->frame(), (Rect{0, 0, 100, 30}));
    EXPECT_EQ(first->at(1)->kind(), "led");
    EXPECT_EQ(first->at(1)->frame(), (Rect{50, 60, 40, 40}));
    EXPECT_NE(first->at(0), second->at(0));
    EXPECT_NE(first->at(0)->hash(), second->at(0)->hash());
    EXPECT_NE(first->at(0), field);
}

TEST_F(WidgetPasteboard, AnEmptySelectionIsACollectionWithoutWidgets) {
    put(Value::Array{});
    EXPECT_TRUE(ZORWidgetHostView::canReadFromPasteboard(pasteboard));
    ASSERT_TRUE(read());
    EXPECT_TRUE(read()->empty());
}

TEST_F(WidgetPasteboard, OtherEntriesArePassedOver) {
    put(Value::Array{"text", ZORWidgetHostView::boxWithRect({1, 2, 3, 4}), 5, Image::plain({1, 1})});
    ASSERT_TRUE(read());
    ASSERT_EQ(read()->size(), 1u);
    EXPECT_EQ(read()->at(0)->kind(), "box");
}

TEST_F(WidgetPasteboard, WithoutTheTypeThereIsNothing) {
    EXPECT_FALSE(ZORWidgetHostView::canReadFromPasteboard(pasteboard));
    EXPECT_FALSE(read());
    pasteboard.setDataForType({'h', 'i'}, "text/plain");
    EXPECT_FALSE(ZORWidgetHostView::canReadFromPasteboard(pasteboard));
    EXPECT_FALSE(read());
}

TEST_F(WidgetPasteboard, DataThatIsNoCollectionGivesNone) {
    for (const Bytes& data : {Bytes{}, Bytes{'n', 'o'}, Bytes(1000, 0xff)}) {
        pasteboard.setDataForType(data, widgetPasteType);
        EXPECT_FALSE(read());
    }
    put("text");
    EXPECT_FALSE(read());
    put(Value(ZORWidgetHostView::boxWithRect({})));
    EXPECT_FALSE(read());
}

}  // namespace
}  // namespace zor
