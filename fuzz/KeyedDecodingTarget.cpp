// A keyed archive of any class that the program knows: decoded, archived again, decoded again; opened as a document.

#include "fuzz/Check.h"
#include "host/foundation/KeyedArchiver.h"
#include "tests/hostile/SampleDocuments.h"

using namespace zor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto root = KeyedUnarchiver::unarchivedRoot({data, size});
    if (!root) {
        fuzz::check(!root.error().message.empty(), "an error says what is wrong");
        return 0;
    }
    if (const auto again = KeyedArchiver::archivedDataWithRootObject(*root)) {
        const auto back = KeyedUnarchiver::unarchivedRoot(*again);
        fuzz::check(static_cast<bool>(back), "what is archived can be decoded");
    }
    const Bytes bytes(data, data + size);
    for (const auto kind : {test::DocumentKind::site, test::DocumentKind::pasteboard}) {
        const auto status = test::readDocument(kind, bytes);
        fuzz::check(status || !status.error().message.empty(), "a refusal says why");
    }
    return 0;
}
