#pragma once
// The long lines of a document, kept out of what Qt writes, formats and compresses: that takes longer than all else.

#include <QByteArray>
#include <QPolygonF>
#include <vector>

namespace zor {

class PdfLines {
public:
    /// Whether a line, in units of the document, can be kept.
    static bool canHold(const QPolygonF& line);

    /// Keeps it, rounded to hundredths of a unit, and gives a line to be drawn in its place.
    QPolygonF add(const QPolygonF& line);
    bool isEmpty() const { return lines_.empty(); }

    /// What Qt has written for a page, with all lines in their places.
    QByteArray putInto(const QByteArray& page) const;

private:
    /// In the document's own language.
    std::vector<QByteArray> lines_;
};

}  // namespace zor
