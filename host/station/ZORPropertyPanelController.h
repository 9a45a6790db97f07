#pragma once

#include <functional>
#include <memory>

#include "host/station/Agent.h"
#include "host/station/PropertyPanelPeer.h"
#include "host/station/Settings.h"
#include "host/views/Window.h"

namespace zor {

/// The floating window in which the settings of one object are edited. The entries themselves are the toolkit's: its
/// peer, asked for at the first showing, fills them anew whenever `reload` tells the observer.
class ZORPropertyPanelController : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    static std::shared_ptr<ZORPropertyPanelController> initWithAgent(const std::shared_ptr<Agent>& agent,
                                                                     const ObjectPtr& targetObject,
                                                                     const SettingList* properties);

    std::shared_ptr<Agent> agent() const { return agent_; }
    /// May be absent: an empty panel.
    ObjectPtr targetObject() const { return targetObject_; }
    void setTargetObject(const ObjectPtr& target) { targetObject_ = target; }
    /// Lists live as long as the program.
    const SettingList* properties() const { return properties_; }
    void setProperties(const SettingList* properties) { properties_ = properties; }
    void reload();
    const std::shared_ptr<Window>& window() const { return window_; }
    bool isVisible() const;
    void showWindow();
    void close();
    void setObserver(std::function<void()> observer) { observer_ = std::move(observer); }
    /// From the toolkit, after the person has changed the target: its document is to be saved.
    void noteChange();

private:
    std::shared_ptr<Agent> agent_;
    ObjectPtr targetObject_;
    const SettingList* properties_ = nullptr;
    std::shared_ptr<Window> window_;
    std::function<void()> observer_;
    std::shared_ptr<PropertyPanelPeer> peer_;
};

}  // namespace zor
