#pragma once

#include <string>
#include <string_view>

#include "host/instruments/ZORInstrumentView.h"

namespace zor {

/// A web page by its address. Pictures show the outline of a page with the address's host.
class ZORWebView : public ZORInstrumentView {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using ZORInstrumentView::ZORInstrumentView;

    std::string kind() const override { return "webView"; }
    const SettingList& settings() const override;

    std::string url() const { return url_; }
    void setURL(std::string url) { store(url_, std::move(url)); }

    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    std::string url_;
};

/// "example.org" of "https://user@example.org:8080/path"; an address without a scheme counts the same.
std::string_view hostOfURL(std::string_view url);

}  // namespace zor
