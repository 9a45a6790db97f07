#pragma once

#include "host/foundation/Bundle.h"
#include "host/foundation/ClassRegistry.h"
#include "host/instruments/InstrumentClasses.h"
#include "tests/support/FakeToolkit.h"
#include "tests/support/TemporaryFolder.h"

namespace zor::test {

/// A plug-in bundle in a folder of the test program's own. The plug-in's classes learn their bundle when they are first
/// asked for, so an environment makes it before any test runs.
class PlugInBundle {
public:
    PlugInBundle() {
        folder_.write("Dashboard.zorplugin/Info.plist",
                      R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>
<key>CFBundleIdentifier</key><string>test.dashboard</string>
<key>CFBundleShortVersionString</key><string>4.2</string>
<key>CFBundleVersion</key><integer>77</integer>
<key>CFBundleExecutable</key><string>Dashboard.so</string>
<key>ZORInterfaceVersion</key><integer>1</integer>
<key>ZORPrincipalClass</key><string>ZORDashboardToolbarPlugIn</string>
<key>ZORDocumentClass</key><string>ZORDashboardPlugIn</string>
</dict></plist>)");
        write("icon.png", FakeToolkit::imageData({48, 32}));
        write("LCDPHONE.ttf", {});
        write("Crysta.ttf", {});
        bundle_ = Bundle::open(folder_ / "Dashboard.zorplugin").valueOr(nullptr);
    }

    const std::shared_ptr<Bundle>& bundle() const { return bundle_; }

    /// The classes that `ask` asks for first belong to the bundle.
    template <typename Ask>
    void registerClasses(Ask&& ask) const {
        registerInstrumentClasses();
        ClassRegistry::shared().beginBundle(bundle_);
        ask();
        ClassRegistry::shared().endBundle();
    }

    std::filesystem::path resource(const std::string& name) const {
        return folder_ / "Dashboard.zorplugin/Resources" / name;
    }
    void write(const std::string& name, const Bytes& data) const {
        folder_.write("Dashboard.zorplugin/Resources/" + name, std::string(data.begin(), data.end()));
    }
    void remove(const std::string& name) const { std::filesystem::remove(resource(name)); }

private:
    TemporaryFolder folder_;
    std::shared_ptr<Bundle> bundle_;
};

/// The program's own, made by its environment.
PlugInBundle& plugInBundle();

}  // namespace zor::test
