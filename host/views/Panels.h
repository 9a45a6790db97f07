#pragma once
// Sheets that ask the person something. The toolkit makes them; what they show is set before they begin.

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zor {

class Window;

enum class PanelResponse { cancel = 0, ok = 1 };
inline constexpr int alertFirstButtonReturn = 1000;

class FilePanel {
public:
    virtual ~FilePanel() = default;
    /// Extensions without a dot.
    std::vector<std::string> allowedFileTypes;
    /// `window` may be absent.
    virtual void beginSheetModalForWindow(Window* window, std::function<void(PanelResponse)> completion) = 0;
    /// The chosen file; empty before OK.
    virtual std::string path() const = 0;
    virtual void orderOut() = 0;
};

class SavePanel : public FilePanel {
public:
    std::string nameFieldStringValue;
};

class OpenPanel : public FilePanel {};

class Alert {
public:
    virtual ~Alert() = default;
    std::string messageText;
    std::string informativeText;
    std::vector<std::string> buttons;
    /// The code is alertFirstButtonReturn plus the button's index.
    virtual void beginSheetModalForWindow(Window* window, std::function<void(int)> completion) = 0;
};

}  // namespace zor
