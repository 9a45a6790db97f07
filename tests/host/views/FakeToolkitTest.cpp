#include <gmock/gmock.h>

#include "host/views/View.h"
#include "tests/support/FakeToolkit.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace zor {
namespace {

class FakeToolkitTest : public testing::Test {
protected:
    FakeToolkit& toolkit = FakeToolkit::install();
};

TEST_F(FakeToolkitTest, IsTheCurrentToolkit) {
    EXPECT_EQ(&Toolkit::current(), &toolkit);
}

TEST_F(FakeToolkitTest, MeasuresTextByRule) {
    EXPECT_EQ(toolkit.sizeOfText("21.5 °C", Font{"Any", 10}), (Size{35, 12}));
    EXPECT_EQ(toolkit.sizeOfText("ab", Font{"Any", 10, true}), (Size{12, 12}));
    EXPECT_EQ(toolkit.metricsOfFont(Font{"Any", 100}).ascent, 95);
}

TEST_F(FakeToolkitTest, AnswersSheetsFromTheQueue) {
    toolkit.saveAnswers.push_back({PanelResponse::ok, "/tmp/a.file"});
    const auto panel = toolkit.makeSavePanel();
    panel->nameFieldStringValue = "Unnamed";
    panel->allowedFileTypes = {"file"};
    std::vector<PanelResponse> responses;
    const auto note = [&](PanelResponse response) { responses.push_back(response); };
    panel->beginSheetModalForWindow(nullptr, note);
    EXPECT_EQ(panel->path(), "/tmp/a.file");
    panel->orderOut();
    toolkit.makeOpenPanel()->beginSheetModalForWindow(nullptr, note);
    EXPECT_THAT(responses, ElementsAre(PanelResponse::ok, PanelResponse::cancel));
    ASSERT_EQ(toolkit.sheets.size(), 2u);
    EXPECT_EQ(toolkit.sheets[0]->kind, "save");
    EXPECT_EQ(toolkit.sheets[0]->name, "Unnamed");
    EXPECT_THAT(toolkit.sheets[0]->allowedTypes, ElementsAre("file"));
    EXPECT_TRUE(toolkit.sheets[0]->orderedOut);
    EXPECT_EQ(toolkit.sheets[1]->kind, "open");
}

TEST_F(FakeToolkitTest, HoldsAnswersBack) {
    toolkit.holdAnswers = true;
    auto alert = toolkit.makeAlert();
    alert->messageText = "Really?";
    alert->buttons = {"Yes", "No"};
    std::vector<int> codes;
    alert->beginSheetModalForWindow(nullptr, [&](int code) { codes.push_back(code); });
    alert.reset();
    EXPECT_THAT(codes, IsEmpty());
    toolkit.alertAnswers.push_back(alertFirstButtonReturn);
    toolkit.deliverAnswers();
    toolkit.deliverAnswers();
    EXPECT_THAT(codes, ElementsAre(1000));
    EXPECT_EQ(toolkit.sheets[0]->message, "Really?");
}

TEST_F(FakeToolkitTest, AnAlertWithoutAnAnswerIsCancelled) {
    const auto alert = toolkit.makeAlert();
    alert->buttons = {"Install", "Cancel"};
    int given = 0;
    alert->beginSheetModalForWindow(nullptr, [&](int code) { given = code; });
    EXPECT_EQ(given, 1001);
}

TEST_F(FakeToolkitTest, ReadsItsOwnPictures) {
    const auto size = toolkit.sizeOfImageData(FakeToolkit::imageData({40, 30.5}));
    ASSERT_TRUE(size);
    EXPECT_EQ(*size, (Size{40, 30.5}));
    EXPECT_FALSE(toolkit.sizeOfImageData({1, 2, 3}));
}

TEST_F(FakeToolkitTest, KeepsThePasteboard) {
    Pasteboard& pasteboard = toolkit.generalPasteboard();
    pasteboard.setDataForType({1, 2}, widgetPasteType);
    EXPECT_THAT(pasteboard.types(), ElementsAre("application/x-zor-widgets"));
    EXPECT_THAT(pasteboard.dataForType(widgetPasteType), ElementsAre(1, 2));
    pasteboard.clearContents();
    EXPECT_THAT(pasteboard.dataForType(widgetPasteType), IsEmpty());
}

TEST_F(FakeToolkitTest, NotesPrintings) {
    const auto view = std::make_shared<View>();
    PrintOperation operation{view, {PaperOrientation::landscape, Pagination::fit, Pagination::fit}, view};
    Window window;
    operation.runModalForWindow(&window);
    ASSERT_EQ(toolkit.printings.size(), 1u);
    EXPECT_EQ(toolkit.printings[0].operation.view, view);
    EXPECT_EQ(toolkit.printings[0].operation.settings.orientation, PaperOrientation::landscape);
    EXPECT_EQ(toolkit.printings[0].window, &window);
}

}  // namespace
}  // namespace zor
