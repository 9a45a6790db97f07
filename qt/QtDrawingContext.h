#pragma once

#include "host/views/DrawingContext.h"

class QPainter;

namespace zor {

class PdfLines;

/// Draws with a painter that the caller has begun on a widget, an image, a document or a printer. What is drawn is
/// antialiased; the painter's state is as it was once the context is gone.
class QtDrawingContext final : public DrawingContext {
public:
    /// The long lines of a document are put aside in `lines` where it is given.
    explicit QtDrawingContext(QPainter& painter, PdfLines* lines = nullptr);
    ~QtDrawingContext() override;
    QtDrawingContext(const QtDrawingContext&) = delete;
    QtDrawingContext& operator=(const QtDrawingContext&) = delete;

    void save() override;
    /// Nothing where nothing was saved.
    void restore() override;
    void translate(double dx, double dy) override;
    void scale(double sx, double sy) override;
    void rotate(double degrees) override;
    void clipToRect(const Rect& rect) override;
    void clipToPath(const Path& path) override;
    Rect alignedToPixels(const Rect& rect) const override;

    void fillPath(const Path& path, const Color& color) override;
    void fillPathWithGradient(const Path& path, const Gradient& gradient) override;
    void strokePath(const Path& path, const Stroke& stroke) override;
    void strokePolyline(const std::vector<Point>& points, const Stroke& stroke) override;
    void fillRect(const Rect& rect, const Color& color) override;
    void drawImage(const Image& image, const Rect& rect) override;
    void drawText(std::string_view text, const Rect& rect, const Font& font, const Color& color,
                  TextAlignment alignment = TextAlignment::left,
                  VerticalAlignment vertical = VerticalAlignment::top) override;

private:
    bool hasParallelPixels() const;

    QPainter& painter_;
    PdfLines* lines_;
    /// Whether pixels are drawn, rather than a document that some other program turns into pixels.
    bool isRaster_;
    int saved_ = 0;
};

}  // namespace zor
