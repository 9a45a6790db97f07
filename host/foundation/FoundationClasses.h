#pragma once

namespace zor {

/// Makes the classes of this folder known to the registry, so that archives can name them whatever ran before.
void registerFoundationClasses();

}  // namespace zor
