#include "host/views/Window.h"

#include <algorithm>
#include <string_view>

#include "host/foundation/ClassBuilder.h"
#include "host/views/Controls.h"
#include "host/views/Toolkit.h"

namespace zor {

namespace {

std::shared_ptr<Button> buttonForKey(const View& view, const std::u16string& characters) {
    for (const auto& child : view.subviews()) {
        if (child->isHidden()) continue;
        const auto button = std::dynamic_pointer_cast<Button>(child);
        if (button && button->keyEquivalent() == characters) return button;
        if (auto found = buttonForKey(*child, characters)) return found;
    }
    return {};
}

constexpr std::u16string_view tabKey = u"\t";
constexpr std::u16string_view backTabKey = u"\x19";

/// The buttons and lists that are shown, in the order of the tree.
void collectControls(const View& view, std::vector<std::shared_ptr<View>>& controls) {
    for (const auto& child : view.subviews()) {
        if (child->isHidden()) continue;
        const bool isControl = dynamic_cast<Button*>(child.get()) || dynamic_cast<TableView*>(child.get());
        if (isControl) controls.push_back(child);
        collectControls(*child, controls);
    }
}

/// To the control `step` places after the one that has the keyboard; the first or the last where none has it.
void moveKeyboard(Window& window, int step) {
    std::vector<std::shared_ptr<View>> controls;
    collectControls(*window.contentView(), controls);
    if (controls.empty()) return;
    const auto found =
        std::ranges::find(controls, window.firstResponder(), [](const auto& each) -> Responder* { return each.get(); });
    const auto count = static_cast<std::ptrdiff_t>(controls.size());
    const auto start = found != controls.end() ? found - controls.begin() : step > 0 ? -1 : count;
    window.makeFirstResponder(controls[static_cast<std::size_t>((start + step + count) % count)]);
}

/// A button shows whether it has the keyboard.
void redrawButton(Responder* responder) {
    if (auto* button = dynamic_cast<Button*>(responder)) button->setNeedsDisplay(true);
}

}  // namespace

const ClassRecord& Window::staticClass() {
    static const ClassRecord& record = ClassBuilder<Window>("Window", &Responder::staticClass())
                                           .property("title", &Window::title, &Window::setTitle)
                                           .property("frame", &Window::frame, &Window::setFrame)
                                           .property("visible", &Window::isVisible)
                                           .registered();
    return record;
}

Window::Window() = default;

Window::~Window() {
    // The peer knows this window by reference.
    peer_.reset();
    if (sheet_) sheet_->visible_ = false;
    if (contentView_) contentView_->setWindow(nullptr);
}

void Window::setPeer(std::shared_ptr<WindowPeer> peer) {
    peer_ = std::move(peer);
}

void Window::makePeer() {
    if (!peer_) peer_ = Toolkit::current().makeWindowPeer(*this);
}

void Window::setTitle(const std::string& title) {
    if (title == title_) return;
    title_ = title;
    if (peer_) peer_->titleChanged();
}

void Window::setFrame(const Rect& frame) {
    if (frame == frame_) return;
    frame_ = frame;
    if (peer_) peer_->frameChanged();
}

void Window::show() {
    makePeer();
    visible_ = true;
    if (peer_) peer_->show();
}

void Window::close() {
    const auto alive = weak_from_this().lock();
    if (sheet_) endSheet(sheet_, 0);
    if (!visible_) return;
    visible_ = false;
    if (peer_) peer_->hide();
    const auto observer = closeObserver_;
    if (observer) observer();
}

void Window::setContentView(const std::shared_ptr<View>& view) {
    placeContent(view, {});
}

void Window::setContentViewController(const std::shared_ptr<Responder>& controller, const std::shared_ptr<View>& view) {
    placeContent(view, controller);
}

void Window::placeContent(std::shared_ptr<View> view, std::shared_ptr<Responder> controller) {
    contentViewController_.swap(controller);
    if (view == contentView_) return;
    if (const auto left = std::exchange(contentView_, {})) {
        viewLeaves(*left);
        left->setWindow(nullptr);
    }
    if (view) {
        view->removeFromSuperview();
        if (Window* const other = view->window()) other->setContentView({});
        contentView_ = view;
        view->setWindow(this);
    }
    if (peer_) peer_->contentChanged();
}

Responder* Window::firstResponder() const {
    const auto responder = firstResponder_.lock();
    return responder ? responder.get() : const_cast<Window*>(this);
}

bool Window::makeFirstResponder(const std::shared_ptr<Responder>& responder) {
    if (responder && responder.get() != this && !responder->acceptsFirstResponder()) return false;
    const auto before = firstResponder_.lock();
    firstResponder_ = responder;
    redrawButton(before.get());
    redrawButton(responder.get());
    return true;
}

void Window::sendEvent(const EventPtr& event) {
    // Whoever takes the event lives until it has been handled, whatever the handlers do to the tree.
    const auto at = [&] {
        View* hit = contentView_ ? contentView_->hitTest(event->locationInWindow()) : nullptr;
        return hit ? std::static_pointer_cast<View>(hit->shared_from_this()) : nullptr;
    };
    const auto deliver = [&](const std::shared_ptr<Responder>& taker, void (Responder::*handler)(const EventPtr&)) {
        const auto alive = weak_from_this().lock();
        Responder& responder = taker ? *taker : *this;
        (responder.*handler)(event);
    };
    switch (event->type()) {
        case EventType::mouseDown: {
            const auto view = at();
            pressedView_ = view;
            pressAwaitsRelease_ = true;
            return deliver(view, &Responder::mouseDown);
        }
        case EventType::rightMouseDown: {
            const auto view = at();
            if (!pressAwaitsRelease_) pressedView_ = view;
            return deliver(view, &Responder::rightMouseDown);
        }
        case EventType::mouseDragged:
            return deliver(pressedView_.lock(), &Responder::mouseDragged);
        case EventType::mouseUp: {
            const auto view = std::exchange(pressAwaitsRelease_, false) ? pressedView_.lock() : nullptr;
            pressedView_.reset();
            return deliver(view, &Responder::mouseUp);
        }
        case EventType::keyDown:
            return deliver(firstResponder_.lock(), &Responder::keyDown);
        case EventType::scrollWheel:
            return deliver(at(), &Responder::scrollWheel);
    }
}

void Window::keyDown(const EventPtr& event) {
    if (!contentView_ || event->characters().empty()) return;
    if (event->characters() == tabKey) return moveKeyboard(*this, 1);
    if (event->characters() == backTabKey) return moveKeyboard(*this, -1);
    if (const auto button = buttonForKey(*contentView_, event->characters())) button->click();
}

void Window::beginSheet(const std::shared_ptr<Window>& sheet, std::function<void(int)> completion) {
    if (!sheet || sheet.get() == this) return;
    const auto alive = weak_from_this().lock();
    const auto begun = sheet;
    if (sheet_) endSheet(sheet_, 0);
    if (sheet_) {
        // Begun by the completion of the one before; it stays.
        if (completion) completion(0);
        return;
    }
    sheet_ = begun;
    sheetCompletion_ = std::move(completion);
    begun->visible_ = true;
    if (!peer_) return;
    begun->makePeer();
    peer_->beginSheet(*begun);
}

void Window::endSheet(const std::shared_ptr<Window>& sheet, int returnCode) {
    if (!sheet || sheet != sheet_) return;
    const auto ended = std::exchange(sheet_, {});
    const auto completion = std::exchange(sheetCompletion_, {});
    ended->visible_ = false;
    if (peer_) peer_->endSheet(*ended);
    if (completion) completion(returnCode);
}

void Window::viewNeedsDisplay(const Rect& rect) {
    if (peer_) peer_->needsDisplay(rect);
}

void Window::viewLeaves(const View& view) {
    const auto responder = std::dynamic_pointer_cast<View>(firstResponder_.lock());
    if (responder && responder->isDescendantOf(view)) firstResponder_.reset();
}

}  // namespace zor
