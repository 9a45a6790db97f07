#include "qt/ViewTreeWidget.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QTimerEvent>

#include "qt/QtConversions.h"
#include "qt/QtDrawingContext.h"
#include "qt/QtEvents.h"

namespace zor {

namespace {

constexpr int millisecondsPerFrame = 33;
/// Damage in more rectangles is painted in one go: every rectangle costs a walk through the tree.
constexpr int mostRectangles = 4;

}  // namespace

ViewTreeWidget::ViewTreeWidget(QWidget* parent)
    : QWidget(parent), autoScroller_([this](const EventPtr& drag) { send(drag); }) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
}

void ViewTreeWidget::setShownWindow(Window* window) {
    window_ = window;
    contentChanged();
}

View* ViewTreeWidget::content() const {
    return window_ ? window_->contentView().get() : nullptr;
}

View* ViewTreeWidget::viewAt(QPointF place) const {
    View* view = content();
    return view ? view->hitTest(fromQt(place)) : nullptr;
}

void ViewTreeWidget::showPointerShape(QPointF place) {
    const View* view = viewAt(place);
    const auto shape =
        view ? view->pointerShapeAt(view->convertPointFromView(fromQt(place), nullptr)) : PointerShape::arrow;
    if (shape == PointerShape::resizeDiagonally) {
        setCursor(Qt::SizeFDiagCursor);
    } else {
        unsetCursor();
    }
}

void ViewTreeWidget::contentChanged() {
    if (View* view = content()) view->setFrame({0, 0, static_cast<double>(width()), static_cast<double>(height())});
    survey();
    update();
}

void ViewTreeWidget::redisplay(const Rect& rect) {
    // Antialiasing may reach into the next pixel.
    const QRectF area = toQt(insetRect(rect, -1, -1)) & QRectF(this->rect());
    if (!area.isEmpty()) damage(area.toAlignedRect());
    scheduleSurvey();
}

void ViewTreeWidget::damage(const QRect& area) {
    // Where much is painted in one go in any case, the pieces need not be told apart.
    const bool isKnown = damagedPieces_ > mostRectangles && damage_.contains(area);
    damage_ |= area;
    if (!isKnown) update(++damagedPieces_ > mostRectangles ? damage_ : area);
}

void ViewTreeWidget::scheduleSurvey() {
    if (surveyScheduled_) return;
    surveyScheduled_ = true;
    QMetaObject::invokeMethod(
        this, [this] { survey(); }, Qt::QueuedConnection);
}

void ViewTreeWidget::survey() {
    surveyScheduled_ = false;
    View* view = content();
    scrollers_.follow(view);
    if (view && isVisible() && !animation_.isActive() && view->redisplayAnimatedLayers()) {
        animation_.start(millisecondsPerFrame, this);
    }
}

QSize ViewTreeWidget::sizeHint() const {
    const View* view = content();
    return view ? QSizeF(view->frame().width, view->frame().height).toSize() : QWidget::sizeHint();
}

void ViewTreeWidget::paintEvent(QPaintEvent* event) {
    damage_ = {};
    damagedPieces_ = 0;
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().window());
    View* view = content();
    if (!view) return;
    const QRegion damage = event->region();
    for (const QRect& part : damage.rectCount() > mostRectangles ? QRegion(event->rect()) : damage) {
        const Rect dirty{static_cast<double>(part.x()), static_cast<double>(part.y()),
                         static_cast<double>(part.width()), static_cast<double>(part.height())};
        QtDrawingContext context(painter);
        context.clipToRect(dirty);
        view->displayTree(context, dirty, true);
    }
}

void ViewTreeWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    contentChanged();
}

void ViewTreeWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    survey();
}

void ViewTreeWidget::timerEvent(QTimerEvent* event) {
    if (event->timerId() != animation_.timerId()) return QWidget::timerEvent(event);
    View* view = content();
    if (!view || !isVisible() || !view->redisplayAnimatedLayers()) animation_.stop();
}

/// The handlers may close the window, so that nothing of it may be touched afterwards.
void ViewTreeWidget::send(const EventPtr& event) {
    if (!window_) return;
    const auto alive = window_->weak_from_this().lock();
    window_->sendEvent(event);
}

int ViewTreeWidget::countClick(const QMouseEvent& press) {
    const bool follows =
        press.button() == lastPressButton_ &&
        press.timestamp() - lastPressTime_ <= static_cast<quint64>(QApplication::doubleClickInterval()) &&
        (press.position() - lastPressPoint_).manhattanLength() < QApplication::startDragDistance();
    clickCount_ = follows ? clickCount_ + 1 : 1;
    lastPressButton_ = press.button();
    lastPressTime_ = press.timestamp();
    lastPressPoint_ = press.position();
    return clickCount_;
}

void ViewTreeWidget::mousePressEvent(QMouseEvent* event) {
    const int clicks = countClick(*event);
    if (event->button() == Qt::LeftButton) {
        autoScroller_.begin(viewAt(event->position()));
        return send(eventFromQt(*event, EventType::mouseDown, clicks));
    }
    if (event->button() == Qt::RightButton) return send(eventFromQt(*event, EventType::rightMouseDown, clicks));
    event->ignore();
}

void ViewTreeWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return showPointerShape(event->position());
    const EventPtr drag = eventFromQt(*event, EventType::mouseDragged, clickCount_);
    autoScroller_.follow(drag);
    send(drag);
}

void ViewTreeWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    autoScroller_.end();
    const QPointer<QWidget> alive = this;
    send(eventFromQt(*event, EventType::mouseUp, clickCount_));
    // A widget that has been selected has a handle now.
    if (alive) showPointerShape(event->position());
}

void ViewTreeWidget::wheelEvent(QWheelEvent* event) {
    send(eventFromQt(*event));
}

void ViewTreeWidget::keyPressEvent(QKeyEvent* event) {
    if (const EventPtr key = eventFromQt(*event)) return send(key);
    QWidget::keyPressEvent(event);
}

void ViewTreeWidget::contextMenuEvent(QContextMenuEvent* event) {
    // The mouse's has come as a press already; the keyboard's opens the menu at the pointer, or in the middle.
    if (event->reason() != QContextMenuEvent::Keyboard) return;
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const QPointF place = rect().contains(pointer) ? pointer : rect().center();
    send(Event::mouse(EventType::rightMouseDown, fromQt(place), 0, 1));
}

}  // namespace zor
