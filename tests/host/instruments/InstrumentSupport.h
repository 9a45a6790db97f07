#pragma once
// What the tests of instruments and widgets share.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/instruments/InstrumentClasses.h"
#include "host/instruments/ZORImageView.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "host/station/ZORPlugIn.h"
#include "host/views/RecordingContext.h"
#include "tests/support/FakeToolkit.h"

namespace zor::test {

/// Through an archive and back; empty where that fails.
template <typename T>
std::shared_ptr<T> roundTrip(const std::shared_ptr<T>& object) {
    registerInstrumentClasses();
    const auto data = KeyedArchiver::archivedDataWithRootObject(object);
    if (!data) return {};
    const auto root = KeyedUnarchiver::unarchivedRoot(*data);
    return root ? root->template as<T>() : nullptr;
}

/// What an object wrote, or what is to be read, as a dictionary in place of an archive.
class DictionaryCoder : public Encoder, public Decoder {
public:
    DictionaryCoder() = default;
    explicit DictionaryCoder(Value::Dictionary given) : values(std::move(given)) {}
    Value::Dictionary values;

    void encodeBool(std::string_view key, bool value) override { set(key, value); }
    void encodeInteger(std::string_view key, std::int64_t value) override { set(key, value); }
    void encodeDouble(std::string_view key, double value) override { set(key, value); }
    void encodeRect(std::string_view key, const Rect& value) override { set(key, value); }
    void encodePoint(std::string_view key, Point value) override { set(key, value); }
    void encodeSize(std::string_view key, Size value) override { set(key, value); }
    void encodeValue(std::string_view key, const Value& value) override { set(key, value); }

    bool containsValueForKey(std::string_view key) const override { return values.contains(key); }
    bool decodeBool(std::string_view key) override { return get(key).asBool(); }
    std::int64_t decodeInteger(std::string_view key) override { return get(key).asInteger(); }
    double decodeDouble(std::string_view key) override { return get(key).asReal(); }
    Rect decodeRect(std::string_view key) override { return get(key).rect().value_or(Rect{}); }
    Point decodePoint(std::string_view key) override { return get(key).point().value_or(Point{}); }
    Size decodeSize(std::string_view key) override { return get(key).size().value_or(Size{}); }
    Value decodeValue(std::string_view key) override { return get(key); }
    ObjectPtr context(std::string_view) const override { return {}; }

    std::vector<std::string> keys() const {
        std::vector<std::string> names;
        for (const auto& [key, value] : values) names.push_back(key);
        return names;
    }

private:
    void set(std::string_view key, Value value) { values.insert_or_assign(std::string(key), std::move(value)); }
    Value get(std::string_view key) const {
        const auto found = values.find(key);
        return found == values.end() ? Value() : found->second;
    }
};

/// A plug-in with a view, and what its responder operations were told.
class TestPlugIn : public ZORPlugIn {
public:
    static std::shared_ptr<TestPlugIn> withAgent(const std::shared_ptr<Agent>& agent) {
        auto plugIn = std::make_shared<TestPlugIn>();
        plugIn->initWithAgentSiteWindowController(agent, {});
        return plugIn;
    }

    std::function<void(const std::string& name)> told = [](const std::string&) {};
    void mouseDown(const EventPtr&) override { told("press"); }
    void mouseDragged(const EventPtr&) override { told("drag"); }
    void mouseUp(const EventPtr&) override { told("release"); }
};

/// A view that holds widgets, such as the dashboard has.
class TestCanvas : public ZORImageView {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<TestCanvas>("TestCanvas", &ZORImageView::staticClass()).creatable().registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORImageView::ZORImageView;
    bool isCanvas() const override { return true; }
};

inline std::shared_ptr<Property> temperature(std::optional<double> celsius) {
    auto property = std::make_shared<Property>("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    property->setValue(celsius, 1000);
    return property;
}

inline RecordingContext drawn(View& view) {
    RecordingContext context;
    view.drawRect(context, view.bounds());
    return context;
}

}  // namespace zor::test
