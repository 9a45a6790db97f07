// Linked into targets that meet the plug-in's classes.

#include "host/foundation/Log.h"
#include "tests/hostile/SampleDocuments.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zor::setLogSink({});
    zor::test::loadPlugIn();
    return 0;
}
