#include "qt/QtToolkit.h"

#include <QCursor>

#include "qt/QtConversions.h"
#include "qt/QtFonts.h"
#include "qt/QtImages.h"
#include "qt/QtMenus.h"
#include "qt/QtPanels.h"
#include "qt/QtPictures.h"
#include "qt/QtPrinting.h"
#include "qt/QtWindowPeer.h"
#include "qt/interface/InterfaceLoader.h"
#include "qt/panel/QtPropertyPanelPeer.h"

namespace zor {

Size QtToolkit::sizeOfText(std::string_view text, const Font& font) {
    return QtFonts::shared().sizeOfText(text, font);
}

FontMetrics QtToolkit::metricsOfFont(const Font& font) {
    return QtFonts::shared().metrics(font);
}

Status QtToolkit::activateFont(const std::filesystem::path& file) {
    return QtFonts::shared().activate(file);
}

std::shared_ptr<const Bytes> QtToolkit::pdfOfDrawing(Size size, const Drawing& drawing) {
    return zor::pdfOfDrawing(size, drawing);
}

std::shared_ptr<const Bytes> QtToolkit::pngOfDrawing(Size size, const Drawing& drawing) {
    return zor::pngOfDrawing(size, drawing);
}

Result<Size> QtToolkit::sizeOfImageData(const Bytes& data) {
    return QtImages::shared().sizeOfData(data);
}

std::shared_ptr<WindowPeer> QtToolkit::makeWindowPeer(Window& window) {
    return std::make_shared<QtWindowPeer>(window);
}

std::shared_ptr<PropertyPanelPeer> QtToolkit::makePropertyPanelPeer(ZORPropertyPanelController& controller) {
    return std::make_shared<QtPropertyPanelPeer>(controller);
}

std::shared_ptr<SavePanel> QtToolkit::makeSavePanel() {
    return makeQtSavePanel();
}

std::shared_ptr<OpenPanel> QtToolkit::makeOpenPanel() {
    return makeQtOpenPanel();
}

std::shared_ptr<Alert> QtToolkit::makeAlert() {
    return makeQtAlert();
}

void QtToolkit::popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) {
    popUpQtMenu(menu, event, view);
}

void QtToolkit::runPrintOperation(const PrintOperation& operation, Window* window) {
    runQtPrintOperation(operation, window);
}

Point QtToolkit::mouseLocation() {
    return flippedOnScreen(fromQt(QCursor::pos()));
}

void QtToolkit::openHelp(std::string_view anchor) {
    if (helpOpener_) helpOpener_(std::string(anchor));
}

Result<ObjectPtr> QtToolkit::loadInterface(const std::filesystem::path& file, const ObjectPtr& owner) {
    return loadInterfaceFile(file, owner);
}

}  // namespace zor
