#include <algorithm>

#include "app/Commands.h"
#include "app/Runtime.h"
#include "app/SiteSession.h"
#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

/// The dashboard of that title; where none has it, the one that the catalogue lists so.
std::shared_ptr<ZORPlugIn> dashboardTitled(const SiteSession& session, const std::string& title) {
    const auto dashboards = dashboardsOf(*session.document());
    auto found = std::ranges::find_if(dashboards, [&](const auto& each) { return each->title() == title; });
    if (found == dashboards.end()) {
        found =
            std::ranges::find_if(dashboards, [&](const auto& each) { return session.catalogueTitle(each) == title; });
    }
    return found == dashboards.end() ? nullptr : *found;
}

std::string listedTitles(const SiteSession& session) {
    std::string titles;
    for (const auto& each : dashboardsOf(*session.document())) {
        const std::string own = each->title().value_or("Untitled");
        titles += (titles.empty() ? "\"" : ", \"") + own + "\"";
        const auto listed = session.catalogueTitle(each);
        if (listed && *listed != own) titles += " (in the catalogue \"" + *listed + "\")";
    }
    return titles.empty() ? "none" : titles;
}

int run(std::span<const std::string> words) {
    static constexpr std::array<std::string_view, 4> options{"--dashboard", "--source", "-o", "--output"};
    const auto arguments = Arguments::parse(words, options);
    if (!arguments) return failUsage(renderCommand, arguments.error().message);
    const auto output = arguments->option("-o") ? arguments->option("-o") : arguments->option("--output");
    const auto source = arguments->option("--source");
    if (arguments->words().size() + (source ? 1 : 0) != 1) return failUsage(renderCommand, "name one SITE or --source");
    if (!output) return failUsage(renderCommand, "say where to write with -o FILE.png or -o FILE.pdf");
    const bool pdf = output->ends_with(".pdf");
    if (!pdf && !output->ends_with(".png")) {
        return failUsage(renderCommand, "the output's name must end in .png or .pdf: " + *output);
    }

    HeadlessRuntime runtime;
    auto session = source ? SiteSession::openSource(*source, runtime.plugIns())
                          : SiteSession::open(arguments->words()[0], runtime.plugIns());
    if (!session) return fail(session.error().message);
    (*session)->readOnce();
    if (!(*session)->trouble().empty()) fail((*session)->trouble());

    const auto title = arguments->option("--dashboard");
    const auto dashboard =
        title ? dashboardTitled(**session, *title) : (*session)->document()->siteWindowController()->selectedPlugIn();
    if (!dashboard) {
        return fail((title ? "there is no dashboard titled \"" + *title + "\"" : "there is no dashboard") +
                    "; there are: " + listedTitles(**session));
    }
    const Value scale = 1.0;
    const Value picture =
        pdf ? dashboard->perform("pdfRepresentation") : dashboard->perform("pngImageWithScale:", {&scale, 1});
    if (!picture.isData()) return fail("the dashboard has no size that can be drawn");
    const auto status = writeFileAtomically(*output, picture.asData());
    return status ? 0 : fail(status.error().message);
}

}  // namespace

const Command renderCommand{"render", "render SITE|--source SOURCE [--dashboard TITLE] -o FILE.png|FILE.pdf",
                            "Draws one dashboard with the station's current values.", run};

}  // namespace zor
