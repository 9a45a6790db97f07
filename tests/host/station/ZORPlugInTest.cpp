#include "host/station/ZORPlugIn.h"

#include <gmock/gmock.h>

#include "host/foundation/KeyedArchiver.h"
#include "host/station/StationClasses.h"
#include "tests/host/station/TestPlugIn.h"
#include "tests/support/FakeToolkit.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class ZORPlugInTest : public testing::Test {
protected:
    ZORPlugInTest() {
        registerStationClasses();
        TestPlugIn::staticClass();
        FakeToolkit::install();
        TestPlugIn::takeCalls();
    }

    std::shared_ptr<Agent> agent = Agent::withName("Garden");
    std::shared_ptr<SiteWindowController> controller = std::make_shared<SiteWindowController>();
    std::shared_ptr<TestPlugIn> plugIn = TestPlugIn::make(agent, controller, "Weather");
};

TEST_F(ZORPlugInTest, IsMadeForAnAgentAndASiteWindow) {
    EXPECT_EQ(plugIn->agent(), agent);
    EXPECT_EQ(plugIn->siteWindowController(), controller);
    controller.reset();
    EXPECT_EQ(plugIn->siteWindowController(), nullptr);
}

TEST_F(ZORPlugInTest, IdentifiersAreNewRandomHexDigits) {
    const auto other = TestPlugIn::make(agent, controller);
    EXPECT_THAT(plugIn->uniqueIdentifier(), MatchesRegex("[0-9a-f]{32}"));
    EXPECT_NE(plugIn->uniqueIdentifier(), other->uniqueIdentifier());
}

TEST_F(ZORPlugInTest, ViewIsMadeAndAwakenedOnce) {
    EXPECT_FALSE(plugIn->isViewLoaded());
    const auto view = plugIn->view();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->classRecord().name(), "View");
    EXPECT_EQ(view->frame(), (Rect{0, 0, 500, 500}));
    EXPECT_EQ(plugIn->view(), view);
    EXPECT_TRUE(plugIn->isViewLoaded());
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: awakeFromNib"));
}

TEST_F(ZORPlugInTest, StandsBetweenItsViewAndWhatLiesAround) {
    EXPECT_EQ(plugIn->nextResponder(), nullptr);
    EXPECT_TRUE(plugIn->acceptsFirstResponder());
    const auto view = plugIn->view();
    EXPECT_EQ(view->nextResponder(), plugIn.get());
    EXPECT_EQ(plugIn->nextResponder(), nullptr);
    const auto around = std::make_shared<View>();
    around->addSubview(view);
    EXPECT_EQ(plugIn->nextResponder(), around.get());
    view->removeFromSuperview();
    Window window;
    window.setContentView(view);
    EXPECT_EQ(plugIn->nextResponder(), &window);
}

TEST_F(ZORPlugInTest, ACopyHasAnIdentifierOfItsOwn) {
    const auto copy = std::dynamic_pointer_cast<TestPlugIn>(plugIn->copy());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->agent(), agent);
    EXPECT_EQ(copy->siteWindowController(), controller);
    EXPECT_EQ(copy->title(), "Weather");
    EXPECT_THAT(copy->uniqueIdentifier(), MatchesRegex("[0-9a-f]{32}"));
    EXPECT_NE(copy->uniqueIdentifier(), plugIn->uniqueIdentifier());
    EXPECT_FALSE(copy->isViewLoaded());
}

TEST_F(ZORPlugInTest, TheBaseClassCannotBeCopied) {
    EXPECT_EQ(std::make_shared<ZORPlugIn>()->copy(), nullptr);
}

TEST_F(ZORPlugInTest, ReadsBackWithAgentIdentifierAndTheReadersSiteWindow) {
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(plugIn));
    ASSERT_TRUE(data) << data.error().message;
    const auto plain = KeyedUnarchiver::unarchivedRoot(*data);
    ASSERT_TRUE(plain) << plain.error().message;
    const auto read = plain->as<TestPlugIn>();
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->uniqueIdentifier(), plugIn->uniqueIdentifier());
    EXPECT_EQ(read->title(), "Weather");
    ASSERT_NE(read->agent(), nullptr);
    EXPECT_NE(read->agent(), agent);
    EXPECT_EQ(read->agent()->name(), "Garden");
    EXPECT_EQ(read->siteWindowController(), nullptr);

    UnarchivingOptions options;
    options.context["agent"] = agent;
    options.context["siteWindowController"] = controller;
    const auto bound = KeyedUnarchiver::unarchivedRoot(*data, options)->as<TestPlugIn>();
    EXPECT_EQ(bound->agent(), agent);
    EXPECT_EQ(bound->siteWindowController(), controller);
}

TEST_F(ZORPlugInTest, AnAbsentTitleStaysAbsent) {
    plugIn->setTitle({});
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(plugIn));
    EXPECT_EQ(KeyedUnarchiver::unarchivedRoot(*data)->as<TestPlugIn>()->title(), std::nullopt);
}

/// Writes an identifier that would break out of a URL's last path component.
class BadIdentifierPlugIn : public TestPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<BadIdentifierPlugIn>("BadIdentifierPlugIn", &TestPlugIn::staticClass())
                .creatable()
                .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    void encodeWithCoder(Encoder& encoder) override { encoder.encodeValue("uniqueIdentifier", "../a.b"); }
};

TEST_F(ZORPlugInTest, AnIdentifierWithDotsOrSlashesIsReplaced) {
    const auto data = KeyedArchiver::archivedDataWithRootObject(Value(std::make_shared<BadIdentifierPlugIn>()));
    const auto read = KeyedUnarchiver::unarchivedRoot(*data)->as<ZORPlugIn>();
    ASSERT_NE(read, nullptr);
    EXPECT_THAT(read->uniqueIdentifier(), MatchesRegex("[0-9a-f]{32}"));
}

TEST_F(ZORPlugInTest, HostClassesBelongToNoBundle) {
    EXPECT_EQ(plugIn->bundle(), nullptr);
    EXPECT_EQ(plugIn->bundleIdentifier(), "");
    EXPECT_EQ(plugIn->bundleVersion(), 0);
}

TEST_F(ZORPlugInTest, IsAskedAndDrivenByName) {
    EXPECT_EQ(plugIn->valueForKey("title"), Value("Weather"));
    EXPECT_TRUE(plugIn->setValueForKey("title", "Rain"));
    EXPECT_EQ(plugIn->title(), "Rain");
    EXPECT_TRUE(plugIn->setValueForKey("title", Value()));
    EXPECT_EQ(plugIn->title(), std::nullopt);
    EXPECT_FALSE(plugIn->setValueForKey("title", 5));
    EXPECT_EQ(plugIn->valueForKey("uniqueIdentifier"), Value(plugIn->uniqueIdentifier()));
    EXPECT_FALSE(plugIn->setValueForKey("uniqueIdentifier", "x"));
    EXPECT_EQ(plugIn->valueForKey("agent"), Value(agent));
    EXPECT_EQ(plugIn->valueForKey("siteWindowController"), Value(controller));
    EXPECT_EQ(plugIn->valueForKey("name"), Value("Test"));
    EXPECT_EQ(plugIn->valueForKey("textDescription"), Value(""));
    EXPECT_EQ(plugIn->valueForKey("htmlDescription"), Value(""));
    EXPECT_EQ(plugIn->valueForKey("xmlDescription"), Value());
    EXPECT_EQ(plugIn->valueForKey("jsonDescription"), Value());
    EXPECT_EQ(plugIn->valueForKey("icon"), Value());
    EXPECT_EQ(plugIn->valueForKey("group"), Value(0));
    EXPECT_EQ(plugIn->valueForKey("isRenamable"), Value(true));
    EXPECT_EQ(plugIn->valueForKey("isDeletable"), Value(false));
    EXPECT_EQ(plugIn->valueForKey("bundleIdentifier"), Value(""));
    EXPECT_EQ(plugIn->valueForKey("bundleVersion"), Value(0));
    EXPECT_EQ(plugIn->perform("menu").as<Menu>()->title(), "Test Menu");
    EXPECT_EQ(plugIn->perform("toolbarItem"), Value());
    for (const auto* action : {"showHelp", "duplicatePlugIn:", "toolbarItem", "menu"}) {
        EXPECT_TRUE(plugIn->respondsTo(action)) << action;
    }
    TestPlugIn::takeCalls();
    plugIn->performWithSender("duplicatePlugIn:", {});
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("-: duplicatePlugIn:"));
}

TEST_F(ZORPlugInTest, ANewTitleIsTheSiteWindowsBusinessOnceInTheList) {
    int told = 0;
    controller->setObserver([&] { ++told; });
    plugIn->setTitle("Rain");
    EXPECT_EQ(told, 0);
    controller->addPlugIn(plugIn, false);
    told = 0;
    plugIn->setTitle("Rain");
    EXPECT_EQ(told, 0);
    plugIn->setTitle("Snow");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(controller->itemsWithRepresentedObjectsOfClass(ZORPlugIn::staticClass())[0].title, "Snow");
}

}  // namespace
}  // namespace zor
