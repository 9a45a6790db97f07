#include "qt/QtMenus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>

#include "host/views/View.h"
#include "qt/QtConversions.h"
#include "qt/QtWindowPeer.h"

namespace zor {

namespace {

/// As it stands: an ampersand is no mnemonic.
QString plainTitle(const std::string& title) {
    return toQt(title).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

QMenu* makeQtMenu(const std::shared_ptr<Menu>& menu, QWidget* parent) {
    auto* result = new QMenu(toQt(menu->title()), parent);
    for (std::size_t index = 0; index < menu->items().size(); ++index) {
        const MenuItem& item = menu->items()[index];
        if (item.isSeparator) {
            result->addSeparator();
            continue;
        }
        QAction* action = result->addAction(plainTitle(item.title));
        action->setEnabled(!item.target.expired());
        // The platform's Command is the Control key.
        if (!item.keyEquivalent.empty()) action->setShortcut(QKeySequence("Ctrl+" + toQt(item.keyEquivalent)));
        QObject::connect(action, &QAction::triggered, [menu, index] { menu->performItemAtIndex(index); });
    }
    return result;
}

void popUpQtMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) {
    QWidget* widget = view ? QtWindowPeer::widgetOf(view->window()) : nullptr;
    if (!menu || menu->items().empty() || !event || !widget) return;
    QMenu* shown = makeQtMenu(menu, widget);
    shown->setAttribute(Qt::WA_DeleteOnClose);
    shown->popup(widget->mapToGlobal(toQt(event->locationInWindow())).toPoint());
}

}  // namespace zor
