#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "host/station/ZORPlugIn.h"
#include "host/views/Window.h"

namespace zor {

class SiteDocument;

/// A window of a Site Document: the site window, or a separate window in which one plug-in is shown.
class WindowController : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    explicit WindowController(std::shared_ptr<Window> window = {}) : window_(std::move(window)) {}

    const std::shared_ptr<Window>& window() const { return window_; }
    std::shared_ptr<ZORPlugIn> contentViewController() const { return contentViewController_; }
    void setContentViewController(std::shared_ptr<ZORPlugIn> plugIn) { contentViewController_ = std::move(plugIn); }

private:
    std::shared_ptr<Window> window_;
    std::shared_ptr<ZORPlugIn> contentViewController_;
};

/// An entry of the site window's list of plug-ins.
struct PlugInListEntry {
    std::shared_ptr<ZORPlugIn> representedObject;
    /// The plug-in's title at that moment, "Untitled" where it has none.
    std::string title;
};

/// The site window: owns the plug-ins in the list and shows the selected one.
class SiteWindowController : public WindowController {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    SiteWindowController();

    std::shared_ptr<SiteDocument> document() const { return document_.lock(); }
    void setDocument(const std::shared_ptr<SiteDocument>& document) { document_ = document; }

    /// At the end of the list. A plug-in that is there already stays where it is.
    void addPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn, bool select);
    /// `nameUniquely` turns a title that another entry has into "Weather 2", "Weather 3" ...
    void addPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn, bool nameUniquely, bool select);
    /// All of them as addPlugIn does, told of once: in time that grows with their number, however large.
    void addPlugIns(const std::vector<std::shared_ptr<ZORPlugIn>>& plugIns);
    /// The selection goes to the entry that takes the place, or to the last.
    void removePlugInAtIndex(std::size_t index);
    /// Puts `replacement` at the old plug-in's place in the list, selected if that was.
    void replacePlugIn(const std::shared_ptr<ZORPlugIn>& old, const std::shared_ptr<ZORPlugIn>& replacement);

    const std::vector<std::shared_ptr<ZORPlugIn>>& plugIns() const { return plugIns_; }
    std::vector<PlugInListEntry> entries() const;
    /// Any thread: the entries whose plug-in is of the class, from an immutable snapshot of the list. They keep the
    /// snapshot, which lets its plug-ins go on the main thread, wherever the last entry dies.
    std::vector<PlugInListEntry> itemsWithRepresentedObjectsOfClass(const ClassRecord& record) const;
    /// -1 where nothing is selected.
    std::int64_t selectedIndex() const { return selectedIndex_; }
    std::shared_ptr<ZORPlugIn> selectedPlugIn() const;
    /// Tells the shown plug-in viewWillDisappear and the new one viewWillAppear, also when they are the same. An index
    /// outside the list selects nothing.
    void selectPlugInAtIndex(std::int64_t index);

    /// Where the selected plug-in's view goes in the window's content, which becomes large enough to hold it.
    void setPlugInFrame(const Rect& frame);
    const Rect& plugInFrame() const { return plugInFrame_; }

    /// Told when the list, a title or the selection changed.
    void setObserver(std::function<void()> observer) { observer_ = std::move(observer); }
    /// The list or a title changed: the document is to be saved.
    void notifyChanged();
    /// Runs `work`; the changes of titles that it makes are told of once, behind it.
    void changeTitles(const std::function<void()>& work);
    /// From a plug-in; the list follows where it is there.
    void titleChanged(const ZORPlugIn& plugIn);
    /// The title in the list and of separate windows: "Untitled" where the plug-in has none.
    static std::string shownTitle(const ZORPlugIn& plugIn);

private:
    using Snapshot = std::vector<PlugInListEntry>;

    std::size_t indexOf(const ZORPlugIn* plugIn) const;
    void nameUniquelyInList(ZORPlugIn& plugIn) const;
    void refreshSnapshot();
    void showPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn);
    void unload(const std::shared_ptr<ZORPlugIn>& plugIn);
    void notifyObserver() const;

    std::weak_ptr<SiteDocument> document_;
    std::vector<std::shared_ptr<ZORPlugIn>> plugIns_;
    std::int64_t selectedIndex_ = -1;
    std::shared_ptr<ZORPlugIn> shown_;
    Rect plugInFrame_;
    std::function<void()> observer_;
    /// While titles are changed together, whether one in the list was.
    std::optional<bool> titlesChanged_;
    mutable std::mutex snapshotMutex_;
    std::shared_ptr<const Snapshot> snapshot_;
};

}  // namespace zor
