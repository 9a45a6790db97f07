#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/SiteSession.h"
#include "app/StationSource.h"

namespace zor {

namespace {

int run(std::span<const std::string> words) {
    static constexpr std::array<std::string_view, 4> options{"--source", "--name", "--units", "-o"};
    const auto arguments = Arguments::parse(words, options);
    if (!arguments) return failUsage(newCommand, arguments.error().message);
    if (!arguments->words().empty()) return failUsage(newCommand, "unexpected " + arguments->words()[0]);
    const auto output = arguments->option("-o");
    if (!output) return failUsage(newCommand, "say where to write with -o FILE.site");

    auto source = configurationOfSource(arguments->option("--source").value_or("simulated"));
    if (!source) return failUsage(newCommand, source.error().message);
    AgentConfiguration configuration = std::move(*source);
    if (const auto name = arguments->option("--name")) configuration.settings["name"] = *name;
    if (const auto units = arguments->option("--units")) {
        configuration.unitSystem = unitSystemNamed(*units);
        if (nameOfUnitSystem(configuration.unitSystem) != *units) {
            return failUsage(newCommand, "unknown unit system " + *units + " (metric, us, uk or si)");
        }
    }

    HeadlessRuntime runtime;
    auto session = SiteSession::startNew(std::move(configuration), runtime.plugIns());
    if (!session) return fail(session.error().message);
    (*session)->addCatalogue();
    const auto status = (*session)->document()->save(*output);
    return status ? 0 : fail(status.error().message);
}

}  // namespace

const Command newCommand{"new", "new [--source SOURCE] [--name NAME] [--units metric|us|uk|si] -o FILE.site",
                         "Makes a Site Document with every dashboard of the catalogue.", run};

}  // namespace zor
