// Keyed archives of many objects: `archive_bench COUNT FILE` writes and reads an array of widgets with their text fields,
// COUNT objects in all, leaves the archive in FILE and prints the medians as JSON.

#include <cstdlib>
#include <fstream>

#include "bench/Measure.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/instruments/InstrumentClasses.h"
#include "host/instruments/ZORWidgetHostView.h"
#include "tests/support/FakeToolkit.h"

using namespace zor;

int main(int argc, char** argv) {
    if (argc < 3) return std::fprintf(stderr, "usage: archive_bench COUNT FILE\n"), 2;
    FakeToolkit::install();
    registerInstrumentClasses();
    Value::Array widgets;
    for (int index = 0; index < std::atoi(argv[1]) / 2; ++index) {
        widgets.emplace_back(ZORWidgetHostView::textFieldWithRect({index % 997 * 20.0, index % 991 * 10.0, 90, 30}));
    }
    const Value root(std::move(widgets));
    const int runs = std::atoi(argv[1]) > 200'000 ? 1 : 5;
    Bytes data;
    const double written = bench::bestMedians(runs, {{[&] {
        data = *KeyedArchiver::archivedDataWithRootObject(root);
    }}}).front();
    // As with the peer, what was read is let go of before the next run.
    Value objects;
    const auto read = [&] { objects = KeyedUnarchiver::unarchivedRoot(data).valueOr({}); };
    const double readIn = bench::bestMedians(runs, {{read, [&] { objects = {}; }}}).front();
    if (objects.asArray().size() != root.asArray().size()) std::abort();
    std::ofstream(argv[2], std::ios::binary).write(reinterpret_cast<const char*>(data.data()),
                                                   static_cast<std::streamsize>(data.size()));
    std::printf("{\"written\": %.3f, \"read\": %.3f, \"bytes\": %zu}\n", written, readIn, data.size());
}
