#include "qt/panel/PropertyChooser.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "host/station/ValueFormats.h"
#include "qt/PlainText.h"
#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr int nameRole = Qt::UserRole;
constexpr int millisecondsBetweenValues = 1000;
constexpr QSize leastSize{290, 320};

}  // namespace

PropertyChooser::PropertyChooser(QWidget* parent, std::shared_ptr<Agent> agent, const Choice& current)
    : QFrame(parent, Qt::Popup), agent_(std::move(agent)), search_(new QLineEdit(this)), list_(new QTreeWidget(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    search_->setPlaceholderText(tr("Search"));
    search_->setClearButtonEnabled(true);
    search_->installEventFilter(this);
    list_->setColumnCount(2);
    list_->setHeaderHidden(true);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(6);
    layout->addWidget(search_);
    layout->addWidget(list_);

    addEntry({}, tr("None"));
    const bool isKnown = !current || (agent_ && agent_->properties().find(*current));
    if (!isKnown) addEntry(current, toQt(*current));
    if (agent_) {
        for (const auto& property : agent_->properties().all()) {
            addEntry(property->propertyName(), toQt(property->displayName()));
        }
    }
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        auto* item = list_->topLevelItem(row);
        if (item->data(0, nameRole).toString() == toQt(current.value_or(std::string()))) list_->setCurrentItem(item);
    }
    refreshValues();
    connect(search_, &QLineEdit::textEdited, this, [this](const QString& text) { filter(text); });
    connect(search_, &QLineEdit::returnPressed, this, [this] { choose(); });
    connect(list_, &QTreeWidget::itemClicked, this, [this] { choose(); });
    connect(&clock_, &QTimer::timeout, this, [this] { refreshValues(); });
    clock_.start(millisecondsBetweenValues);
}

void PropertyChooser::addEntry(const Choice& name, const QString& title) {
    auto* item = new QTreeWidgetItem(list_, {title});
    item->setData(0, nameRole, toQt(name.value_or(std::string())));
    item->setToolTip(0, plainToolTip(toQt(name.value_or(std::string()))));
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    item->setForeground(1, palette().color(QPalette::Disabled, QPalette::Text));
}

void PropertyChooser::openBelow(const QWidget& widget) {
    resize(leastSize.expandedTo({widget.width(), 0}));
    const QRect room = widget.screen()->availableGeometry();
    QPoint corner = widget.mapToGlobal(QPoint(widget.width() - width(), widget.height() + 2));
    if (corner.y() + height() > room.bottom()) corner.setY(widget.mapToGlobal(QPoint()).y() - height() - 2);
    corner.setX(std::max(room.left(), corner.x()));
    move(corner);
    show();
    search_->setFocus(Qt::PopupFocusReason);
    if (list_->currentItem()) list_->scrollToItem(list_->currentItem(), QAbstractItemView::PositionAtCenter);
}

bool PropertyChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    // The search field keeps the keyboard; what moves in a list goes to the list.
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(list_, event);
            return true;
        default:
            return QFrame::eventFilter(watched, event);
    }
}

void PropertyChooser::filter(const QString& text) {
    QTreeWidgetItem* first = nullptr;
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        auto* item = list_->topLevelItem(row);
        const bool matches = item->text(0).contains(text.trimmed(), Qt::CaseInsensitive) ||
                             item->data(0, nameRole).toString().contains(text.trimmed(), Qt::CaseInsensitive);
        item->setHidden(!matches);
        if (matches && !first) first = item;
    }
    const auto* current = list_->currentItem();
    if (!current || current->isHidden()) list_->setCurrentItem(first);
}

void PropertyChooser::refreshValues() {
    for (int row = 0; row < list_->topLevelItemCount(); ++row) {
        auto* item = list_->topLevelItem(row);
        const QString name = item->data(0, nameRole).toString();
        if (name.isEmpty()) continue;
        const auto property =
            ask(agent_, [&](const Agent& agent) { return agent.properties().find(name.toStdString()); });
        item->setText(1, property ? toQt(property->stringForFormat(valueWithShortUnitFormat)) : tr("not here"));
    }
}

void PropertyChooser::choose() {
    const auto* item = list_->currentItem();
    if (!item || item->isHidden()) return;
    const std::string name = item->data(0, nameRole).toString().toStdString();
    const auto observer = observer_;
    close();
    if (observer) observer(name.empty() ? Choice() : Choice(name));
}

}  // namespace zor
