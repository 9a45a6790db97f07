#pragma once

#include <filesystem>

#include "host/foundation/Object.h"
#include "host/foundation/Result.h"

namespace zor {

/// Makes host views from a form file: its outermost widget becomes a window, of whose stacked pages only the current
/// one is in the content. Labels, buttons, lists and plain widgets are the host's; any other class is looked up in the
/// class registry, and told its "owner" where it has such a property. Objects whose names are properties of the owner
/// become its outlets; a connection to the outermost widget performs the owner's action "slot:". A label without
/// "textColor" has the colour of the windows around, softer where it is "quiet". Nothing is shown, and no widget of
/// Qt's is made. The objects live as long as what is returned.
Result<ObjectPtr> loadInterfaceFile(const std::filesystem::path& file, const ObjectPtr& owner);

}  // namespace zor
