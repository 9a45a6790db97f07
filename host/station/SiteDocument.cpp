#include "host/station/SiteDocument.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/foundation/KeyedArchiver.h"
#include "host/foundation/Log.h"
#include "host/foundation/SafeFile.h"

namespace zor {

namespace {

/// The plug-ins under the key; the fault is named where an entry is none, as nothing may get lost unsaid.
std::vector<std::shared_ptr<ZORPlugIn>> decodePlugIns(Decoder& decoder, std::string_view key, std::string& fault) {
    auto plugIns = decoder.decodeObjects<ZORPlugIn>(key);
    if (plugIns.size() != decoder.decodeValue(key).asArray().size()) {
        fault = std::string(key) + ": an entry is no plug-in";
    }
    return plugIns;
}

/// Empty where the bundle's principal class makes none.
std::shared_ptr<ZORPlugIn> makeEntryPlugIn(const Bundle& bundle, const std::shared_ptr<Agent>& agent,
                                           const std::shared_ptr<SiteWindowController>& controller) {
    const auto* record = ClassRegistry::shared().find(bundle.principalClass());
    if (!record || !record->initializer()) return {};
    const std::array<Value, 2> arguments = {agent, controller};
    return std::dynamic_pointer_cast<ZORPlugIn>(record->initializer()(arguments));
}

}  // namespace

const ClassRecord& SiteDocument::staticClass() {
    static const ClassRecord& record = ClassBuilder<SiteDocument>("ZORSiteDocument", &Object::staticClass())
                                           .creatable()
                                           .property("agent", &SiteDocument::agent)
                                           .property("siteWindowController", &SiteDocument::siteWindowController)
                                           .property("windowControllers", &SiteDocument::windowControllers)
                                           .property("entryPlugIns", &SiteDocument::entryPlugIns)
                                           .property("isDirty", &SiteDocument::isDirty, &SiteDocument::setDirty)
                                           .registered();
    return record;
}

std::shared_ptr<SiteDocument> SiteDocument::create(const std::shared_ptr<Agent>& agent,
                                                   const std::vector<std::shared_ptr<Bundle>>& bundles) {
    auto document = std::make_shared<SiteDocument>();
    document->adopt(agent, std::make_shared<SiteWindowController>());
    document->addEntryPlugIns(bundles);
    return document;
}

Result<std::shared_ptr<SiteDocument>> SiteDocument::open(const std::filesystem::path& file,
                                                         const std::vector<std::shared_ptr<Bundle>>& bundles) {
    removeAbandonedScraps(file);
    const auto data = readFile(file);
    if (!data) return data.error();
    auto document = fromArchive(*data, bundles);
    if (!document) return Error{file.string() + ": " + document.error().message};
    (*document)->file_ = file;
    return document;
}

Result<std::shared_ptr<SiteDocument>> SiteDocument::fromArchive(std::span<const std::uint8_t> data,
                                                                const std::vector<std::shared_ptr<Bundle>>& bundles) {
    const auto controller = std::make_shared<SiteWindowController>();
    UnarchivingOptions options;
    options.context["siteWindowController"] = controller;
    const auto root = KeyedUnarchiver::unarchivedRoot(data, options);
    if (!root) return root.error();
    auto document = root->as<SiteDocument>();
    if (!document) {
        const auto object = root->asObject();
        return Error{object ? "the root is no Site Document but a " + object->classRecord().name()
                            : "the root is no Site Document"};
    }
    if (!document->fault_.empty()) return Error{document->fault_};
    document->addEntryPlugIns(bundles);
    document->dirty_ = false;
    return document;
}

Status SiteDocument::save(const std::filesystem::path& file) {
    const auto data = archive();
    if (!data) return Error{file.string() + ": " + data.error().message};
    if (auto written = writeFileAtomically(file, *data); !written) return written;
    file_ = file;
    setDirty(false);
    return success();
}

Result<Bytes> SiteDocument::archive() {
    return KeyedArchiver::archivedDataWithRootObject(Value(sharedAs<SiteDocument>()));
}

std::vector<std::shared_ptr<WindowController>> SiteDocument::windowControllers() const {
    std::vector<std::shared_ptr<WindowController>> controllers;
    if (siteWindowController_) controllers.push_back(siteWindowController_);
    controllers.insert(controllers.end(), separateWindows_.begin(), separateWindows_.end());
    return controllers;
}

void SiteDocument::addWindowController(const std::shared_ptr<WindowController>& controller) {
    if (controller) separateWindows_.push_back(controller);
}

void SiteDocument::removeWindowController(const WindowController* controller) {
    const auto found = std::ranges::find(separateWindows_, controller, &std::shared_ptr<WindowController>::get);
    if (found == separateWindows_.end()) return;
    const auto plugIn = (*found)->contentViewController();
    separateWindows_.erase(found);
    if (plugIn && !isInSeparateWindow(*plugIn) && !isInList(*plugIn)) plugIn->willUnload();
}

bool SiteDocument::isInSeparateWindow(const ZORPlugIn& plugIn) const {
    return std::ranges::any_of(
        separateWindows_, [&](const auto& controller) { return controller->contentViewController().get() == &plugIn; });
}

std::shared_ptr<WindowController> SiteDocument::showInSeparateWindow(const std::shared_ptr<ZORPlugIn>& plugIn) {
    if (!plugIn) return {};
    const auto known = std::ranges::find(separateWindows_, plugIn, &WindowController::contentViewController);
    if (known != separateWindows_.end()) {
        ask((*known)->window(), [](Window& window) { window.show(); });
        return *known;
    }
    const auto window = std::make_shared<Window>();
    auto controller = std::make_shared<WindowController>(window);
    controller->setContentViewController(plugIn);
    addWindowController(controller);
    titleChanged(*plugIn);
    plugIn->view()->setFrame(siteWindowController_->plugInFrame());
    window->setContentViewController(plugIn, plugIn->view());
    std::weak_ptr<Object> weakSelf = weak_from_this();
    window->setCloseObserver([weakSelf, closed = controller.get()] {
        if (const auto self = std::static_pointer_cast<SiteDocument>(weakSelf.lock())) {
            self->separateWindowClosed(closed);
        }
    });
    window->show();
    return controller;
}

void SiteDocument::separateWindowClosed(const WindowController* controller) {
    removeWindowController(controller);
    // The site window may show the view again.
    if (!closed_) siteWindowController_->selectPlugInAtIndex(siteWindowController_->selectedIndex());
}

void SiteDocument::titleChanged(const ZORPlugIn& plugIn) {
    for (const auto& controller : separateWindows_) {
        if (controller->contentViewController().get() != &plugIn) continue;
        ask(controller->window(), [&](Window& window) { window.setTitle(SiteWindowController::shownTitle(plugIn)); });
    }
}

void SiteDocument::setDirty(bool dirty) {
    if (std::exchange(dirty_, dirty) == dirty) return;
    const auto observer = dirtyObserver_;
    if (observer) observer();
}

void SiteDocument::close() {
    if (std::exchange(closed_, true)) return;
    while (!separateWindows_.empty()) {
        const auto controller = separateWindows_.back();
        ask(controller->window(), [](Window& window) { window.close(); });
        removeWindowController(controller.get());
    }
    siteWindowController_->selectPlugInAtIndex(-1);
    siteWindowController_->window()->close();
    for (const auto& plugIn : siteWindowController_->plugIns()) plugIn->willUnload();
    for (const auto& plugIn : entryPlugIns_) plugIn->willUnload();
}

void SiteDocument::encodeWithCoder(Encoder& encoder) {
    Object::encodeWithCoder(encoder);
    encoder.encodeValue("agent", agent_);
    // Archived without a title, a plug-in may take one.
    siteWindowController_->changeTitles([&] { encoder.encodeObjects("plugIns", siteWindowController_->plugIns()); });
    encoder.encodeObjects("entryPlugIns", entryPlugIns_);
    encoder.encodeInteger("selectedPlugIn", siteWindowController_->selectedIndex());
}

bool SiteDocument::initWithCoder(Decoder& decoder) {
    if (!Object::initWithCoder(decoder)) return false;
    const auto controller = std::dynamic_pointer_cast<SiteWindowController>(decoder.context("siteWindowController"));
    // A file holds one Site Document: many could have the same plug-ins, and each would show one.
    if (!controller || controller->document()) return false;
    adopt(decoder.decodeObject<Agent>("agent"), controller);
    if (!agent_) fault_ = "agent: the Site Document has none";
    controller->addPlugIns(decodePlugIns(decoder, "plugIns", fault_));
    entryPlugIns_ = decodePlugIns(decoder, "entryPlugIns", fault_);
    for (const auto& plugIn : entryPlugIns_) plugIn->didLoad();
    const auto count = controller->plugIns().size();
    const auto selected = decoder.decodeInteger("selectedPlugIn");
    if (count > 0) controller->selectPlugInAtIndex(selected >= 0 && std::cmp_less(selected, count) ? selected : 0);
    return true;
}

void SiteDocument::adopt(const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& controller) {
    agent_ = agent;
    siteWindowController_ = controller;
    controller->setDocument(sharedAs<SiteDocument>());
    ask(agent, [&](Agent& station) { station.setSiteWindowController(controller); });
}

void SiteDocument::addEntryPlugIns(const std::vector<std::shared_ptr<Bundle>>& bundles) {
    for (const auto& bundle : bundles) {
        const bool isThere = std::ranges::any_of(entryPlugIns_, [&](const auto& plugIn) {
            return plugIn->classRecord().name() == bundle->principalClass();
        });
        if (isThere) continue;
        const auto plugIn = makeEntryPlugIn(*bundle, agent_, siteWindowController_);
        if (!plugIn) {
            logLine(bundle->identifier() + ": the class " + bundle->principalClass() + " makes no plug-in");
            continue;
        }
        entryPlugIns_.push_back(plugIn);
        plugIn->didLoad();
    }
}

bool SiteDocument::isInList(const ZORPlugIn& plugIn) const {
    return std::ranges::find(siteWindowController_->plugIns(), &plugIn, &std::shared_ptr<ZORPlugIn>::get) !=
           siteWindowController_->plugIns().end();
}

}  // namespace zor
