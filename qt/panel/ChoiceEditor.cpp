#include <QComboBox>
#include <QHBoxLayout>
#include <algorithm>

#include "host/station/ValueFormats.h"
#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"

namespace zor {

namespace {

class ChoiceEditor : public SettingEditor {
public:
    ChoiceEditor(const Setting& setting, const PanelContext& context)
        : SettingEditor(context), box_(new QComboBox(this)), choices_(setting.choices) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(box_);
        setFocusProxy(box_);
        box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box_->setPlaceholderText(tr("Other"));
        for (const auto& choice : choices_) box_->addItem(toQt(choice.second));
        connect(box_, &QComboBox::activated, this,
                [this](int index) { offer(choices_[static_cast<std::size_t>(index)].first); });
    }

protected:
    void setItemText(std::size_t index, const QString& text) {
        const int row = static_cast<int>(index);
        if (box_->itemText(row) != text) box_->setItemText(row, text);
    }
    const auto& choices() const { return choices_; }

private:
    void display(const Value& value) override {
        const auto found =
            std::ranges::find(choices_, value, [](const auto& choice) -> const Value& { return choice.first; });
        box_->setCurrentIndex(found == choices_.end() ? -1 : static_cast<int>(found - choices_.begin()));
    }

    QComboBox* box_;
    std::vector<std::pair<Value, std::string>> choices_;
};

/// Every format beside what it makes of the value that is shown now.
class NumberFormatEditor final : public ChoiceEditor {
public:
    using ChoiceEditor::ChoiceEditor;

    void refreshExamples() override {
        const auto property = context().property();
        for (std::size_t index = 0; index < choices().size(); ++index) {
            const auto& [format, label] = choices()[index];
            const QString example = property ? toQt(property->stringForFormat(format.asString())) : QString();
            const bool isKnown = !example.isEmpty() && example != toQt(missingValueText);
            setItemText(index, isKnown ? tr("%1  ·  %2").arg(toQt(label), example) : toQt(label));
        }
    }
};

}  // namespace

SettingEditor* makeChoiceEditor(const Setting& setting, const PanelContext& context) {
    return new ChoiceEditor(setting, context);
}

SettingEditor* makeNumberFormatEditor(const Setting& setting, const PanelContext& context) {
    return new NumberFormatEditor(setting, context);
}

}  // namespace zor
