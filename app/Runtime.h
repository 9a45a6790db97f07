#pragma once

#include <memory>

#include "app/PlugInLibrary.h"

class QCoreApplication;

namespace zor {

class MainQueueRunner;
class Toolkit;

/// What every command needs before it touches a document: the toolkit, the class registry, the main queue, the
/// plug-ins. Problems with plug-ins go to standard error by name.
class Runtime {
public:
    virtual ~Runtime();
    const PlugInLibrary& plugIns() const { return plugIns_; }
    /// Runs the event loop until the program is told to quit; gives its exit status.
    int runEventLoop();

protected:
    Runtime();
    /// Takes over the application object, then installs the toolkit.
    void begin(std::unique_ptr<QCoreApplication> application, std::unique_ptr<Toolkit> toolkit);

private:
    std::unique_ptr<QCoreApplication> application_;
    std::unique_ptr<MainQueueRunner> queueRunner_;
    PlugInLibrary plugIns_;
};

/// Without a window: pictures, scripts, the web server. Needs no display.
class HeadlessRuntime : public Runtime {
public:
    HeadlessRuntime();
    /// With a toolkit of the caller's instead of the usual one.
    explicit HeadlessRuntime(std::unique_ptr<Toolkit> (*makeToolkit)());
};

/// With windows.
class DesktopRuntime : public Runtime {
public:
    DesktopRuntime();
};

/// Whether there is a display for windows.
bool hasDisplay();

}  // namespace zor
