#include "host/views/ShapeLayer.h"

#include <algorithm>
#include <cmath>

#include "host/foundation/ClassBuilder.h"
#include "host/views/View.h"

namespace zor {

const ClassRecord& ShapeLayer::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<ShapeLayer>("ShapeLayer", &Object::staticClass())
            .property("pathPoints", &ShapeLayer::pathPoints)
            .property("lineWidth", &ShapeLayer::lineWidth, &ShapeLayer::setLineWidth)
            .property("strokeColor", &ShapeLayer::strokeColor, &ShapeLayer::setStrokeColor)
            .property("fillColor", &ShapeLayer::fillColor, &ShapeLayer::setFillColor)
            .property("lineDashPattern", &ShapeLayer::lineDashPattern, &ShapeLayer::setLineDashPattern)
            .property("animation", &ShapeLayer::animationDescription)
            .registered();
    return record;
}

ShapeLayer::~ShapeLayer() {
    if (!animations_.empty()) std::erase(animatedLayers(), this);
}

std::vector<const ShapeLayer*>& ShapeLayer::animatedLayers() {
    static std::vector<const ShapeLayer*> layers;
    return layers;
}

std::vector<Point> ShapeLayer::pathPoints() const {
    std::vector<Point> points;
    if (!path_) return points;
    for (const auto& element : path_->elements()) {
        points.insert(points.end(), element.points, element.points + Path::pointCount(element.verb));
    }
    return points;
}

void ShapeLayer::setPath(std::optional<Path> path) {
    redisplay();
    path_ = std::move(path);
    redisplay();
}

void ShapeLayer::redisplay() const {
    if (view_ && path_) view_->setNeedsDisplayInRect(insetRect(path_->bounds(), -lineWidth_, -lineWidth_));
}

void ShapeLayer::addAnimation(BasicAnimation animation, const std::string& key) {
    if (animations_.empty()) animatedLayers().push_back(this);
    animations_[key] = std::move(animation);
    animationsBegan_ = std::chrono::steady_clock::now();
}

Value ShapeLayer::animationDescription() const {
    if (animations_.empty()) return {};
    const auto& [key, animation] = *animations_.begin();
    return Value::Dictionary{{"keyPath", animation.keyPath},
                             {"from", animation.fromValue},
                             {"to", animation.toValue},
                             {"duration", animation.duration},
                             {"repeats", animation.repeatsForever ? Value("infinite") : Value(1)},
                             {"key", key}};
}

double ShapeLayer::secondsRunning() const {
    if (animations_.empty()) return 0;
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - animationsBegan_).count();
}

double ShapeLayer::animatedValue(std::string_view keyPath, double seconds, double fallback) const {
    const auto found = std::ranges::find(
        animations_, keyPath, [](const auto& entry) -> const auto& { return entry.second.keyPath; });
    if (found == animations_.end()) return fallback;
    const BasicAnimation& animation = found->second;
    const double runs = animation.duration > 0 ? seconds / animation.duration : 1;
    const double fraction = animation.repeatsForever ? runs - std::floor(runs) : std::clamp(runs, 0.0, 1.0);
    return animation.fromValue + (animation.toValue - animation.fromValue) * fraction;
}

void ShapeLayer::removeFromSuperlayer() {
    if (view_) view_->removeSublayer(this);
}

void ShapeLayer::draw(DrawingContext& context, double seconds) const {
    if (!path_) return;
    if (fillColor_.alpha > 0) context.fillPath(*path_, fillColor_);
    if (strokeColor_.alpha == 0 || !(lineWidth_ > 0)) return;
    Stroke stroke{strokeColor_, lineWidth_};
    stroke.dash.assign(dash_.begin(), dash_.end());
    stroke.dashPhase = animatedValue("lineDashPhase", seconds, 0);
    context.strokePath(*path_, stroke);
}

}  // namespace zor
