// A property list, binary or XML: read, made a value, written, read again.

#include "fuzz/Check.h"
#include "host/foundation/PropertyList.h"

using namespace zor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto list = PropertyList::parse({data, size});
    if (!list) {
        fuzz::check(!list.error().message.empty(), "an error says what is wrong");
        return 0;
    }
    const Bytes written = list->binary();
    const auto again = PropertyList::parse(written);
    fuzz::check(static_cast<bool>(again), "what is written can be read");
    fuzz::check(again->size() == list->size(), "what is written has as many nodes");
    // The writer turns the nodes around.
    const auto turned = PropertyList::parse(again->binary());
    fuzz::check(turned && turned->binary() == written, "writing three times gives the same bytes as writing once");

    const auto value = list->value(list->root());
    const auto same = again->value(again->root());
    fuzz::check(static_cast<bool>(value) == static_cast<bool>(same), "both give a value or neither");
    if (value && !value->isAbsent()) {
        const auto stored = PropertyList::fromValue(*value);
        fuzz::check(static_cast<bool>(stored), "a value that was read can be stored");
        fuzz::check(static_cast<bool>(PropertyList::parse(stored->binary())), "and read");
    }
    return 0;
}
