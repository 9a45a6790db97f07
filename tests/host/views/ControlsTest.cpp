#include <gmock/gmock.h>

#include "host/foundation/ClassBuilder.h"
#include "host/views/Controls.h"
#include "host/views/RecordingContext.h"

using testing::ElementsAre;

namespace zor {
namespace {

/// Allows even rows only.
class Chooser : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Chooser>("TestChooser", &Object::staticClass())
                                               .action("tableView:shouldSelectRow:", &Chooser::tableViewShouldSelectRow)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    bool tableViewShouldSelectRow(const std::shared_ptr<TableView>& table, std::int64_t row) {
        asked.push_back(table->rows()[static_cast<std::size_t>(row)]);
        return row % 2 == 0;
    }
    std::vector<std::string> asked;
};

class TableViewTest : public testing::Test {
protected:
    std::shared_ptr<TableView> table = std::make_shared<TableView>();
    std::shared_ptr<Chooser> chooser = std::make_shared<Chooser>();
    int told = 0;

    void SetUp() override {
        table->setRows({"a", "b", "c"});
        table->setDelegate(chooser);
        table->setObserver([this] { ++told; });
    }
};

TEST_F(TableViewTest, StartsWithoutASelection) {
    EXPECT_EQ(table->selectedRow(), -1);
}

TEST_F(TableViewTest, AClickAsksTheDelegate) {
    EXPECT_TRUE(table->clickRow(2));
    EXPECT_EQ(table->selectedRow(), 2);
    EXPECT_FALSE(table->clickRow(1));
    EXPECT_FALSE(table->clickRow(3));
    EXPECT_FALSE(table->clickRow(-1));
    EXPECT_EQ(table->selectedRow(), 2);
    EXPECT_THAT(chooser->asked, ElementsAre("c", "b"));
    EXPECT_EQ(told, 1);
}

TEST_F(TableViewTest, WithoutADelegateEveryRowMayBeSelected) {
    chooser.reset();
    EXPECT_TRUE(table->clickRow(1));
    table->setDelegate(std::make_shared<Object>());
    EXPECT_TRUE(table->clickRow(2));
    EXPECT_EQ(table->selectedRow(), 2);
}

TEST_F(TableViewTest, SelectingAsksNobody) {
    table->selectRow(1);
    EXPECT_EQ(table->valueForKey("selectedRow"), Value(1));
    EXPECT_TRUE(chooser->asked.empty());
    table->selectRow(3);
    EXPECT_EQ(table->selectedRow(), -1);
}

TEST_F(TableViewTest, ASelectionBeyondNewRowsEnds) {
    table->selectRow(2);
    table->setRows({"x", "y"});
    EXPECT_EQ(table->selectedRow(), -1);
    table->selectRow(0);
    table->setRows({"x"});
    EXPECT_EQ(table->selectedRow(), 0);
}

TEST(TextFieldTest, DrawsItsText) {
    TextField field({0, 0, 200, 24});
    EXPECT_TRUE(field.setValueForKey("stringValue", "(12.3,40.0)"));
    EXPECT_EQ(field.valueForKey("stringValue"), Value("(12.3,40.0)"));
    EXPECT_EQ(field.valueForKey("hidden"), Value(false));
    RecordingContext context;
    field.drawRect(context, field.bounds());
    const auto texts = context.operationsNamed("drawText");
    ASSERT_EQ(texts.size(), 1u);
    EXPECT_EQ(texts[0].text, "(12.3,40.0)");
}

}  // namespace
}  // namespace zor
