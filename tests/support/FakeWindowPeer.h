#pragma once

#include <string>
#include <vector>

#include "host/views/Window.h"

namespace zor {

/// Notes what its window asks of it.
class FakeWindowPeer : public WindowPeer {
public:
    /// "show", "hide", "title", "frame", "content", "beginSheet TITLE", "endSheet TITLE", in order.
    std::vector<std::string> calls;
    /// Window coordinates, in order.
    std::vector<Rect> damage;

    void show() override { calls.emplace_back("show"); }
    void hide() override { calls.emplace_back("hide"); }
    void titleChanged() override { calls.emplace_back("title"); }
    void frameChanged() override { calls.emplace_back("frame"); }
    void contentChanged() override { calls.emplace_back("content"); }
    void needsDisplay(const Rect& rect) override { damage.push_back(rect); }
    void beginSheet(Window& sheet) override { calls.push_back("beginSheet " + sheet.title()); }
    void endSheet(Window& sheet) override { calls.push_back("endSheet " + sheet.title()); }
};

}  // namespace zor
