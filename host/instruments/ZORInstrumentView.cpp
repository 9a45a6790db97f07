#include "host/instruments/ZORInstrumentView.h"

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"

namespace zor {

namespace {

/// What an archive holds for a setting. Writers may store a boolean as an integer. Only a person names a picture's file:
/// an archive could name any that this computer has.
std::optional<Value> storedValue(Decoder& decoder, const Setting& setting) {
    auto value = decoder.decodeValueIfPresent(setting.name);
    if (value && setting.kind == SettingKind::boolean && value->isInteger()) *value = value->asInteger() != 0;
    if (value && setting.kind == SettingKind::imageFile && value->isString()) value.reset();
    return value;
}

}  // namespace

const ClassRecord& ZORInstrumentView::staticClass() {
    static const ClassRecord& record = ClassBuilder<ZORInstrumentView>("ZORInstrumentView", &View::staticClass())
                                           .property("kind", &ZORInstrumentView::kind)
                                           .property("text", &ZORInstrumentView::text)
                                           .property("minWidth", &ZORInstrumentView::minWidth)
                                           .property("minHeight", &ZORInstrumentView::minHeight)
                                           .registered();
    return record;
}

const SettingList& ZORInstrumentView::settings() const {
    static const SettingList list;
    return list;
}

ObjectPtr ZORInstrumentView::copy() {
    const auto instrument = std::dynamic_pointer_cast<ZORInstrumentView>(classRecord().create());
    if (!instrument) return {};
    instrument->setFrame(frame());
    for (const auto& setting : settings()) setting.set(*instrument, setting.get(*this));
    copyStateTo(*instrument);
    return instrument;
}

void ZORInstrumentView::encodeWithCoder(Encoder& encoder) {
    View::encodeWithCoder(encoder);
    for (const auto& setting : settings()) {
        const Value value = setting.get(*this);
        if (!value.isAbsent()) encoder.encodeValue(setting.name, value);
    }
}

bool ZORInstrumentView::initWithCoder(Decoder& decoder) {
    if (!View::initWithCoder(decoder)) return false;
    for (const auto& setting : settings()) {
        // A refused value leaves the default, which is all that can be done with a bad file.
        if (const auto value = storedValue(decoder, setting)) (void)applySetting(*this, setting, *value);
    }
    return true;
}

}  // namespace zor
