#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/foundation/Bundle.h"
#include "host/foundation/Result.h"
#include "host/station/SiteWindowController.h"

namespace zor {

/// One station with its plug-ins: what is saved and opened as a whole.
class SiteDocument : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    /// A new document: one entry plug-in of each bundle, no dashboards.
    static std::shared_ptr<SiteDocument> create(const std::shared_ptr<Agent>& agent,
                                                const std::vector<std::shared_ptr<Bundle>>& bundles);
    /// Reads a saved document whole; entry plug-ins of bundles it does not know are added. The error names the file
    /// and the fault.
    static Result<std::shared_ptr<SiteDocument>> open(const std::filesystem::path& file,
                                                      const std::vector<std::shared_ptr<Bundle>>& bundles);
    /// The error names the fault, such as a class that no bundle brings: nothing of a document is ever left out.
    static Result<std::shared_ptr<SiteDocument>> fromArchive(std::span<const std::uint8_t> data,
                                                             const std::vector<std::shared_ptr<Bundle>>& bundles);
    /// Written beside and moved into place; a document that cannot be saved stays dirty.
    Status save(const std::filesystem::path& file);
    Result<Bytes> archive();

    const std::shared_ptr<Agent>& agent() const { return agent_; }
    const std::shared_ptr<SiteWindowController>& siteWindowController() const { return siteWindowController_; }
    /// The site window's controller first, then those of separate windows.
    std::vector<std::shared_ptr<WindowController>> windowControllers() const;
    void addWindowController(const std::shared_ptr<WindowController>& controller);
    /// A plug-in that was only in that window is told willUnload.
    void removeWindowController(const WindowController* controller);
    bool isInSeparateWindow(const ZORPlugIn& plugIn) const;
    /// Shows the plug-in in a window of its own, which has its title; the site window keeps it in the list and shows it
    /// again when that window is closed. A plug-in that has such a window already keeps it.
    std::shared_ptr<WindowController> showInSeparateWindow(const std::shared_ptr<ZORPlugIn>& plugIn);
    /// From a plug-in: its separate windows follow.
    void titleChanged(const ZORPlugIn& plugIn);
    /// One per bundle.
    const std::vector<std::shared_ptr<ZORPlugIn>>& entryPlugIns() const { return entryPlugIns_; }

    const std::filesystem::path& file() const { return file_; }
    bool isDirty() const { return dirty_; }
    void setDirty(bool dirty);
    void setDirtyObserver(std::function<void()> observer) { dirtyObserver_ = std::move(observer); }
    /// Closes its windows and tells every plug-in willUnload; afterwards the document only waits to be released.
    void close();

    void encodeWithCoder(Encoder& encoder) override;
    bool initWithCoder(Decoder& decoder) override;

private:
    void adopt(const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& controller);
    void addEntryPlugIns(const std::vector<std::shared_ptr<Bundle>>& bundles);
    bool isInList(const ZORPlugIn& plugIn) const;
    void separateWindowClosed(const WindowController* controller);

    std::shared_ptr<Agent> agent_;
    std::shared_ptr<SiteWindowController> siteWindowController_;
    std::vector<std::shared_ptr<WindowController>> separateWindows_;
    std::vector<std::shared_ptr<ZORPlugIn>> entryPlugIns_;
    std::filesystem::path file_;
    /// Why what was read is refused; empty for a whole document.
    std::string fault_;
    std::function<void()> dirtyObserver_;
    bool dirty_ = false;
    bool closed_ = false;
};

}  // namespace zor
