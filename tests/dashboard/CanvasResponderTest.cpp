#include "tests/dashboard/HostedDashboard.h"

namespace zor {
namespace {

using test::box;
using ::testing::ElementsAre;

using Told = std::pair<std::string, ObjectPtr>;

/// Performs copying and pasting, and takes keys.
class Editor : public Responder {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Editor>("CanvasTestEditor", &Responder::staticClass())
                                               .action("copy:", &Editor::copyAction)
                                               .action("paste:", &Editor::pasteAction)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    void copyAction(const ObjectPtr& sender) { told.emplace_back("copy:", sender); }
    void pasteAction(const ObjectPtr& sender) { told.emplace_back("paste:", sender); }
    void keyDown(const EventPtr& event) override { told.emplace_back("key", event); }

    std::vector<Told> told;
};

class CanvasResponder : public test::HostedDashboard {};

TEST_F(CanvasResponder, PassesCopyAndPasteWithTheirSenderUpTheChain) {
    const auto editor = std::make_shared<Editor>();
    const auto container = ZORWidgetHostView::initWithFrame({0, 0, 100, 100});
    canvas = test::canvasOf({});
    container->setTargetView(canvas);
    container->setNextResponder(editor);
    const auto sender = std::make_shared<Menu>();
    canvas->performWithSender("copy:", sender);
    canvas->performWithSender("paste:", sender);
    ASSERT_EQ(editor->told.size(), 2u);
    EXPECT_EQ(editor->told[0], (Told{"copy:", sender}));
    EXPECT_EQ(editor->told[1], (Told{"paste:", sender}));
}

TEST_F(CanvasResponder, CopyAndPasteDoNothingWithoutAPerformer) {
    canvas = test::canvasOf({});
    canvas->performWithSender("copy:", {});
    canvas->performWithSender("paste:", {});
}

TEST_F(CanvasResponder, CopyAndPasteReachTheDashboard) {
    host({box({10, 20, 100, 50})});
    dashboard->selectAllObjects();
    canvas->performWithSender("copy:", {});
    EXPECT_THAT(toolkit.pasteboard.types(), ElementsAre(std::string(widgetPasteType)));
    canvas->performWithSender("paste:", {});
    EXPECT_EQ(test::widgetsOn(canvas).size(), 2u);
}

TEST_F(CanvasResponder, AWidgetsCopyReachesTheDashboardThroughTheCanvas) {
    host({box({10, 20, 100, 50})});
    dashboard->selectAllObjects();
    EXPECT_TRUE(test::widgetsOn(canvas)[0]->tryToPerform("copy:", {}));
    EXPECT_THAT(toolkit.pasteboard.types(), ElementsAre(std::string(widgetPasteType)));
}

TEST_F(CanvasResponder, KeysGoOnUnchanged) {
    const auto editor = std::make_shared<Editor>();
    canvas = test::canvasOf({});
    canvas->setNextResponder(editor);
    const auto event = Event::key(u"d", 2, commandKeyMask);
    canvas->keyDown(event);
    ASSERT_EQ(editor->told.size(), 1u);
    EXPECT_EQ(editor->told[0], (Told{"key", event}));
}

TEST_F(CanvasResponder, KeysReachTheDashboardWhileTheCanvasIsFirstResponder) {
    hostForEditing({box({10, 20, 100, 50})});
    dashboard->selectAllObjects();
    ASSERT_TRUE(window->makeFirstResponder(canvas));
    key(u"\x7F");
    EXPECT_TRUE(test::widgetsOn(canvas).empty());
}

}  // namespace
}  // namespace zor
