#include <cstdio>

#include "app/Commands.h"
#include "app/inspect/ArchiveJson.h"
#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

int run(std::span<const std::string> words) {
    if (words.size() != 1) return failUsage(inspectCommand, "name one FILE");
    const auto data = readFile(words[0]);
    if (!data) return fail(data.error().message);
    const auto list = PropertyList::parse(*data);
    if (!list) return fail(words[0] + ": " + list.error().message);
    const Json json = archiveJson(*list);
    std::printf("%s\n", json.dump(2, ' ', false, Json::error_handler_t::replace).c_str());
    return 0;
}

}  // namespace

const Command inspectCommand{"inspect", "inspect FILE",
                             "Shows a Site Document, an exported dashboard or another archive as JSON.", run};

}  // namespace zor
