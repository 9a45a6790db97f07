#include <cstdio>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/SiteSession.h"

namespace zor {

namespace {

void printIndented(const std::string& text) {
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        std::printf("%s%s\n", line.empty() ? "" : "    ", line.c_str());
        begin = end + 1;
    }
}

int run(std::span<const std::string> words) {
    if (!words.empty()) return failUsage(catalogueCommand, "catalogue takes no arguments");
    HeadlessRuntime runtime;
    const auto document = SiteDocument::create(Agent::withName("Station"), runtime.plugIns().bundles());
    for (const auto& entry : document->entryPlugIns()) {
        const Value catalogue = entry->perform("dashboardsArray");
        for (const auto& row : catalogue.asArray()) {
            std::printf("%s\n", row["title"].asString().c_str());
            printIndented(row["description"].asString());
            std::printf("\n");
        }
    }
    return 0;
}

}  // namespace

const Command catalogueCommand{"catalogue", "catalogue", "Lists the built-in dashboards with their descriptions.", run};

}  // namespace zor
