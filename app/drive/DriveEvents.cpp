#include "app/drive/DriveSession.h"
#include "host/foundation/SafeFile.h"
#include "host/views/ScrollView.h"

namespace zor {

namespace {

std::u16string utf16(const std::string& text) {
    // Json has checked the encoding already.
    std::u16string units;
    for (std::size_t index = 0; index < text.size();) {
        const auto lead = static_cast<unsigned char>(text[index]);
        const int length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? lead : lead & (0x7F >> length);
        for (int next = 1; next < length; ++next) point = point << 6 | (text[index + next] & 0x3F);
        index += length;
        if (point >= 0x10000) {
            point -= 0x10000;
            units += static_cast<char16_t>(0xD800 + (point >> 10));
            units += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        } else {
            units += static_cast<char16_t>(point);
        }
    }
    return units;
}

const ScrollView* scrollViewAround(const View& view) {
    for (const View* each = &view; each; each = each->superview()) {
        if (const auto* found = dynamic_cast<const ScrollView*>(each)) return found;
    }
    return nullptr;
}

}  // namespace

std::uint32_t modifierFlags(const Fields& line) {
    std::uint32_t flags = 0;
    if (!line.has("flags")) return flags;
    for (const auto& name : line.strings("flags")) {
        if (name == "shift") {
            flags |= shiftKeyMask;
        } else if (name == "control") {
            flags |= controlKeyMask;
        } else if (name == "command") {
            flags |= commandKeyMask;
        } else {
            line.refuse("flags", "there is no flag \"" + name + "\"");
        }
    }
    return flags;
}

int clickCount(const Fields& line) {
    const auto clicks = line.integer("clicks", 1);
    if (clicks < 0 || clicks > 1000) line.refuse("clicks", "must be a number of clicks");
    return static_cast<int>(clicks);
}

Point DriveSession::windowPoint(const Fields& line) const {
    return canvasFor(line)->convertPointToView(line.point("at"), nullptr);
}

/// A press goes only where a person could click.
static void requireShown(const Fields& line, const View& canvas, Point inWindow) {
    const auto* scrollView = scrollViewAround(canvas);
    const auto* window = canvas.window();
    const bool shown = scrollView && window &&
                       pointInRect(scrollView->convertPointFromView(inWindow, nullptr), scrollView->viewport()) &&
                       pointInRect(inWindow, window->contentView()->frame());
    if (!shown) line.refuse("at", "the window does not show that point");
}

Json DriveSession::press(const Fields& line) {
    const Point point = windowPoint(line);
    const auto flags = modifierFlags(line);
    const int clicks = clickCount(line);
    requireShown(line, *canvasFor(line), point);
    if (window()->hasPressedView()) line.refuse("do", "the button is down already");
    rightPressedView_.reset();
    window()->sendEvent(Event::mouse(EventType::mouseDown, point, flags, clicks));
    return Json::object();
}

Json DriveSession::drag(const Fields& line) {
    const Point point = windowPoint(line);
    const auto flags = modifierFlags(line);
    const auto event = Event::mouse(EventType::mouseDragged, point, flags, clickCount(line));
    if (window()->hasPressedView()) {
        window()->sendEvent(event);
    } else if (rightPressedView_) {
        ask(rightPressedView_->lock(), [&](View& view) { view.mouseDragged(event); });
    } else {
        line.refuse("do", "no button is down");
    }
    return Json::object();
}

Json DriveSession::release(const Fields& line) {
    const Point point = windowPoint(line);
    const auto flags = modifierFlags(line);
    const int clicks = clickCount(line);
    if (!window()->hasPressedView()) line.refuse("do", "no button is down");
    window()->sendEvent(Event::mouse(EventType::mouseUp, point, flags, clicks));
    return Json::object();
}

Json DriveSession::rightPress(const Fields& line) {
    const Point point = windowPoint(line);
    const auto flags = modifierFlags(line);
    requireShown(line, *canvasFor(line), point);
    auto* view = window()->contentView()->hitTest(point);
    rightPressedView_ = view ? std::static_pointer_cast<View>(view->shared_from_this()) : nullptr;
    window()->sendEvent(Event::mouse(EventType::rightMouseDown, point, flags, 1));
    return Json::object();
}

Json DriveSession::choose(const Fields& line) {
    const std::string title = line.string("title");
    const auto menu = toolkit_.lastMenu();
    if (!menu || !menu->performItemWithTitle(title)) line.refuse("title", "the last menu has no such item");
    return Json::object();
}

Json DriveSession::key(const Fields& line) {
    const auto characters = line.optionalString("characters").value_or("");
    const auto keyCode = line.integer("keyCode", 0);
    const auto flags = modifierFlags(line);
    if (!std::in_range<int>(keyCode)) line.refuse("keyCode", "must be a key code");
    if (!window()) line.refuse("do", "there is no window");
    window()->sendEvent(Event::key(utf16(characters), static_cast<int>(keyCode), flags));
    return Json::object();
}

Json DriveSession::action(const Fields& line) {
    const std::string name = line.string("name");
    if (!window()) line.refuse("do", "there is no window");
    window()->firstResponder()->tryToPerform(name, {});
    return Json::object();
}

Json DriveSession::command(const Fields& line) {
    const std::string name = line.string("name");
    const auto target = dashboardFor(line);
    if (!target->respondsTo(name)) line.refuse("name", "a dashboard has no command \"" + name + "\"");
    target->performWithSender(name, {});
    return Json::object();
}

Json DriveSession::pasteboard(const Fields& line) {
    const auto& pasteboard = toolkit_.generalPasteboard();
    if (const auto file = line.optionalString("file")) {
        const Bytes widgets = pasteboard.dataForType(widgetPasteType);
        if (widgets.empty()) line.refuse("file", "there are no widgets on the pasteboard");
        const auto status = writeFileAtomically(*file, widgets);
        if (!status) line.refuse("file", status.error().message);
    }
    return {{"types", pasteboard.types()}};
}

Json DriveSession::pointer(const Fields& line) {
    toolkit_.setPointer(line.point("at"));
    return Json::object();
}

Json DriveSession::queueAnswer(const Fields& line) {
    const std::string kind = line.string("sheet");
    const std::string response = line.string("response");
    if (kind != "save" && kind != "open" && kind != "alert") line.refuse("sheet", "must be save, open or alert");
    if (response != "ok" && response != "cancel") line.refuse("response", "must be ok or cancel");
    DriveToolkit::Answer answer{.ok = response == "ok", .path = {}};
    if (answer.ok && kind != "alert") answer.path = line.string("path");
    toolkit_.queueAnswer(kind, std::move(answer));
    return Json::object();
}

}  // namespace zor
