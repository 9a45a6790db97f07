#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "host/foundation/Font.h"
#include "host/foundation/Image.h"
#include "host/foundation/Result.h"
#include "host/views/Event.h"
#include "host/views/Panels.h"
#include "host/views/Pasteboard.h"

namespace zor {

class DrawingContext;
class Menu;
class PropertyPanelPeer;
class View;
class Window;
class WindowPeer;
class ZORPropertyPanelController;
struct PrintOperation;

struct FontMetrics {
    /// Points, all positive; a line is ascent + descent high.
    double ascent = 0;
    double descent = 0;
    double capHeight = 0;
};

/// What the platform supplies, behind one interface. The application installs its own at start, tests a fake.
class Toolkit {
public:
    using Drawing = std::function<void(DrawingContext&)>;

    virtual ~Toolkit() = default;
    static Toolkit& current();
    static void install(std::unique_ptr<Toolkit> toolkit);

    /// The size that the text takes when drawn in one line with the font and no other attribute.
    virtual Size sizeOfText(std::string_view text, const Font& font) = 0;
    virtual FontMetrics metricsOfFont(const Font& font) = 0;
    /// Makes a font file available by its family name to every drawing of the process.
    virtual Status activateFont(const std::filesystem::path& file) = 0;

    /// A one-page vector document exactly `size` points large; the same drawing gives the same bytes. Empty on failure.
    virtual std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Drawing& drawing) = 0;
    /// Pixels, one per point, on a transparent ground, encoded as PNG. Empty on failure.
    virtual std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Drawing& drawing) = 0;
    /// A picture file's own size in points; an error where the data is no picture that the toolkit reads.
    virtual Result<Size> sizeOfImageData(const Bytes& data) = 0;

    virtual std::shared_ptr<WindowPeer> makeWindowPeer(Window& window) = 0;
    /// Fills the panel's window with entries; a toolkit that nobody looks at makes none.
    virtual std::shared_ptr<PropertyPanelPeer> makePropertyPanelPeer(ZORPropertyPanelController&) { return {}; }
    virtual std::shared_ptr<SavePanel> makeSavePanel() = 0;
    virtual std::shared_ptr<OpenPanel> makeOpenPanel() = 0;
    virtual std::shared_ptr<Alert> makeAlert() = 0;
    virtual Pasteboard& generalPasteboard() = 0;
    virtual void popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) = 0;
    virtual void runPrintOperation(const PrintOperation& operation, Window* window) = 0;
    /// The pointer in screen coordinates, origin at the bottom left.
    virtual Point mouseLocation() = 0;
    /// Opens the help book at an anchor.
    virtual void openHelp(std::string_view anchor) = 0;
    /// Fills the outlets of an interface file's owner through its named properties; the views stay alive as long as the
    /// returned object.
    virtual Result<ObjectPtr> loadInterface(const std::filesystem::path& file, const ObjectPtr& owner) = 0;
};

}  // namespace zor
