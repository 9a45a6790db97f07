#pragma once

#include <memory>

#include "host/views/Event.h"
#include "host/views/Menu.h"

class QMenu;
class QWidget;

namespace zor {

class View;

/// The menu as Qt's; its items perform the menu's actions, and are dimmed where their target is gone. The caller owns
/// it, or `parent`.
QMenu* makeQtMenu(const std::shared_ptr<Menu>& menu, QWidget* parent);
/// Shows the menu where the event was in the view's window, and returns at once. Nothing without items, or for a view
/// that no Qt window shows.
void popUpQtMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view);

}  // namespace zor
