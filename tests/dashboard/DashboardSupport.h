#pragma once

#include <limits>
// What the tests of the dashboard and its canvas share.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dashboard/ZORDashboardPlugIn.h"
#include "tests/host/instruments/InstrumentSupport.h"

namespace zor::test {

inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();

inline std::shared_ptr<ZORWidgetHostView> box(const Rect& frame) {
    return ZORWidgetHostView::boxWithRect(frame);
}

/// A label that shows a fixed text.
inline std::shared_ptr<ZORWidgetHostView> label(const Rect& frame, const std::string& text) {
    auto widget = ZORWidgetHostView::textFieldWithRect(frame);
    widget->targetView()->setValueForKey("useProperty", false);
    widget->targetView()->setValueForKey("stringToDraw", text);
    return widget;
}

inline std::shared_ptr<ZORDashboardPlugIn> dashboardOf(WidgetList widgets, Size size = {}) {
    return ZORDashboardPlugIn::initWithAgent(Agent::withName("A"), {}, std::move(widgets), size);
}

inline std::shared_ptr<ZORDashboardEditView> canvasOf(const WidgetList& widgets, Size size = {400, 300}) {
    auto canvas = ZORDashboardEditView::initWithFrame({0, 0, size.width, size.height});
    for (const auto& widget : widgets) canvas->addSubview(widget);
    return canvas;
}

/// The widgets of a canvas from the lowest to the highest.
inline WidgetList widgetsOn(const std::shared_ptr<ZORDashboardEditView>& canvas) {
    WidgetList widgets;
    for (const auto& view : canvas->subviews()) widgets.push_back(std::dynamic_pointer_cast<ZORWidgetHostView>(view));
    return widgets;
}

template <typename T>
std::vector<T> eachOf(const WidgetList& widgets, T (ZORWidgetHostView::*getter)() const) {
    std::vector<T> values;
    for (const auto& widget : widgets) values.push_back((*widget.*getter)());
    return values;
}

inline std::vector<Rect> framesOf(const WidgetList& widgets) {
    std::vector<Rect> frames;
    for (const auto& widget : widgets) frames.push_back(widget->frame());
    return frames;
}

inline std::vector<std::int64_t> zOrdersOn(const std::shared_ptr<ZORDashboardEditView>& canvas) {
    return eachOf(widgetsOn(canvas), &ZORWidgetHostView::zOrder);
}

inline std::vector<bool> editableOn(const std::shared_ptr<ZORDashboardEditView>& canvas) {
    return eachOf(widgetsOn(canvas), &ZORWidgetHostView::editable);
}

/// What an object writes, in the order of writing.
class WritingOrder : public Encoder {
public:
    std::vector<std::pair<std::string, Value>> written;

    void encodeBool(std::string_view key, bool value) override { note(key, value); }
    void encodeInteger(std::string_view key, std::int64_t value) override { note(key, value); }
    void encodeDouble(std::string_view key, double value) override { note(key, value); }
    void encodeRect(std::string_view key, const Rect& value) override { note(key, value); }
    void encodePoint(std::string_view key, Point value) override { note(key, value); }
    void encodeSize(std::string_view key, Size value) override { note(key, value); }
    void encodeValue(std::string_view key, const Value& value) override { note(key, value); }

    std::vector<std::string> keys() const {
        std::vector<std::string> keys;
        for (const auto& [key, value] : written) keys.push_back(key);
        return keys;
    }
    std::vector<std::string> lastKeys(std::size_t count) const {
        const auto all = keys();
        return {all.end() - static_cast<std::ptrdiff_t>(std::min(count, all.size())), all.end()};
    }
    Value valueOf(std::string_view key) const {
        for (const auto& [each, value] : written) {
            if (each == key) return value;
        }
        return {};
    }

private:
    void note(std::string_view key, const Value& value) { written.emplace_back(key, value); }
};

/// Reads with an agent of its own, as a Site Document does.
class ReadingFor : public DictionaryCoder {
public:
    ReadingFor(std::shared_ptr<Agent> agent, Value::Dictionary given)
        : DictionaryCoder(std::move(given)), agent_(std::move(agent)) {}
    ObjectPtr context(std::string_view name) const override { return name == "agent" ? agent_ : nullptr; }

private:
    std::shared_ptr<Agent> agent_;
};

inline std::shared_ptr<ZORDashboardPlugIn> dashboardRead(Value::Dictionary given,
                                                         const std::shared_ptr<Agent>& agent = Agent::withName("A")) {
    ReadingFor decoder(agent, std::move(given));
    auto dashboard = std::make_shared<ZORDashboardPlugIn>();
    return dashboard->initWithCoder(decoder) ? dashboard : nullptr;
}

/// Through an archive and back, bound to `agent`.
inline std::shared_ptr<ZORDashboardPlugIn> reopened(const std::shared_ptr<ZORDashboardPlugIn>& dashboard,
                                                    const std::shared_ptr<Agent>& agent = Agent::withName("A")) {
    const auto data = KeyedArchiver::archivedDataWithRootObject(dashboard);
    if (!data) return {};
    const auto root = KeyedUnarchiver::unarchivedRoot(*data, {.context = {{"agent", agent}}});
    return root ? root->as<ZORDashboardPlugIn>() : nullptr;
}

}  // namespace zor::test
