// Pictures of four plots with a day of samples each: `picture_bench RUNS` prints the medians as JSON, `picture_bench 1
// FILE` also writes the PNG. Every run has other values; copying the canvas, drawing and encoding all count.

#include <QGuiApplication>
#include <cstdlib>
#include <fstream>

#include "bench/Measure.h"
#include "bench/PlotsDay.h"
#include "host/instruments/InstrumentClasses.h"
#include "qt/QtToolkit.h"
#include "toolbar/ZORDashboardToolbarPlugIn.h"

using namespace zor;

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("TZ", "UTC", 1);
    QGuiApplication application(argc, argv);
    Toolkit::install(std::make_unique<QtToolkit>());
    registerInstrumentClasses();
    setClock(bench::endOfTheDay);
    const int runs = argc > 1 ? std::atoi(argv[1]) : 25;

    const auto agent = bench::agentOfThePlots();
    const auto controller = std::make_shared<SiteWindowController>();
    const auto dashboard = ZORDashboardToolbarPlugIn::initWithAgent(agent, controller)->quadPlotsPlugIn();
    int run = 0;
    Bytes bytes;
    const auto task = [&](const char* operation, std::vector<Value> arguments) {
        return bench::Task{[&, operation, arguments] { bytes = dashboard->perform(operation, arguments).asData(); },
                           [&] { bench::giveDay(*agent, ++run); }};
    };
    const double png = bench::medianMilliseconds(runs, task("pngImageWithScale:", {Value(1.0)}));
    const std::size_t pngBytes = bytes.size();
    if (argc > 2) {
        std::ofstream(argv[2], std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    const double pdf = bench::medianMilliseconds(runs, task("pdfRepresentation", {}));
    std::printf("{\"png\": %.3f, \"pngBytes\": %zu, \"pdf\": %.3f, \"pdfBytes\": %zu}\n", png, pngBytes, pdf,
                bytes.size());
}
