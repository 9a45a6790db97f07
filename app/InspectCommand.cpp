#include <array>
#include <cstdio>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/inspect/ArchiveJson.h"
#include "app/inspect/ImportJson.h"
#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

/// An exported dashboard is a dictionary with a canvas in it.
bool isDashboard(const Json& archive) {
    const auto root = archive.is_object() ? archive.find("root") : archive.end();
    return root != archive.end() && root->is_object() && !root->contains("$class") && root->contains("editView");
}

int run(std::span<const std::string> words) {
    static constexpr std::array<std::string_view, 1> options{"--site"};
    static constexpr std::array<std::string_view, 1> flags{"--import"};
    const auto arguments = Arguments::parse(words, options, flags);
    if (!arguments) return failUsage(inspectCommand, arguments.error().message);
    if (arguments->words().size() != 1) return failUsage(inspectCommand, "name one FILE");
    const auto site = arguments->option("--site");
    const std::string& file = arguments->words()[0];
    const auto data = readFile(file);
    if (!data) return fail(data.error().message);
    const auto list = PropertyList::parse(*data);
    if (!list) return fail(file + ": " + list.error().message);
    Json json = archiveJson(*list);
    const bool foretells = arguments->has("--import") || isDashboard(json);
    if (site && !foretells) return failUsage(inspectCommand, "--site is for a dashboard, or for --import");
    if (foretells) {
        HeadlessRuntime runtime;
        const auto session = SiteSession::open(site.value_or("demo"), runtime.plugIns());
        if (!session) return fail(session.error().message);
        if (!json.is_object()) json = {{"root", std::move(json)}};
        json["import"] = importJson(*data, **session);
    }
    std::printf("%s\n", json.dump(2, ' ', false, Json::error_handler_t::replace).c_str());
    return 0;
}

}  // namespace

const Command inspectCommand{"inspect", "inspect FILE [--import] [--site SITE]",
                             "Shows a Site Document, an exported dashboard or another archive as JSON; of a dashboard, "
                             "or with --import, also what its import would do at SITE (the demo station).",
                             run};

}  // namespace zor
