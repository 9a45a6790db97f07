// What a person picks in the open panel of the import: the dashboard is added, drawn and archived.

#include "tests/hostile/SampleDocuments.h"

using namespace zor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    (void)test::importDashboard(Bytes(data, data + size));
    return 0;
}
