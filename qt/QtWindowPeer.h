#pragma once

#include <QPointer>

#include "host/views/Window.h"
#include "qt/ViewTreeWidget.h"

namespace zor {

/// A window on Qt: a floating tool window of its own, a plain window for a plug-in, or a widget that the application has put into a window of its.
/// A frame's size is that of the content, without title bar.
class QtWindowPeer final : public WindowPeer {
public:
    /// The tool window is made at the first showing.
    explicit QtWindowPeer(Window& window);
    /// The widget stays the application's. Its size and place are the application's too: the window's frame follows
    /// neither.
    QtWindowPeer(Window& window, ViewTreeWidget& embedded);
    /// A tool window that is filled by a widget of Qt's instead of a view tree, and called by the widget's own title
    /// while the window has none.
    QtWindowPeer(Window& window, std::unique_ptr<QWidget> content);
    ~QtWindowPeer() override;
    QtWindowPeer(const QtWindowPeer&) = delete;
    QtWindowPeer& operator=(const QtWindowPeer&) = delete;

    /// The Qt widget that shows the window, or none: for a window off screen, or of another toolkit.
    static ViewTreeWidget* widgetOf(const Window* window);

    void show() override;
    void hide() override;
    void titleChanged() override;
    void frameChanged() override;
    void contentChanged() override;
    void needsDisplay(const Rect& rect) override;
    void beginSheet(Window& sheet) override;
    void endSheet(Window& sheet) override;

private:
    class OwnWidget;

    /// None where the application's widget is gone.
    ViewTreeWidget* madeWidget();
    /// Whether it is a panel or a sheet; what shows a plug-in is a window like any other.
    bool floats() const;
    void frameMovedByPerson();
    void closedByPerson();

    Window& window_;
    QPointer<ViewTreeWidget> widget_;
    /// Until the tool window is made, which takes it.
    std::unique_ptr<QWidget> content_;
    QString titleOfContent_;
    bool isEmbedded_;
    bool adoptsFrame_ = false;
    /// The window on which this one is shown as a sheet.
    std::weak_ptr<Object> sheetParent_;
};

}  // namespace zor
