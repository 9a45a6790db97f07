#include "app/WebDefaults.h"

#include "app/DataFolder.h"

namespace zor {

std::filesystem::path webTokenFolder() {
    const auto data = dataFolder();
    return data ? *data / "web" : std::filesystem::path();
}

}  // namespace zor
