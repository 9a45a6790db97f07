#pragma once

#include <functional>
#include <string>

#include "host/views/Toolkit.h"
#include "qt/QtPasteboard.h"

namespace zor {

/// What Qt supplies to the host's views. Needs a QGuiApplication for text and pictures, a QApplication for all that
/// shows itself.
class QtToolkit : public Toolkit {
public:
    /// Opens the application's help book at an anchor; without one, asking for help does nothing.
    void setHelpOpener(std::function<void(const std::string& anchor)> opener) { helpOpener_ = std::move(opener); }

    Size sizeOfText(std::string_view text, const Font& font) override;
    FontMetrics metricsOfFont(const Font& font) override;
    Status activateFont(const std::filesystem::path& file) override;
    std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Drawing& drawing) override;
    std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Drawing& drawing) override;
    Result<Size> sizeOfImageData(const Bytes& data) override;
    std::shared_ptr<WindowPeer> makeWindowPeer(Window& window) override;
    std::shared_ptr<PropertyPanelPeer> makePropertyPanelPeer(ZORPropertyPanelController& controller) override;
    std::shared_ptr<SavePanel> makeSavePanel() override;
    std::shared_ptr<OpenPanel> makeOpenPanel() override;
    std::shared_ptr<Alert> makeAlert() override;
    Pasteboard& generalPasteboard() override { return pasteboard_; }
    void popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) override;
    void runPrintOperation(const PrintOperation& operation, Window* window) override;
    Point mouseLocation() override;
    void openHelp(std::string_view anchor) override;
    Result<ObjectPtr> loadInterface(const std::filesystem::path& file, const ObjectPtr& owner) override;

private:
    QtPasteboard pasteboard_;
    std::function<void(const std::string&)> helpOpener_;
};

}  // namespace zor
