#include "app/inspect/PropertyMatches.h"

#include <algorithm>
#include <cctype>

#include "host/station/PropertyKeys.h"

namespace zor {

namespace {

/// Shorter beginnings would stand for too much.
constexpr std::size_t leastBeginning = 4;

/// What drivers also call it.
std::string usualWord(const std::string& word) {
    if (word == "in" || word == "inside") return "indoor";
    if (word == "out" || word == "outside") return "outdoor";
    return word;
}

/// "outdoorTemperature3" is "outdoor", "temperature", "3".
std::vector<std::string> wordsOf(const std::string& name) {
    std::vector<std::string> words;
    bool wasDigit = false, wasUpper = false, isInside = false;
    for (const char each : name) {
        const auto character = static_cast<unsigned char>(each);
        const bool isDigit = std::isdigit(character) != 0, isUpper = std::isupper(character) != 0;
        if (std::isalnum(character) == 0 && character < 0x80) {
            isInside = false;
            continue;
        }
        if (!isInside || isDigit != wasDigit || (isUpper && !wasUpper)) words.emplace_back();
        words.back() += static_cast<char>(std::tolower(character));
        wasDigit = isDigit;
        wasUpper = isUpper;
        isInside = true;
    }
    std::ranges::transform(words, words.begin(), usualWord);
    return words;
}

bool isAlike(const std::string& one, const std::string& other) {
    const auto& [shorter, longer] =
        std::minmax(one, other, [](const auto& a, const auto& b) { return a.size() < b.size(); });
    return one == other || (shorter.size() >= leastBeginning && longer.starts_with(shorter));
}

std::ptrdiff_t sharedWords(const std::vector<std::string>& words, const Property& property) {
    const auto others = wordsOf(property.propertyName());
    return std::ranges::count_if(words, [&](const std::string& word) {
        return std::ranges::any_of(others, [&](const std::string& other) { return isAlike(word, other); });
    });
}

}  // namespace

PropertyMatches matchesForProperty(const Agent& agent, const std::string& name) {
    struct Candidate {
        std::shared_ptr<Property> property;
        std::ptrdiff_t shared = 0;
    };
    const auto words = wordsOf(name);
    std::vector<Candidate> candidates;
    for (const auto& property : agent.properties().all()) {
        candidates.push_back({property, sharedWords(words, *property)});
    }
    Quantity quantity = namingOfProperty(name).quantity;
    const auto likest = std::ranges::max_element(candidates, {}, &Candidate::shared);
    if (quantity == Quantity::none && likest != candidates.end() && likest->shared > 0) {
        quantity = likest->property->quantity();
    }
    const auto isNear = [&](const Candidate& candidate) {
        const bool isSameQuantity = candidate.property->quantity() == quantity;
        return isSameQuantity && (quantity != Quantity::none || candidate.shared > 0);
    };
    const auto others = std::ranges::stable_partition(candidates, isNear);
    std::ranges::stable_sort(candidates.begin(), others.begin(), std::ranges::greater(), &Candidate::shared);
    PropertyMatches matches;
    for (auto each = candidates.begin(); each != candidates.end(); ++each) {
        (each < others.begin() ? matches.nearest : matches.others).push_back(each->property);
    }
    return matches;
}

}  // namespace zor
