#include "host/station/SiteWindowController.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/MainQueue.h"
#include "host/station/SiteDocument.h"

namespace zor {

namespace {

constexpr Rect initialWindowFrame = {0, 0, 1400, 1000};

/// "Weather" for "Weather 3", whose number was given to make it unique.
std::string_view withoutNumber(std::string_view title) {
    const auto stem = title.find_last_not_of("0123456789");
    const bool isNumbered = stem != std::string_view::npos && stem > 0 && stem + 1 < title.size() &&
                            title[stem] == ' ' && title[stem + 1] != '0' && title.substr(stem + 1) != "1";
    return isNumbered ? title.substr(0, stem) : title;
}

}  // namespace

const ClassRecord& WindowController::staticClass() {
    static const ClassRecord& record = ClassBuilder<WindowController>("ZORWindowController", &Object::staticClass())
                                           .property("window", &WindowController::window)
                                           .property("contentViewController", &WindowController::contentViewController)
                                           .registered();
    return record;
}

const ClassRecord& SiteWindowController::staticClass() {
    static const ClassRecord& record =
        ClassBuilder<SiteWindowController>("ZORSiteWindowController", &WindowController::staticClass())
            .property("document", &SiteWindowController::document)
            .property("plugIns", &SiteWindowController::plugIns)
            .property("selectedIndex", &SiteWindowController::selectedIndex, &SiteWindowController::selectPlugInAtIndex)
            .property("plugInFrame", &SiteWindowController::plugInFrame, &SiteWindowController::setPlugInFrame)
            .registered();
    return record;
}

SiteWindowController::SiteWindowController() : WindowController(std::make_shared<Window>()) {
    window()->setFrame(initialWindowFrame);
    window()->setContentView(std::make_shared<View>());
    setPlugInFrame({0, 0, initialWindowFrame.width, initialWindowFrame.height});
    refreshSnapshot();
}

void SiteWindowController::addPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn, bool select) {
    addPlugIn(plugIn, false, select);
}

void SiteWindowController::addPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn, bool nameUniquely, bool select) {
    if (!plugIn) return;
    if (indexOf(plugIn.get()) == plugIns_.size()) {
        if (nameUniquely) nameUniquelyInList(*plugIn);
        plugIns_.push_back(plugIn);
        notifyChanged();
        plugIn->didLoad();
    }
    if (select) selectPlugInAtIndex(static_cast<std::int64_t>(indexOf(plugIn.get())));
}

void SiteWindowController::addPlugIns(const std::vector<std::shared_ptr<ZORPlugIn>>& plugIns) {
    std::set<std::shared_ptr<ZORPlugIn>> known(plugIns_.begin(), plugIns_.end());
    known.insert(nullptr);
    const std::size_t first = plugIns_.size();
    std::ranges::copy_if(plugIns, std::back_inserter(plugIns_),
                         [&](const auto& plugIn) { return known.insert(plugIn).second; });
    notifyChanged();
    const std::vector added(plugIns_.begin() + static_cast<std::ptrdiff_t>(first), plugIns_.end());
    for (const auto& plugIn : added) plugIn->didLoad();
}

void SiteWindowController::removePlugInAtIndex(std::size_t index) {
    if (index >= plugIns_.size()) return;
    const auto place = static_cast<std::int64_t>(index);
    const auto plugIn = plugIns_[index];
    const bool wasSelected = place == selectedIndex_;
    if (wasSelected) showPlugIn({});
    plugIns_.erase(plugIns_.begin() + place);
    if (place < selectedIndex_ || static_cast<std::size_t>(selectedIndex_) == plugIns_.size()) --selectedIndex_;
    notifyChanged();
    unload(plugIn);
    if (wasSelected) selectPlugInAtIndex(selectedIndex_);
}

void SiteWindowController::replacePlugIn(const std::shared_ptr<ZORPlugIn>& old,
                                         const std::shared_ptr<ZORPlugIn>& replacement) {
    const auto index = indexOf(old.get());
    if (index == plugIns_.size() || !replacement || indexOf(replacement.get()) != plugIns_.size()) return;
    const auto leaving = plugIns_[index];
    const bool wasSelected = static_cast<std::int64_t>(index) == selectedIndex_;
    if (wasSelected) showPlugIn({});
    plugIns_[index] = replacement;
    notifyChanged();
    unload(leaving);
    replacement->didLoad();
    if (wasSelected) selectPlugInAtIndex(static_cast<std::int64_t>(index));
}

std::vector<PlugInListEntry> SiteWindowController::entries() const {
    std::vector<PlugInListEntry> entries;
    entries.reserve(plugIns_.size());
    for (const auto& plugIn : plugIns_) entries.push_back({plugIn, shownTitle(*plugIn)});
    return entries;
}

std::vector<PlugInListEntry> SiteWindowController::itemsWithRepresentedObjectsOfClass(const ClassRecord& record) const {
    std::shared_ptr<const Snapshot> snapshot;
    {
        const std::lock_guard lock(snapshotMutex_);
        snapshot = snapshot_;
    }
    std::vector<PlugInListEntry> items;
    for (const auto& [plugIn, title] : *snapshot) {
        if (plugIn->isKindOf(record)) items.push_back({std::shared_ptr<ZORPlugIn>(snapshot, plugIn.get()), title});
    }
    return items;
}

std::shared_ptr<ZORPlugIn> SiteWindowController::selectedPlugIn() const {
    return selectedIndex_ < 0 ? nullptr : plugIns_[static_cast<std::size_t>(selectedIndex_)];
}

void SiteWindowController::selectPlugInAtIndex(std::int64_t index) {
    selectedIndex_ = index >= 0 && std::cmp_less(index, plugIns_.size()) ? index : -1;
    showPlugIn(selectedPlugIn());
    notifyObserver();
}

void SiteWindowController::setPlugInFrame(const Rect& frame) {
    plugInFrame_ = frame;
    const auto& content = window()->contentView();
    content->setFrame({0, 0, frame.maxX(), frame.maxY()});
    if (shown_ && shown_->view()->superview() == content.get()) shown_->view()->setFrame(frame);
}

void SiteWindowController::notifyChanged() {
    refreshSnapshot();
    ask(document(), [](SiteDocument& document) { document.setDirty(true); });
    notifyObserver();
}

void SiteWindowController::changeTitles(const std::function<void()>& work) {
    const auto outer = std::exchange(titlesChanged_, titlesChanged_.value_or(false));
    work();
    const bool changed = titlesChanged_.value_or(false);
    titlesChanged_ = outer ? std::optional(changed) : std::nullopt;
    if (changed && !outer) notifyChanged();
}

void SiteWindowController::titleChanged(const ZORPlugIn& plugIn) {
    // Looking through the list for each of thousands would be quadratic.
    const bool isKnown = titlesChanged_.value_or(false);
    if (!isKnown && indexOf(&plugIn) < plugIns_.size()) {
        if (titlesChanged_) {
            titlesChanged_ = true;
        } else {
            notifyChanged();
        }
    }
    ask(document(), [&](SiteDocument& owner) { owner.titleChanged(plugIn); });
}

std::string SiteWindowController::shownTitle(const ZORPlugIn& plugIn) {
    return plugIn.title().value_or("Untitled");
}

std::size_t SiteWindowController::indexOf(const ZORPlugIn* plugIn) const {
    const auto found = std::ranges::find(plugIns_, plugIn, &std::shared_ptr<ZORPlugIn>::get);
    return static_cast<std::size_t>(found - plugIns_.begin());
}

void SiteWindowController::nameUniquelyInList(ZORPlugIn& plugIn) const {
    const auto isTaken = [this](const std::string& title) {
        return std::ranges::any_of(plugIns_, [&](const auto& other) { return shownTitle(*other) == title; });
    };
    auto title = shownTitle(plugIn);
    if (!isTaken(title)) return;
    const std::string stem(withoutNumber(title));
    for (int number = 2; isTaken(title); ++number) title = stem + ' ' + std::to_string(number);
    plugIn.setTitle(std::move(title));
}

void SiteWindowController::refreshSnapshot() {
    // Deleted on the main thread only, with the plug-ins of which it may hold the last references. Where the program
    // quits meanwhile, it is left to the process's end.
    const auto deleteOnMainThread = [](const Snapshot* snapshot) {
        auto& queue = MainQueue::shared();
        if (queue.isMainThread()) {
            delete snapshot;
        } else {
            queue.post([snapshot] { delete snapshot; });
        }
    };
    std::shared_ptr<const Snapshot> fresh(new Snapshot(entries()), deleteOnMainThread);
    const std::lock_guard lock(snapshotMutex_);
    snapshot_.swap(fresh);
}

void SiteWindowController::showPlugIn(const std::shared_ptr<ZORPlugIn>& plugIn) {
    const auto content = window()->contentView();
    if (const auto hidden = std::exchange(shown_, {})) {
        hidden->viewWillDisappear();
        // A separate window may have taken the view.
        if (hidden->view()->superview() == content.get()) hidden->view()->removeFromSuperview();
    }
    window()->makeFirstResponder({});
    if (!plugIn) return;
    shown_ = plugIn;
    // A view is in one window only, and the separate one keeps it.
    const bool isElsewhere = ask(document(), [&](SiteDocument& owner) { return owner.isInSeparateWindow(*plugIn); });
    if (!isElsewhere) {
        plugIn->view()->setFrame(plugInFrame_);
        content->addSubview(plugIn->view());
    }
    plugIn->viewWillAppear();
}

/// A plug-in that a separate window shows goes on living there.
void SiteWindowController::unload(const std::shared_ptr<ZORPlugIn>& plugIn) {
    const bool isShownElsewhere =
        ask(document(), [&](SiteDocument& owner) { return owner.isInSeparateWindow(*plugIn); });
    if (!isShownElsewhere) plugIn->willUnload();
}

void SiteWindowController::notifyObserver() const {
    // The observer may replace itself.
    const auto observer = observer_;
    if (observer) observer();
}

}  // namespace zor
