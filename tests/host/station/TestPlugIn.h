#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/foundation/ClassBuilder.h"
#include "host/foundation/Coder.h"
#include "host/station/SiteWindowController.h"

namespace zor {

/// Notes the host's calls, as "Weather: didLoad" in the order of all plug-ins' calls.
class TestPlugIn : public ZORPlugIn {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<TestPlugIn>("TestPlugIn", &ZORPlugIn::staticClass())
                .creatable()
                .initializer([](std::span<const Value> arguments) -> ObjectPtr {
                    return make(arguments[0].as<Agent>(), arguments[1].as<SiteWindowController>());
                })
                .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    static std::shared_ptr<TestPlugIn> make(const std::shared_ptr<Agent>& agent,
                                            const std::shared_ptr<SiteWindowController>& controller,
                                            std::optional<std::string> title = {}) {
        auto plugIn = std::make_shared<TestPlugIn>();
        plugIn->initWithAgentSiteWindowController(agent, controller);
        plugIn->setTitle(std::move(title));
        return plugIn;
    }

    ~TestPlugIn() override {
        if (onDeath) onDeath();
    }

    void awakeFromNib() override { note("awakeFromNib"); }
    void didLoad() override { note("didLoad"); }
    void willUnload() override { note("willUnload"); }
    void viewWillAppear() override { note("viewWillAppear"); }
    void viewWillDisappear() override { note("viewWillDisappear"); }

    std::string name() const override { return "Test"; }
    Value group() const override { return 0; }
    bool isRenamable() const override { return true; }
    std::shared_ptr<Menu> menu() override { return std::make_shared<Menu>("Test Menu"); }
    void duplicatePlugIn(const ObjectPtr&) override { note("duplicatePlugIn:"); }

    std::shared_ptr<ZORPlugIn> copyWithZone() override {
        auto copy = ZORPlugIn::copyWithZone();
        if (copy) copy->setTitle(title());
        return copy;
    }
    void encodeWithCoder(Encoder& encoder) override {
        ZORPlugIn::encodeWithCoder(encoder);
        encoder.encodeValue("title", title() ? Value(*title()) : Value());
    }
    bool initWithCoder(Decoder& decoder) override {
        if (!ZORPlugIn::initWithCoder(decoder)) return false;
        setTitle(decoder.decodeString("title"));
        return true;
    }

    static std::vector<std::string>& calls() {
        static std::vector<std::string> list;
        return list;
    }
    /// What was noted since the last asking.
    static std::vector<std::string> takeCalls() { return std::exchange(calls(), {}); }

    std::function<void()> onDeath;

private:
    void note(const std::string& call) { calls().push_back(title().value_or("-") + ": " + call); }
};

}  // namespace zor
