#include "host/station/SiteDocument.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/Log.h"
#include "host/foundation/SafeFile.h"
#include "host/station/StationClasses.h"
#include "tests/host/station/TestPlugIn.h"
#include "tests/support/FakeToolkit.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// Known to no registry.
class UnregisteredPlugIn : public TestPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord record("UnregisteredPlugIn", &TestPlugIn::staticClass());
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
};

class SiteDocumentTest : public testing::Test {
protected:
    SiteDocumentTest() {
        registerStationClasses();
        TestPlugIn::staticClass();
        FakeToolkit::install();
        sink = setLogSink([this](std::string_view line) { log.emplace_back(line); });
    }
    ~SiteDocumentTest() override { setLogSink(sink); }

    std::shared_ptr<Bundle> bundle(const std::string& principalClass) {
        const auto text = [](const std::string& key, const std::string& value) {
            return "<key>" + key + "</key><string>" + value + "</string>";
        };
        const auto name = principalClass + ".zorplugin";
        folder.write(name + "/Info.plist", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>" +
                                               text("CFBundleIdentifier", "test." + principalClass) +
                                               text("CFBundleShortVersionString", "1.0") +
                                               text("CFBundleVersion", "1") + text("CFBundleExecutable", "module.so") +
                                               text("ZORPrincipalClass", principalClass) +
                                               text("ZORDocumentClass", "TestPlugIn") +
                                               "<key>ZORInterfaceVersion</key><integer>1</integer></dict></plist>");
        auto opened = Bundle::open(folder / name);
        EXPECT_TRUE(opened) << opened.error().message;
        return opened.valueOr(nullptr);
    }
    std::shared_ptr<TestPlugIn> add(SiteDocument& document, std::optional<std::string> title, bool select = false) {
        auto plugIn = TestPlugIn::make(document.agent(), document.siteWindowController(), std::move(title));
        document.siteWindowController()->addPlugIn(plugIn, select);
        return plugIn;
    }
    static std::vector<std::string> titles(const SiteDocument& document) {
        std::vector<std::string> titles;
        for (const auto& entry : document.siteWindowController()->entries()) titles.push_back(entry.title);
        return titles;
    }
    static std::shared_ptr<SiteDocument> readBack(SiteDocument& document,
                                                  const std::vector<std::shared_ptr<Bundle>>& bundles = {}) {
        const auto data = document.archive();
        EXPECT_TRUE(data) << data.error().message;
        auto read = SiteDocument::fromArchive(*data, bundles);
        EXPECT_TRUE(read) << read.error().message;
        return read.valueOr(nullptr);
    }
    static std::string readingError(std::span<const std::uint8_t> data) {
        const auto read = SiteDocument::fromArchive(data, {});
        return read ? "read" : read.error().message;
    }

    test::TemporaryFolder folder;
    std::vector<std::string> log;
    LogSink sink;
    std::shared_ptr<Agent> agent = Agent::withName("Garden");
};

TEST_F(SiteDocumentTest, ANewDocumentHasAnEntryPlugInOfEachBundle) {
    TestPlugIn::takeCalls();
    const auto document = SiteDocument::create(agent, {bundle("TestPlugIn"), bundle("NoSuchClass")});
    EXPECT_EQ(document->agent(), agent);
    EXPECT_EQ(agent->siteWindowController(), document->siteWindowController());
    EXPECT_EQ(document->siteWindowController()->document(), document);
    ASSERT_THAT(document->entryPlugIns(), SizeIs(1));
    EXPECT_EQ(document->entryPlugIns()[0]->agent(), agent);
    EXPECT_EQ(document->entryPlugIns()[0]->siteWindowController(), document->siteWindowController());
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("-: didLoad"));
    EXPECT_THAT(document->siteWindowController()->plugIns(), IsEmpty());
    EXPECT_THAT(document->windowControllers(), ElementsAre(document->siteWindowController()));
    EXPECT_FALSE(document->isDirty());
    EXPECT_THAT(log, ElementsAre("test.NoSuchClass: the class NoSuchClass makes no plug-in"));
}

TEST_F(SiteDocumentTest, ReadsBackWhole) {
    agent->takeReading({1000, {{"outdoorTemperature", 20.0}}});
    const auto document = SiteDocument::create(agent, {bundle("TestPlugIn")});
    const auto weather = add(*document, "Weather");
    const auto rain = add(*document, "Rain", true);
    add(*document, {});
    const auto entryIdentifier = document->entryPlugIns()[0]->uniqueIdentifier();
    TestPlugIn::takeCalls();
    const auto read = readBack(*document, {bundle("TestPlugIn")});
    ASSERT_NE(read, nullptr);
    EXPECT_THAT(TestPlugIn::takeCalls(), ElementsAre("Weather: didLoad", "Rain: didLoad", "-: didLoad", "-: didLoad",
                                                     "Rain: awakeFromNib", "Rain: viewWillAppear"));
    EXPECT_NE(read->agent(), agent);
    EXPECT_EQ(read->agent()->name(), "Garden");
    EXPECT_NE(read->agent()->properties().find("outdoorTemperature"), nullptr);
    const auto controller = read->siteWindowController();
    EXPECT_EQ(read->agent()->siteWindowController(), controller);
    EXPECT_EQ(controller->document(), read);
    EXPECT_THAT(titles(*read), ElementsAre("Weather", "Rain", "Untitled"));
    EXPECT_EQ(controller->plugIns()[2]->title(), std::nullopt);
    EXPECT_EQ(controller->selectedIndex(), 1);
    for (const auto& plugIn : controller->plugIns()) {
        EXPECT_EQ(plugIn->agent(), read->agent());
        EXPECT_EQ(plugIn->siteWindowController(), controller);
    }
    EXPECT_EQ(controller->plugIns()[0]->uniqueIdentifier(), weather->uniqueIdentifier());
    EXPECT_EQ(controller->plugIns()[1]->uniqueIdentifier(), rain->uniqueIdentifier());
    ASSERT_THAT(read->entryPlugIns(), SizeIs(1));
    EXPECT_EQ(read->entryPlugIns()[0]->uniqueIdentifier(), entryIdentifier);
    EXPECT_FALSE(read->isDirty());
}

TEST_F(SiteDocumentTest, WithoutASelectionTheFirstIsSelected) {
    const auto document = SiteDocument::create(agent, {});
    EXPECT_EQ(readBack(*document)->siteWindowController()->selectedIndex(), -1);
    add(*document, "Weather");
    add(*document, "Rain");
    EXPECT_EQ(readBack(*document)->siteWindowController()->selectedIndex(), 0);
}

TEST_F(SiteDocumentTest, EntryPlugInsOfFurtherBundlesAreAdded) {
    const auto document = SiteDocument::create(agent, {});
    const auto read = readBack(*document, {bundle("TestPlugIn")});
    ASSERT_THAT(read->entryPlugIns(), SizeIs(1));
    EXPECT_EQ(read->entryPlugIns()[0]->agent(), read->agent());
    EXPECT_FALSE(read->isDirty());
}

TEST_F(SiteDocumentTest, SavesAndOpens) {
    const auto document = SiteDocument::create(agent, {});
    add(*document, "Weather");
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(document->file(), "");
    const auto file = folder / "garden.site";
    const auto saved = document->save(file);
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_FALSE(document->isDirty());
    EXPECT_EQ(document->file(), file);
    const auto opened = SiteDocument::open(file, {});
    ASSERT_TRUE(opened) << opened.error().message;
    EXPECT_EQ((*opened)->file(), file);
    EXPECT_FALSE((*opened)->isDirty());
    EXPECT_THAT(titles(**opened), ElementsAre("Weather"));
}

TEST_F(SiteDocumentTest, WhatCannotBeSavedStaysDirty) {
    const auto document = SiteDocument::create(agent, {});
    add(*document, "Weather");
    const auto saved = document->save(folder / "no/such/folder/garden.site");
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, HasSubstr("garden.site"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(document->file(), "");
}

TEST_F(SiteDocumentTest, ASecondSavingThatFailsLeavesTheFirstFile) {
    const auto document = SiteDocument::create(agent, {});
    const auto file = folder / "garden.site";
    ASSERT_TRUE(document->save(file));
    const auto before = readFile(file);
    document->siteWindowController()->addPlugIn(std::make_shared<UnregisteredPlugIn>(), false);
    const auto saved = document->save(file);
    ASSERT_FALSE(saved);
    EXPECT_THAT(saved.error().message, StartsWith(file.string() + ": "));
    EXPECT_THAT(saved.error().message, HasSubstr("UnregisteredPlugIn"));
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(*readFile(file), *before);
}

TEST_F(SiteDocumentTest, OpeningNamesTheFileAndTheFault) {
    const auto missing = SiteDocument::open(folder / "none.site", {});
    ASSERT_FALSE(missing);
    EXPECT_THAT(missing.error().message, HasSubstr("none.site"));
    const auto file = folder.write("text.site", "no archive");
    const auto text = SiteDocument::open(file, {});
    ASSERT_FALSE(text);
    EXPECT_THAT(text.error().message, StartsWith(file.string() + ": "));
    EXPECT_GT(text.error().message.size(), file.string().size() + 2);
}

TEST_F(SiteDocumentTest, AnotherRootIsRefused) {
    const auto object = KeyedArchiver::archivedDataWithRootObject(Value(agent));
    EXPECT_EQ(readingError(*object), "the root is no Site Document but a ZORAgent");
    const auto dictionary = KeyedArchiver::archivedDataWithRootObject(Value(Value::Dictionary{{"title", "x"}}));
    EXPECT_EQ(readingError(*dictionary), "the root is no Site Document");
}

TEST_F(SiteDocumentTest, ADocumentWithoutAnAgentIsRefused) {
    const auto document = SiteDocument::create({}, {});
    EXPECT_EQ(readingError(*document->archive()), "agent: the Site Document has none");
}

class TestObject : public Object {};

/// The bytes with one name in place of another of the same length.
Bytes renamed(Bytes data, std::string_view from, std::string_view to) {
    auto place = data.begin();
    while ((place = std::search(place, data.end(), from.begin(), from.end())) != data.end()) {
        place = std::copy(to.begin(), to.end(), place);
    }
    return data;
}

TEST_F(SiteDocumentTest, AClassThatNoBundleBringsIsNamed) {
    const auto document = SiteDocument::create(agent, {});
    add(*document, "Weather");
    EXPECT_THAT(readingError(renamed(*document->archive(), "TestPlugIn", "LostPlugIn")), HasSubstr("LostPlugIn"));
}

TEST_F(SiteDocumentTest, NothingInTheListIsPassedOver) {
    const auto document = SiteDocument::create(agent, {});
    add(*document, "Weather");
    ClassBuilder<TestObject>("TestObject", &Object::staticClass()).creatable().registered();
    EXPECT_EQ(readingError(renamed(*document->archive(), "TestPlugIn", "TestObject")),
              "plugIns: an entry is no plug-in");
}

TEST_F(SiteDocumentTest, DirtinessIsAnnounced) {
    const auto document = SiteDocument::create(agent, {});
    std::vector<bool> announced;
    document->setDirtyObserver([&] { announced.push_back(document->isDirty()); });
    add(*document, "Weather");
    document->siteWindowController()->plugIns()[0]->setTitle("Rain");
    ASSERT_TRUE(document->save(folder / "a.site"));
    document->siteWindowController()->removePlugInAtIndex(0);
    EXPECT_THAT(announced, ElementsAre(true, false, true));
}

TEST_F(SiteDocumentTest, SeparateWindowsComeAfterTheSiteWindow) {
    const auto document = SiteDocument::create(agent, {});
    const auto weather = add(*document, "Weather");
    const auto separate = std::make_shared<WindowController>(std::make_shared<Window>());
    separate->setContentViewController(weather);
    document->addWindowController(separate);
    document->addWindowController({});
    EXPECT_THAT(document->windowControllers(), ElementsAre(document->siteWindowController(), separate));
    EXPECT_TRUE(document->isInSeparateWindow(*weather));
    TestPlugIn::takeCalls();
    document->removeWindowController(separate.get());
    document->removeWindowController(nullptr);
    EXPECT_THAT(document->windowControllers(), ElementsAre(document->siteWindowController()));
    EXPECT_FALSE(document->isInSeparateWindow(*weather));
    EXPECT_THAT(TestPlugIn::takeCalls(), IsEmpty());
}

TEST_F(SiteDocumentTest, ClosingTellsEveryPlugInOnce) {
    const auto document = SiteDocument::create(agent, {bundle("TestPlugIn")});
    document->siteWindowController()->window()->show();
    add(*document, "Weather", true);
    const auto rain = add(*document, "Rain");
    const auto separate = std::make_shared<WindowController>(std::make_shared<Window>());
    separate->setContentViewController(rain);
    separate->window()->show();
    document->addWindowController(separate);
    TestPlugIn::takeCalls();
    document->close();
    EXPECT_THAT(TestPlugIn::takeCalls(),
                ElementsAre("Weather: viewWillDisappear", "Weather: willUnload", "Rain: willUnload", "-: willUnload"));
    EXPECT_FALSE(document->siteWindowController()->window()->isVisible());
    EXPECT_FALSE(separate->window()->isVisible());
    document->close();
    EXPECT_THAT(TestPlugIn::takeCalls(), IsEmpty());
}

TEST_F(SiteDocumentTest, NothingOutlivesTheDocument) {
    auto document = SiteDocument::create(agent, {bundle("TestPlugIn")});
    add(*document, "Weather", true);
    const std::weak_ptr<SiteDocument> weakDocument = document;
    const std::weak_ptr<SiteWindowController> weakController = document->siteWindowController();
    const std::weak_ptr<ZORPlugIn> weakPlugIn = document->siteWindowController()->plugIns()[0];
    document->close();
    document.reset();
    EXPECT_TRUE(weakDocument.expired());
    EXPECT_TRUE(weakController.expired());
    EXPECT_TRUE(weakPlugIn.expired());
}

}  // namespace
}  // namespace zor
