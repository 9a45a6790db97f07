#pragma once

#include <chrono>
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
    ~ShapeLayer() override;

    const std::optional<Path>& path() const { return path_; }
    /// The points of the path in order, for inspection; none without a path.
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

    void addAnimation(BasicAnimation animation, const std::string& key);
    const std::map<std::string, BasicAnimation>& animations() const { return animations_; }
    /// The value of an animated number `seconds` after the animation began; `fallback` where none animates it.
    double animatedValue(std::string_view keyPath, double seconds, double fallback) const;

    /// The first animation as {"keyPath", "from", "to", "duration", "repeats", "key"}, absent without one; "repeats" is
    /// "infinite" or 1.
    Value animationDescription() const;
    /// Since the last animation was added; 0 without one.
    double secondsRunning() const;

    View* superlayerView() const { return view_; }
    void removeFromSuperlayer();
    /// `seconds` drives the animations.
    void draw(DrawingContext& context, double seconds) const;

private:
    friend class View;
    void redisplay() const;
    /// All that live and are animated: few, where the views are thousands.
    static std::vector<const ShapeLayer*>& animatedLayers();

    std::optional<Path> path_;
    double lineWidth_ = 1;
    Color strokeColor_ = Color::black();
    Color fillColor_ = Color::black();
    std::vector<std::int64_t> dash_;
    std::map<std::string, BasicAnimation> animations_;
    std::chrono::steady_clock::time_point animationsBegan_;
    View* view_ = nullptr;
};

}  // namespace zor
