#include <QHBoxLayout>
#include <cmath>
#include <limits>

#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

class NumberEditor final : public SettingEditor {
public:
    NumberEditor(const Setting& setting, const PanelContext& context)
        : SettingEditor(context), field_(new NumberField(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(field_);
        setFocusProxy(field_);
        constexpr double anything = std::numeric_limits<double>::infinity();
        field_->setRange(setting.minimum.value_or(-anything), setting.maximum.value_or(anything));
        field_->setUnit(toQt(setting.unit));
        field_->setObserver([this](std::optional<double> number) {
            if (number) {
                offer(ofSameKind(*number));
            } else {
                refuse(tr("must be a number"));
            }
        });
        field_->setLeftObserver([this] { settle(); });
    }

private:
    void display(const Value& value) override { field_->setNumber(value.asReal()); }

    /// A setting that holds an integer takes no other number.
    Value ofSameKind(double number) const {
        if (value().isInteger() && number == std::floor(number)) return static_cast<std::int64_t>(number);
        return number;
    }

    NumberField* field_;
};

}  // namespace

SettingEditor* makeNumberEditor(const Setting& setting, const PanelContext& context) {
    return new NumberEditor(setting, context);
}

}  // namespace zor
