#pragma once
// One drawing with everything in it that a dashboard uses, for comparing what stands behind the drawing context.

#include "host/foundation/Geometry.h"

namespace zor {

class DrawingContext;

inline constexpr Size testCardSize{480, 360};
void drawTestCard(DrawingContext& context);

}  // namespace zor
