#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/views/View.h"

namespace zor {

/// The toolkit's half of a window. A window without one lives off screen.
class WindowPeer {
public:
    virtual ~WindowPeer() = default;
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual void titleChanged() = 0;
    virtual void frameChanged() = 0;
    virtual void contentChanged() = 0;
    /// Window coordinates.
    virtual void needsDisplay(const Rect& rect) = 0;
    /// Shows `sheet` attached to this window until endSheet.
    virtual void beginSheet(Window& sheet) = 0;
    virtual void endSheet(Window& sheet) = 0;
};

/// A window: content, first responder, event routing and sheets are plain logic; its peer shows it.
class Window : public Responder {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    Window();
    ~Window() override;

    /// The peer is asked of the toolkit at the first showing, unless the toolkit set one before.
    void setPeer(std::shared_ptr<WindowPeer> peer);
    WindowPeer* peer() const { return peer_.get(); }

    const std::string& title() const { return title_; }
    void setTitle(const std::string& title);
    /// Screen coordinates, origin at the bottom left.
    const Rect& frame() const { return frame_; }
    /// Without redisplay and animation; the content keeps its frame.
    void setFrame(const Rect& frame);
    bool isVisible() const { return visible_; }
    void show();
    /// Ends its sheet with code 0.
    void close();
    void orderOut() { close(); }
    /// Told after the window was closed; it may let go of the window.
    void setCloseObserver(std::function<void()> observer) { closeObserver_ = std::move(observer); }

    const std::shared_ptr<View>& contentView() const { return contentView_; }
    /// Takes the view out of where it was. It has no controller then.
    void setContentView(const std::shared_ptr<View>& view);
    /// The responder whose view is the content view, such as a plug-in; may be absent.
    const std::shared_ptr<Responder>& contentViewController() const { return contentViewController_; }
    void setContentViewController(const std::shared_ptr<Responder>& controller, const std::shared_ptr<View>& view);

    /// The window itself until something else is made first responder, and when that goes.
    Responder* firstResponder() const;
    /// No responder means the window itself. False where the responder declines.
    bool makeFirstResponder(const std::shared_ptr<Responder>& responder);

    /// Routes one event: presses by hit test, drags and releases to the view that took the press, keys to the first
    /// responder, the wheel to the view under the pointer.
    void sendEvent(const EventPtr& event);
    /// Whether a left press awaits its release.
    bool hasPressedView() const { return pressAwaitsRelease_; }

    /// A sheet on this window; the completion takes its return code when it ends. A sheet that it has already ends
    /// first, with code 0.
    void beginSheet(const std::shared_ptr<Window>& sheet, std::function<void(int)> completion);
    /// Nothing where `sheet` is not this window's sheet. The sheet is gone before its completion runs.
    void endSheet(const std::shared_ptr<Window>& sheet, int returnCode);
    std::shared_ptr<Window> attachedSheet() const { return sheet_; }

    /// Called by views; window coordinates.
    void viewNeedsDisplay(const Rect& rect);
    /// Called by views that leave the tree, so that none stays first responder.
    void viewLeaves(const View& view);

    void mouseDown(const EventPtr&) override {}
    /// What nobody has taken: Tab takes the keyboard to the next control, other keys click the button that has them.
    void keyDown(const EventPtr& event) override;

private:
    void placeContent(std::shared_ptr<View> view, std::shared_ptr<Responder> controller);
    void makePeer();

    std::shared_ptr<WindowPeer> peer_;
    std::string title_;
    Rect frame_;
    bool visible_ = false;
    std::shared_ptr<View> contentView_;
    std::shared_ptr<Responder> contentViewController_;
    std::weak_ptr<Responder> firstResponder_;
    /// Takes drags and releases, also after it has left the tree.
    std::weak_ptr<View> pressedView_;
    bool pressAwaitsRelease_ = false;
    std::shared_ptr<Window> sheet_;
    std::function<void(int)> sheetCompletion_;
    std::function<void()> closeObserver_;
};

}  // namespace zor
