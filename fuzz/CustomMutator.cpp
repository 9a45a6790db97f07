// Linked into targets that take property lists.

#include "fuzz/PropertyListMutator.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return zor::fuzz::mutatePropertyList(data, size, maxSize, seed);
}
