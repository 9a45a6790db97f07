#pragma once

#include <QPointer>

#include "host/station/ZORPropertyPanelController.h"
#include "qt/panel/PropertyPanel.h"

namespace zor {

/// Puts the entries of a controller's target into the controller's window and keeps them as the target is.
class QtPropertyPanelPeer final : public PropertyPanelPeer {
public:
    /// The controller keeps it.
    explicit QtPropertyPanelPeer(ZORPropertyPanelController& controller);
    ~QtPropertyPanelPeer() override;
    QtPropertyPanelPeer(const QtPropertyPanelPeer&) = delete;
    QtPropertyPanelPeer& operator=(const QtPropertyPanelPeer&) = delete;

private:
    void reload();
    void showEntries();
    /// Grows downwards to what the entries need, where the screen has the room.
    void fitWindow();
    void watch(const std::vector<std::weak_ptr<View>>& views);

    ZORPropertyPanelController& controller_;
    QPointer<PropertyPanel> panel_;
    std::weak_ptr<Object> target_;
    std::vector<std::weak_ptr<View>> watched_;
};

}  // namespace zor
