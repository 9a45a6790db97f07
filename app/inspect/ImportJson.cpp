#include "app/inspect/ImportJson.h"

#include "app/inspect/PropertyMatches.h"
#include "app/inspect/UnlinkedInstruments.h"
#include "host/foundation/KeyedArchiver.h"

namespace zor {

namespace {

/// So many suggestions can be taken in.
constexpr std::size_t mostMatches = 5;

/// Asks the document's own plug-ins for unknown classes, as their import does, and notes the answers.
class NotingDelegate : public KeyedUnarchiverDelegate {
public:
    explicit NotingDelegate(const SiteDocument& document) : document_(document) {}

    const ClassRecord* unarchiverCannotDecodeObjectOfClassName(const std::string& className,
                                                               std::span<const std::string> originalClasses) override {
        const ClassRecord* answer = nullptr;
        for (const auto& plugIn : document_.entryPlugIns()) {
            auto* importer = dynamic_cast<KeyedUnarchiverDelegate*>(plugIn.get());
            if (importer && !answer) {
                answer = importer->unarchiverCannotDecodeObjectOfClassName(className, originalClasses);
            }
        }
        if (!answer || answer == &nullPlaceholderClass()) {
            unknown.push_back(className);
        } else {
            renamed[className] = answer->name();
        }
        return answer;
    }

    Json renamed = Json::object();
    Json unknown = Json::array();

private:
    const SiteDocument& document_;
};

Json unlinkedJson(const View& canvas, const Agent& agent) {
    Json list = Json::array();
    for (const auto& each : unlinkedInstrumentsOn(canvas, agent)) {
        Json matches = Json::array();
        for (const auto& property : matchesForProperty(agent, each.propertyName).nearest) {
            if (matches.size() < mostMatches) matches.push_back(property->propertyName());
        }
        list.push_back({{"kind", each.widget->kind()},
                        {"title", jsonFrom(ValueConversion<std::optional<std::string>>::to(each.widget->title()))},
                        {"frame", jsonFrom(each.widget->frame())},
                        {"property", each.propertyName},
                        {"nearest", std::move(matches)}});
    }
    return list;
}

}  // namespace

Json importJson(std::span<const std::uint8_t> data, const SiteSession& site) {
    const Agent& agent = *site.agent();
    NotingDelegate delegate(*site.document());
    UnarchivingOptions options;
    options.delegate = &delegate;
    const auto read = KeyedUnarchiver::unarchivedRoot(data, options);
    const Value root = read.valueOr({});
    const auto canvas = root["editView"].as<View>();
    const auto exportedBy = root["agentName"].string();
    return {{"agent", agent.name()},
            {"readable", static_cast<bool>(read)},
            {"fault", read ? Json() : Json(read.error().message)},
            {"title", jsonFrom(ValueConversion<std::optional<std::string>>::to(root["title"].string()))},
            {"exportedBy", jsonFrom(ValueConversion<std::optional<std::string>>::to(exportedBy))},
            {"warns", exportedBy != agent.name()},
            {"canvas", canvas ? jsonFrom(canvas->frame()) : Json()},
            {"widgets", canvas ? canvas->subviews().size() : 0},
            {"renamedClasses", std::move(delegate.renamed)},
            {"unknownClasses", std::move(delegate.unknown)},
            {"unlinked", canvas ? unlinkedJson(*canvas, agent) : Json::array()}};
}

}  // namespace zor
