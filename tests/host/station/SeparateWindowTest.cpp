#include <gmock/gmock.h>

#include "host/station/SiteDocument.h"
#include "tests/host/station/TestPlugIn.h"
#include "tests/support/FakeToolkit.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace zor {
namespace {

class SeparateWindow : public testing::Test {
protected:
    FakeToolkit& toolkit = FakeToolkit::install();
    std::shared_ptr<SiteDocument> document = SiteDocument::create(Agent::withName("Garden"), {});
    std::shared_ptr<SiteWindowController> controller = document->siteWindowController();
    std::shared_ptr<TestPlugIn> weather = add("Weather"), rain = add("Rain");

    std::shared_ptr<TestPlugIn> add(const std::string& title) {
        auto plugIn = TestPlugIn::make(document->agent(), controller, title);
        controller->addPlugIn(plugIn, true);
        return plugIn;
    }
    bool isInSiteWindow(const std::shared_ptr<TestPlugIn>& plugIn) const {
        return plugIn->view()->window() == controller->window().get();
    }
};

TEST_F(SeparateWindow, TakesTheViewFromTheSiteWindowWhichKeepsTheEntry) {
    const auto separate = document->showInSeparateWindow(rain);
    ASSERT_TRUE(separate);
    EXPECT_EQ(separate->contentViewController(), rain);
    EXPECT_EQ(separate->window()->contentView(), rain->view());
    EXPECT_EQ(separate->window()->title(), "Rain");
    EXPECT_TRUE(separate->window()->isVisible());
    EXPECT_TRUE(document->isInSeparateWindow(*rain));
    EXPECT_EQ(controller->selectedPlugIn(), rain);
    EXPECT_THAT(controller->plugIns(), ElementsAre(weather, rain));
    EXPECT_EQ(rain->nextResponder(), separate->window().get());
}

TEST_F(SeparateWindow, IsAsLargeAsThePlaceInTheSiteWindow) {
    controller->setPlugInFrame({0, 0, 640, 480});
    document->showInSeparateWindow(weather);
    EXPECT_EQ(weather->view()->frame(), (Rect{0, 0, 640, 480}));
    controller->selectPlugInAtIndex(0);
    controller->setPlugInFrame({0, 0, 300, 200});
    EXPECT_EQ(weather->view()->frame(), (Rect{0, 0, 640, 480}));
}

TEST_F(SeparateWindow, OneIsEnoughForAPlugIn) {
    const auto separate = document->showInSeparateWindow(rain);
    EXPECT_EQ(document->showInSeparateWindow(rain), separate);
    EXPECT_THAT(document->windowControllers(), ElementsAre(controller, separate));
    EXPECT_FALSE(document->showInSeparateWindow({}));
}

TEST_F(SeparateWindow, SelectingDoesNotTakeTheViewBack) {
    const auto separate = document->showInSeparateWindow(rain);
    controller->selectPlugInAtIndex(0);
    EXPECT_TRUE(isInSiteWindow(weather));
    controller->selectPlugInAtIndex(1);
    EXPECT_EQ(rain->view()->window(), separate->window().get());
    EXPECT_FALSE(isInSiteWindow(weather));
}

TEST_F(SeparateWindow, ClosedTheSiteWindowShowsASelectedOneAgain) {
    const auto window = document->showInSeparateWindow(rain)->window();
    TestPlugIn::takeCalls();
    window->close();
    EXPECT_TRUE(isInSiteWindow(rain));
    EXPECT_FALSE(document->isInSeparateWindow(*rain));
    EXPECT_THAT(TestPlugIn::takeCalls(), Not(Contains("Rain: willUnload")));
}

TEST_F(SeparateWindow, TakenOutOfTheListItLivesUntilItsWindowIsClosed) {
    const auto window = document->showInSeparateWindow(rain)->window();
    TestPlugIn::takeCalls();
    controller->removePlugInAtIndex(1);
    EXPECT_EQ(window->contentView(), rain->view());
    EXPECT_THAT(TestPlugIn::takeCalls(), Not(Contains("Rain: willUnload")));
    window->close();
    EXPECT_THAT(TestPlugIn::takeCalls(), Contains("Rain: willUnload"));
    EXPECT_TRUE(isInSiteWindow(weather));
}

TEST_F(SeparateWindow, FollowsTheTitleInTheListOrNot) {
    const auto window = document->showInSeparateWindow(rain)->window();
    rain->setTitle("Hail");
    EXPECT_EQ(window->title(), "Hail");
    controller->removePlugInAtIndex(1);
    rain->setTitle(std::nullopt);
    EXPECT_EQ(window->title(), "Untitled");
}

TEST_F(SeparateWindow, GoesWithItsDocument) {
    const auto window = document->showInSeparateWindow(rain)->window();
    TestPlugIn::takeCalls();
    document->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_THAT(document->windowControllers(), ElementsAre(controller));
    const auto calls = TestPlugIn::takeCalls();
    EXPECT_EQ(std::ranges::count(calls, "Rain: willUnload"), 1);
}

}  // namespace
}  // namespace zor
