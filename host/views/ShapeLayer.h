#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/views/DrawingContext.h"

namespace zor {

class View;

/// Runs from one value of a named number to another, again and again.
struct BasicAnimation {
    std::string keyPath;
    double fromValue = 0;
    double toValue = 0;
    /// Seconds for one run.
    double duration = 0;
    bool repeatsForever = false;
};

/// A shape drawn over a view's children. It is no view and takes no events.
class ShapeLayer : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    const std::optional<Path>& path() const { return path_; }
    /// The corners of the path for inspection: each of its points in order.
    std::vector<Point> pathPoints() const;
    void setPath(std::optional<Path> path);
    double lineWidth() const { return lineWidth_; }
    void setLineWidth(double width) { lineWidth_ = width; }
    Color strokeColor() const { return strokeColor_; }
    void setStrokeColor(Color color) { strokeColor_ = color; }
    Color fillColor() const { return fillColor_; }
    void setFillColor(Color color) { fillColor_ = color; }
    std::vector<std::int64_t> lineDashPattern() const { return dash_; }
    void setLineDashPattern(std::vector<std::int64_t> pattern) { dash_ = std::move(pattern); }

    void addAnimation(BasicAnimation animation, const std::string& key) { animations_[key] = std::move(animation); }
    const std::map<std::string, BasicAnimation>& animations() const { return animations_; }
    /// The value of an animated number `seconds` after the animation began; `fallback` where none animates it.
    double animatedValue(std::string_view keyPath, double seconds, double fallback) const;

    View* superlayerView() const { return view_; }
    void removeFromSuperlayer();
    /// `seconds` drives the animations.
    void draw(DrawingContext& context, double seconds) const;

private:
    friend class View;
    std::optional<Path> path_;
    double lineWidth_ = 1;
    Color strokeColor_ = Color::black();
    Color fillColor_ = Color::black();
    std::vector<std::int64_t> dash_;
    std::map<std::string, BasicAnimation> animations_;
    View* view_ = nullptr;
};

}  // namespace zor
