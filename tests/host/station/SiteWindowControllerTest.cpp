#include "host/station/SiteWindowController.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "host/foundation/MainQueue.h"
#include "host/station/SiteDocument.h"
#include "host/station/StationClasses.h"
#include "tests/host/station/TestPlugIn.h"
#include "tests/support/FakeToolkit.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OtherPlugIn : public TestPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<OtherPlugIn>("OtherPlugIn", &TestPlugIn::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
};

class SiteWindowControllerTest : public testing::Test {
protected:
    SiteWindowControllerTest() {
        registerStationClasses();
        FakeToolkit::install();
        document = SiteDocument::create(Agent::withName("Garden"), {});
        controller = document->siteWindowController();
        MainQueue::shared().attach({});
        TestPlugIn::takeCalls();
    }

    std::shared_ptr<TestPlugIn> make(std::optional<std::string> title) {
        return TestPlugIn::make(document->agent(), controller, std::move(title));
    }
    std::shared_ptr<TestPlugIn> add(std::optional<std::string> title, bool select = false) {
        auto plugIn = make(std::move(title));
        controller->addPlugIn(plugIn, select);
        return plugIn;
    }
    std::optional<std::string> titleAfterUniqueNaming(std::optional<std::string> title) {
        const auto plugIn = make(std::move(title));
        controller->addPlugIn(plugIn, true, false);
        return plugIn->title();
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const auto& entry : controller->entries()) titles.push_back(entry.title);
        return titles;
    }
    const std::vector<std::shared_ptr<View>>& shownViews() const {
        return controller->window()->contentView()->subviews();
    }

    std::shared_ptr<SiteDocument> document;
    std::shared_ptr<SiteWindowController> controller;
};

TEST_F(SiteWindowControllerTest, BeginsEmpty) {
    EXPECT_THAT(controller->plugIns(), IsEmpty());
    EXPECT_EQ(controller->selectedIndex(), -1);
    EXPECT_EQ(controller->selectedPlugIn(), nullptr);
    EXPECT_EQ(controller->document(), document);
    EXPECT_EQ(controller->contentViewController(), nullptr);
    ASSERT_NE(controller->window(), nullptr);
    EXPECT_EQ(controller->window()->contentView()->classRecord().name(), "View");
    EXPECT_EQ(controller->window()->contentView()->frame().size(), controller->window()->frame().size());
    EXPECT_FALSE(document->isDirty());
}

TEST_F(SiteWindowControllerTest, AddsAtTheEnd) {
    int told = 0;
    controller->setObserver([&] { ++told; });
    const auto weather = add("Weather");
    const auto rain = add("Rain");
    EXPECT_THAT(controller->plugIns(), ElementsAre(weather, rain));
    EXPECT_THAT(titles(), ElementsAre("Weather", "Rain"));
    EXPECT_EQ(controller->selectedIndex(), -1);
    EXPECT_THAT(shownViews(), IsEmpty());
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: didLoad", "Rain: didLoad"));
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(document->isDirty());
    controller->addPlugIn(weather, false);
    controller->addPlugIn({}, true);
    EXPECT_THAT(controller->plugIns(), ElementsAre(weather, rain));
    EXPECT_THAT(TestPlugIn::takeCalls(), IsEmpty());
}

TEST_F(SiteWindowControllerTest, AddingMaySelect) {
    controller->setPlugInFrame({30, 40, 800, 600});
    const auto weather = add("Weather", true);
    EXPECT_EQ(controller->selectedIndex(), 0);
    EXPECT_EQ(controller->selectedPlugIn(), weather);
    EXPECT_THAT(shownViews(), ElementsAre(weather->view()));
    EXPECT_EQ(weather->view()->frame(), (Rect{30, 40, 800, 600}));
    EXPECT_THAT(TestPlugIn::takeCalls(),
                ElementsAre("Weather: didLoad", "Weather: awakeFromNib", "Weather: viewWillAppear"));
    const auto rain = add("Rain", true);
    EXPECT_EQ(controller->selectedPlugIn(), rain);
    EXPECT_THAT(shownViews(), ElementsAre(rain->view()));
    EXPECT_EQ(weather->view()->superview(), nullptr);
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Rain: didLoad", "Weather: viewWillDisappear",
                                                     "Rain: awakeFromNib", "Rain: viewWillAppear"));
}

TEST_F(SiteWindowControllerTest, SelectingTheShownPlugInTellsItBoth) {
    const auto weather = add("Weather", true);
    TestPlugIn::takeCalls();
    document->setDirty(false);
    int told = 0;
    controller->setObserver([&] { ++told; });
    controller->selectPlugInAtIndex(0);
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: viewWillDisappear", "Weather: viewWillAppear"));
    EXPECT_THAT(shownViews(), ElementsAre(weather->view()));
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(document->isDirty());
}

TEST_F(SiteWindowControllerTest, AnIndexOutsideTheListSelectsNothing) {
    const auto weather = add("Weather", true);
    TestPlugIn::takeCalls();
    controller->selectPlugInAtIndex(1);
    EXPECT_EQ(controller->selectedIndex(), -1);
    EXPECT_THAT(shownViews(), IsEmpty());
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: viewWillDisappear"));
    controller->selectPlugInAtIndex(0);
    controller->selectPlugInAtIndex(-7);
    EXPECT_EQ(controller->selectedIndex(), -1);
}

TEST_F(SiteWindowControllerTest, SelectingMakesTheWindowFirstResponder) {
    const auto weather = add("Weather", true);
    ASSERT_TRUE(controller->window()->makeFirstResponder(weather));
    EXPECT_EQ(controller->window()->firstResponder(), weather.get());
    controller->selectPlugInAtIndex(0);
    EXPECT_EQ(controller->window()->firstResponder(), controller->window().get());
}

TEST_F(SiteWindowControllerTest, RemovingSelectsTheNext) {
    const auto a = add("A");
    const auto b = add("B");
    const auto c = add("C");
    controller->selectPlugInAtIndex(1);
    TestPlugIn::takeCalls();
    document->setDirty(false);
    controller->removePlugInAtIndex(1);
    EXPECT_THAT(controller->plugIns(), ElementsAre(a, c));
    EXPECT_EQ(controller->selectedPlugIn(), c);
    EXPECT_THAT(TestPlugIn::takeCalls(),
                ElementsAre("B: viewWillDisappear", "B: willUnload", "C: awakeFromNib", "C: viewWillAppear"));
    EXPECT_TRUE(document->isDirty());
    controller->removePlugInAtIndex(1);
    EXPECT_EQ(controller->selectedPlugIn(), a);
    controller->removePlugInAtIndex(0);
    EXPECT_EQ(controller->selectedIndex(), -1);
    EXPECT_THAT(shownViews(), IsEmpty());
    controller->removePlugInAtIndex(0);
    EXPECT_EQ(b->view()->superview(), nullptr);
}

TEST_F(SiteWindowControllerTest, RemovingAnotherKeepsTheSelection) {
    add("A");
    const auto b = add("B", true);
    add("C");
    TestPlugIn::takeCalls();
    controller->removePlugInAtIndex(2);
    controller->removePlugInAtIndex(0);
    EXPECT_EQ(controller->selectedIndex(), 0);
    EXPECT_EQ(controller->selectedPlugIn(), b);
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("C: willUnload", "A: willUnload"));
}

TEST_F(SiteWindowControllerTest, WhatASeparateWindowShowsIsNotUnloaded) {
    const auto weather = add("Weather");
    const auto separate = std::make_shared<WindowController>(std::make_shared<Window>());
    separate->setContentViewController(weather);
    document->addWindowController(separate);
    TestPlugIn::takeCalls();
    controller->removePlugInAtIndex(0);
    EXPECT_THAT(TestPlugIn::takeCalls(), IsEmpty());
    document->removeWindowController(separate.get());
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: willUnload"));
}

TEST_F(SiteWindowControllerTest, ReplacingKeepsPlaceAndSelection) {
    const auto a = add("A");
    const auto b = add("B", true);
    const auto c = add("C");
    const auto next = make("Next");
    TestPlugIn::takeCalls();
    controller->replacePlugIn(b, next);
    EXPECT_THAT(controller->plugIns(), ElementsAre(a, next, c));
    EXPECT_EQ(controller->selectedPlugIn(), next);
    EXPECT_THAT(shownViews(), ElementsAre(next->view()));
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("B: viewWillDisappear", "B: willUnload", "Next: didLoad",
                                                     "Next: awakeFromNib", "Next: viewWillAppear"));
    const auto last = make("Last");
    controller->replacePlugIn(c, last);
    EXPECT_EQ(controller->selectedPlugIn(), next);
    EXPECT_THAT(titles(), ElementsAre("A", "Next", "Last"));
    controller->replacePlugIn(b, c);
    controller->replacePlugIn(a, next);
    controller->replacePlugIn(a, {});
    EXPECT_THAT(titles(), ElementsAre("A", "Next", "Last"));
}

TEST_F(SiteWindowControllerTest, NamesUniquely) {
    EXPECT_EQ(titleAfterUniqueNaming("Weather"), "Weather");
    EXPECT_EQ(titleAfterUniqueNaming("Weather"), "Weather 2");
    EXPECT_EQ(titleAfterUniqueNaming("Weather"), "Weather 3");
    EXPECT_EQ(titleAfterUniqueNaming("Weather 2"), "Weather 4");
    controller->removePlugInAtIndex(1);
    EXPECT_EQ(titleAfterUniqueNaming("Weather 3"), "Weather 2");
    EXPECT_EQ(titleAfterUniqueNaming("Weather 9"), "Weather 9");
    EXPECT_EQ(titleAfterUniqueNaming("Area51"), "Area51");
    EXPECT_EQ(titleAfterUniqueNaming("Area51"), "Area51 2");
    EXPECT_EQ(titleAfterUniqueNaming("2"), "2");
    EXPECT_EQ(titleAfterUniqueNaming("2"), "2 2");
    EXPECT_EQ(titleAfterUniqueNaming({}), std::nullopt);
    EXPECT_EQ(titleAfterUniqueNaming({}), "Untitled 2");
}

TEST_F(SiteWindowControllerTest, TitlesAreLeftAloneUnlessAsked) {
    add("Weather");
    EXPECT_EQ(add("Weather")->title(), "Weather");
    EXPECT_EQ(add({})->title(), std::nullopt);
    EXPECT_THAT(titles(), ElementsAre("Weather", "Weather", "Untitled"));
}

TEST_F(SiteWindowControllerTest, TitlesThatChangeTogetherAreToldOfOnce) {
    const auto first = add("First");
    const auto second = add("Second");
    const auto stranger = make("Stranger");
    document->setDirty(false);
    int told = 0;
    controller->setObserver([&] { ++told; });
    controller->changeTitles([&] {
        first->setTitle("A");
        second->setTitle("B");
        controller->changeTitles([&] { first->setTitle("C"); });
        EXPECT_EQ(told, 0);
    });
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(document->isDirty());
    const auto items = controller->itemsWithRepresentedObjectsOfClass(TestPlugIn::staticClass());
    EXPECT_EQ(items[0].title, "C");
    EXPECT_EQ(items[1].title, "B");
    controller->changeTitles([&] { stranger->setTitle("D"); });
    controller->changeTitles([] {});
    EXPECT_EQ(told, 1);
    first->setTitle("E");
    EXPECT_EQ(told, 2);
}

TEST_F(SiteWindowControllerTest, ThePlugInFrameResizesContentAndView) {
    const auto weather = add("Weather", true);
    controller->setPlugInFrame({20, 10, 300, 200});
    EXPECT_EQ(controller->plugInFrame(), (Rect{20, 10, 300, 200}));
    EXPECT_EQ(weather->view()->frame(), (Rect{20, 10, 300, 200}));
    EXPECT_EQ(controller->window()->contentView()->frame(), (Rect{0, 0, 320, 210}));
}

TEST_F(SiteWindowControllerTest, ItemsOfAClass) {
    const auto weather = add("Weather");
    const auto other = std::make_shared<OtherPlugIn>();
    controller->addPlugIn(other, false);
    const auto all = controller->itemsWithRepresentedObjectsOfClass(TestPlugIn::staticClass());
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].representedObject, weather);
    EXPECT_EQ(all[0].title, "Weather");
    EXPECT_EQ(all[1].representedObject, other);
    EXPECT_EQ(all[1].title, "Untitled");
    const auto others = controller->itemsWithRepresentedObjectsOfClass(OtherPlugIn::staticClass());
    ASSERT_EQ(others.size(), 1u);
    EXPECT_EQ(others[0].representedObject, other);
}

TEST_F(SiteWindowControllerTest, AnEntryKeepsItsTitleAndItsPlugIn) {
    auto weather = add("Weather");
    bool died = false;
    weather->onDeath = [&] { died = true; };
    auto items = controller->itemsWithRepresentedObjectsOfClass(TestPlugIn::staticClass());
    weather->setTitle("Rain");
    controller->removePlugInAtIndex(0);
    weather.reset();
    EXPECT_FALSE(died);
    EXPECT_EQ(items[0].title, "Weather");
    EXPECT_EQ(items[0].representedObject->title(), "Rain");
    items.clear();
    EXPECT_TRUE(died);
}

TEST_F(SiteWindowControllerTest, PlugInsDieOnTheMainThreadWhoeverLetsThemGo) {
    auto weather = add("Weather");
    std::optional<std::thread::id> diedOn;
    weather->onDeath = [&] { diedOn = std::this_thread::get_id(); };
    auto items = controller->itemsWithRepresentedObjectsOfClass(TestPlugIn::staticClass());
    controller->removePlugInAtIndex(0);
    weather.reset();
    std::thread([held = std::move(items)]() mutable { held.clear(); }).join();
    EXPECT_EQ(diedOn, std::nullopt);
    MainQueue::shared().run();
    EXPECT_EQ(diedOn, std::this_thread::get_id());
}

TEST_F(SiteWindowControllerTest, WorkersReadTheListWhileItChanges) {
    std::atomic<bool> done = false;
    int deaths = 0;
    std::thread worker([&] {
        while (!done) {
            for (const auto& item : controller->itemsWithRepresentedObjectsOfClass(TestPlugIn::staticClass())) {
                EXPECT_EQ(item.representedObject->uniqueIdentifier().size(), 32u);
                EXPECT_EQ(item.title.substr(0, 7), "Weather");
            }
        }
    });
    const auto main = std::this_thread::get_id();
    for (int round = 0; round < 200; ++round) {
        auto plugIn = make("Weather");
        plugIn->onDeath = [&, main] {
            EXPECT_EQ(std::this_thread::get_id(), main);
            ++deaths;
        };
        controller->addPlugIn(plugIn, true, false);
        if (round % 3 == 2) controller->removePlugInAtIndex(0);
        MainQueue::shared().run();
    }
    done = true;
    worker.join();
    while (!controller->plugIns().empty()) controller->removePlugInAtIndex(0);
    MainQueue::shared().run();
    EXPECT_EQ(deaths, 200);
}

TEST_F(SiteWindowControllerTest, IsAskedByName) {
    const auto weather = add("Weather");
    EXPECT_EQ(controller->valueForKey("document"), Value(document));
    EXPECT_EQ(controller->valueForKey("plugIns"), Value(Value::Array{weather}));
    EXPECT_EQ(controller->valueForKey("selectedIndex"), Value(-1));
    EXPECT_TRUE(controller->setValueForKey("selectedIndex", 0));
    EXPECT_EQ(controller->selectedPlugIn(), weather);
    EXPECT_EQ(controller->valueForKey("window"), Value(controller->window()));
}

}  // namespace
}  // namespace zor
