#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/drive/Json.h"
#include "host/views/Menu.h"
#include "qt/QtToolkit.h"

namespace zor {

/// The usual drawing and fonts, but windows that nobody sees, sheets that a script answers, a pasteboard and a pointer
/// of the run's own.
class DriveToolkit : public QtToolkit {
public:
    struct Answer {
        bool ok = false;
        std::string path;
    };

    DriveToolkit();

    /// For the next sheet of the kind "save", "open" or "alert".
    void queueAnswer(const std::string& kind, Answer answer) { answers_[kind].push_back(std::move(answer)); }
    /// Ends the sheets that were shown, in order, until none is left.
    void endSheets();
    void setPointer(Point point) { pointer_ = point; }
    /// The menu that can be chosen from; empty before the first and after forgetMenu.
    const std::shared_ptr<Menu>& lastMenu() const { return lastMenu_; }
    void forgetMenu() { lastMenu_.reset(); }

    /// What was shown since the last call.
    Json takeMenu();
    Json takeSheets();

    std::shared_ptr<WindowPeer> makeWindowPeer(Window&) override { return {}; }
    std::shared_ptr<PropertyPanelPeer> makePropertyPanelPeer(ZORPropertyPanelController&) override { return {}; }
    std::shared_ptr<SavePanel> makeSavePanel() override;
    std::shared_ptr<OpenPanel> makeOpenPanel() override;
    std::shared_ptr<Alert> makeAlert() override;
    Pasteboard& generalPasteboard() override { return *pasteboard_; }
    void popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) override;
    void runPrintOperation(const PrintOperation& operation, Window* window) override;
    Point mouseLocation() override { return pointer_; }
    void openHelp(std::string_view) override {}

    /// Called by the sheets as they begin: what is shown, and what to do with the answer.
    void showSheet(Json description, std::function<void(const Answer&)> end);

private:
    Answer takeAnswer(const std::string& kind);

    std::map<std::string, std::deque<Answer>> answers_;
    std::deque<std::function<void()>> waiting_;
    Json sheets_ = Json::array();
    std::shared_ptr<Menu> lastMenu_;
    Json menu_;
    Point pointer_;
    std::unique_ptr<Pasteboard> pasteboard_;
};

Json jsonFrom(const Menu& menu);

}  // namespace zor
