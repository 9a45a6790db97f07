#include "app/window/Desktop.h"

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>
#include <QTimer>
#include <algorithm>

#include "app/StationSource.h"
#include "app/StationStore.h"
#include "app/window/HelpWindow.h"
#include "app/window/SiteWindow.h"
#include "app/window/StationDialog.h"
#include "app/window/WebAccess.h"
#include "app/window/WebAccessDialog.h"
#include "qt/PlainText.h"
#include "qt/QtToolkit.h"

namespace zor {

namespace {

constexpr int recentFileCount = 8;
const QString recentKey = QStringLiteral("recentFiles");
const QString lastKey = QStringLiteral("lastSite");
const QString demoSite = QStringLiteral("demo");

void tell(QWidget* parent, const QString& what, const std::string& why) {
    QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(), what, QMessageBox::Ok, parent);
    box.setInformativeText(QString::fromStdString(why));
    showTextsPlainly(box);
    box.exec();
}

/// The one that shows windows.
QtToolkit& toolkit() {
    return static_cast<QtToolkit&>(Toolkit::current());
}

}  // namespace

Desktop::Desktop(const PlugInLibrary& plugIns)
    : plugIns_(plugIns), store_(openStationStore()), webAccess_(std::make_unique<WebAccess>([this] {
          std::vector<std::shared_ptr<SiteDocument>> documents;
          for (const auto& window : windows_) documents.push_back(window->controller().document());
          return documents;
      })) {
    toolkit().setHelpOpener([this](const std::string& anchor) { showHelp(QString::fromStdString(anchor)); });
}

Desktop::~Desktop() {
    toolkit().setHelpOpener({});
}

bool Desktop::openSite(const QString& site, QWidget* parent) {
    const bool isFile = site != demoSite && !namesSource(site.toStdString());
    if (isFile) {
        const auto file = std::filesystem::weakly_canonical(site.toStdString());
        const auto open = std::ranges::find_if(windows_, [&](const auto& window) { return window->file() == file; });
        if (open != windows_.end()) {
            (*open)->raise();
            (*open)->activateWindow();
            return true;
        }
    }
    auto session = SiteSession::open(site.toStdString(), plugIns_);
    if (!session) {
        tell(parent, QObject::tr("“%1” could not be opened.").arg(QFileInfo(site).fileName()), session.error().message);
        return false;
    }
    if (isFile) noteRecentFile(QFileInfo(site).absoluteFilePath());
    QSettings().setValue(lastKey, isFile ? QFileInfo(site).absoluteFilePath() : site);
    show(std::move(*session));
    return true;
}

bool Desktop::newSite(QWidget* parent) {
    StationDialog dialog(parent);
    while (dialog.exec() == QDialog::Accepted) {
        auto session = SiteSession::startNew(dialog.configuration(), plugIns_);
        if (session) {
            (*session)->addCatalogue();
            show(std::move(*session));
            return true;
        }
        tell(&dialog, QObject::tr("That station cannot be read."), session.error().message);
    }
    return false;
}

void Desktop::openLast() {
    const QString last = QSettings().value(lastKey, demoSite).toString();
    const bool gone = last != demoSite && !namesSource(last.toStdString()) && !QFileInfo::exists(last);
    openSite(gone ? demoSite : last, nullptr);
    if (windows_.empty() && last != demoSite) openSite(demoSite, nullptr);
}

void Desktop::show(std::shared_ptr<SiteSession> session) {
    session->start(store_);
    windows_.push_back(std::make_unique<SiteWindow>(*this, std::move(session)));
    windows_.back()->show();
}

void Desktop::showHelp(const QString& anchor) {
    if (!help_) help_ = std::make_unique<HelpWindow>();
    help_->showAnchor(anchor);
}

void Desktop::showWebAccess(QWidget* parent) {
    if (!webAccessDialog_) {
        webAccessDialog_ = new WebAccessDialog(
            *webAccess_, [this] { showHelp(QStringLiteral("webaccess")); }, parent);
    }
    webAccessDialog_->show();
    webAccessDialog_->raise();
    webAccessDialog_->activateWindow();
}

void Desktop::windowClosed(SiteWindow* window) {
    // The window is still inside its own close event.
    QTimer::singleShot(0, qApp, [this, window] {
        std::erase_if(windows_, [&](const auto& each) { return each.get() == window; });
        if (windows_.empty()) QCoreApplication::quit();
    });
}

bool Desktop::quit() {
    for (const auto& window : windows_) {
        if (!window->close()) return false;
    }
    return true;
}

QStringList Desktop::recentFiles() const {
    QStringList files = QSettings().value(recentKey).toStringList();
    files.removeIf([](const QString& file) { return !QFileInfo::exists(file); });
    return files;
}

void Desktop::noteRecentFile(const QString& file) {
    QStringList files = recentFiles();
    files.removeAll(file);
    files.prepend(file);
    QSettings().setValue(recentKey, QStringList(files.mid(0, recentFileCount)));
    QSettings().setValue(lastKey, file);
}

}  // namespace zor
