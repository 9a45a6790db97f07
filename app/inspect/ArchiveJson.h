#pragma once

#include <span>

#include "app/drive/Json.h"
#include "host/foundation/PropertyList.h"

namespace zor {

/// A keyed archive as nested JSON: each object once, where it is first met, with "$class" and "$id"; elsewhere
/// {"$ref": id}. Any other property list as it stands. Data is shown as its size. What a file repeats out of
/// proportion, or nests too deep, is "...".
Json archiveJson(const PropertyList& list);

}  // namespace zor
