#include "tests/support/SourceFolder.h"

namespace zor::test {

std::filesystem::path sourceFolder() {
    return ZOR_SOURCE_DIR;
}

}  // namespace zor::test
