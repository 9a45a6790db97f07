#include "host/foundation/ArchivedClasses.h"

#include "host/foundation/ArchiveFormat.h"
#include "host/foundation/ClassRegistry.h"
#include "host/foundation/Object.h"

namespace zor {

namespace {

using Kind = ArchivedClass::Kind;

/// The format's own classes, which are values here.
constexpr std::pair<std::string_view, Kind> standardClasses[] = {
    {"NSArray", Kind::array},
    {"NSMutableArray", Kind::array},
    {"NSSet", Kind::array},
    {"NSMutableSet", Kind::array},
    {"NSDictionary", Kind::dictionary},
    {"NSMutableDictionary", Kind::dictionary},
    {"NSString", Kind::string},
    {"NSMutableString", Kind::string},
    {"NSData", Kind::data},
    {"NSMutableData", Kind::data},
    {"NSDate", Kind::date},
    {"NSNull", Kind::null},
};

ArchivedClass fromRecord(const ClassRecord* record) {
    if (!record) return {};
    if (record == &nullPlaceholderClass()) return {Kind::null};
    return {Kind::object, record};
}

/// Known to the registry before anything asks it, whatever ran before.
[[maybe_unused]] const ClassRecord& registeredAtStart = nullPlaceholderClass();

}  // namespace

const ClassRecord& nullPlaceholderClass() {
    static const ClassRecord& record =
        ClassRegistry::shared().add(std::make_unique<ClassRecord>("NSNull", &Object::staticClass()));
    return record;
}

const ArchivedClass& ArchivedClasses::find(Index classNode) {
    const auto [known, isNew] = known_.try_emplace(classNode);
    if (isNew) known->second = resolve(classNode);
    recent_ = {Recent{classNode, &known->second}, recent_[0]};
    return known->second;
}

ArchivedClass ArchivedClasses::resolve(Index classNode) {
    using Reason = ArchiveFailure::Reason;
    const auto nameNode = list_.find(classNode, archive::classNameKey);
    if (!nameNode || list_.kind(*nameNode) != PropertyList::Kind::string) {
        return {Kind::unusable, nullptr, {Reason::noClassName}};
    }
    ArchivedClass found;
    if (isClassName(*nameNode)) found = named(list_.string(*nameNode));
    for (const Index hint : names(classNode, archive::classHintsKey)) {
        if (found.kind != Kind::unusable) break;
        found = named(list_.string(hint));
    }
    if (found.kind == Kind::unusable && isClassName(*nameNode)) found = fromDelegate(classNode, *nameNode);
    if (found.kind == Kind::unusable) return {Kind::unusable, nullptr, {Reason::unknownClass, 0, *nameNode}};
    if (found.kind == Kind::object && !found.record->isCreatable()) {
        return {Kind::unusable, nullptr, {Reason::abstractClass, 0, *nameNode}};
    }
    return found;
}

bool ArchivedClasses::isClassName(Index node) const {
    // A file may name one enormous text over and over; no class is called that.
    constexpr std::size_t longest = 1000;
    return list_.kind(node) == PropertyList::Kind::string && list_.string(node).size() <= longest;
}

ArchivedClass ArchivedClasses::named(std::string_view name) const {
    for (const auto& [standardName, kind] : standardClasses) {
        if (name == standardName) return {kind};
    }
    if (name == archive::rootClassName) return fromRecord(&Object::staticClass());
    return fromRecord(ClassRegistry::shared().find(name));
}

ArchivedClass ArchivedClasses::fromDelegate(Index classNode, Index nameNode) {
    if (!delegate_) return {};
    const auto [answer, isNew] = answers_.try_emplace(std::string(list_.string(nameNode)), nullptr);
    if (isNew) {
        std::vector<std::string> originalClasses;
        for (const Index name : names(classNode, archive::classesKey)) originalClasses.emplace_back(list_.string(name));
        if (originalClasses.empty()) originalClasses.push_back(answer->first);
        answer->second = delegate_->unarchiverCannotDecodeObjectOfClassName(answer->first, originalClasses);
    }
    return fromRecord(answer->second);
}

std::vector<ArchivedClasses::Index> ArchivedClasses::names(Index classNode, std::string_view key) {
    const auto node = list_.find(classNode, key);
    if (!node || list_.kind(*node) != PropertyList::Kind::array) return {};
    std::vector<Index> result;
    for (const Index item : list_.items(*node)) {
        if (allowance_ == 0) break;
        --allowance_;
        if (isClassName(item)) result.push_back(item);
    }
    return result;
}

}  // namespace zor
