#pragma once

#include "host/foundation/Geometry.h"
#include "host/views/Printing.h"

class QPagedPaintDevice;

namespace zor {

/// How a view of that size goes onto paper: the scale, and the pages on which it is spread.
struct PageLayout {
    double scale = 1;
    int columns = 1;
    int rows = 1;
    /// The scaled view's top left corner on the first page: it lies in the middle of a page that it does not fill.
    Point origin;
    bool operator==(const PageLayout&) const = default;
};

/// `page` is the printable area in points. A direction that fits is scaled onto one page, the aspect ratio kept; a
/// clipped one shows what one page holds; an automatic one takes as many pages as it needs.
PageLayout pageLayout(Size view, Size page, const PrintSettings& settings);
/// Draws the view, without selection and handles, onto a printer or document whose page is set up. False where it
/// cannot be begun.
bool printView(View& view, const PrintSettings& settings, QPagedPaintDevice& device);
/// Shows the print sheet on the window and prints when the person agrees; a printer that writes a PDF file is always
/// among the choices.
void runQtPrintOperation(const PrintOperation& operation, class Window* window);

}  // namespace zor
