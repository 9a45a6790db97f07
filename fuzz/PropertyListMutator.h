#pragma once
// Changes to property lists and text that keep most of their structure, so that a fuzzer gets past the first checks.

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>

#include "host/foundation/PropertyListTables.h"
#include "host/foundation/Value.h"

namespace zor::fuzz {

/// libFuzzer's custom mutator for binary property lists: one to four changes to the list's nodes, or, sometimes and
/// wherever `data` is no list, to its bytes. Gives the new size.
std::size_t mutatePropertyList(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed);

/// One change to a list: a scalar, a reference, a container's entries, a node's kind. Deterministic in `random`.
class PropertyListMutator {
public:
    PropertyListMutator(PropertyListTables& tables, std::minstd_rand& random) : tables_(tables), random_(random) {}
    void change();

private:
    using Index = PropertyListNode::Index;

    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
    std::uint64_t strangeNumber();
    PropertyListNode& randomNode() { return tables_.nodes[below(tables_.nodes.size())]; }
    void changeScalar(PropertyListNode& node);
    void changeText(PropertyListNode& node);
    void changeBytes(PropertyListNode& node);
    void retarget();
    void changeEntries(PropertyListNode& container);
    void setText(PropertyListNode& node, std::string_view text);

    PropertyListTables& tables_;
    std::minstd_rand& random_;
};

}  // namespace zor::fuzz
