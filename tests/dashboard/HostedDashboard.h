#pragma once

#include "host/foundation/NotificationCenter.h"
#include "tests/dashboard/DashboardSupport.h"

namespace zor::test {

/// What lies around a plug-in's view, with the events that the plug-in passed on.
class Surroundings : public View {
public:
    using View::View;
    void mouseDown(const EventPtr&) override { heard.emplace_back("press"); }
    void mouseDragged(const EventPtr&) override { heard.emplace_back("drag"); }
    void mouseUp(const EventPtr&) override { heard.emplace_back("release"); }
    void rightMouseDown(const EventPtr&) override { heard.emplace_back("right press"); }
    void keyDown(const EventPtr&) override { heard.emplace_back("key"); }

    std::vector<std::string> heard;
};

/// A dashboard shown in a window, with a person's gestures. Points are canvas coordinates.
class HostedDashboard : public ::testing::Test {
protected:
    /// Fills a window of 900 by 700.
    void host(WidgetList widgets, Size size = {800, 600}) {
        dashboard = ZORDashboardPlugIn::initWithAgent(agent, controller, std::move(widgets), size);
        window->setContentView(surroundings);
        surroundings->addSubview(dashboard->view());
        dashboard->view()->setFrame({0, 0, 900, 700});
        canvas = dashboard->editView();
    }
    void hostForEditing(WidgetList widgets, Size size = {800, 600}) {
        host(std::move(widgets), size);
        dashboard->editDashboard({});
    }

    std::shared_ptr<ScrollView> scrollView() const {
        return std::dynamic_pointer_cast<ScrollView>(dashboard->view()->subviews().at(0));
    }
    std::shared_ptr<ZORWidgetHostView> container() const {
        return std::dynamic_pointer_cast<ZORWidgetHostView>(scrollView()->documentView());
    }

    EventPtr mouse(EventType type, Point onCanvas, std::uint32_t flags = 0, int clicks = 1) const {
        return Event::mouse(type, canvas->convertPointToView(onCanvas, nullptr), flags, clicks);
    }
    void press(Point at, std::uint32_t flags = 0, int clicks = 1) {
        window->sendEvent(mouse(EventType::mouseDown, at, flags, clicks));
    }
    void drag(Point to, std::uint32_t flags = 0) { window->sendEvent(mouse(EventType::mouseDragged, to, flags)); }
    void release(Point at, std::uint32_t flags = 0, int clicks = 1) {
        window->sendEvent(mouse(EventType::mouseUp, at, flags, clicks));
    }
    void click(Point at, std::uint32_t flags = 0) {
        press(at, flags);
        release(at, flags);
    }
    void doubleClick(Point at) {
        click(at);
        press(at, 0, 2);
        release(at, 0, 2);
    }
    void rightPress(Point at, std::uint32_t flags = 0) {
        window->sendEvent(mouse(EventType::rightMouseDown, at, flags));
    }
    void key(std::u16string characters, int code = 0, std::uint32_t flags = 0) {
        window->sendEvent(Event::key(std::move(characters), code, flags));
    }
    /// The context menu shown last.
    std::shared_ptr<Menu> menu() const { return toolkit.menus.empty() ? nullptr : toolkit.menus.back().menu; }
    /// Its titles, a dash for a separator.
    std::vector<std::string> menuTitles() const {
        std::vector<std::string> titles;
        if (!menu()) return titles;
        for (const auto& item : menu()->items()) titles.push_back(item.isSeparator ? "-" : item.title);
        return titles;
    }
    const WidgetList& selection() const { return dashboard->selectedObjects(); }
    std::string coordinates() const { return dashboard->mouseCoordinateView()->stringValue(); }
    std::int64_t undoSteps() const { return dashboard->undoManager()->depth(); }

    FakeToolkit& toolkit = FakeToolkit::install();
    std::shared_ptr<Agent> agent = Agent::withName("A");
    std::shared_ptr<SiteWindowController> controller = std::make_shared<SiteWindowController>();
    std::shared_ptr<Window> window = std::make_shared<Window>();
    std::shared_ptr<Surroundings> surroundings = std::make_shared<Surroundings>(Rect{0, 0, 900, 700});
    std::shared_ptr<ZORDashboardPlugIn> dashboard;
    std::shared_ptr<ZORDashboardEditView> canvas;
};

}  // namespace zor::test
