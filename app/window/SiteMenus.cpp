#include "app/window/SiteMenus.h"

#include <QActionGroup>
#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <array>

#include "app/Version.h"
#include "app/window/AboutPlugIns.h"
#include "app/window/Appearance.h"
#include "app/window/DashboardMenus.h"
#include "app/window/Desktop.h"
#include "app/window/EditorState.h"
#include "app/window/SiteWindow.h"
#include "app/window/UnlinkedWindow.h"
#include "qt/PlainText.h"
#include "qt/QtConversions.h"

namespace zor {

namespace {

bool isBeingEdited(const SiteWindow& window) {
    return EditorState::of(window.selectedDashboard()).isEdited;
}

}  // namespace

SiteMenus::SiteMenus(SiteWindow& window, QWidget& canvas) : window_(window), bar_(*window.menuBar()) {
    makeFileMenu();
    dashboard_ = new DashboardMenus(window, canvas, window.controller().window(),
                                    [&window] { return window.selectedDashboard(); });
    dashboard_->addTo(bar_);
    makeViewMenu();
    makeWindowMenu();
    makeHelpMenu();
}

QAction* SiteMenus::add(QMenu& menu, const QString& text, const QKeySequence& shortcut, std::function<void()> perform) {
    auto* action = menu.addAction(text);
    action->setShortcut(shortcut);
    QObject::connect(action, &QAction::triggered, &window_, [perform = std::move(perform)] { perform(); });
    return action;
}

void SiteMenus::addSender(QMenu& menu, const QString& text, const QKeySequence& shortcut, const char* action) {
    add(menu, text, shortcut, [this, action] { dashboard_->send(action); });
}

void SiteMenus::makeFileMenu() {
    QMenu& menu = *bar_.addMenu(QObject::tr("&File"));
    auto& desktop = window_.desktop();
    add(menu, QObject::tr("&New Site..."), QKeySequence::New, [&] { desktop.newSite(&window_); });
    add(menu, QObject::tr("&Open..."), QKeySequence::Open, [&] {
        const QString file = QFileDialog::getOpenFileName(&window_, QObject::tr("Open Site Document"), {},
                                                          QObject::tr("Site Documents (*.site);;All files (*)"));
        if (!file.isEmpty()) desktop.openSite(file, &window_);
    });
    QMenu* recent = menu.addMenu(QObject::tr("Open &Recent"));
    QObject::connect(recent, &QMenu::aboutToShow, &window_, [this, recent] { fillRecentFiles(*recent); });
    menu.addSeparator();
    catalogue_ = menu.addMenu(QObject::tr("New &Dashboard"));
    fillCatalogue(*catalogue_);
    menu.addSeparator();
    add(menu, QObject::tr("&Save"), QKeySequence::Save, [this] { window_.save(); });
    add(menu, QObject::tr("Save &As..."), QKeySequence::SaveAs, [this] { window_.saveAs(); });
    for (const auto& entry : window_.document().entryPlugIns()) {
        if (!entry->respondsTo("importDashboard:")) continue;
        add(menu, QObject::tr("&Import Dashboard..."), {},
            [entry] { entry->performWithSender("importDashboard:", {}); });
    }
    addSender(menu, QObject::tr("&Export Dashboard..."), {}, "exportDashboard:");
    menu.addSeparator();
    addSender(menu, QObject::tr("&Print..."), QKeySequence::Print, "printDocument");
    add(menu, QObject::tr("&Web Access..."), {}, [&] { desktop.showWebAccess(&window_); });
    menu.addSeparator();
    add(menu, QObject::tr("&Close Window"), QKeySequence::Close, [this] { window_.close(); });
    add(menu, QObject::tr("&Quit"), QKeySequence::Quit, [&] { desktop.quit(); });
}

void SiteMenus::fillCatalogue(QMenu& menu) {
    for (const auto& entry : window_.document().entryPlugIns()) {
        const auto rows = entry->perform("dashboardsArray").asArray();
        for (std::size_t row = 0; row < rows.size(); ++row) {
            auto* action = add(menu, QString::fromStdString(rows[row]["title"].asString()), {}, [this, entry, row] {
                const Value argument = static_cast<std::int64_t>(row);
                const auto made = entry->perform("dashboardForRow:", {&argument, 1}).as<ZORPlugIn>();
                if (made) window_.controller().addPlugIn(made, true, true);
            });
            action->setToolTip(QString::fromStdString(rows[row]["description"].asString()));
        }
    }
    menu.setToolTipsVisible(true);
}

void SiteMenus::popUpCatalogue(const QPoint& position) {
    catalogue_->popup(position);
}

void SiteMenus::fillRecentFiles(QMenu& menu) {
    menu.clear();
    for (const auto& file : window_.desktop().recentFiles()) {
        auto* action =
            add(menu, QFileInfo(file).fileName(), {}, [this, file] { window_.desktop().openSite(file, &window_); });
        action->setToolTip(plainToolTip(file));
    }
    if (menu.isEmpty()) menu.addAction(QObject::tr("None"))->setEnabled(false);
    menu.addSeparator();
    add(menu, QObject::tr("Demo Station"), {}, [this] { window_.desktop().openSite("demo", &window_); });
}

void SiteMenus::makeViewMenu() {
    QMenu& menu = *bar_.addMenu(QObject::tr("&View"));
    auto* edit = add(menu, QObject::tr("&Edit Dashboard"), QKeySequence(Qt::CTRL | Qt::Key_E),
                     [this] { dashboard_->toggleEditMode(); });
    menu.addSeparator();

    QMenu* units = menu.addMenu(QObject::tr("&Units"));
    auto* group = new QActionGroup(units);
    const std::array<std::pair<UnitSystem, QString>, 4> systems{
        {{UnitSystem::metric, QObject::tr("Metric (°C, hPa, km/h, mm)")},
         {UnitSystem::us, QObject::tr("US (°F, inHg, mph, in)")},
         {UnitSystem::uk, QObject::tr("UK (°C, hPa, mph, mm)")},
         {UnitSystem::si, QObject::tr("SI (°C, hPa, m/s, mm)")}}};
    for (const auto& [system, text] : systems) {
        auto* action = add(*units, text, {}, [this, chosen = system] { window_.setUnitSystem(chosen); });
        action->setCheckable(true);
        action->setChecked(window_.document().agent()->configuration().unitSystem == system);
        group->addAction(action);
    }
    addAppearanceMenu(menu);
    add(menu, QObject::tr("U&nlinked Instruments..."), {}, [this] { UnlinkedWindow::showFor(window_); });
    menu.addSeparator();
    auto* list = add(menu, QObject::tr("&List of Dashboards"), QKeySequence(Qt::Key_F9),
                     [this] { window_.setListVisible(!window_.isListVisible()); });
    list->setCheckable(true);
    auto* bar = window_.findChild<QToolBar*>("toolbar");
    menu.addAction(bar->toggleViewAction());
    auto* fullScreen =
        add(menu, QObject::tr("&Full Screen"), QKeySequence(Qt::Key_F11), [this] { window_.toggleFullScreen(); });
    fullScreen->setCheckable(true);
    QObject::connect(&menu, &QMenu::aboutToShow, &window_, [this, edit, list, fullScreen] {
        edit->setText(isBeingEdited(window_) ? QObject::tr("Exit &Edit Mode") : QObject::tr("&Edit Dashboard"));
        edit->setEnabled(window_.selectedDashboard() != nullptr);
        list->setChecked(window_.isListVisible());
        fullScreen->setChecked(window_.isFullScreen());
    });
}

void SiteMenus::makeWindowMenu() {
    QMenu& menu = *bar_.addMenu(QObject::tr("&Window"));
    QObject::connect(&menu, &QMenu::aboutToShow, &window_, [this, &menu] {
        menu.clear();
        add(menu, QObject::tr("&Minimize"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] { window_.showMinimized(); });
        menu.addSeparator();
        for (const auto& other : window_.desktop().windows()) {
            auto* each = other.get();
            auto* action = add(menu, each->windowTitle().remove("[*]"), {}, [each] {
                each->raise();
                each->activateWindow();
            });
            action->setCheckable(true);
            action->setChecked(each == &window_);
        }
        for (const auto& controller : window_.document().windowControllers()) {
            if (!controller->contentViewController()) continue;
            const std::weak_ptr<Window> separate = controller->window();
            add(menu, toQt(controller->window()->title()), {},
                [separate] { ask(separate.lock(), [](Window& shown) { shown.show(); }); });
        }
    });
}

void SiteMenus::makeHelpMenu() {
    QMenu& menu = *bar_.addMenu(QObject::tr("&Help"));
    add(menu, QObject::tr("Station &Help"), QKeySequence::HelpContents, [this] {
        if (const auto dashboard = window_.selectedDashboard()) {
            dashboard->showHelp();
        } else {
            window_.desktop().showHelp({});
        }
    });
    for (const auto& plugIn : window_.document().entryPlugIns()) {
        add(menu, QObject::tr("%1 Help").arg(QString::fromStdString(plugIn->name())), {},
            [plugIn] { plugIn->showHelp(); });
    }
    menu.addSeparator();
    add(menu, QObject::tr("About &Plug-ins"), {}, [this] { showAboutPlugIns(window_); });
    add(menu, QObject::tr("&About Station"), {}, [this] {
        QMessageBox::about(
            &window_, QObject::tr("About Station"),
            QObject::tr("<h3>Station %1</h3><p>Live instrument panels for a weather station.</p>").arg(programVersion));
    });
}

}  // namespace zor
