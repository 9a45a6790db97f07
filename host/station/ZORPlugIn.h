#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/foundation/Image.h"
#include "host/station/Agent.h"
#include "host/station/WebRequest.h"
#include "host/views/Menu.h"
#include "host/views/ToolbarItem.h"
#include "host/views/View.h"

namespace zor {

class Bundle;
class SiteWindowController;

/// Base of everything a plug-in bundle gives a Site Document.
class ZORPlugIn : public Responder {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    ZORPlugIn() = default;
    ~ZORPlugIn() override;

    std::shared_ptr<Agent> agent() const { return agent_; }
    std::shared_ptr<SiteWindowController> siteWindowController() const { return siteWindowController_.lock(); }
    std::optional<std::string> title() const { return title_; }
    void setTitle(std::optional<std::string> title);
    /// New in every copy, kept by the archive, without dots and slashes.
    std::string uniqueIdentifier() const { return uniqueIdentifier_; }
    /// Of the bundle that holds the object's class; empty and 0 for a class of the host's own.
    std::string bundleIdentifier() const;
    std::int64_t bundleVersion() const;
    std::shared_ptr<Bundle> bundle() const;

    /// Made with the rest of the interface and awakened at the first call.
    std::shared_ptr<View> view();
    bool isViewLoaded() const { return view_ != nullptr; }
    /// A file of the type "ui" among the bundle's resources whose objects become the plug-in's outlets and live as long
    /// as it does; empty for none. A file that is missing leaves the outlets empty.
    virtual std::string interfaceName() const { return {}; }
    /// Called once, when the interface has been loaded and the view made.
    virtual void awakeFromNib() {}

    virtual void didLoad() {}
    virtual void willUnload() {}
    virtual void viewWillAppear() {}
    virtual void viewWillDisappear() {}

    virtual std::string name() const { return {}; }
    virtual std::string textDescription() const { return {}; }
    virtual std::string htmlDescription() const { return {}; }
    virtual std::optional<std::string> xmlDescription() const { return {}; }
    virtual std::optional<std::string> jsonDescription() const { return {}; }
    virtual std::shared_ptr<Image> icon() const { return {}; }
    virtual Value group() const { return {}; }
    virtual bool isRenamable() const { return false; }
    virtual bool isDeletable() const { return false; }
    virtual void showHelp() {}
    virtual std::shared_ptr<ToolbarItem> toolbarItem() { return {}; }
    /// For the plug-in's entry in the site window's list; may be absent.
    virtual std::shared_ptr<Menu> menu() { return {}; }
    virtual void duplicatePlugIn(const ObjectPtr& /*sender*/) {}

    /// Any thread.
    virtual std::string webServiceAdvertisementForBaseURL(const std::string& /*baseURL*/) { return {}; }
    /// Worker threads only; absent where the path is none of the plug-in's.
    virtual std::shared_ptr<DataResponse> webServiceResponseForRequest(const WebRequest& /*request*/) { return {}; }

    bool acceptsFirstResponder() const override { return true; }
    /// What lies around the plug-in's view, then the window.
    Responder* nextResponder() const override;

    /// A plug-in of the same class for the same agent and site window controller, with an identifier of its own.
    ObjectPtr copy() override { return copyWithZone(); }
    virtual std::shared_ptr<ZORPlugIn> copyWithZone();

    /// Writes the agent and the identifier; the title is the business of the classes that have one.
    void encodeWithCoder(Encoder& encoder) override;
    /// Agent and site window controller come from the decoder's context "agent" and "siteWindowController" where given.
    bool initWithCoder(Decoder& decoder) override;

protected:
    bool initWithAgentSiteWindowController(const std::shared_ptr<Agent>& agent,
                                           const std::shared_ptr<SiteWindowController>& siteWindowController);

private:
    void loadInterface();

    std::shared_ptr<Agent> agent_;
    std::weak_ptr<SiteWindowController> siteWindowController_;
    std::optional<std::string> title_;
    std::string uniqueIdentifier_;
    std::shared_ptr<View> view_;
    ObjectPtr interface_;
};

}  // namespace zor
