#include "qt/panel/SettingEditor.h"

#include <utility>

#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"

namespace zor {

std::shared_ptr<Property> PanelContext::property() const {
    const auto client = std::dynamic_pointer_cast<PropertyClient>(target.lock());
    return ask(client, [](const PropertyClient& shown) { return shown.property(); });
}

SettingEditor::SettingEditor(PanelContext context) : context_(std::move(context)) {}

void SettingEditor::setValue(const Value& value) {
    if (hasValue_ && value == value_) return;
    hasValue_ = true;
    value_ = value;
    settle();
}

bool SettingEditor::offer(const Value& value) {
    const Value before = std::exchange(value_, value);
    const Status status = taker_ ? taker_(value) : success();
    if (!status) {
        value_ = before;
        refuse(reasonFor(value, toQt(status.error().message)));
        return false;
    }
    refused_ = false;
    if (reasonObserver_) reasonObserver_({});
    return true;
}

void SettingEditor::refuse(const QString& reason) {
    refused_ = true;
    if (reasonObserver_) reasonObserver_(reason);
}

void SettingEditor::settle() {
    if (std::exchange(refused_, false) && reasonObserver_) reasonObserver_({});
    display(value_);
}

QString SettingEditor::reasonFor(const Value&, const QString& reason) const {
    return reason;
}

SettingEditor* makeSettingEditor(const Setting& setting, const PanelContext& context) {
    switch (setting.kind) {
        case SettingKind::text:
            return makeTextEditor(context);
        case SettingKind::number:
            return makeNumberEditor(setting, context);
        case SettingKind::boolean:
            return makeSwitchEditor(context);
        case SettingKind::choice:
            return makeChoiceEditor(setting, context);
        case SettingKind::color:
            return makeColorEditor(context);
        case SettingKind::font:
            return makeFontEditor(context);
        case SettingKind::alignment:
            return makeAlignmentEditor(context);
        case SettingKind::property:
            return makePropertyEditor(context);
        case SettingKind::numberFormat:
            return makeNumberFormatEditor(setting, context);
        case SettingKind::dateFormat:
            return makeDateFormatEditor(context);
        case SettingKind::imageFile:
            return makeImageEditor(context);
        case SettingKind::url:
            return makeUrlEditor(context);
        case SettingKind::thresholds:
            return makeThresholdsEditor(context);
    }
    return makeTextEditor(context);
}

}  // namespace zor
