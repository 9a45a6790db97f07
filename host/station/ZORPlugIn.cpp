#include "host/station/ZORPlugIn.h"

#include <random>
#include <utility>

#include "host/foundation/Bundle.h"
#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/foundation/Log.h"
#include "host/station/SiteWindowController.h"
#include "host/views/Toolkit.h"
#include "host/views/Window.h"

namespace zor {

namespace {

constexpr Rect initialViewFrame = {0, 0, 500, 500};

/// 128 random bits as 32 digits, so that they can stand in a URL's last path component.
std::string newIdentifier() {
    constexpr std::string_view digits = "0123456789abcdef";
    std::random_device source;
    std::uniform_int_distribution<std::size_t> digit(0, digits.size() - 1);
    std::string identifier(32, '0');
    for (auto& character : identifier) character = digits[digit(source)];
    return identifier;
}

bool isUsableIdentifier(const std::string& identifier) {
    return !identifier.empty() && identifier.find_first_of("./") == std::string::npos;
}

}  // namespace

const ClassRecord& ZORPlugIn::staticClass() {
    static const ClassRecord& record = ClassBuilder<ZORPlugIn>("ZORPlugIn", &Responder::staticClass())
                                           .property("title", &ZORPlugIn::title, &ZORPlugIn::setTitle)
                                           .property("uniqueIdentifier", &ZORPlugIn::uniqueIdentifier)
                                           .property("agent", &ZORPlugIn::agent)
                                           .property("siteWindowController", &ZORPlugIn::siteWindowController)
                                           .property("bundleIdentifier", &ZORPlugIn::bundleIdentifier)
                                           .property("bundleVersion", &ZORPlugIn::bundleVersion)
                                           .property("name", &ZORPlugIn::name)
                                           .property("textDescription", &ZORPlugIn::textDescription)
                                           .property("htmlDescription", &ZORPlugIn::htmlDescription)
                                           .property("xmlDescription", &ZORPlugIn::xmlDescription)
                                           .property("jsonDescription", &ZORPlugIn::jsonDescription)
                                           .property("icon", &ZORPlugIn::icon)
                                           .property("group", &ZORPlugIn::group)
                                           .property("isRenamable", &ZORPlugIn::isRenamable)
                                           .property("isDeletable", &ZORPlugIn::isDeletable)
                                           .action("showHelp", &ZORPlugIn::showHelp)
                                           .action("toolbarItem", &ZORPlugIn::toolbarItem)
                                           .action("menu", &ZORPlugIn::menu)
                                           .action("duplicatePlugIn:", &ZORPlugIn::duplicatePlugIn)
                                           .registered();
    return record;
}

ZORPlugIn::~ZORPlugIn() = default;

void ZORPlugIn::setTitle(std::optional<std::string> title) {
    if (title == title_) return;
    title_ = std::move(title);
    ask(siteWindowController(), [this](SiteWindowController& controller) { controller.titleChanged(*this); });
}

std::string ZORPlugIn::bundleIdentifier() const {
    return ask(bundle(), [](const Bundle& bundle) { return bundle.identifier(); });
}

std::int64_t ZORPlugIn::bundleVersion() const {
    return ask(bundle(), [](const Bundle& bundle) { return bundle.version(); });
}

std::shared_ptr<Bundle> ZORPlugIn::bundle() const {
    return Bundle::bundleForClass(classRecord());
}

std::shared_ptr<View> ZORPlugIn::view() {
    if (!view_) {
        view_ = std::make_shared<View>(initialViewFrame);
        view_->setNextResponder(sharedAs<ZORPlugIn>());
        loadInterface();
        awakeFromNib();
    }
    return view_;
}

void ZORPlugIn::loadInterface() {
    const std::string name = interfaceName();
    const auto resources = name.empty() ? nullptr : bundle();
    const auto file = ask(resources, [&](const Bundle& files) { return files.pathForResource(name, "ui"); });
    if (!file) return;
    auto loaded = Toolkit::current().loadInterface(*file, shared_from_this());
    if (loaded) {
        interface_ = std::move(*loaded);
    } else {
        logLine(loaded.error().message);
    }
}

Responder* ZORPlugIn::nextResponder() const {
    if (!view_) return nullptr;
    if (auto* around = view_->superview()) return around;
    return view_->window();
}

std::shared_ptr<ZORPlugIn> ZORPlugIn::copyWithZone() {
    auto copy = std::dynamic_pointer_cast<ZORPlugIn>(classRecord().create());
    if (!copy || !copy->initWithAgentSiteWindowController(agent_, siteWindowController())) return {};
    return copy;
}

void ZORPlugIn::encodeWithCoder(Encoder& encoder) {
    Responder::encodeWithCoder(encoder);
    encoder.encodeValue("agent", agent_);
    encoder.encodeValue("uniqueIdentifier", uniqueIdentifier_);
}

bool ZORPlugIn::initWithCoder(Decoder& decoder) {
    if (!Responder::initWithCoder(decoder)) return false;
    auto agent = std::dynamic_pointer_cast<Agent>(decoder.context("agent"));
    if (!agent) agent = decoder.decodeObject<Agent>("agent");
    const auto controller = std::dynamic_pointer_cast<SiteWindowController>(decoder.context("siteWindowController"));
    if (!initWithAgentSiteWindowController(agent, controller)) return false;
    auto identifier = decoder.decodeString("uniqueIdentifier").value_or("");
    if (isUsableIdentifier(identifier)) uniqueIdentifier_ = std::move(identifier);
    return true;
}

bool ZORPlugIn::initWithAgentSiteWindowController(const std::shared_ptr<Agent>& agent,
                                                  const std::shared_ptr<SiteWindowController>& siteWindowController) {
    agent_ = agent;
    siteWindowController_ = siteWindowController;
    uniqueIdentifier_ = newIdentifier();
    return true;
}

}  // namespace zor
