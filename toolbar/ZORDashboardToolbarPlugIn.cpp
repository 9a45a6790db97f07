#include "toolbar/ZORDashboardToolbarPlugIn.h"

#include "host/foundation/Bundle.h"
#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/station/PlugInDescription.h"
#include "host/station/ZORHelpManager.h"
#include "host/station/ZORKit.h"

namespace zor {

namespace {

ObjectPtr makeToolbarPlugIn(std::span<const Value> arguments) {
    auto argument = [&](std::size_t index) { return index < arguments.size() ? arguments[index] : Value(); };
    return ZORDashboardToolbarPlugIn::initWithAgent(argument(0).as<Agent>(), argument(1).as<SiteWindowController>());
}

}  // namespace

const ClassRecord& ZORDashboardToolbarPlugIn::staticClass() {
    using T = ZORDashboardToolbarPlugIn;
    static const ClassRecord& record =
        ClassBuilder<T>("ZORDashboardToolbarPlugIn", &ZORPlugIn::staticClass())
            .creatable()
            .initializer(makeToolbarPlugIn)
            .action("currentWeatherPlugIn", &T::currentWeatherPlugIn)
            .action("cleanSlatePlugIn", &T::cleanSlatePlugIn)
            .action("standardDashboardPlugIn", &T::standardDashboardPlugIn)
            .action("quadPlotsPlugIn", &T::quadPlotsPlugIn)
            .action("importDashboard:", &T::importDashboard)
            .action("relinkDashboardWidgetsToProperties:", &T::relinkDashboardWidgetsToProperties)
            .action("dashboardsArray", &T::dashboardsArray)
            .action("dashboardForRow:", &T::dashboardForRow)
            .action("toolbarItemAction:", &T::toolbarItemAction)
            .action("showDashboardSelectionWindow", &T::showDashboardSelectionWindow)
            .action("awakeFromNib", &T::awakeFromNib)
            .action("tableView:shouldSelectRow:", &T::tableViewShouldSelectRow)
            .action("importClicked:", &T::importClicked)
            .action("doneClicked:", &T::doneClicked)
            .action("continueClicked:", &T::continueClicked)
            .action("cancelClicked:", &T::cancelClicked)
            .action("backClicked:", &T::backClicked)
            .property("lastUsedTitle", &T::lastUsedTitle, &T::setLastUsedTitle)
            .property("configurationWindow", &T::configurationWindow, &T::setConfigurationWindow)
            .property("page1", &T::page1, &T::setPage1)
            .property("page2", &T::page2, &T::setPage2)
            .property("tableView", &T::tableView, &T::setTableView)
            .property("detailView", &T::detailView, &T::setDetailView)
            .property("descriptionView", &T::descriptionView, &T::setDescriptionView)
            .property("dashboardTitle", &T::dashboardTitle, &T::setDashboardTitle)
            .registered();
    return record;
}

void ZORDashboardToolbarPlugIn::initialize() {
    static std::once_flag once;
    std::call_once(once, [] {
        const auto bundle = Bundle::bundleForClass(staticClass());
        ZORKit::activateFont("LCDPHONE", bundle);
        ZORKit::activateFont("Crysta", bundle);
    });
}

std::shared_ptr<ZORDashboardToolbarPlugIn> ZORDashboardToolbarPlugIn::initWithAgent(
    const std::shared_ptr<Agent>& agent, const std::shared_ptr<SiteWindowController>& siteWindowController) {
    initialize();
    auto plugIn = std::make_shared<ZORDashboardToolbarPlugIn>();
    if (!plugIn->initWithAgentSiteWindowController(agent, siteWindowController)) return {};
    plugIn->lastUsedTitle_ = "Dashboard";
    plugIn->initCommon();
    return plugIn;
}

bool ZORDashboardToolbarPlugIn::initWithCoder(Decoder& decoder) {
    initialize();
    if (!ZORPlugIn::initWithCoder(decoder)) return false;
    lastUsedTitle_ = decoder.decodeString("lastUsedTitle");
    initCommon();
    return true;
}

void ZORDashboardToolbarPlugIn::encodeWithCoder(Encoder& encoder) {
    ZORPlugIn::encodeWithCoder(encoder);
    encoder.encodeValue("lastUsedTitle", ValueConversion<std::optional<std::string>>::to(lastUsedTitle_));
}

std::shared_ptr<ToolbarItem> ZORDashboardToolbarPlugIn::toolbarItem() {
    auto item = std::make_shared<ToolbarItem>(bundleIdentifier());
    item->setLabel(name());
    item->setImage(icon());
    item->setTarget(shared_from_this());
    item->setAction("toolbarItemAction:");
    return item;
}

std::string ZORDashboardToolbarPlugIn::textDescription() const {
    return "Dashboard provides custom screens that contain graphical elements such as labels, gauges, and images.";
}

std::string ZORDashboardToolbarPlugIn::htmlDescription() const {
    return "<table>" + htmlVersionRow(*this, "Dashboard Plug-In") + "</table>";
}

std::shared_ptr<Image> ZORDashboardToolbarPlugIn::icon() const { return imageResource(*this, "icon"); }

void ZORDashboardToolbarPlugIn::showHelp() { ZORHelpManager::sharedHelpManager().openHelpAnchor("dashboards"); }

}  // namespace zor
