#include "app/pages/SitePages.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/MainQueue.h"
#include "host/station/History.h"
#include "tests/support/WebClient.h"

namespace zor {
namespace {

/// Advertises and answers what the test says.
class PagePlugIn : public ZORPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<PagePlugIn>("ZORPagePlugInOfTests", &ZORPlugIn::staticClass()).registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    static std::shared_ptr<PagePlugIn> addTo(const SiteDocument& document, const std::string& title) {
        auto plugIn = std::make_shared<PagePlugIn>();
        plugIn->initWithAgentSiteWindowController(document.agent(), document.siteWindowController());
        plugIn->setTitle(title);
        document.siteWindowController()->addPlugIn(plugIn, false);
        return plugIn;
    }

    std::string webServiceAdvertisementForBaseURL(const std::string& baseURL) override {
        bases.push_back(baseURL);
        return advertises ? "<h2><a href=\"" + baseURL + "/" + uniqueIdentifier() + ".png\">" + *title() + "</a></h2>"
                          : std::string();
    }
    std::shared_ptr<DataResponse> webServiceResponseForRequest(const WebRequest& request) override {
        if (onRequest) onRequest();
        if (!request.path.ends_with(".png")) return {};
        return DataResponse::responseWithData(std::make_shared<const Bytes>(request.path.begin(), request.path.end()),
                                              "image/png");
    }

    bool advertises = true;
    std::function<void()> onRequest;
    std::vector<std::string> bases;
};

std::shared_ptr<SiteDocument> documentNamed(const std::string& name) {
    return SiteDocument::create(Agent::withName(name), {});
}

std::string bodyOf(const WebAnswer& answer) {
    return answer.body ? std::string(answer.body->begin(), answer.body->end()) : std::string();
}

struct SitePagesTest : testing::Test {
    std::shared_ptr<SiteDocument> document = documentNamed("Garden");
    std::shared_ptr<PagePlugIn> plugIn = PagePlugIn::addTo(*document, "<h1>Mine</h1>");
    SitePages pages{document};

    SitePagesTest() { MainQueue::shared().attach({}); }
    int statusOf(const std::string& path) { return pages.answer({path}).status; }
    std::string base() const { return "/plugins/" + plugIn->uniqueIdentifier(); }
};

TEST_F(SitePagesTest, ShowsAdvertisementsWithTitlesAsText) {
    const auto page = bodyOf(pages.answer({"/"}));
    EXPECT_NE(page.find("<h2><a href=\"" + base() + "/" + plugIn->uniqueIdentifier() +
                        ".png\">&lt;h1&gt;Mine&lt;/h1&gt;</a></h2>"),
              std::string::npos)
        << page;
    EXPECT_NE(page.find(">Garden</p>"), std::string::npos);
}

TEST_F(SitePagesTest, AsksForEveryPageUnderAnotherBase) {
    const std::string both = bodyOf(pages.answer({"/"})) + bodyOf(pages.answer({"/"}));
    ASSERT_EQ(plugIn->bases.size(), 2U);
    EXPECT_NE(plugIn->bases[0], plugIn->bases[1]);
    for (const auto& asked : plugIn->bases) {
        EXPECT_TRUE(asked.starts_with(base() + "/")) << asked;
        EXPECT_EQ(both.find(asked), std::string::npos) << asked;
    }
}

TEST_F(SitePagesTest, APlugInAnswersWhatLiesBelowItsAddress) {
    for (const auto* rest : {"/x.png", "/some/dir/x.png", "//x.png"}) {
        const auto answer = pages.answer({base() + rest});
        EXPECT_EQ(answer.status, 200);
        EXPECT_EQ(answer.contentType, "image/png");
        EXPECT_EQ(bodyOf(answer), base() + rest);
    }
}

TEST_F(SitePagesTest, WhatNoPlugInAnswersIsNotFound) {
    for (const auto& path :
         {base() + "/x.jpg", base() + "/", base(), base() + "0/x.png", std::string("/plugins/x/y.png"),
          std::string("/plugins//y.png"), std::string("/plugins/"), std::string("/plugins"), std::string("/x.png"),
          std::string(), std::string("plugins"), base().substr(1) + "/x.png"}) {
        EXPECT_EQ(statusOf(path), 404) << path;
    }
}

TEST_F(SitePagesTest, StyleAndIconAreThere) {
    EXPECT_EQ(pages.answer({"/style.css"}).contentType, "text/css; charset=utf-8");
    EXPECT_EQ(pages.answer({"/favicon.svg"}).contentType, "image/svg+xml");
    EXPECT_EQ(pages.answer({"/favicon.ico"}).contentType, "image/svg+xml");
}

TEST_F(SitePagesTest, ThumbnailsShowPlugInsPicturesOnly) {
    EXPECT_NE(bodyOf(pages.answer({"/thumbnail/plugins/p/a \"b.png"})).find("src=\"/plugins/p/a%20%22b.png\""),
              std::string::npos);
    for (const auto* path :
         {"/thumbnail", "/thumbnail/", "/thumbnail//host/plugins/x.png", "/thumbnailplugins/p/x.png"}) {
        EXPECT_EQ(statusOf(path), 404) << path;
    }
}

TEST_F(SitePagesTest, APlugInThatAdvertisesNothingIsLeftOut) {
    plugIn->advertises = false;
    EXPECT_EQ(bodyOf(pages.answer({"/"})).find("<a "), std::string::npos);
}

TEST_F(SitePagesTest, ACopyOfADocumentHasAddressesOfItsOwn) {
    const auto copy = documentNamed("Copy");
    copy->siteWindowController()->addPlugIn(plugIn, false);
    SitePages both([&] { return std::vector{document, copy}; });
    const auto page = bodyOf(both.answer({"/"}));
    EXPECT_NE(page.find("<a href=\"" + base() + "/"), std::string::npos);
    EXPECT_NE(page.find("<a href=\"" + base() + ".2/"), std::string::npos);
    EXPECT_EQ(both.answer({base() + ".2/x.png"}).status, 200);
    EXPECT_EQ(both.answer({base() + ".3/x.png"}).status, 404);
}

TEST_F(SitePagesTest, AClosedDocumentIsGone) {
    document->siteWindowController()->removePlugInAtIndex(0);
    const std::string address = base() + "/x.png";
    document.reset();
    EXPECT_EQ(statusOf(address), 404);
    EXPECT_NE(bodyOf(pages.answer({"/"})).find("No Site Document is open."), std::string::npos);
}

TEST_F(SitePagesTest, TooManyPicturesAtOnceAreRefusedAndThePageIsNot) {
    std::atomic<bool> mayGoOn = false;
    std::atomic<int> rendering = 0;
    plugIn->onRequest = [&] {
        ++rendering;
        while (!mayGoOn) std::this_thread::yield();
        --rendering;
    };
    std::atomic<int> refused = 0;
    std::vector<std::future<WebAnswer>> answers;
    for (int count = 0; count < 12; ++count) {
        answers.push_back(std::async(std::launch::async, [&] {
            auto answer = pages.answer({base() + "/x.png"});
            if (answer.status == 503) ++refused;
            return answer;
        }));
    }
    while (refused < 3 || rendering < 1) MainQueue::shared().run();
    // One draws, and one is next at the main thread's door.
    EXPECT_LE(rendering, 2);
    EXPECT_EQ(statusOf("/"), 200);
    mayGoOn = true;
    int served = 0;
    for (auto& each : answers) {
        while (each.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) MainQueue::shared().run();
        const auto answer = each.get();
        if (answer.status == 200) ++served;
        EXPECT_EQ(answer.status == 503, answer.retryAfter.has_value());
    }
    EXPECT_EQ(served, 9);
    EXPECT_EQ(refused, 3);
}

TEST_F(SitePagesTest, WhoeverIsRefusedAPictureIsToldWhenToComeAgain) {
    std::atomic<bool> mayGoOn = false;
    plugIn->onRequest = [&] {
        while (!mayGoOn) std::this_thread::yield();
    };
    auto server = WebServer::start({}, [&](const WebRequest& request) { return pages.answer(request); });
    ASSERT_TRUE(server);
    std::atomic<int> refused = 0;
    std::vector<std::future<std::string>> answers;
    for (int count = 0; count < 12; ++count) {
        answers.push_back(std::async(std::launch::async, [&] {
            const WebClient client((*server)->port());
            client.ask(base() + "/x.png");
            auto answer = client.read();
            if (answer.starts_with("HTTP/1.1 503 ")) ++refused;
            return answer;
        }));
    }
    while (refused < 3) MainQueue::shared().run();
    mayGoOn = true;
    for (auto& each : answers) {
        while (each.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) MainQueue::shared().run();
        const auto answer = each.get();
        EXPECT_EQ(answer.starts_with("HTTP/1.1 503 "), answer.find("\r\nRetry-After: 2\r\n") != std::string::npos)
            << answer;
    }
    EXPECT_EQ(refused, 3);
}

/// A past of one sample that takes as long as the test says.
class SlowPast : public HistoryLoader {
public:
    std::vector<Sample> load(std::string_view, Seconds from, Seconds) override {
        while (!hasCome) std::this_thread::yield();
        return {{from, 20}};
    }

    std::atomic<bool> hasCome = false;
};

struct SitePagesWithAPastTest : SitePagesTest {
    std::shared_ptr<SlowPast> past = std::make_shared<SlowPast>();
    std::atomic<int> pictures = 0;
    /// How many samples each picture had.
    std::vector<std::size_t> known;

    SitePagesWithAPastTest() {
        const auto history = document->agent()->history();
        history->setLoader(past);
        plugIn->onRequest = [this, history] {
            MainQueue::shared().sync(
                [&] { known.push_back(history->samples("outdoorTemperature", 0, 10'000).size()); });
            ++pictures;
        };
    }
    ~SitePagesWithAPastTest() override { past->hasCome = true; }

    int statusOfPicture(const std::function<void()>& meanwhile) {
        auto answer = std::async(std::launch::async, [&] { return statusOf(base() + "/x.png"); });
        while (answer.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) {
            MainQueue::shared().run();
            meanwhile();
        }
        return answer.get();
    }
};

TEST_F(SitePagesWithAPastTest, APictureShowsThePastThatWasOnItsWay) {
    const auto send = [&] {
        if (pictures == 1) past->hasCome = true;
    };
    EXPECT_EQ(statusOfPicture(send), 200);
    EXPECT_EQ(known, (std::vector<std::size_t>{0, 1}));
    // From then on one drawing is enough.
    EXPECT_EQ(statusOfPicture([] {}), 200);
    EXPECT_EQ(known, (std::vector<std::size_t>{0, 1, 1}));
}

TEST_F(SitePagesWithAPastTest, APastThatDoesNotComeIsDoneWithout) {
    EXPECT_EQ(statusOfPicture([] {}), 200);
    EXPECT_EQ(known, std::vector<std::size_t>{0});
}

TEST_F(SitePagesWithAPastTest, WhoeverWaitsForThePastKeepsNobodyFromAPicture) {
    std::vector<std::future<int>> waiting;
    for (int count = 0; count < 9; ++count) {
        waiting.push_back(std::async(std::launch::async, [&] { return statusOf(base() + "/x.png"); }));
    }
    while (pictures < 9) MainQueue::shared().run();
    int status = 0;
    const auto tenth = [&] { status = statusOf(base() + "/x.png"); };
    auto more = std::async(std::launch::async, tenth);
    while (pictures < 10) MainQueue::shared().run();
    past->hasCome = true;
    while (more.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) MainQueue::shared().run();
    EXPECT_EQ(status, 200);
    for (auto& each : waiting) {
        while (each.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready) MainQueue::shared().run();
        EXPECT_EQ(each.get(), 200);
    }
}

TEST_F(SitePagesTest, WhileTheProgramQuitsEverythingIsUnavailable) {
    MainQueue::shared().cancel();
    std::thread([&] {
        EXPECT_EQ(statusOf("/"), 503);
        EXPECT_EQ(statusOf(base() + "/x.png"), 503);
    }).join();
    MainQueue::shared().reopen();
}

}  // namespace
}  // namespace zor
