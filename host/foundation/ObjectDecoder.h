#pragma once

#include "host/foundation/ArchiveReader.h"
#include "host/foundation/Coder.h"

namespace zor {

/// One object's values by key, for its initWithCoder.
class ObjectDecoder final : public Decoder {
public:
    /// `layout` is that of the node's keys, where one is known.
    ObjectDecoder(ArchiveReader& reader, PropertyList::Index node, ArchiveReader::Number number, KeyLayout* layout)
        : reader_(reader),
          list_(reader.list()),
          node_(node),
          values_(list_.values(node)),
          number_(number),
          layout_(layout) {}

    bool containsValueForKey(std::string_view key) const override { return find(key).has_value(); }
    bool decodeBool(std::string_view key) override { return number(key).asBool(); }
    std::int64_t decodeInteger(std::string_view key) override { return number(key).asInteger(); }
    double decodeDouble(std::string_view key) override { return number(key).asReal(); }
    Rect decodeRect(std::string_view key) override {
        const auto node = find(key);
        const auto text = node ? textNode(*node) : std::nullopt;
        return text ? orFailure(reader_.rect(*text)) : geometry(node, rectFromString, &Value::rect);
    }
    Point decodePoint(std::string_view key) override { return geometry(find(key), pointFromString, &Value::point); }
    Size decodeSize(std::string_view key) override { return geometry(find(key), sizeFromString, &Value::size); }
    Value decodeValue(std::string_view key) override { return decodeValueIfPresent(key).value_or(Value()); }
    std::optional<Value> decodeValueIfPresent(std::string_view key) override;
    ObjectPtr context(std::string_view name) const override;

    /// Why the first value that was asked for and cannot be decoded cannot be.
    const ArchiveFailure& failure() const { return failure_; }

private:
    std::optional<PropertyList::Index> find(std::string_view key) const {
        if (!layout_ || key.starts_with('$')) return search(key);
        const auto place = layout_->place(key, step_);
        return place ? std::optional(values_[*place]) : std::nullopt;
    }
    std::optional<PropertyList::Index> search(std::string_view key) const;
    /// A boolean, integer or real; otherwise absent.
    Value number(std::string_view key) const;

    std::optional<PropertyList::Index> textNode(PropertyList::Index node) const {
        const auto plain = reader_.plainNode(node);
        return plain && list_.kind(*plain) == PropertyList::Kind::string ? plain : std::nullopt;
    }

    /// Zero where texts are repeated out of proportion, which fails the object.
    template <typename Shape>
    Shape orFailure(const std::optional<Shape>& shape) {
        if (!shape && !failure_) failure_ = {ArchiveFailure::Reason::textOutOfProportion, number_};
        return shape.value_or(Shape{});
    }

    /// From its text, or from an array of numbers.
    template <typename Shape>
    Shape geometry(std::optional<PropertyList::Index> node, Shape (*fromText)(std::string_view),
                   std::optional<Shape> (Value::*fromValue)() const) {
        if (!node) return {};
        if (const auto text = textNode(*node)) {
            const auto content = reader_.text(*text);
            return orFailure(content ? std::optional(fromText(*content)) : std::nullopt);
        }
        std::optional<Value> taken;
        (void)reader_.take(*node, number_, taken);
        if (!taken) return {};
        return taken->isString() ? fromText(taken->asString()) : ((*taken).*fromValue)().value_or(Shape{});
    }

    ArchiveReader& reader_;
    const PropertyList& list_;
    const PropertyList::Index node_;
    const std::span<const PropertyList::Index> values_;
    const ArchiveReader::Number number_;
    KeyLayout* const layout_;
    /// Of the layout.
    mutable std::size_t step_ = 0;
    ArchiveFailure failure_;
};

}  // namespace zor
