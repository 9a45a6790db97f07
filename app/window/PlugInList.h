#pragma once

#include <QListWidget>
#include <functional>

#include "host/station/SiteWindowController.h"

namespace zor {

QIcon iconFrom(const std::shared_ptr<Image>& image);

/// The plug-ins of a site window: choosing one shows it; those that allow it are renamed in place and removed.
class PlugInList final : public QListWidget {
public:
    PlugInList(SiteWindowController& controller, QWidget* parent);
    /// Called when a person wants a plug-in in a window of its own.
    void setSeparateWindowObserver(std::function<void(const std::shared_ptr<ZORPlugIn>&)> observer) {
        separateWindowObserver_ = std::move(observer);
    }
    /// Shows the controller's list anew.
    void refresh();

private:
    std::shared_ptr<ZORPlugIn> plugInAt(int row) const;
    void showMenu(const QPoint& position);
    void rename(int row);
    void removeAsked(int row);

    SiteWindowController& controller_;
    std::function<void(const std::shared_ptr<ZORPlugIn>&)> separateWindowObserver_;
    bool refreshing_ = false;
};

}  // namespace zor
