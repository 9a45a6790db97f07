#include "app/window/SiteWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>

#include "app/StationSource.h"
#include "app/window/Desktop.h"
#include "app/window/PlugInList.h"
#include "app/window/SeparateWindow.h"
#include "app/window/SiteMenus.h"
#include "app/window/UnlinkedWindow.h"
#include "qt/PlainText.h"
#include "qt/QtConversions.h"
#include "qt/QtWindowPeer.h"
#include "qt/ViewTreeWidget.h"

namespace zor {

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
const QString listKey = QStringLiteral("window/list");
const QString splitterKey = QStringLiteral("window/splitter");
/// Room for the standard dashboard beside the list.
constexpr QSize firstSize{1400, 900};
constexpr int listWidth = 200;
constexpr int statusMilliseconds = 1000;

}  // namespace

SiteWindow::SiteWindow(Desktop& desktop, std::shared_ptr<SiteSession> session)
    : desktop_(desktop), session_(std::move(session)) {
    setUnifiedTitleAndToolBarOnMac(true);
    splitter_ = new QSplitter(this);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(1);
    list_ = new PlugInList(controller(), this);
    list_->setSeparateWindowObserver([this](const auto& plugIn) {
        openSeparateWindow(*this, plugIn);
        refreshElsewhere();
    });
    canvasArea_ = new ViewTreeWidget(splitter_);
    canvasArea_->setObjectName("dashboard");
    elsewhereLabel_ = new QLabel(canvasArea_);
    elsewhereLabel_->setAlignment(Qt::AlignCenter);
    elsewhereLabel_->setTextFormat(Qt::PlainText);
    elsewhereLabel_->setAttribute(Qt::WA_TransparentForMouseEvents);
    elsewhereLabel_->hide();
    canvasArea_->installEventFilter(this);
    controller().window()->setPeer(std::make_shared<QtWindowPeer>(*controller().window(), *canvasArea_));
    splitter_->addWidget(list_);
    splitter_->addWidget(canvasArea_);
    splitter_->setStretchFactor(1, 1);
    splitter_->setSizes({listWidth, firstSize.width() - listWidth});
    setCentralWidget(splitter_);

    makeToolbar();
    stationLabel_ = new QLabel(this);
    unlinkedLabel_ = new QLabel(this);
    troubleLabel_ = new QLabel(this);
    troubleLabel_->setObjectName("trouble");
    for (auto* label : {stationLabel_, troubleLabel_}) label->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(stationLabel_, 1);
    statusBar()->addPermanentWidget(unlinkedLabel_);
    statusBar()->addPermanentWidget(troubleLabel_);
    menus_ = std::make_unique<SiteMenus>(*this, *canvasArea_);

    controller().setObserver([this] { refreshList(); });
    document().setDirtyObserver([this] { refreshTitle(); });
    session_->setTroubleObserver([this] { refreshStatus(); });
    auto* statusTimer = new QTimer(this);
    connect(statusTimer, &QTimer::timeout, this, [this] {
        refreshStatus();
        noticeEdits();
    });
    statusTimer->start(statusMilliseconds);

    restoreGeometryOfLastTime();
    refreshList();
    refreshTitle();
    refreshStatus();
    noticeEdits();
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

void SiteWindow::refreshList() {
    list_->refresh();
    refreshTitle();
    refreshElsewhere();
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
    const QString when = newest > 0 ? QLocale().toString(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(newest)),
                                                         QLocale::ShortFormat)
                                    : tr("no reading yet");
    const QString text = tr("%1: %2").arg(station, when);
    if (stationLabel_->text() != text) stationLabel_->setText(text);
    stationLabel_->setToolTip(plainToolTip(QString::fromStdString(sourceOf(document().agent()->configuration()))));
    unlinkedLabel_->setText(unlinkedNotice(unlinkedInstrumentsOf(document()).size()));
    troubleLabel_->setText(QString::fromStdString(session_->trouble()));
}

void SiteWindow::refreshElsewhere() {
    const auto shown = selectedDashboard();
    const bool isElsewhere = shown && document().isInSeparateWindow(*shown);
    elsewhereLabel_->setVisible(isElsewhere);
    if (!isElsewhere) return;
    elsewhereLabel_->setText(
        tr("“%1” is shown in a separate window.").arg(toQt(SiteWindowController::shownTitle(*shown))));
}

void SiteWindow::noticeEdits() {
    if (edits_.noticesChange(controller())) document().setDirty(true);
}

bool SiteWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == canvasArea_ && event->type() == QEvent::Resize) {
        const QSize size = canvasArea_->size();
        controller().setPlugInFrame({0, 0, double(size.width()), double(size.height())});
        elsewhereLabel_->resize(size);
    }
    return QMainWindow::eventFilter(watched, event);
}

void SiteWindow::setUnitSystem(UnitSystem system) {
    document().agent()->setUnitSystem(system);
    document().setDirty(true);
}

void SiteWindow::setListVisible(bool visible) {
    list_->setVisible(visible);
}

bool SiteWindow::isListVisible() const {
    return !list_->isHidden();
}

void SiteWindow::toggleFullScreen() {
    setWindowState(windowState() ^ Qt::WindowFullScreen);
}

bool SiteWindow::save() {
    return file().empty() ? saveAs() : writeTo(QString::fromStdString(file().string()));
}

bool SiteWindow::saveAs() {
    const QString suggested = file().empty() ? QString::fromStdString(document().agent()->name()) + ".site"
                                             : QString::fromStdString(file().string());
    QString chosen =
        QFileDialog::getSaveFileName(this, tr("Save Site Document"), suggested, tr("Site Documents (*.site)"));
    if (chosen.isEmpty()) return false;
    if (QFileInfo(chosen).suffix().isEmpty()) chosen += ".site";
    return writeTo(chosen);
}

bool SiteWindow::writeTo(const QString& chosen) {
    noticeEdits();
    const auto status = document().save(chosen.toStdString());
    if (status) {
        desktop_.noteRecentFile(QFileInfo(chosen).absoluteFilePath());
        refreshTitle();
        return true;
    }
    QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                    tr("“%1” could not be saved.").arg(QFileInfo(chosen).fileName()), QMessageBox::Ok, this);
    box.setInformativeText(QString::fromStdString(status.error().message));
    showTextsPlainly(box);
    box.exec();
    return false;
}

void SiteWindow::closeEvent(QCloseEvent* event) {
    noticeEdits();
    if (document().isDirty()) {
        QMessageBox box(QMessageBox::Question, QCoreApplication::applicationName(),
                        tr("Save the changes to “%1”?").arg(windowTitle().remove("[*]")),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
        showTextsPlainly(box);
        const int choice = box.exec();
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
    setListVisible(settings.value(listKey, true).toBool());
    splitter_->restoreState(settings.value(splitterKey).toByteArray());
    splitter_->setHandleWidth(1);
}

void SiteWindow::rememberGeometry() {
    QSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState());
    settings.setValue(listKey, isListVisible());
    settings.setValue(splitterKey, splitter_->saveState());
}

}  // namespace zor
