#include "app/window/PlugInList.h"

#include <QAction>
#include <QCryptographicHash>
#include <QMenu>
#include <QMessageBox>
#include <QPixmapCache>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "qt/PlainText.h"

namespace zor {

namespace {

/// In pixels: large enough for the toolbar on the finest screens. Most pictures are far larger.
constexpr QSize largestIcon{96, 96};

}  // namespace

QIcon iconFrom(const std::shared_ptr<Image>& image) {
    if (!image || !image->data()) return {};
    // All dashboards show the same picture, which takes a while to decode.
    const auto data = QByteArrayView(image->data()->data(), static_cast<qsizetype>(image->data()->size()));
    const auto digest = QCryptographicHash::hash(data, QCryptographicHash::Sha1);
    const QString key = QStringLiteral("icon ") + QString::fromLatin1(digest.toHex());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap.loadFromData(image->data()->data(), static_cast<uint>(image->data()->size()));
        if (pixmap.width() > largestIcon.width() || pixmap.height() > largestIcon.height()) {
            pixmap = pixmap.scaled(largestIcon, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        }
        QPixmapCache::insert(key, pixmap);
    }
    return QIcon(pixmap);
}

PlugInList::PlugInList(SiteWindowController& controller, QWidget* parent)
    : QListWidget(parent), controller_(controller) {
    setObjectName("plugIns");
    setAccessibleName(tr("Dashboards"));
    setFrameShape(QFrame::NoFrame);
    setIconSize({20, 20});
    setStyleSheet(
        "QListWidget { padding: 6px; background: palette(base); color: palette(text); }"
        " QListWidget::item { padding: 6px 8px; border-radius: 6px; }"
        "QListWidget::item:selected { background: palette(highlight);"
        " color: palette(highlighted-text); }");
    setContextMenuPolicy(Qt::CustomContextMenu);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!refreshing_ && row >= 0 && row != controller_.selectedIndex()) controller_.selectPlugInAtIndex(row);
    });
    connect(this, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        if (!refreshing_) rename(this->row(item));
    });
    connect(this, &QListWidget::customContextMenuRequested, this,
            [this](const QPoint& position) { showMenu(position); });
    auto* remove = new QAction(this);
    remove->setShortcut(QKeySequence(Qt::Key_Delete));
    remove->setShortcutContext(Qt::WidgetShortcut);
    connect(remove, &QAction::triggered, this, [this] { removeAsked(currentRow()); });
    addAction(remove);
}

std::shared_ptr<ZORPlugIn> PlugInList::plugInAt(int row) const {
    const auto& plugIns = controller_.plugIns();
    return row >= 0 && std::cmp_less(row, plugIns.size()) ? plugIns[static_cast<std::size_t>(row)] : nullptr;
}

void PlugInList::refresh() {
    refreshing_ = true;
    const auto entries = controller_.entries();
    while (count() > static_cast<int>(entries.size())) delete takeItem(count() - 1);
    for (int row = 0; row < static_cast<int>(entries.size()); ++row) {
        if (row == count()) addItem(new QListWidgetItem);
        const auto& entry = entries[static_cast<std::size_t>(row)];
        auto* shown = item(row);
        shown->setText(QString::fromStdString(entry.title));
        shown->setFlags(shown->flags().setFlag(Qt::ItemIsEditable, entry.representedObject->isRenamable()));
        if (shown->icon().isNull()) shown->setIcon(iconFrom(entry.representedObject->icon()));
    }
    setCurrentRow(static_cast<int>(controller_.selectedIndex()));
    refreshing_ = false;
}

void PlugInList::rename(int row) {
    const auto plugIn = plugInAt(row);
    const QString title = item(row)->text().trimmed();
    if (plugIn && plugIn->isRenamable() && !title.isEmpty()) plugIn->setTitle(title.toStdString());
    // A name that is empty or the same as before tells nobody.
    refresh();
}

void PlugInList::showMenu(const QPoint& position) {
    auto* chosen = itemAt(position);
    const auto plugIn = plugInAt(row(chosen));
    if (!plugIn) return;
    QMenu menu(this);
    if (const auto own = plugIn->menu()) {
        for (std::size_t index = 0; index < own->items().size(); ++index) {
            const auto& entry = own->items()[index];
            if (entry.isSeparator) {
                menu.addSeparator();
            } else {
                connect(menu.addAction(QString::fromStdString(entry.title)), &QAction::triggered, this,
                        [own, index] { own->performItemAtIndex(index); });
            }
        }
    }
    connect(menu.addAction(tr("Open in Separate Window")), &QAction::triggered, this,
            [this, plugIn] { separateWindowObserver_(plugIn); });
    if (plugIn->isRenamable()) {
        auto* action = menu.addAction(tr("Rename"));
        action->setShortcut(QKeySequence(Qt::Key_F2));
        connect(action, &QAction::triggered, this, [this, chosen] { editItem(chosen); });
    }
    if (plugIn->isDeletable()) {
        auto* action = menu.addAction(tr("Remove..."));
        action->setShortcut(QKeySequence(Qt::Key_Delete));
        connect(action, &QAction::triggered, this, [this, chosen] { removeAsked(row(chosen)); });
    }
    menu.exec(viewport()->mapToGlobal(position));
}

void PlugInList::removeAsked(int row) {
    const auto plugIn = plugInAt(row);
    if (!plugIn || !plugIn->isDeletable()) return;
    QMessageBox box(QMessageBox::Question, tr("Remove"), tr("Remove “%1” from this site?").arg(item(row)->text()),
                    QMessageBox::Cancel, window());
    box.setInformativeText(tr("This cannot be undone."));
    showTextsPlainly(box);
    auto* remove = box.addButton(tr("Remove"), QMessageBox::DestructiveRole);
    box.setDefaultButton(remove);
    box.exec();
    if (box.clickedButton() != remove) return;
    // The list may be another one by now.
    const auto& plugIns = controller_.plugIns();
    const auto found = std::ranges::find(plugIns, plugIn);
    if (found != plugIns.end()) controller_.removePlugInAtIndex(static_cast<std::size_t>(found - plugIns.begin()));
}

}  // namespace zor
