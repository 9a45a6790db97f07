#pragma once

namespace zor {

/// Makes the classes of this folder and of those below it known to the registry, so that archives and inspection can
/// name them whatever ran before.
void registerInstrumentClasses();

}  // namespace zor
