#pragma once

#include <memory>
#include <string_view>

#include "host/foundation/Bundle.h"

namespace zor::ZORKit {

/// Makes the font file `name`.ttf of the bundle's resources available by its family name. A font that is missing or
/// broken is logged and passed over.
void activateFont(std::string_view name, const std::shared_ptr<Bundle>& bundle);

}  // namespace zor::ZORKit
