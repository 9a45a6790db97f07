#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace zor {

struct EditorState;
class Window;
class ZORPlugIn;

/// The commands of the dashboard that a window shows: the menus Edit, Insert and Arrange, or their keys alone. A
/// command is enabled exactly when it would do something, which is found out when a menu opens and when a key comes
/// that may be a shortcut: a key that no command wants reaches whatever has the keyboard.
class DashboardMenus final : public QObject {
public:
    using Shown = std::function<std::shared_ptr<ZORPlugIn>()>;

    /// `canvas` shows the dashboard: keys that other parts of the window use otherwise are shortcuts only there.
    /// `responders` is the window whose first responder the actions begin at.
    DashboardMenus(QWidget& window, QWidget& canvas, std::weak_ptr<Window> responders, Shown shown);
    void addTo(QMenuBar& bar);
    /// For a window without a menu bar: the keys of the menus work all the same.
    void addKeys();
    /// Sends an action up the responder chain, from the dashboard where nothing in the window has the keyboard.
    void send(const char* action) const;
    /// Into edit mode, or out of it.
    void toggleEditMode() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Condition = std::function<bool(const EditorState&)>;
    struct Command {
        QAction* action;
        Condition isUseful;
    };

    QMenu& addMenu(QMenuBar& bar, const QString& title);
    /// Sends `name` up the responder chain.
    QAction* add(QMenu& menu, const QString& text, const QString& tip, const char* name, Condition isUseful);
    void fillEditMenu(QMenu& menu);
    void fillInsertMenu(QMenu& menu);
    void fillArrangeMenu(QMenu& menu);
    void showProperties();
    void refresh();

    QWidget& canvas_;
    std::weak_ptr<Window> responders_;
    Shown shown_;
    std::vector<Command> commands_;
};

}  // namespace zor
