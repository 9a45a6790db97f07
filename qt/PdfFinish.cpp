#include "qt/PdfFinish.h"

#include <QByteArrayView>
#include <QList>
#include <iterator>
#include <vector>

#include "qt/Deflate.h"

namespace zor {

namespace {

constexpr qsizetype offsetDigits = 10;
/// Higher levels take two to three times as long and save a tenth.
constexpr int pageCompression = 1;

/// Replaces bytes, in the order of the document, and corrects the table of offsets at its end.
class Edits {
public:
    explicit Edits(QByteArray& pdf) : pdf_(pdf) {}

    /// From the end of the last edit on; false where `text` does not occur.
    bool replaceNext(QByteArrayView text, QByteArrayView replacement) {
        const qsizetype start = pdf_.indexOf(text, done_);
        return start >= 0 && replace(start, start + text.size(), replacement);
    }

    bool replace(qsizetype start, qsizetype end, QByteArrayView replacement) {
        result_ += QByteArrayView(pdf_).sliced(done_, start - done_);
        result_ += replacement;
        done_ = end;
        shifts_.push_back({end, result_.size() - end});
        return true;
    }

    bool finish() {
        const qsizetype tail = pdf_.lastIndexOf("\nxref\n") + 1;
        if (tail <= done_) return false;
        result_ += QByteArrayView(pdf_).sliced(done_, tail - done_);
        const qsizetype table = result_.size();
        QList<QByteArray> lines = pdf_.mid(tail).split('\n');
        for (QByteArray& line : lines) {
            if (!line.endsWith(" 00000 n ")) continue;
            line.replace(0, offsetDigits, number(moved(line.first(offsetDigits).toLongLong())));
        }
        const qsizetype start = lines.indexOf("startxref");
        if (start < 0 || start + 1 >= lines.size()) return false;
        lines[start + 1] = QByteArray::number(table);
        pdf_ = result_ + lines.join('\n');
        return true;
    }

private:
    static QByteArray number(qsizetype offset) { return QByteArray::number(offset).rightJustified(offsetDigits, '0'); }

    qsizetype moved(qsizetype offset) const {
        const auto next = std::ranges::upper_bound(shifts_, offset, {}, &Shift::from);
        return next == shifts_.begin() ? offset : offset + std::prev(next)->by;
    }

    struct Shift {
        qsizetype from;
        qsizetype by;
    };
    QByteArray& pdf_;
    QByteArray result_;
    qsizetype done_ = 0;
    std::vector<Shift> shifts_;
};

bool dropDate(Edits& edits, const QByteArray& pdf) {
    const qsizetype start = pdf.indexOf("/CreationDate ");
    const qsizetype end = pdf.indexOf('\n', start);
    return start >= 0 && end >= 0 && edits.replace(start, end + 1, {});
}

/// Qt writes the opacity of a gradient as grey levels, but declares that the opacity of those is meant, which is 1.
void correctMasks(Edits& edits) {
    while (edits.replaceNext("/Group <</S /Transparency >>", "/Group <</S /Transparency /CS /DeviceGray>>") &&
           edits.replaceNext("/SMask << /S /Alpha /G ", "/SMask << /S /Luminosity /G ")) {
    }
}

/// The text between two others from a place on, and where it begins.
struct Found {
    qsizetype start = -1;
    QByteArray text;
};

Found between(const QByteArray& pdf, QByteArrayView before, QByteArrayView after, qsizetype from = 0) {
    const qsizetype place = pdf.indexOf(before, from);
    if (place < 0) return {};
    const qsizetype start = place + before.size(), end = pdf.indexOf(after, start);
    return end < 0 ? Found{} : Found{start, pdf.mid(start, end - start)};
}

/// Puts the long lines into the page. Its length stands in an object of its own, which follows.
bool addLines(Edits& edits, const QByteArray& pdf, const PdfLines& lines) {
    if (lines.isEmpty()) return true;
    const Found contents = between(pdf, "/Contents ", " 0 R");
    const qsizetype object = pdf.indexOf('\n' + contents.text + " 0 obj\n");
    const Found lengthObject = between(pdf, "/Length ", " 0 R", object);
    const Found page = between(pdf, "stream\n", "endstream\n", object);
    const Found length = between(pdf, '\n' + lengthObject.text + " 0 obj\n", "\n", page.start);
    if (contents.start < 0 || object < 0 || lengthObject.start < 0 || page.start < 0 || length.start < 0) return false;
    // Qt wants the size first, but only as a guess.
    const QByteArray guess("\0\2\0\0", 4);
    const QByteArray text = lines.putInto(qUncompress(guess + page.text));
    const QByteArray compressed = deflated(text, pageCompression);
    return !compressed.isEmpty() && edits.replace(page.start, page.start + page.text.size(), compressed + '\n') &&
           edits.replace(length.start, length.start + length.text.size(), QByteArray::number(compressed.size()));
}

/// The exact size has no more digits than Qt's whole numbers, which are not below it; spaces fill up.
bool setPageSize(QByteArray& pdf, Size size) {
    const QByteArray key = "/MediaBox [0 0 ";
    const qsizetype start = pdf.indexOf(key) + key.size();
    const qsizetype end = pdf.indexOf(']', start);
    if (start < key.size() || end < 0) return false;
    const QByteArray text = QByteArray::number(size.width, 'f', 6) + ' ' + QByteArray::number(size.height, 'f', 6);
    if (text.size() > end - start) return false;
    pdf.replace(start, end - start, text.leftJustified(end - start, ' '));
    return true;
}

/// Several characters share the empty glyph. In the tables that lead from glyphs back to text Qt names the first of
/// them, the tab.
void nameSpaces(QByteArray& pdf) {
    for (qsizetype table = 0; (table = pdf.indexOf("begincmap\n", table)) >= 0;) {
        const qsizetype end = pdf.indexOf("endcmap\n", table);
        for (qsizetype list = table; (list = pdf.indexOf('[', list)) >= 0 && list < end;) {
            const qsizetype listEnd = pdf.indexOf(']', list);
            if (listEnd < 0) return;
            const QByteArray texts = pdf.mid(list, listEnd - list).replace("<0009>", "<0020>");
            pdf.replace(list, texts.size(), texts);
            list = listEnd;
        }
        if (end < 0) return;
        table = end;
    }
}

}  // namespace

bool finishPdf(QByteArray& pdf, Size pageSize, const PdfLines& lines) {
    nameSpaces(pdf);
    if (!setPageSize(pdf, pageSize)) return false;
    Edits edits(pdf);
    if (!dropDate(edits, pdf)) return false;
    correctMasks(edits);
    return addLines(edits, pdf, lines) && edits.finish();
}

}  // namespace zor
