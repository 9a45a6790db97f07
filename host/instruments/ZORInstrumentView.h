#pragma once

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "host/station/Agent.h"
#include "host/station/Settings.h"
#include "host/views/View.h"

namespace zor {

/// What a widget shows. Its settings are declared once, in `settings`, and serve the property panel, the archive, the
/// copy and the automation.
class ZORInstrumentView : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    /// The word for this kind of instrument: "textField", "led" ...; empty for what is no instrument of a factory.
    virtual std::string kind() const { return {}; }
    /// The list lives as long as the program. An override begins with its base class's.
    virtual const SettingList& settings() const;
    /// The string that it draws now, for instruments that draw one.
    virtual std::optional<std::string> text() const { return {}; }
    /// Least size at which it can be read, in points.
    virtual double minWidth() const { return 10; }
    virtual double minHeight() const { return 10; }

    /// An instrument of the same class with the same frame, settings and property.
    ObjectPtr copy() override;
    /// Writes every setting that has a value under its name.
    void encodeWithCoder(Encoder& encoder) override;
    /// A setting whose stored value is of the wrong kind or out of range keeps its default.
    bool initWithCoder(Decoder& decoder) override;

protected:
    /// Copies what no setting carries.
    virtual void copyStateTo(ZORInstrumentView& /*copy*/) const {}
    /// Stores and asks for a redraw: what most setters do.
    template <typename T>
    void store(T& field, std::type_identity_t<T> value) {
        field = std::move(value);
        setNeedsDisplay(true);
    }
};

/// An instrument that shows one property. It keeps the name also where the agent lacks it, shows "--" without a value,
/// and asks the agent of the plug-in above it when it enters a view tree with a name and no live property.
class LinkedInstrumentView : public ZORInstrumentView, public PropertyClient, private PropertyObserver {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORInstrumentView::ZORInstrumentView;
    ~LinkedInstrumentView() override;

    /// The property by its name.
    const SettingList& settings() const override;

    std::shared_ptr<Property> property() const override { return property_; }
    /// An empty pointer unlinks; the name is then kept only in `lastPropertyName`.
    void setProperty(const std::shared_ptr<Property>& property) override;
    std::optional<std::string> propertyName() const override { return isNamed_ ? lastPropertyName_ : std::nullopt; }
    /// An empty name unlinks.
    void linkProperty(const std::string& name, const std::shared_ptr<Property>& property) override;
    /// The name it was linked to last, for the list of unlinked instruments; nothing where it never was linked.
    const std::optional<std::string>& lastPropertyName() const { return lastPropertyName_; }
    /// By name alone: links to the property of that name of the agent above it. No name unlinks.
    void setPropertyName(const std::optional<std::string>& name);

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;
    void viewDidMoveToWindow() override;
    void viewDidMoveToSuperview() override;

protected:
    void copyStateTo(ZORInstrumentView& copy) const override;
    /// Called after the property or its value changed; the base class asks for a redraw.
    virtual void propertyChanged();
    /// In the unit shown; nothing without a live, fresh value.
    std::optional<double> currentValue() const;
    /// The station of the plug-in that the view tree belongs to, or none.
    std::shared_ptr<Agent> agentAbove() const;
    /// The station whose time and past it shows: that above it, unless it has one of its own.
    virtual std::shared_ptr<Agent> station() const { return agentAbove(); }
    /// Now for that station, or for the computer where there is none.
    Seconds stationTime() const;

private:
    void propertyDidChange() override { propertyChanged(); }
    void linkToAgentAbove();
    void unlink();

    std::shared_ptr<Property> property_;
    std::optional<std::string> lastPropertyName_;
    /// Whether the last name is its name now.
    bool isNamed_ = false;
};

}  // namespace zor
