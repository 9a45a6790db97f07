// Well-formed documents that say what none of ours says: a clear error, or a document that does no harm.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "host/station/SiteDocument.h"
#include "tests/hostile/ArchiveBuilder.h"
#include "tests/hostile/Resources.h"
#include "tests/hostile/SampleDocuments.h"

namespace zor::test {
namespace {

using Number = ArchiveBuilder::Number;

class StrangeDocument : public ::testing::Test {
protected:
    /// The document of a station without properties that holds these plug-ins.
    Bytes siteWith(const std::vector<Number>& plugIns) {
        const Number agent = archive.object(archive.classOf("ZORAgent"));
        return siteOf(agent, archive.array(arrayClass, plugIns));
    }
    Bytes siteOf(Number agent, Number plugIns) {
        const Number none = archive.array(arrayClass, {});
        return archive.finish(archive.object(
            archive.classOf("ZORSiteDocument"),
            {{"agent", archive.uid(agent)}, {"plugIns", archive.uid(plugIns)}, {"entryPlugIns", archive.uid(none)}}));
    }
    Number canvas(const std::string& frame, const std::vector<Number>& children) {
        return archive.object(archive.classOf("ZORDashboardEditView"),
                              {{"frame", archive.rawText(frame)},
                               {"editMode", archive.boolean(true)},
                               {"drawGridLines", archive.boolean(true)},
                               {"subviews", archive.uid(archive.array(arrayClass, children))}});
    }
    Number dashboard(Number canvasNumber) {
        return archive.object(archive.classOf("ZORDashboardPlugIn"), {{"editView", archive.uid(canvasNumber)}});
    }
    Number widget(const std::string& frame, Number target) {
        return archive.object(archive.classOf("ZORWidgetHostView"),
                              {{"frame", archive.rawText(frame)}, {"targetView", archive.uid(target)}});
    }
    std::string faultOf(const Bytes& data) const {
        const TimeLimit limit("strange document", 60);
        const MemoryMeter meter;
        const auto read = SiteDocument::fromArchive(data, {});
        EXPECT_LT(meter.peak(), std::size_t{256} << 20);
        if (!read) return read.error().message;
        (*read)->close();
        return "no error";
    }
    /// The one dashboard of a document that opens.
    std::shared_ptr<ZORDashboardPlugIn> opened(const Bytes& data) {
        const auto read = SiteDocument::fromArchive(data, {});
        EXPECT_TRUE(read) << read.error().message;
        if (!read) return {};
        document = *read;
        return std::dynamic_pointer_cast<ZORDashboardPlugIn>(document->siteWindowController()->plugIns().at(0));
    }
    void TearDown() override {
        if (document) document->close();
    }

    ArchiveBuilder archive;
    Number arrayClass = archive.classOf("NSArray");
    std::shared_ptr<SiteDocument> document;
};

TEST_F(StrangeDocument, ReferencesBeyondTheObjectsAreRefused) {
    const Bytes missing = siteOf(99'999, archive.array(arrayClass, {}));
    EXPECT_EQ(faultOf(missing).substr(0, 7), "object ");
    EXPECT_NE(faultOf(missing).find(" refers to object 99999, which does not exist"), std::string::npos);
}

TEST_F(StrangeDocument, ReferencesOfEightBytesAreRefused) {
    const Bytes missing = siteOf(~Number{0}, archive.array(arrayClass, {}));
    EXPECT_NE(faultOf(missing).find(" refers to object 18446744073709551615, which does not exist"), std::string::npos);
}

TEST_F(StrangeDocument, DashboardsThatAreNoneAreRefused) {
    EXPECT_EQ(faultOf(siteWith({archive.text("dashboard")})), "plugIns: an entry is no plug-in");
    ArchiveBuilder other;
    std::swap(archive, other);
    arrayClass = archive.classOf("NSArray");
    EXPECT_EQ(faultOf(siteOf(archive.text("agent"), archive.array(arrayClass, {}))),
              "agent: the Site Document has none");
}

TEST_F(StrangeDocument, ADocumentThatHoldsItselfIsRefused) {
    const Number plugIns = archive.next() + 2;
    const Number agent = archive.object(archive.classOf("ZORAgent"));
    ASSERT_EQ(agent + 1, plugIns);
    // The array, its empty neighbour, the class, then the document.
    archive.array(arrayClass, {plugIns + 3});
    EXPECT_EQ(faultOf(siteOf(agent, plugIns)), "plugIns: an entry is no plug-in");
}

TEST_F(StrangeDocument, ACanvasInsideOfItselfLosesItsInnerPart) {
    // The widget's target is the canvas that the widget lies on.
    const Number widgetNumber = archive.next() + 1;
    const Number canvasNumber = widgetNumber + 3;
    ASSERT_EQ(widget("{{0, 0}, {10, 10}}", canvasNumber), widgetNumber);
    ASSERT_EQ(canvas("{{0, 0}, {400, 300}}", {widgetNumber}), canvasNumber);
    const auto read = opened(siteWith({dashboard(canvasNumber)}));
    ASSERT_TRUE(read);
    std::function<std::size_t(const View&)> views = [&](const View& view) {
        std::size_t count = 1;
        for (const auto& child : view.subviews()) count += views(*child);
        return count;
    };
    EXPECT_LE(views(*read->editView()), 2u);
}

TEST_F(StrangeDocument, ViewsNestedAMillionDeepAreRefused) {
    const Number viewClass = archive.classOf("View");
    const Number first = archive.next();
    for (Number level = 0; level < 1'000'000; ++level) {
        // Each is followed by the array that holds the next one.
        archive.object(viewClass, {{"subviews", archive.uid(first + 2 * level + 1)}});
        archive.array(arrayClass, {first + 2 * level + 2});
    }
    archive.object(viewClass);
    const Number outermost = canvas("{{0, 0}, {1, 1}}", {first});
    EXPECT_NE(faultOf(siteWith({dashboard(outermost)})).find(" nests deeper than 512 levels"), std::string::npos);
}

TEST_F(StrangeDocument, AnEnormousCanvasIsOpenedAndNotDrawn) {
    const Number box = archive.object(archive.classOf("ZORBoxView"));
    const Number enormous = canvas("{{0, 0}, {1e300, 1e300}}", {widget("{{1e300, -1e300}, {1e308, 1e308}}", box)});
    const auto read = opened(siteWith({dashboard(enormous)}));
    ASSERT_TRUE(read);
    const TimeLimit limit("an enormous canvas", 10);
    const MemoryMeter meter;
    EXPECT_EQ(read->editView()->frame(), (Rect{0, 0, 1e300, 1e300}));
    document->siteWindowController()->selectPlugInAtIndex(0);
    EXPECT_FALSE(read->pdfRepresentation());
    EXPECT_FALSE(read->pngImageWithScale(1));
    EXPECT_TRUE(document->archive());
    EXPECT_LT(meter.peak(), std::size_t{64} << 20);
}

TEST_F(StrangeDocument, SizesThatAreNoNumbersDoNoHarm) {
    for (const auto* frame : {"{{nan, nan}, {nan, nan}}", "{{-inf, 0}, {inf, nan}}", "{{0, 0}, {-5, -1e300}}"}) {
        archive = {};
        arrayClass = archive.classOf("NSArray");
        const Number gauge =
            archive.object(archive.classOf("ZORRoundGaugeView"), {{"minimum", archive.real(std::nan(""))},
                                                                  {"maximum", archive.real(HUGE_VAL)},
                                                                  {"automaticRange", archive.boolean(false)}});
        const auto read = opened(siteWith({dashboard(canvas(frame, {widget(frame, gauge)}))}));
        ASSERT_TRUE(read) << frame;
        const TimeLimit limit(frame, 10);
        document->siteWindowController()->selectPlugInAtIndex(0);
        (void)read->pdfRepresentation();
        ASSERT_EQ(read->editView()->subviews().size(), 1u) << frame;
        const Rect inner = read->editView()->subviews()[0]->frame();
        EXPECT_TRUE(std::isfinite(inner.x) && std::isfinite(inner.width) && std::isfinite(inner.height)) << frame;
        EXPECT_TRUE(document->archive()) << frame;
        document->close();
    }
}

TEST_F(StrangeDocument, AnArrayOfTwoToTheSixtyThirdIsRefused) {
    Bytes data = siteWith({});
    // The array of objects is the last but one that is written first; a count of nine bytes in place of its own.
    const Bytes wanted{0xAF, 0x13, 0x80, 0, 0, 0, 0, 0, 0, 0};
    std::size_t places = 0;
    for (std::size_t place = 8; place + wanted.size() < data.size(); ++place) {
        if ((data[place] & 0xF0) != 0xA0) continue;
        Bytes changed = data;
        std::ranges::copy(wanted, changed.begin() + static_cast<std::ptrdiff_t>(place));
        const auto fault = faultOf(changed);
        places += fault.find("a count larger than the file can hold") != std::string::npos;
        EXPECT_NE(fault, "no error") << place;
    }
    EXPECT_GT(places, 0u);
}

}  // namespace
}  // namespace zor::test
