// What a person picks in the open panel of the import: the dashboard is added, drawn and archived.

#include "fuzz/PropertyListMutator.h"
#include "host/foundation/Log.h"
#include "tests/hostile/SampleDocuments.h"

using namespace zor;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    setLogSink({});
    test::loadPlugIn();
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return fuzz::mutatePropertyList(data, size, maxSize, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    (void)test::importDashboard(Bytes(data, data + size));
    return 0;
}
