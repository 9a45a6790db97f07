#include "qt/panel/PropertyPanel.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace zor {

namespace {

constexpr int margin = 14;

/// Names and examples stand back behind the values.
void softenLabels(QWidget& content) {
    QColor ink = content.palette().color(QPalette::WindowText);
    ink.setAlphaF(0.68F);
    for (QLabel* label : content.findChildren<QLabel*>()) {
        if (label->objectName() != "settingLabel" && label->objectName() != "example") continue;
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, ink);
        label->setPalette(palette);
    }
}

}  // namespace

PropertyPanel::PropertyPanel(std::function<void()> changeObserver)
    : changeObserver_(std::move(changeObserver)),
      scroller_(new QScrollArea(this)),
      revert_(new QPushButton(tr("&Revert"), this)) {
    setWindowTitle(tr("Properties"));
    scroller_->setWidgetResizable(true);
    scroller_->setFrameShape(QFrame::NoFrame);
    scroller_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroller_->setFocusPolicy(Qt::NoFocus);
    revert_->setAutoDefault(false);
    revert_->setToolTip(tr("Back to what there was when the panel opened"));
    connect(revert_, &QPushButton::clicked, this, [this] { revert(); });
    auto* rule = new QFrame(this);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Plain);
    rule->setForegroundRole(QPalette::Midlight);
    auto* footer = new QHBoxLayout;
    footer->setContentsMargins(margin, 8, margin, 10);
    footer->addStretch();
    footer->addWidget(revert_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(scroller_, 1);
    layout->addWidget(rule);
    layout->addLayout(footer);
    setSections({}, {});
}

PropertyPanel::~PropertyPanel() {
    leaveFields();
}

void PropertyPanel::leaveFields() {
    QWidget* content = scroller_->widget();
    QWidget* field = content ? content->focusWidget() : nullptr;
    if (field) field->clearFocus();
}

void PropertyPanel::setSections(std::vector<PanelSection> sections, const PanelContext& context) {
    leaveFields();
    entries_.clear();
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(8);
    for (const auto& section : sections) addSection(section, context, *column);
    if (entries_.empty()) {
        auto* nothing = new QLabel(tr("Nothing to set here."), content);
        nothing->setObjectName("example");
        nothing->setAlignment(Qt::AlignCenter);
        column->addWidget(nothing);
    }
    column->addStretch(1);
    softenLabels(*content);
    for (QComboBox* box : content->findChildren<QComboBox*>()) {
        box->setFocusPolicy(Qt::StrongFocus);
        box->installEventFilter(this);
    }
    scroller_->setWidget(content);
    keepPresentValues();
    refresh();
}

void PropertyPanel::addSection(const PanelSection& section, const PanelContext& context, QVBoxLayout& column) {
    if (!section.settings || section.settings->empty() || section.object.expired()) return;
    if (!entries_.empty()) column.addSpacing(8);
    auto* title = new QLabel(section.title);
    QFont font = title->font();
    font.setWeight(QFont::DemiBold);
    title->setFont(font);
    column.addWidget(title);
    if (section.arrangement == PanelSection::Arrangement::list) {
        for (const auto& setting : *section.settings) {
            column.addWidget(addEntry(section.object, setting, context, SettingRow::Arrangement::labelBeside));
        }
        return;
    }
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(8);
    for (std::size_t index = 0; index < section.settings->size(); ++index) {
        const auto row = static_cast<int>(index / 2), place = static_cast<int>(index % 2);
        grid->addWidget(
            addEntry(section.object, (*section.settings)[index], context, SettingRow::Arrangement::labelAbove), row,
            place);
        grid->setColumnStretch(place, 1);
    }
    column.addLayout(grid);
}

SettingRow* PropertyPanel::addEntry(const std::weak_ptr<Object>& object, const Setting& setting,
                                    const PanelContext& context, SettingRow::Arrangement arrangement) {
    auto* row = new SettingRow(setting, context, arrangement);
    row->editor().setTaker([this, object, &setting](const Value& value) -> Status {
        const auto target = object.lock();
        if (!target) return Error{"is not there any more"};
        if (setting.get(*target) == value) return success();
        auto status = applySetting(*target, setting, value);
        if (status) {
            changeObserver_();
            scheduleRefresh();
        }
        return status;
    });
    entries_.push_back({object, &setting, row, {}});
    return row;
}

void PropertyPanel::keepPresentValues() {
    for (auto& entry : entries_) {
        entry.original = ask(entry.object.lock(), [&](const Object& object) { return entry.setting->get(object); });
    }
}

void PropertyPanel::scheduleRefresh() {
    if (std::exchange(refreshScheduled_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { refresh(); }, Qt::QueuedConnection);
}

void PropertyPanel::refresh() {
    refreshScheduled_ = false;
    for (const auto& entry : entries_) {
        const auto object = entry.object.lock();
        if (!object) continue;
        entry.row->editor().setValue(entry.setting->get(*object));
        entry.row->editor().refreshExamples();
    }
    revert_->setEnabled(differsFromOriginal());
}

bool PropertyPanel::differsFromOriginal() const {
    return std::ranges::any_of(entries_, [](const Entry& entry) {
        const auto object = entry.object.lock();
        return object && entry.setting->get(*object) != entry.original;
    });
}

void PropertyPanel::revert() {
    // In the order of the list: a later setting may take back what an earlier one brought about.
    for (const auto& entry : entries_) {
        if (const auto object = entry.object.lock()) entry.setting->set(*object, entry.original);
    }
    changeObserver_();
    // An object that is stored as a copy is another one now.
    keepPresentValues();
    refresh();
}

int PropertyPanel::fullHeight() const {
    return scroller_->widget()->sizeHint().height() + (sizeHint().height() - scroller_->sizeHint().height());
}

bool PropertyPanel::eventFilter(QObject* watched, QEvent* event) {
    // The wheel that scrolls the panel must not choose in what happens to pass below the pointer.
    if (event->type() == QEvent::Wheel && !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace zor
