#include <QHBoxLayout>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "host/instruments/Thresholds.h"
#include "qt/QtConversions.h"
#include "qt/panel/ColorWell.h"
#include "qt/panel/Editors.h"
#include "qt/panel/Fields.h"

namespace zor {

namespace {

/// From each value on, a colour. Rows stay in the order in which they are typed until the keyboard leaves, so that none
/// moves away below the fingers.
class ThresholdsEditor final : public SettingEditor {
public:
    explicit ThresholdsEditor(const PanelContext& context)
        : SettingEditor(context), rows_(new QVBoxLayout), add_(new QPushButton(tr("Add Value"), this)) {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(4);
        rows_->setSpacing(4);
        layout->addLayout(rows_);
        layout->addWidget(add_, 0, Qt::AlignLeft);
        add_->setAutoDefault(false);
        setFocusProxy(add_);
        connect(add_, &QPushButton::clicked, this, [this] { addThreshold(); });
    }

private:
    struct Row {
        QWidget* line;
        NumberField* number;
        ColorWell* well;
        Threshold threshold;
    };

    Thresholds typed() const {
        Thresholds thresholds;
        for (const Row& row : list_) thresholds.push_back(row.threshold);
        return sortedThresholds(std::move(thresholds));
    }

    void offerTyped() { offer(ValueConversion<Thresholds>::to(typed())); }

    void display(const Value& value) override {
        const auto thresholds = ValueConversion<Thresholds>::orDefault(value);
        while (list_.size() > thresholds.size()) removeRow(list_.size() - 1);
        while (list_.size() < thresholds.size()) addRow();
        for (std::size_t index = 0; index < list_.size(); ++index) {
            Row& row = list_[index];
            row.threshold = thresholds[index];
            row.number->setNumber(row.threshold.value);
            row.well->setColor(row.threshold.color);
        }
    }

    void addRow() {
        auto* line = new QWidget(this);
        auto* layout = new QHBoxLayout(line);
        layout->setContentsMargins({});
        layout->setSpacing(4);
        auto* number = new NumberField(line);
        auto* well = new ColorWell(line);
        auto* remove = new QToolButton(line);
        number->setAccessibleName(tr("From Value"));
        well->setAccessibleName(tr("Color from This Value"));
        remove->setText("−");
        remove->setAutoRaise(true);
        remove->setToolTip(tr("Remove"));
        remove->setAccessibleName(tr("Remove"));
        remove->setFocusPolicy(Qt::StrongFocus);
        layout->addWidget(number, 1);
        layout->addWidget(well);
        layout->addWidget(remove);
        rows_->addWidget(line);
        list_.push_back({line, number, well, {}});
        number->setObserver([this, line](std::optional<double> value) {
            if (!value) return refuse(tr("must be a number"));
            rowOf(line).threshold.value = *value;
            offerTyped();
        });
        number->setLeftObserver([this] { settle(); });
        well->setObserver([this, line](Color color) {
            rowOf(line).threshold.color = color;
            offerTyped();
        });
        connect(remove, &QToolButton::clicked, this, [this, line] {
            // The button's own click is still being told.
            removeRow(static_cast<std::size_t>(&rowOf(line) - list_.data()));
            offerTyped();
            add_->setFocus();
        });
    }

    Row& rowOf(const QWidget* line) { return *std::ranges::find(list_, line, &Row::line); }

    void removeRow(std::size_t index) {
        QWidget* line = list_[index].line;
        list_.erase(list_.begin() + static_cast<std::ptrdiff_t>(index));
        rows_->removeWidget(line);
        line->hide();
        line->deleteLater();
    }

    /// Above the highest, in a colour that warns.
    void addThreshold() {
        const auto before = typed();
        addRow();
        Row& row = list_.back();
        row.threshold = {before.empty() ? 0 : before.back().value + 10, Color::rgb(0xff3b30)};
        row.number->setNumber(row.threshold.value);
        row.well->setColor(row.threshold.color);
        offerTyped();
        row.number->setFocus(Qt::TabFocusReason);
        row.number->selectAll();
    }

    QVBoxLayout* rows_;
    QPushButton* add_;
    std::vector<Row> list_;
};

}  // namespace

SettingEditor* makeThresholdsEditor(const PanelContext& context) {
    return new ThresholdsEditor(context);
}

}  // namespace zor
