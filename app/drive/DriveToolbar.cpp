#include <QCoreApplication>
#include <algorithm>
#include <thread>

#include "app/drive/DriveSession.h"
#include "host/foundation/MainQueue.h"
#include "host/foundation/SafeFile.h"
#include "host/views/Controls.h"

namespace zor {

namespace {

/// Runs the work on a thread of its own, as a web server's worker would, and serves the main queue until it has ended.
void runOnWorker(const std::function<void()>& work) {
    bool finished = false;
    std::thread worker([&] {
        work();
        MainQueue::shared().post([&finished] { finished = true; });
    });
    while (!finished) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    worker.join();
}

/// Arguments for the last keywords of the name; those before them, such as a sender, are absent.
std::vector<Value> alignedArguments(const Fields& line, const std::string& name) {
    std::vector<Value> arguments;
    if (line.has("arguments")) arguments = valueFrom(line.raw("arguments")).asArray();
    const auto keywords = static_cast<std::size_t>(std::ranges::count(name, ':'));
    if (arguments.size() > keywords) line.refuse("arguments", "are more than " + name + " takes");
    arguments.insert(arguments.begin(), keywords - arguments.size(), Value());
    return arguments;
}

/// "lastUsedTitle" for "setLastUsedTitle:"; empty for what is no setter.
std::string propertySetBy(const std::string& name) {
    constexpr std::string_view prefix = "set";
    if (!name.starts_with(prefix) || name.size() < prefix.size() + 2 || name.find(':') != name.size() - 1) return {};
    std::string property = name.substr(prefix.size(), name.size() - prefix.size() - 1);
    property.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(property.front())));
    return property;
}

std::shared_ptr<TableView> listOf(const std::shared_ptr<ZORPlugIn>& entry) {
    return ask(entry, [](const ZORPlugIn& plugIn) { return plugIn.valueForKey("tableView").as<TableView>(); });
}

}  // namespace

std::shared_ptr<ZORPlugIn> DriveSession::toolbarFor(const Fields& line) const {
    auto entry = toolbar();
    if (!entry) line.refuse("do", "there is no document with a toolbar plug-in");
    return entry;
}

void DriveSession::requireRow(const Fields& line, const char* key, const Value& row) const {
    const auto count = toolbarFor(line)->perform("dashboardsArray").asArray().size();
    if (!row.isInteger()) line.refuse(key, "must be a whole number");
    if (row.asInteger() < 0 || std::cmp_greater_equal(row.asInteger(), count)) {
        line.refuse(key, "lies outside the catalogue");
    }
}

Json DriveSession::performOnToolbar(const Fields& line) {
    const auto entry = toolbarFor(line);
    const std::string name = line.string("name");
    if (line.has("arguments") && !line.raw("arguments").is_array()) line.refuse("arguments", "must be a list");
    const auto arguments = alignedArguments(line, name);
    if (entry->respondsTo(name)) {
        if (name.ends_with("Row:")) requireRow(line, "arguments", arguments.back());
        entry->perform(name, arguments);
        return Json::object();
    }
    const std::string property = propertySetBy(name);
    const auto* record = property.empty() ? nullptr : entry->classRecord().property(property);
    if (!record || !record->set) line.refuse("name", "the toolbar plug-in has no operation \"" + name + "\"");
    if (!record->set(*entry, arguments.back())) line.refuse("arguments", "are of the wrong kind");
    return Json::object();
}

Json DriveSession::clickRow(const Fields& line) {
    const auto list = listOf(toolbarFor(line));
    if (!list) line.refuse("do", "the selection window is not there");
    const std::int64_t row = line.integer("row");
    if (row < 0 || std::cmp_greater_equal(row, list->rows().size())) line.refuse("row", "lies outside the list");
    list->clickRow(row);
    return Json::object();
}

Json DriveSession::web(const Fields& line) {
    const auto entry = toolbarFor(line);
    const WebRequest request{line.string("path")};
    const auto file = line.optionalString("file");
    std::shared_ptr<DataResponse> response;
    runOnWorker([&] { response = entry->webServiceResponseForRequest(request); });
    if (!response || !response->data) return {{"response", nullptr}};
    if (file) {
        const auto status = writeFileAtomically(*file, *response->data);
        if (!status) line.refuse("file", status.error().message);
    }
    return {{"response", {{"contentType", response->contentType}, {"bytes", response->data->size()}}}};
}

Json DriveSession::advertise(const Fields& line) {
    const auto entry = toolbarFor(line);
    const std::string base = line.string("base");
    std::string html;
    runOnWorker([&] { html = entry->webServiceAdvertisementForBaseURL(base); });
    return {{"html", html}};
}

Json DriveSession::selectionWindowState() const {
    const auto entry = toolbar();
    const auto list = listOf(entry);
    const auto outlet = [&](const char* name) { return entry ? entry->valueForKey(name) : Value(); };
    const auto sheet = outlet("configurationWindow").as<Window>();
    const auto page2 = outlet("page2").as<View>();
    const auto description = outlet("descriptionView").as<TextField>();
    return {{"visible", sheet && sheet->isVisible()},
            {"page", page2 && page2->superview() ? 2 : 1},
            {"row", list ? list->selectedRow() : 0},
            {"description", description ? description->stringValue() : std::string()},
            {"dashboardTitle", jsonFrom(outlet("dashboardTitle"))}};
}

}  // namespace zor
