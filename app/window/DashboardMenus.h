#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace zor {

struct EditorState;
class SiteWindow;

/// The commands of the dashboard that a site window shows: the menus Edit, Insert and Arrange. A command is enabled
/// exactly when it would do something, which is found out when a menu opens and when a key comes that may be a
/// shortcut: a key that no command wants reaches whatever has the keyboard.
class DashboardMenus final : public QObject {
public:
    /// `canvas` shows the dashboard: keys that other parts of the window use otherwise are shortcuts only there.
    DashboardMenus(SiteWindow& window, QWidget& canvas);
    void addTo(QMenuBar& bar);

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

    SiteWindow& window_;
    QWidget& canvas_;
    std::vector<Command> commands_;
};

}  // namespace zor
