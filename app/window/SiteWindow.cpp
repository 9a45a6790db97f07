#include "app/window/SiteWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QDateTime>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include "app/window/Desktop.h"
#include "app/window/SiteMenus.h"
#include "qt/QtWindowPeer.h"
#include "qt/ViewTreeWidget.h"

namespace zor {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
const QString splitterKey = QStringLiteral("window/splitter");
/// Room for the standard dashboard beside the list.
constexpr QSize firstSize{1400, 900};
constexpr int listWidth = 200;
constexpr int statusMilliseconds = 1000;

QIcon iconFrom(const std::shared_ptr<Image>& image) {
    QPixmap pixmap;
    if (image && image->data()) pixmap.loadFromData(image->data()->data(), static_cast<uint>(image->data()->size()));
    return QIcon(pixmap);
}

}  // namespace

SiteWindow::SiteWindow(Desktop& desktop, std::shared_ptr<SiteSession> session)
    : desktop_(desktop), session_(std::move(session)) {
    setUnifiedTitleAndToolBarOnMac(true);
    splitter_ = new QSplitter(this);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(1);
    makeList();
    canvasArea_ = new ViewTreeWidget(splitter_);
    canvasArea_->setObjectName("dashboard");
    canvasArea_->installEventFilter(this);
    controller().window()->setPeer(std::make_shared<QtWindowPeer>(*controller().window(), *canvasArea_));
    splitter_->addWidget(list_);
    splitter_->addWidget(canvasArea_);
    splitter_->setStretchFactor(1, 1);
    splitter_->setSizes({listWidth, firstSize.width() - listWidth});
    setCentralWidget(splitter_);

    makeToolbar();
    stationLabel_ = new QLabel(this);
    troubleLabel_ = new QLabel(this);
    troubleLabel_->setObjectName("trouble");
    statusBar()->addWidget(stationLabel_, 1);
    statusBar()->addPermanentWidget(troubleLabel_);
    menus_ = std::make_unique<SiteMenus>(*this);

    controller().setObserver([this] { refreshList(); });
    document().setDirtyObserver([this] { refreshTitle(); });
    session_->setTroubleObserver([this] { refreshStatus(); });
    auto* statusTimer = new QTimer(this);
    connect(statusTimer, &QTimer::timeout, this, [this] { refreshStatus(); });
    statusTimer->start(statusMilliseconds);

    restoreGeometryOfLastTime();
    refreshList();
    refreshTitle();
    refreshStatus();
    canvasArea_->setFocus();
}

SiteWindow::~SiteWindow() {
    controller().setObserver({});
    document().setDirtyObserver({});
    session_->setTroubleObserver({});
    session_->stop();
}

void SiteWindow::makeToolbar() {
    auto* bar = addToolBar(tr("Toolbar"));
    bar->setObjectName("toolbar");
    bar->setMovable(false);
    bar->setIconSize({24, 24});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const auto& plugIn : document().entryPlugIns()) {
        const auto item = plugIn->toolbarItem();
        if (!item) continue;
        auto* action = bar->addAction(iconFrom(item->image()), QString::fromStdString(item->label()));
        action->setToolTip(tr("Add a dashboard"));
        connect(action, &QAction::triggered, this, [this, item] {
            const auto target = item->target();
            if (target && target->respondsTo(item->action())) {
                target->performWithSender(item->action(), item);
            } else {
                menus_->popUpCatalogue(QCursor::pos());
            }
        });
    }
}

void SiteWindow::makeList() {
    list_ = new QListWidget(this);
    list_->setObjectName("plugIns");
    list_->setAccessibleName(tr("Dashboards"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setIconSize({20, 20});
    list_->setStyleSheet("QListWidget { padding: 6px; } QListWidget::item { padding: 6px 8px; border-radius: 6px; }"
                         "QListWidget::item:selected { background: palette(highlight);"
                         " color: palette(highlighted-text); }");
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!refreshing_ && row >= 0 && row != controller().selectedIndex()) controller().selectPlugInAtIndex(row);
    });
    connect(list_, &QListWidget::customContextMenuRequested, this,
            [this](const QPoint& position) { showListMenu(position); });
}

void SiteWindow::showListMenu(const QPoint& position) {
    const int row = list_->row(list_->itemAt(position));
    const auto& plugIns = controller().plugIns();
    if (row < 0 || row >= static_cast<int>(plugIns.size())) return;
    const auto plugIn = plugIns[static_cast<std::size_t>(row)];
    QMenu menu(this);
    if (const auto own = plugIn->menu()) {
        for (std::size_t index = 0; index < own->items().size(); ++index) {
            const auto& item = own->items()[index];
            if (item.isSeparator) {
                menu.addSeparator();
            } else {
                connect(menu.addAction(QString::fromStdString(item.title)), &QAction::triggered, this,
                        [own, index] { own->performItemAtIndex(index); });
            }
        }
    }
    if (plugIn->isDeletable()) {
        connect(menu.addAction(tr("Remove")), &QAction::triggered, this, [this, row] {
            controller().removePlugInAtIndex(static_cast<std::size_t>(row));
        });
    }
    menu.exec(list_->viewport()->mapToGlobal(position));
}

void SiteWindow::refreshList() {
    refreshing_ = true;
    const auto entries = controller().entries();
    while (list_->count() > static_cast<int>(entries.size())) delete list_->takeItem(list_->count() - 1);
    for (int row = 0; row < static_cast<int>(entries.size()); ++row) {
        if (row == list_->count()) list_->addItem(new QListWidgetItem);
        const auto& entry = entries[static_cast<std::size_t>(row)];
        auto* item = list_->item(row);
        item->setText(QString::fromStdString(entry.title));
        if (item->icon().isNull()) item->setIcon(iconFrom(entry.representedObject->icon()));
    }
    list_->setCurrentRow(static_cast<int>(controller().selectedIndex()));
    refreshing_ = false;
    refreshTitle();
}

void SiteWindow::refreshTitle() {
    const QString station = QString::fromStdString(document().agent()->name());
    const QString name = file().empty() ? station : QString::fromStdString(file().stem().string());
    setWindowTitle(name + "[*]");
    setWindowModified(document().isDirty());
    setWindowFilePath(QString::fromStdString(file().string()));
}

void SiteWindow::refreshStatus() {
    Seconds newest = 0;
    for (const auto& property : document().agent()->properties().all()) {
        newest = std::max(newest, property->receivedAt());
    }
    const QString station = QString::fromStdString(document().agent()->name());
    const QString when =
        newest > 0 ? QLocale().toString(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(newest)), QLocale::ShortFormat)
                   : tr("no reading yet");
    const QString text = tr("%1: %2").arg(station, when);
    if (stationLabel_->text() != text) stationLabel_->setText(text);
    troubleLabel_->setText(QString::fromStdString(session_->trouble()));
}

bool SiteWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == canvasArea_ && event->type() == QEvent::Resize) {
        const QSize size = canvasArea_->size();
        controller().setPlugInFrame({0, 0, double(size.width()), double(size.height())});
    }
    return QMainWindow::eventFilter(watched, event);
}

void SiteWindow::sendAction(const char* action) {
    auto* responder = controller().window()->firstResponder();
    const auto dashboard = selectedDashboard();
    if (responder == controller().window().get() && dashboard) responder = dashboard.get();
    if (responder) responder->tryToPerform(action, {});
}

void SiteWindow::setUnitSystem(UnitSystem system) {
    document().agent()->setUnitSystem(system);
    document().setDirty(true);
}

void SiteWindow::setListVisible(bool visible) { list_->setVisible(visible); }

bool SiteWindow::isListVisible() const { return !list_->isHidden(); }

void SiteWindow::toggleFullScreen() { setWindowState(windowState() ^ Qt::WindowFullScreen); }

bool SiteWindow::save() {
    return file().empty() ? saveAs() : writeTo(QString::fromStdString(file().string()));
}

bool SiteWindow::saveAs() {
    const QString suggested = file().empty() ? QString::fromStdString(document().agent()->name()) + ".site"
                                             : QString::fromStdString(file().string());
    QString chosen = QFileDialog::getSaveFileName(this, tr("Save Site Document"), suggested,
                                                  tr("Site Documents (*.site)"));
    if (chosen.isEmpty()) return false;
    if (QFileInfo(chosen).suffix().isEmpty()) chosen += ".site";
    return writeTo(chosen);
}

bool SiteWindow::writeTo(const QString& chosen) {
    const auto status = document().save(chosen.toStdString());
    if (status) {
        desktop_.noteRecentFile(QFileInfo(chosen).absoluteFilePath());
        refreshTitle();
        return true;
    }
    QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                    tr("“%1” could not be saved.").arg(QFileInfo(chosen).fileName()), QMessageBox::Ok, this);
    box.setInformativeText(QString::fromStdString(status.error().message));
    box.exec();
    return false;
}

void SiteWindow::closeEvent(QCloseEvent* event) {
    if (document().isDirty() && !file().empty()) {
        const auto choice = QMessageBox::question(this, QCoreApplication::applicationName(),
                                                  tr("Save the changes to “%1”?").arg(windowTitle().remove("[*]")),
                                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        if (choice == QMessageBox::Cancel || (choice == QMessageBox::Save && !save())) {
            event->ignore();
            return;
        }
    }
    rememberGeometry();
    event->accept();
    desktop_.windowClosed(this);
}

void SiteWindow::restoreGeometryOfLastTime() {
    const QSettings settings;
    resize(firstSize.boundedTo(screen()->availableSize()));
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray());
    splitter_->restoreState(settings.value(splitterKey).toByteArray());
    splitter_->setHandleWidth(1);
}

void SiteWindow::rememberGeometry() {
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState());
    settings.setValue(splitterKey, splitter_->saveState());
}

}  // namespace zor
