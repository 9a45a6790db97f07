#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/foundation/ClassBuilder.h"
#include "host/views/DrawingContext.h"
#include "host/views/View.h"

namespace zor {

/// A view that notes under its name what reaches it.
class ProbeView : public View {
public:
    using Notes = std::vector<std::string>;

    ProbeView(std::string title, const Rect& frame, Notes& notes)
        : View(frame), name(std::move(title)), notes_(notes) {}

    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<ProbeView>("ProbeView", &View::staticClass()).action("probe:", &ProbeView::probe).registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return performs ? staticClass() : View::staticClass(); }

    std::string name;
    bool clips = true;
    bool takesEvents = true;
    bool acceptsKeys = true;
    /// Whether it declares "probe:".
    bool performs = true;
    /// Runs while an event is handled.
    std::function<void()> whileHandling;

    bool clipsToBounds() const override { return clips; }
    bool acceptsFirstResponder() const override { return acceptsKeys; }
    void viewDidMoveToWindow() override { note(window() ? "enters window" : "leaves window"); }
    void viewDidMoveToSuperview() override { note(superview() ? "has parent" : "has no parent"); }
    void drawRect(DrawingContext& context, const Rect& dirty) override {
        context.drawText(name, dirty, Font{}, Color::black());
    }
    void drawOverlay(DrawingContext& context, const Rect& dirty) override {
        context.drawText(name + " overlay", dirty, Font{}, Color::black());
    }

    void mouseDown(const EventPtr& event) override {
        if (passesOn("mouseDown")) View::mouseDown(event);
    }
    void mouseDragged(const EventPtr& event) override {
        if (passesOn("mouseDragged")) View::mouseDragged(event);
    }
    void mouseUp(const EventPtr& event) override {
        if (passesOn("mouseUp")) View::mouseUp(event);
    }
    void rightMouseDown(const EventPtr& event) override {
        if (passesOn("rightMouseDown")) View::rightMouseDown(event);
    }
    void keyDown(const EventPtr& event) override {
        if (passesOn("keyDown")) View::keyDown(event);
    }
    void scrollWheel(const EventPtr& event) override {
        if (passesOn("scrollWheel")) View::scrollWheel(event);
    }
    void probe(const ObjectPtr& sender) { note(sender ? "probe with sender" : "probe"); }

private:
    void note(const std::string& what) { notes_.push_back(name + " " + what); }
    bool passesOn(const std::string& what) {
        note(what);
        if (whileHandling) whileHandling();
        return !takesEvents;
    }

    Notes& notes_;
};

inline std::shared_ptr<ProbeView> makeProbe(std::string name, const Rect& frame, ProbeView::Notes& notes) {
    return std::make_shared<ProbeView>(std::move(name), frame, notes);
}

}  // namespace zor
