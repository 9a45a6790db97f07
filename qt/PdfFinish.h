#pragma once

#include <QByteArray>

#include "host/foundation/Geometry.h"
#include "qt/PdfLines.h"

namespace zor {

/// Makes a document of one page, as Qt writes it, final: the long lines in their places; no date, so that the same
/// drawing gives the same bytes; the page's size exact instead of rounded to whole points; text that copies out with
/// spaces where Qt names tabs; gradients as translucent as they were drawn. False, with the document in any state,
/// where it is not of the form expected.
bool finishPdf(QByteArray& pdf, Size pageSize, const PdfLines& lines);

}  // namespace zor
