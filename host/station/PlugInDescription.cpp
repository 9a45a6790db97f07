#include "host/station/PlugInDescription.h"

#include "host/foundation/Bundle.h"
#include "host/foundation/SafeFile.h"
#include "host/station/ZORPlugIn.h"
#include "host/views/Toolkit.h"

namespace zor {

std::string htmlVersionRow(const ZORPlugIn& plugIn, std::string_view name) {
    const auto version = ask(plugIn.bundle(), [](const Bundle& bundle) {
        return bundle.infoString("CFBundleShortVersionString");
    });
    return "<tr><th colspan=2 align=center>" + std::string(name) + " - Version " + version.value_or("(null)") + " (" +
           std::to_string(plugIn.bundleVersion()) + ")</th></tr>";
}

std::shared_ptr<Image> imageResource(const ZORPlugIn& plugIn, std::string_view name) {
    const auto path = ask(plugIn.bundle(), [&](const Bundle& bundle) { return bundle.pathForResource(name, "png"); });
    if (!path) return {};
    auto data = readFile(*path);
    if (!data) return {};
    const auto size = Toolkit::current().sizeOfImageData(*data);
    if (!size) return {};
    return Image::withData(std::make_shared<const Bytes>(std::move(*data)), *size);
}

}  // namespace zor
