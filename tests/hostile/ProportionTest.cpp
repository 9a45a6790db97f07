// Documents with very many of something: what they cost grows with their size, not with its square. So many that work
// in proportion takes about a second, while its square takes minutes and meets the limit: no two times are compared,
// which on a busy machine, or one with a coarse clock, says nothing.

#include <gtest/gtest.h>

#include "host/station/SiteDocument.h"
#include "tests/hostile/ArchiveBuilder.h"
#include "tests/hostile/Resources.h"
#include "tests/hostile/SampleDocuments.h"
#include "tests/support/Sanitizers.h"

namespace zor::test {
namespace {

using Number = ArchiveBuilder::Number;

constexpr double secondsAtMost = 30;

/// Opening and closing a Site Document of that kind; under a sanitizer, which is there for other faults, fewer will do.
template <typename Make>
void expectProportion(const char* what, std::size_t count, Make make) {
    const Bytes data = make(isSanitized ? count / 10 : count);
    const TimeLimit limit(what, secondsAtMost);
    const auto status = openSite(data);
    EXPECT_TRUE(status) << status.error().message;
}

/// A Site Document of a station with these properties and plug-ins.
Bytes siteOf(ArchiveBuilder& archive, Number arrayClass, Number properties, Number plugIns) {
    const Number agent = archive.object(archive.classOf("ZORAgent"), {{"properties", archive.uid(properties)}});
    const Number none = archive.array(arrayClass, {});
    return archive.finish(archive.object(
        archive.classOf("ZORSiteDocument"),
        {{"agent", archive.uid(agent)}, {"plugIns", archive.uid(plugIns)}, {"entryPlugIns", archive.uid(none)}}));
}

Number dashboardOf(ArchiveBuilder& archive, Number arrayClass, const std::vector<Number>& widgets) {
    const Number canvas = archive.object(archive.classOf("ZORDashboardEditView"),
                                         {{"frame", archive.rawText("{{0, 0}, {400, 300}}")},
                                          {"subviews", archive.uid(archive.array(arrayClass, widgets))}});
    return archive.object(archive.classOf("ZORDashboardPlugIn"), {{"editView", archive.uid(canvas)}});
}

/// A Site Document of one dashboard with these widgets, whose station has no properties.
Bytes siteWithCanvasOf(ArchiveBuilder& archive, Number arrayClass, const std::vector<Number>& widgets) {
    const Number dashboard = dashboardOf(archive, arrayClass, widgets);
    return siteOf(archive, arrayClass, archive.array(arrayClass, {}), archive.array(arrayClass, {dashboard}));
}

TEST(Proportion, Dashboards) {
    expectProportion("dashboards", 50'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number dashboardClass = archive.classOf("ZORDashboardPlugIn");
        // Dashboards without a title would get one when they are written, each in front of the whole list.
        const auto title = archive.uid(archive.text("Weather"));
        std::vector<Number> all;
        for (std::size_t index = 0; index < count; ++index) {
            all.push_back(archive.object(dashboardClass, {{"title", title}}));
        }
        return siteOf(archive, arrayClass, archive.array(arrayClass, {}), archive.array(arrayClass, all));
    });
}

TEST(Proportion, Properties) {
    expectProportion("properties", 400'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number propertyClass = archive.classOf("ZORProperty");
        std::vector<Number> all;
        for (std::size_t index = 0; index < count; ++index) {
            const auto name = archive.uid(archive.text("property" + std::to_string(index)));
            all.push_back(archive.object(propertyClass, {{"name", name}}));
        }
        return siteOf(archive, arrayClass, archive.array(arrayClass, all), archive.array(arrayClass, {}));
    });
}

/// Widgets of that class, each with a property of its own where `linked`.
Bytes siteWithWidgets(std::size_t count, std::string_view className, bool linked) {
    ArchiveBuilder archive;
    const Number arrayClass = archive.classOf("NSArray");
    const Number propertyClass = archive.classOf("ZORProperty");
    const Number targetClass = archive.classOf(className);
    const Number widgetClass = archive.classOf("ZORWidgetHostView");
    std::vector<Number> properties;
    std::vector<Number> widgets;
    for (std::size_t index = 0; index < count; ++index) {
        const auto name = archive.uid(archive.text("property" + std::to_string(linked ? index : 0)));
        if (linked || index == 0) properties.push_back(archive.object(propertyClass, {{"name", name}}));
        const Number target = archive.object(targetClass, {{"propertyName", name}});
        widgets.push_back(archive.object(widgetClass, {{"targetView", archive.uid(target)}}));
    }
    const Number dashboard = dashboardOf(archive, arrayClass, widgets);
    return siteOf(archive, arrayClass, archive.array(arrayClass, properties), archive.array(arrayClass, {dashboard}));
}

TEST(Proportion, WidgetsOfOneProperty) {
    expectProportion("widgets of one property", 100'000,
                     [](std::size_t count) { return siteWithWidgets(count, "ZORTextFieldView", false); });
}

TEST(Proportion, WidgetsOfAPropertyEach) {
    expectProportion("widgets of a property each", 100'000,
                     [](std::size_t count) { return siteWithWidgets(count, "ZORLEDView", true); });
}

TEST(Proportion, Clocks) {
    expectProportion("clocks", 100'000,
                     [](std::size_t count) { return siteWithWidgets(count, "ZORDateTimeFieldView", false); });
}

TEST(Proportion, Plots) {
    expectProportion("plots", 100'000, [](std::size_t count) { return siteWithWidgets(count, "ZORPlotView", false); });
}

TEST(Proportion, SelectedWidgets) {
    expectProportion("selected widgets", 400'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number widgetClass = archive.classOf("ZORWidgetHostView");
        std::vector<Number> widgets;
        for (std::size_t index = 0; index < count; ++index) widgets.push_back(archive.object(widgetClass));
        const Number all = archive.array(arrayClass, widgets);
        const Number canvas = archive.object(archive.classOf("ZORDashboardEditView"), {{"subviews", archive.uid(all)}});
        const Number dashboard =
            archive.object(archive.classOf("ZORDashboardPlugIn"),
                           {{"editView", archive.uid(canvas)}, {"selectedObjects", archive.uid(all)}});
        return siteOf(archive, arrayClass, archive.array(arrayClass, {}), archive.array(arrayClass, {dashboard}));
    });
}

std::vector<Number> copiesOf(ArchiveBuilder& archive, std::size_t count, std::string_view className,
                             const ArchiveBuilder::Entries& entries = {}) {
    const Number itsClass = archive.classOf(className);
    std::vector<Number> all;
    for (std::size_t index = 0; index < count; ++index) all.push_back(archive.object(itsClass, entries));
    return all;
}

TEST(Proportion, WidgetsThatShareACanvas) {
    expectProportion("widgets that share a canvas", 100'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number below = archive.array(arrayClass, copiesOf(archive, count, "ZORWidgetHostView"));
        const Number target = archive.object(archive.classOf("ZORImageView"), {{"subviews", archive.uid(below)}});
        const auto widgets = copiesOf(archive, count, "ZORWidgetHostView", {{"targetView", archive.uid(target)}});
        return siteWithCanvasOf(archive, arrayClass, widgets);
    });
}

TEST(Proportion, DashboardsThatShareACanvas) {
    expectProportion("dashboards that share a canvas", 50'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number widgets = archive.array(arrayClass, copiesOf(archive, count, "ZORWidgetHostView"));
        const Number canvas =
            archive.object(archive.classOf("ZORDashboardEditView"), {{"subviews", archive.uid(widgets)}});
        const auto dashboards =
            copiesOf(archive, count, "ZORDashboardPlugIn",
                     {{"title", archive.uid(archive.text("Weather"))}, {"editView", archive.uid(canvas)}});
        return siteOf(archive, arrayClass, archive.array(arrayClass, {}), archive.array(arrayClass, dashboards));
    });
}

TEST(Proportion, DeeplyNestedWidgets) {
    expectProportion("deeply nested widgets", 20'000, [](std::size_t count) {
        constexpr int levels = 100;
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const Number widgetClass = archive.classOf("ZORWidgetHostView");
        const Number boxClass = archive.classOf("ZORBoxView");
        auto below = copiesOf(archive, count, "ZORLEDView", {{"propertyName", archive.uid(archive.text("rain"))}});
        for (int level = 0; level < levels; ++level) {
            const auto children = archive.uid(archive.array(arrayClass, below));
            const Number box = archive.object(boxClass, {{"subviews", children}});
            below = {archive.object(widgetClass, {{"targetView", archive.uid(box)}})};
        }
        return siteWithCanvasOf(archive, arrayClass, below);
    });
}

TEST(Proportion, CanvasesThatShareAChildThatIsNoWidget) {
    expectProportion("canvases that share a child that is no widget", 20'000, [](std::size_t count) {
        ArchiveBuilder archive;
        const Number arrayClass = archive.classOf("NSArray");
        const auto lights = archive.uid(archive.array(
            arrayClass, copiesOf(archive, count, "ZORLEDView", {{"propertyName", archive.uid(archive.text("rain"))}})));
        const Number box = archive.object(archive.classOf("ZORBoxView"), {{"subviews", lights}});
        const auto children = archive.uid(archive.array(arrayClass, {box}));
        std::vector<Number> widgets;
        const Number widgetClass = archive.classOf("ZORWidgetHostView");
        for (const Number canvas : copiesOf(archive, count, "ZORDashboardEditView", {{"subviews", children}})) {
            widgets.push_back(archive.object(widgetClass, {{"targetView", archive.uid(canvas)}}));
        }
        return siteWithCanvasOf(archive, arrayClass, widgets);
    });
}

TEST(Proportion, StationsThatShareAPropertyOfALongName) {
    constexpr std::size_t count = 2'000;
    ArchiveBuilder archive;
    const Number arrayClass = archive.classOf("NSArray");
    const auto name = archive.uid(archive.text(std::string(1 << 20, 'p')));
    const Number property = archive.object(archive.classOf("ZORProperty"), {{"name", name}});
    const auto properties = archive.uid(archive.array(arrayClass, {property}));
    const Number plugInClass = archive.classOf("ZORDashboardPlugIn");
    std::vector<Number> dashboards;
    for (const Number agent : copiesOf(archive, count, "ZORAgent", {{"properties", properties}})) {
        dashboards.push_back(archive.object(plugInClass, {{"agent", archive.uid(agent)}}));
    }
    const Bytes data =
        siteOf(archive, arrayClass, archive.array(arrayClass, {}), archive.array(arrayClass, dashboards));
    const TimeLimit limit("stations that share a property", secondsAtMost);
    const MemoryMeter meter;
    EXPECT_TRUE(SiteDocument::fromArchive(data, {}));
    EXPECT_LT(meter.peak(), std::size_t{256} << 20);
}

/// The fault of a Site Document whose dashboards' canvas holds objects of that class, all with the same value under the
/// key.
std::string faultOfShared(const char* what, std::string_view className, std::string_view key,
                          Number (*make)(ArchiveBuilder&, Number arrayClass, std::size_t count)) {
    const std::size_t count = isSanitized ? 10'000 : 100'000;
    ArchiveBuilder archive;
    const Number arrayClass = archive.classOf("NSArray");
    const auto shared = archive.uid(make(archive, arrayClass, count));
    const Bytes data =
        siteWithCanvasOf(archive, arrayClass, copiesOf(archive, count, className, {{key, shared}}));
    const TimeLimit limit(what, secondsAtMost);
    const MemoryMeter meter;
    const auto status = openSite(data);
    EXPECT_LT(meter.peak(), std::size_t{256} << 20);
    return status ? "" : status.error().message;
}

TEST(Proportion, ViewsThatShareTheirChildren) {
    const auto fault = faultOfShared("views that share their children", "View", "subviews",
                                     [](ArchiveBuilder& archive, Number arrayClass, std::size_t count) {
                                         return archive.array(arrayClass, copiesOf(archive, count, "View"));
                                     });
    EXPECT_TRUE(fault.ends_with(" is given entries that others are given too, out of proportion")) << fault;
}

TEST(Proportion, InstrumentsThatShareThresholds) {
    const auto fault =
        faultOfShared("instruments that share thresholds", "ZORLEDView", "thresholds",
                      [](ArchiveBuilder& archive, Number arrayClass, std::size_t count) {
                          return archive.array(arrayClass, std::vector<Number>(count, archive.text("#ff0000")));
                      });
    EXPECT_TRUE(fault.ends_with(" is given entries that others are given too, out of proportion")) << fault;
}

TEST(Proportion, LabelsThatShareAFontOfALongName) {
    const auto fault = faultOfShared(
        "labels that share a font of a long name", "ZORTextFieldView", "font",
        [](ArchiveBuilder& archive, Number, std::size_t) {
            return archive.dictionaryObject(
                archive.classOf("NSDictionary"),
                {{archive.text("family"), archive.text(std::string(1 << 20, 'F'))},
                 {archive.text("size"), archive.number(24)}});
        });
    EXPECT_TRUE(fault.ends_with(" is given entries that others are given too, out of proportion")) << fault;
}

TEST(Proportion, AMillionTimesTheSameDashboardAndWidget) {
    ArchiveBuilder archive;
    const Number arrayClass = archive.classOf("NSArray");
    const Number widget = archive.object(archive.classOf("ZORWidgetHostView"));
    const Number dashboard = dashboardOf(archive, arrayClass, std::vector<Number>(1'000'000, widget));
    const Bytes data = siteOf(archive, arrayClass, archive.array(arrayClass, {}),
                              archive.array(arrayClass, std::vector<Number>(1'000'000, dashboard)));
    const TimeLimit limit("a million times the same dashboard", 120);
    const MemoryMeter meter;
    const auto document = SiteDocument::fromArchive(data, {});
    ASSERT_TRUE(document) << document.error().message;
    const auto& plugIns = (*document)->siteWindowController()->plugIns();
    ASSERT_EQ(plugIns.size(), 1u);
    const auto read = std::dynamic_pointer_cast<ZORDashboardPlugIn>(plugIns[0]);
    EXPECT_EQ(read->editView()->subviews().size(), 1u);
    EXPECT_LT(meter.peak(), std::size_t{256} << 20);
    (*document)->close();
}

}  // namespace
}  // namespace zor::test
