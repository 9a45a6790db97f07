#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/instruments/InstrumentSettings.h"
#include "host/instruments/ZORInstrumentView.h"
#include "host/station/ZORPlugIn.h"

namespace zor {

const ClassRecord& LinkedInstrumentView::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<LinkedInstrumentView>("LinkedInstrumentView", &ZORInstrumentView::staticClass())
            .action("setProperty:", &LinkedInstrumentView::setProperty)
            .property("property", &LinkedInstrumentView::property, &LinkedInstrumentView::setProperty)
            .property("propertyName", &LinkedInstrumentView::propertyName, &LinkedInstrumentView::setPropertyName)
            .property("lastPropertyName", &LinkedInstrumentView::lastPropertyName)
            .registered();
    return record;
}

LinkedInstrumentView::~LinkedInstrumentView() {
    if (property_) property_->removeObserver(this);
}

const SettingList& LinkedInstrumentView::settings() const {
    static const SettingList list = SettingsBuilder(staticClass(), ZORInstrumentView::settings())
                                        .add("propertyName", "Property", SettingKind::property)
                                        .build();
    return list;
}

void LinkedInstrumentView::setProperty(const std::shared_ptr<Property>& property) {
    if (property) {
        linkProperty(property->propertyName(), property);
    } else {
        unlink();
    }
}

void LinkedInstrumentView::setPropertyName(const std::optional<std::string>& name) {
    if (!name) return unlink();
    linkProperty(*name, ask(agentAbove(), [&](const Agent& agent) { return agent.properties().find(*name); }));
}

void LinkedInstrumentView::linkProperty(const std::string& name, const std::shared_ptr<Property>& property) {
    if (name.empty()) return unlink();
    if (property != property_) {
        if (property_) property_->removeObserver(this);
        property_ = property;
        if (property_) property_->addObserver(this);
    }
    lastPropertyName_ = name;
    isNamed_ = true;
    propertyChanged();
}

void LinkedInstrumentView::unlink() {
    if (!isNamed_) return;
    if (property_) property_->removeObserver(this);
    property_.reset();
    isNamed_ = false;
    propertyChanged();
}

void LinkedInstrumentView::encodeWithCoder(Encoder& encoder) {
    ZORInstrumentView::encodeWithCoder(encoder);
    if (lastPropertyName_) encoder.encodeValue("lastPropertyName", *lastPropertyName_);
}

bool LinkedInstrumentView::initWithCoder(Decoder& decoder) {
    if (!ZORInstrumentView::initWithCoder(decoder)) return false;
    if (!lastPropertyName_) lastPropertyName_ = decoder.decodeString("lastPropertyName");
    return true;
}

void LinkedInstrumentView::viewDidMoveToWindow() {
    ZORInstrumentView::viewDidMoveToWindow();
    linkToAgentAbove();
}

void LinkedInstrumentView::viewDidMoveToSuperview() {
    ZORInstrumentView::viewDidMoveToSuperview();
    linkToAgentAbove();
}

void LinkedInstrumentView::copyStateTo(ZORInstrumentView& copy) const {
    ZORInstrumentView::copyStateTo(copy);
    auto& linked = dynamic_cast<LinkedInstrumentView&>(copy);
    if (isNamed_) linked.linkProperty(*lastPropertyName_, property_);
    linked.lastPropertyName_ = lastPropertyName_;
}

void LinkedInstrumentView::propertyChanged() {
    setNeedsDisplay(true);
}

std::optional<double> LinkedInstrumentView::currentValue() const {
    return ask(property_, [](const Property& property) { return property.valueInUnit(); });
}

std::shared_ptr<Agent> LinkedInstrumentView::agentAbove() const {
    for (const Responder* responder = this; responder; responder = responder->nextResponder()) {
        // The class record tells without a cast: views may be nested deeply.
        if (responder->isKindOf(ZORPlugIn::staticClass())) return static_cast<const ZORPlugIn*>(responder)->agent();
    }
    return {};
}

Seconds LinkedInstrumentView::stationTime() const {
    const auto shown = station();
    return shown ? shown->now() : now();
}

void LinkedInstrumentView::linkToAgentAbove() {
    if (!isNamed_ || property_) return;
    const auto agent = agentAbove();
    // Without a property of that name nothing changes, so that nothing is told.
    if (const auto found = agent ? agent->properties().find(*lastPropertyName_) : nullptr) {
        linkProperty(*lastPropertyName_, found);
    }
}

}  // namespace zor
