#include "host/foundation/ArchiveFailure.h"

#include "host/foundation/ArchiveFormat.h"

namespace zor {

std::string quoted(std::string_view text) {
    constexpr std::size_t longest = 80;
    if (text.size() <= longest) return '"' + std::string(text) + '"';
    std::size_t end = longest;
    while (end > 0 && (text[end] & 0xC0) == 0x80) --end;
    return '"' + std::string(text.substr(0, end)) + "...\"";
}

std::string ArchiveFailure::description(const PropertyList& list) const {
    const auto name = [&] { return quoted(list.string(static_cast<PropertyList::Index>(detail))); };
    const auto fault = [&]() -> std::string {
        switch (reason) {
            case Reason::none:
                return "has no fault";
            case Reason::referenceOutOfRange:
                return "refers to object " + std::to_string(detail) + ", which does not exist";
            case Reason::notAnObject:
                return "is neither a dictionary nor a plain value";
            case Reason::noClass:
                return "has no " + quoted(archive::classKey);
            case Reason::noClassName:
                return "has a class without " + quoted(archive::classNameKey);
            case Reason::unknownClass:
                return "is of the unknown class " + name();
            case Reason::abstractClass:
                return "is of the class " + name() + ", of which no object can be made";
            case Reason::noItems:
                return "has no " + quoted(archive::itemsKey);
            case Reason::noContent:
                return "has no text, data or time";
            case Reason::unequalCounts:
                return "has not as many keys as values";
            case Reason::keyNotText:
                return "has a key that is not text";
            case Reason::containsItself:
                return "contains itself";
            case Reason::tooDeep:
                return "nests deeper than " + std::to_string(archive::deepestLevel) + " levels";
            case Reason::sharedOutOfProportion:
                return "shares its entries with others out of proportion";
            case Reason::givenOutOfProportion:
                return "is given entries that others are given too, out of proportion";
            case Reason::textOutOfProportion:
                return "repeats text out of proportion";
        }
        return {};
    };
    return "object " + std::to_string(object) + " " + fault();
}

}  // namespace zor
