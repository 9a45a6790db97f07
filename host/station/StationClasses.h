#pragma once

namespace zor {

/// Makes the classes of this folder known to the registry, so that archives and inspection can name them whatever ran
/// before.
void registerStationClasses();

}  // namespace zor
