#pragma once

#include <QByteArray>

#include "host/foundation/Geometry.h"

namespace zor {

/// Makes a document of one page, as Qt writes it with one unit per point, final: no date, so that the same drawing
/// gives the same bytes; the page's size exact instead of rounded to whole points; text that copies out with spaces
/// where Qt names tabs; gradients as translucent as they were drawn. False, with the document in any state, where it is
/// not of the form expected.
bool finishPdf(QByteArray& pdf, Size pageSize);

}  // namespace zor
