#pragma once

#include <QBasicTimer>
#include <QPointF>
#include <QRect>
#include <QWidget>

#include "host/views/Window.h"
#include "qt/AutoScroller.h"
#include "qt/ScrollerOverlays.h"

namespace zor {

/// One Qt widget that shows the whole view tree of a window: it paints what is damaged, gives the window its events and
/// its content the widget's size. Scroll views get native scroll bars and scroll when a drag reaches their edge; layers
/// move while they are animated; the pointer's shape is that of the view below it.
class ViewTreeWidget : public QWidget {
public:
    explicit ViewTreeWidget(QWidget* parent = nullptr);

    /// What is shown; the window's peer sets it, and takes it away before the window goes.
    void setShownWindow(Window* window);
    Window* shownWindow() const { return window_; }
    /// The window has another content view.
    void contentChanged();
    /// Window coordinates.
    void redisplay(const Rect& rect);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    View* content() const;
    View* viewAt(QPointF place) const;
    void showPointerShape(QPointF place);
    void send(const EventPtr& event);
    int countClick(const QMouseEvent& press);
    void damage(const QRect& area);
    /// Looks the tree over, soon and once for many changes.
    void scheduleSurvey();
    void survey();

    Window* window_ = nullptr;
    ScrollerOverlays scrollers_{*this};
    QBasicTimer animation_;
    AutoScroller autoScroller_;
    bool surveyScheduled_ = false;
    /// Around all that has been damaged since the last painting, and in how many pieces.
    QRect damage_;
    int damagedPieces_ = 0;
    quint64 lastPressTime_ = 0;
    QPointF lastPressPoint_;
    Qt::MouseButton lastPressButton_ = Qt::NoButton;
    int clickCount_ = 0;
};

}  // namespace zor
