#include "qt/QtWindowPeer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <QWindow>

#include "qt/QtConversions.h"

namespace zor {

namespace {

constexpr Qt::WindowFlags floatingFlags =
    Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;

}  // namespace

/// Tells the peer what the person does to the window itself.
class QtWindowPeer::OwnWidget : public ViewTreeWidget {
public:
    /// The peer takes the widget with it when it goes.
    explicit OwnWidget(QtWindowPeer& peer) : peer_(peer) {}

protected:
    void moveEvent(QMoveEvent* event) override {
        ViewTreeWidget::moveEvent(event);
        if (shownWindow()) peer_.frameMovedByPerson();
    }
    void resizeEvent(QResizeEvent* event) override {
        ViewTreeWidget::resizeEvent(event);
        if (shownWindow()) peer_.frameMovedByPerson();
    }
    void closeEvent(QCloseEvent* event) override {
        ViewTreeWidget::closeEvent(event);
        if (shownWindow()) peer_.closedByPerson();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Escape || !peer_.floats()) return ViewTreeWidget::keyPressEvent(event);
        close();
    }

private:
    QtWindowPeer& peer_;
};

QtWindowPeer::QtWindowPeer(Window& window) : window_(window), isEmbedded_(false) {}

bool QtWindowPeer::floats() const {
    return !window_.contentViewController();
}

QtWindowPeer::QtWindowPeer(Window& window, ViewTreeWidget& embedded)
    : window_(window), widget_(&embedded), isEmbedded_(true) {
    embedded.setShownWindow(&window);
}

QtWindowPeer::QtWindowPeer(Window& window, std::unique_ptr<QWidget> content)
    : window_(window), content_(std::move(content)), titleOfContent_(content_->windowTitle()), isEmbedded_(false) {}

QtWindowPeer::~QtWindowPeer() {
    if (!widget_) return;
    widget_->setShownWindow(nullptr);
    if (isEmbedded_) return;
    // It may be one of the widget's own events that ends the window.
    widget_->hide();
    widget_->deleteLater();
}

ViewTreeWidget* QtWindowPeer::widgetOf(const Window* window) {
    const auto* peer = window ? dynamic_cast<const QtWindowPeer*>(window->peer()) : nullptr;
    return peer ? peer->widget_.data() : nullptr;
}

ViewTreeWidget* QtWindowPeer::madeWidget() {
    if (widget_ || isEmbedded_) return widget_;
    widget_ = new OwnWidget(*this);
    widget_->setWindowFlags(floats() ? floatingFlags | Qt::Tool : Qt::WindowFlags(Qt::Window));
    // The keyboard stays with the window that is being worked in.
    widget_->setAttribute(Qt::WA_ShowWithoutActivating, floats());
    titleChanged();
    if (content_) {
        auto* layout = new QVBoxLayout(widget_);
        layout->setContentsMargins({});
        widget_->setFocusPolicy(Qt::NoFocus);
        layout->addWidget(content_.release());
    }
    const auto& content = window_.contentView();
    const Size size = !window_.frame().isEmpty() || !content ? window_.frame().size() : content->frame().size();
    // The window's wish comes first; only then does the content follow the widget.
    widget_->resize(QSizeF(size.width, size.height).toSize());
    if (!window_.frame().isEmpty()) frameChanged();
    widget_->setShownWindow(&window_);
    return widget_;
}

void QtWindowPeer::show() {
    if (!madeWidget()) return;
    QWidget* top = widget_->window();
    if (!isEmbedded_ && floats()) {
        // Above the window in front, and closed with it.
        const QWidget* front = QApplication::activeWindow();
        top->winId();
        if (front && front != top) top->windowHandle()->setTransientParent(front->windowHandle());
    }
    top->show();
    top->raise();
}

void QtWindowPeer::hide() {
    if (widget_) widget_->window()->hide();
}

void QtWindowPeer::titleChanged() {
    if (!widget_) return;
    widget_->window()->setWindowTitle(window_.title().empty() ? titleOfContent_ : toQt(window_.title()));
}

void QtWindowPeer::frameChanged() {
    if (!widget_ || isEmbedded_ || adoptsFrame_) return;
    adoptsFrame_ = true;
    const QRectF place = toQt(flippedOnScreen(window_.frame()));
    widget_->resize(place.size().toSize());
    widget_->move(place.topLeft().toPoint());
    adoptsFrame_ = false;
}

void QtWindowPeer::frameMovedByPerson() {
    if (adoptsFrame_) return;
    adoptsFrame_ = true;
    const QPointF corner = widget_->pos();
    window_.setFrame(flippedOnScreen(
        {corner.x(), corner.y(), static_cast<double>(widget_->width()), static_cast<double>(widget_->height())}));
    adoptsFrame_ = false;
}

void QtWindowPeer::contentChanged() {
    if (widget_) widget_->contentChanged();
}

void QtWindowPeer::needsDisplay(const Rect& rect) {
    if (widget_) widget_->redisplay(rect);
}

void QtWindowPeer::beginSheet(Window& sheet) {
    auto* peer = dynamic_cast<QtWindowPeer*>(sheet.peer());
    if (!peer || !madeWidget() || !peer->madeWidget()) return;
    peer->sheetParent_ = window_.weak_from_this();
    QWidget* dialog = peer->widget_->window();
    QWidget* parent = widget_->window();
    dialog->setParent(parent, floatingFlags | Qt::Dialog);
    dialog->setFixedSize(dialog->size());
    dialog->move(parent->geometry().center() - dialog->rect().center());
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_ShowWithoutActivating, false);
    dialog->show();
}

void QtWindowPeer::endSheet(Window& sheet) {
    if (ViewTreeWidget* widget = widgetOf(&sheet)) widget->window()->hide();
    if (auto* peer = dynamic_cast<QtWindowPeer*>(sheet.peer())) peer->sheetParent_.reset();
}

void QtWindowPeer::closedByPerson() {
    const auto self = std::static_pointer_cast<Window>(window_.weak_from_this().lock());
    if (const auto parent = std::dynamic_pointer_cast<Window>(sheetParent_.lock())) return parent->endSheet(self, 0);
    window_.close();
}

}  // namespace zor
