#include "host/instruments/InstrumentSettings.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "host/foundation/Image.h"
#include "host/foundation/SafeFile.h"
#include "host/instruments/InstrumentDrawing.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

/// In the order of TextAlignment.
constexpr std::array<std::string_view, 3> alignmentNames{"left", "center", "right"};

/// Larger picture files are refused.
constexpr std::uintmax_t largestPictureFile = std::uintmax_t{1} << 28;

std::optional<Value> imageOfFile(const std::string& path) {
    auto data = readFile(path, largestPictureFile);
    if (!data) return {};
    const auto size = Toolkit::current().sizeOfImageData(*data);
    if (!size) return {};
    return Value(Image::withData(std::make_shared<const Bytes>(std::move(*data)), *size));
}

std::optional<Value> imageOf(const Value& value) {
    if (value.isAbsent() || value.isNull()) return Value();
    if (const auto image = value.as<Image>()) return Value(image->copy());
    if (value.isString()) return imageOfFile(value.asString());
    const auto size = value.size();
    if (!size || !isVisibleArea({0, 0, size->width, size->height})) return {};
    return Value(Image::plain(*size));
}

}  // namespace

Value ValueConversion<TextAlignment>::to(TextAlignment value) {
    return alignmentNames[static_cast<std::size_t>(value)];
}

std::optional<TextAlignment> ValueConversion<TextAlignment>::from(const Value& value) {
    const auto found = std::ranges::find(alignmentNames, value.asString());
    if (found == alignmentNames.end()) return {};
    return static_cast<TextAlignment>(found - alignmentNames.begin());
}

bool isUsableFont(const Font& font) {
    return !font.family.empty() && font.size >= smallestFontSize && font.size <= largestFontSize;
}

double bounded(double value, double minimum, double maximum) {
    return value > minimum ? std::min(value, maximum) : minimum;
}

SettingsBuilder& SettingsBuilder::add(std::string name, std::string label, SettingKind kind) {
    const auto* property = record_.property(name);
    assert(property && property->set);
    list_.push_back({std::move(name), std::move(label), kind, property->get, property->set});
    return *this;
}

SettingsBuilder& SettingsBuilder::number(std::string name, std::string label, double minimum, double maximum,
                                         std::string unit) {
    add(std::move(name), std::move(label), SettingKind::number);
    list_.back().minimum = minimum;
    list_.back().maximum = maximum;
    list_.back().unit = std::move(unit);
    return *this;
}

SettingsBuilder& SettingsBuilder::choice(std::string name, std::string label, SettingKind kind,
                                         std::vector<std::pair<Value, std::string>> choices) {
    add(std::move(name), std::move(label), kind);
    list_.back().choices = std::move(choices);
    return *this;
}

SettingsBuilder& SettingsBuilder::imageFile(std::string name, std::string label) {
    return add(std::move(name), std::move(label), SettingKind::imageFile).filtered(imageOf);
}

SettingsBuilder& SettingsBuilder::filtered(std::function<std::optional<Value>(const Value&)> convert) {
    auto& set = list_.back().set;
    set = [convert = std::move(convert), store = std::move(set)](Object& object, const Value& value) {
        const auto converted = convert(value);
        return converted && store(object, *converted);
    };
    return *this;
}

}  // namespace zor
