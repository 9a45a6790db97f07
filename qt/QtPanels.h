#pragma once
// The sheets that ask the person something, as dialogs that block their window alone. Nothing waits for them: the
// completion is called when they end, and they live until then.

#include <memory>

#include "host/views/Panels.h"

namespace zor {

/// Offers only the allowed types; a name without one of them gets the first.
std::shared_ptr<SavePanel> makeQtSavePanel();
std::shared_ptr<OpenPanel> makeQtOpenPanel();
/// Without buttons it has an "OK".
std::shared_ptr<Alert> makeQtAlert();

}  // namespace zor
