#include <thread>

#include "host/foundation/MainQueue.h"
#include "host/station/SiteDocument.h"
#include "tests/toolbar/ToolbarSupport.h"

namespace zor {
namespace {

using test::box;
using test::plugInBundle;

class WebService : public test::ToolbarTest {
protected:
    void SetUp() override {
        document = SiteDocument::create(agent, {});
        controller = document->siteWindowController();
        toolbar = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller);
    }
    void TearDown() override { document->close(); }

    std::shared_ptr<ZORDashboardPlugIn> add(Size size = {40, 30}) {
        auto dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller, WidgetList{box({0, 0, 9, 9})}, size);
        controller->addPlugIn(dashboard, false);
        return dashboard;
    }
    /// On a thread of the server's, while the main thread serves its queue.
    std::shared_ptr<DataResponse> response(const std::string& path) {
        std::shared_ptr<DataResponse> answer;
        bool isDone = false;
        std::thread worker([&] {
            answer = toolbar->webServiceResponseForRequest({path});
            MainQueue::shared().post([&] { isDone = true; });
        });
        while (!isDone) {
            MainQueue::shared().run();
            std::this_thread::yield();
        }
        worker.join();
        return answer;
    }

    std::shared_ptr<SiteDocument> document;
};

TEST_F(WebService, OnlyTheLastComponentCounts) {
    const auto dashboard = add();
    const auto id = dashboard->uniqueIdentifier();
    const auto plain = response(id + ".png"), deep = response("/some/dir/" + id + ".png");
    ASSERT_TRUE(plain && deep);
    EXPECT_EQ(plain->contentType, "image/png");
    EXPECT_EQ(*plain->data, *deep->data);
    const auto printed = response("/" + id + ".pdf");
    ASSERT_TRUE(printed);
    EXPECT_EQ(printed->contentType, "application/pdf");
}

TEST_F(WebService, OtherExtensionsAndIdentifiersGiveNothing) {
    const auto id = add()->uniqueIdentifier();
    for (const std::string& path : {id + ".PNG", id + ".jpg", id, id + ".", std::string("unknown.png")}) {
        EXPECT_FALSE(response(path)) << path;
    }
}

TEST_F(WebService, ADashboardOfTheListIsDrawnOnceAlsoWhenItHasAWindow) {
    const auto dashboard = add();
    document->showInSeparateWindow(dashboard);
    toolkit.pictures.clear();
    EXPECT_TRUE(response(dashboard->uniqueIdentifier() + ".png"));
    EXPECT_EQ(toolkit.pictures.size(), 1u);
}

TEST_F(WebService, ADashboardInAWindowAloneIsFound) {
    const auto dashboard = add();
    document->showInSeparateWindow(dashboard);
    controller->removePlugInAtIndex(0);
    EXPECT_TRUE(response(dashboard->uniqueIdentifier() + ".png"));
}

TEST_F(WebService, TheWindowsAreLookedThroughWhereTheListGaveNoPicture) {
    const auto dashboard = add();
    document->showInSeparateWindow(dashboard);
    toolkit.pictures.clear();
    EXPECT_FALSE(response(dashboard->uniqueIdentifier() + ".jpg"));
    EXPECT_EQ(toolkit.pictures.size(), 0u);
}

TEST_F(WebService, AdvertisesWindowsFirstThenTheList) {
    EXPECT_EQ(toolbar->webServiceAdvertisementForBaseURL("/b"),
              "<h1>REST API for Dashboard</h1>You can view PNG representations of this Site Document's available "
              "Dashboards here.<p>");
    const auto one = add(), two = add();
    one->setTitle("One & <only>");
    two->setTitle("Two");
    document->showInSeparateWindow(two);
    const auto heading = [](const ZORDashboardPlugIn& dashboard, const std::string& title) {
        return "<h2><a href=\"/b/" + dashboard.uniqueIdentifier() + ".png\" target=\"_blank\">" + title + "</a></h2>";
    };
    EXPECT_EQ(toolbar->webServiceAdvertisementForBaseURL("/b"),
              "<h1>REST API for Dashboard</h1>You can view PNG representations of this Site Document's available "
              "Dashboards here.<p>" +
                  heading(*two, "Two") + heading(*one, "One & <only>") + heading(*two, "Two"));
}

}  // namespace
}  // namespace zor
