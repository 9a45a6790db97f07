#include "host/foundation/FoundationClasses.h"

#include "host/foundation/Image.h"
#include "host/foundation/UndoManager.h"

namespace zor {

void registerFoundationClasses() {
    Image::staticClass();
    UndoManager::staticClass();
}

}  // namespace zor
