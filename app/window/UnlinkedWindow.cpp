#include "app/window/UnlinkedWindow.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/inspect/PropertyMatches.h"
#include "app/window/SiteWindow.h"
#include "host/station/ValueFormats.h"
#include "qt/PlainText.h"
#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr int millisecondsBetweenLooks = 1000;
constexpr QSize firstListSize{860, 380};
constexpr int margin = 14;
enum Column { dashboardColumn, instrumentColumn, storedColumn, chooserColumn, linkColumn };
constexpr int fieldWidths[] = {170, 150, 170};

QString instrumentText(const ZORWidgetHostView& widget) {
    const QString label = toQt(labelOfKind(widget.kind()));
    return widget.title() ? QObject::tr("%1 “%2”").arg(label, toQt(*widget.title())) : label;
}

/// Lies in its cell with air around it.
QWidget* inCell(QWidget* content) {
    auto* cell = new QWidget;
    auto* layout = new QVBoxLayout(cell);
    layout->setContentsMargins(4, 3, 4, 3);
    layout->addWidget(content);
    return cell;
}

void addEntries(QComboBox& chooser, const std::vector<std::shared_ptr<Property>>& properties) {
    for (const auto& property : properties) {
        chooser.addItem(QObject::tr("%1 (%2)").arg(toQt(property->displayName()),
                                                   toQt(property->stringForFormat(valueWithShortUnitFormat))),
                        toQt(property->propertyName()));
    }
}

/// The nearest stand above a line, and the very nearest is chosen already.
QComboBox* makeChooser(const Agent& agent, const std::string& propertyName) {
    auto* chooser = new QComboBox;
    const auto matches = matchesForProperty(agent, propertyName);
    addEntries(*chooser, matches.nearest);
    if (!matches.nearest.empty() && !matches.others.empty()) chooser->insertSeparator(chooser->count());
    addEntries(*chooser, matches.others);
    chooser->setPlaceholderText(QObject::tr("Choose..."));
    chooser->setCurrentIndex(matches.nearest.empty() ? -1 : 0);
    chooser->setMinimumContentsLength(16);
    chooser->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return chooser;
}

}  // namespace

UnlinkedWindow::UnlinkedWindow(SiteWindow& window)
    : QDialog(&window), window_(window), notice_(new QLabel(this)), list_(new QTreeWidget(this)) {
    setWindowTitle(tr("Unlinked Instruments"));
    notice_->setWordWrap(true);
    notice_->setTextFormat(Qt::PlainText);
    list_->setHeaderLabels(
        {tr("Dashboard"), tr("Instrument"), tr("Stored Property"), tr("This Station's Property"), {}});
    list_->setRootIsDecorated(false);
    list_->setSelectionMode(QAbstractItemView::NoSelection);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(chooserColumn, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(linkColumn, QHeaderView::ResizeToContents);
    for (int column = 0; column < chooserColumn; ++column) list_->setColumnWidth(column, fieldWidths[column]);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(notice_);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
    resize(firstListSize);
    connect(&clock_, &QTimer::timeout, this, [this] {
        if (isVisible()) refresh();
    });
    clock_.start(millisecondsBetweenLooks);
}

void UnlinkedWindow::showFor(SiteWindow& window) {
    const auto name = QStringLiteral("unlinkedInstruments");
    auto* shown = static_cast<UnlinkedWindow*>(window.findChild<QDialog*>(name, Qt::FindDirectChildrenOnly));
    if (!shown) {
        shown = new UnlinkedWindow(window);
        shown->setObjectName(name);
    }
    shown->fill(shown->present());
    shown->show();
    shown->raise();
    shown->activateWindow();
}

std::vector<UnlinkedInstrument> UnlinkedWindow::present() const {
    return unlinkedInstrumentsOf(window_.document());
}

void UnlinkedWindow::refresh() {
    const auto unlinked = present();
    std::vector<Row> rows;
    for (const auto& each : unlinked) {
        rows.push_back({each.widget->hash(), each.propertyName, SiteWindowController::shownTitle(*each.dashboard)});
    }
    if (rows != rows_) fill(unlinked);
}

void UnlinkedWindow::fill(const std::vector<UnlinkedInstrument>& unlinked) {
    list_->clear();
    rows_.clear();
    notice_->setText(unlinked.empty() ? tr("Every instrument is linked to a property of this station.")
                                      : tr("These instruments were made for properties that this station does not "
                                           "have. Choose one that it has for each; until then they show no value."));
    for (const auto& each : unlinked) addRow(each);
}

void UnlinkedWindow::addRow(const UnlinkedInstrument& unlinked) {
    const std::int64_t widget = unlinked.widget->hash();
    const std::string dashboard = SiteWindowController::shownTitle(*unlinked.dashboard);
    rows_.push_back({widget, unlinked.propertyName, dashboard});
    auto* item =
        new QTreeWidgetItem(list_, {toQt(dashboard), instrumentText(*unlinked.widget), toQt(unlinked.propertyName)});
    for (int column = 0; column < chooserColumn; ++column) item->setToolTip(column, plainToolTip(item->text(column)));

    auto* chooser = makeChooser(*window_.document().agent(), unlinked.propertyName);
    if (const auto chosen = choices_.find(widget); chosen != choices_.end()) {
        chooser->setCurrentIndex(chooser->findData(chosen->second));
    }
    auto* button = new QPushButton(tr("Link"));
    button->setAutoDefault(false);
    button->setEnabled(chooser->currentIndex() >= 0);
    const auto keepChoice = [this, widget, chooser, button] {
        choices_[widget] = chooser->currentData().toString();
        button->setEnabled(chooser->currentIndex() >= 0);
    };
    choices_[widget] = chooser->currentData().toString();
    connect(chooser, &QComboBox::currentIndexChanged, this, keepChoice);
    // The row goes with its button, after the click.
    connect(
        button, &QPushButton::clicked, this, [this, widget] { link(widget); }, Qt::QueuedConnection);
    list_->setItemWidget(item, chooserColumn, inCell(chooser));
    list_->setItemWidget(item, linkColumn, inCell(button));
}

void UnlinkedWindow::link(std::int64_t widget) {
    for (const auto& each : present()) {
        if (each.widget->hash() != widget) continue;
        const auto status = linkInstrument(each, choices_[widget].toStdString());
        if (!status) notice_->setText(toQt(status.error().message));
    }
    refresh();
}

QString unlinkedNotice(std::size_t count) {
    if (count == 0) return {};
    return count == 1 ? QObject::tr("1 instrument is not linked: View > Unlinked Instruments")
                      : QObject::tr("%1 instruments are not linked: View > Unlinked Instruments").arg(count);
}

}  // namespace zor
