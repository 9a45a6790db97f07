#include "qt/QtPrinting.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <cmath>

#include "host/views/View.h"
#include "qt/QtDrawingContext.h"
#include "qt/QtWindowPeer.h"

namespace zor {

namespace {

int pagesFor(double length, double room, Pagination pagination) {
    // A hair beyond the edge takes no page of its own.
    return pagination == Pagination::automatic ? std::max(1, static_cast<int>(std::ceil(length / room - 1e-6))) : 1;
}

double marginFor(double length, double room) {
    return std::max(0.0, (room - length) / 2);
}

}  // namespace

PageLayout pageLayout(Size view, Size page, const PrintSettings& settings) {
    PageLayout layout;
    if (!(view.width > 0 && view.height > 0 && page.width > 0 && page.height > 0)) return layout;
    const bool fitsAcross = settings.horizontal == Pagination::fit, fitsDown = settings.vertical == Pagination::fit;
    const double across = page.width / view.width, down = page.height / view.height;
    if (fitsAcross || fitsDown) {
        layout.scale = fitsAcross && fitsDown ? std::min(across, down) : fitsAcross ? across : down;
    }
    const Size scaled{view.width * layout.scale, view.height * layout.scale};
    layout.columns = pagesFor(scaled.width, page.width, settings.horizontal);
    layout.rows = pagesFor(scaled.height, page.height, settings.vertical);
    layout.origin = {marginFor(scaled.width, page.width), marginFor(scaled.height, page.height)};
    return layout;
}

bool printView(View& view, const PrintSettings& settings, QPagedPaintDevice& device) {
    if (!isDrawable(view.bounds())) return false;
    QPainter painter;
    if (!painter.begin(&device)) return false;
    // Painting begins at the corner of the printable area.
    const QRectF printable = device.pageLayout().paintRect(QPageLayout::Point);
    const Size page{printable.width(), printable.height()};
    const PageLayout layout = pageLayout(view.bounds().size(), page, settings);
    for (int number = 0; number < layout.rows * layout.columns; ++number) {
        if (number > 0 && !device.newPage()) return false;
        QtDrawingContext context(painter);
        context.scale(device.logicalDpiX() / 72.0, device.logicalDpiY() / 72.0);
        context.clipToRect({0, 0, page.width, page.height});
        context.translate(layout.origin.x - number % layout.columns * page.width,
                          layout.origin.y - number / layout.columns * page.height);
        context.scale(layout.scale, layout.scale);
        view.displayTree(context, view.bounds(), false);
    }
    return painter.end();
}

void runQtPrintOperation(const PrintOperation& operation, Window* window) {
    if (!operation.view) return;
    struct Job {
        QPrinter printer{QPrinter::HighResolution};
        PrintOperation operation;
    };
    const auto job = std::make_shared<Job>();
    job->operation = operation;
    job->printer.setPageOrientation(
        operation.settings.orientation == PaperOrientation::landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    auto* dialog = new QPrintDialog(&job->printer, QtWindowPeer::widgetOf(window));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    // The dialog uses the printer as long as it lives.
    QObject::connect(dialog, &QObject::destroyed, [job] {});
    QObject::connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted),
                     [job](QPrinter* printer) { printView(*job->operation.view, job->operation.settings, *printer); });
    dialog->open();
}

}  // namespace zor
