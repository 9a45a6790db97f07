#include "app/drive/DriveToolkit.h"

#include "host/views/Printing.h"

namespace zor {

namespace {

class PrivatePasteboard : public Pasteboard {
public:
    void clearContents() override { contents_.clear(); }
    void setDataForType(Bytes data, std::string_view type) override { contents_[std::string(type)] = std::move(data); }
    Bytes dataForType(std::string_view type) const override {
        const auto found = contents_.find(type);
        return found == contents_.end() ? Bytes{} : found->second;
    }
    std::vector<std::string> types() const override {
        std::vector<std::string> all;
        for (const auto& [type, data] : contents_) all.push_back(type);
        return all;
    }

private:
    std::map<std::string, Bytes, std::less<>> contents_;
};

/// A save or open panel, which differ only in what they show.
template <typename Panel>
class DriveFilePanel : public Panel {
public:
    DriveFilePanel(DriveToolkit& toolkit, const char* kind) : toolkit_(toolkit), kind_(kind) {}

    void beginSheetModalForWindow(Window*, std::function<void(PanelResponse)> completion) override {
        Json description{{"kind", kind_}};
        if constexpr (std::is_base_of_v<SavePanel, Panel>) description["name"] = this->nameFieldStringValue;
        description["allowedTypes"] = this->allowedFileTypes;
        toolkit_.showSheet(std::move(description), [this, completion = std::move(completion)](const auto& answer) {
            path_ = answer.ok ? answer.path : std::string();
            completion(answer.ok ? PanelResponse::ok : PanelResponse::cancel);
        });
    }
    std::string path() const override { return path_; }
    void orderOut() override {}

private:
    DriveToolkit& toolkit_;
    const char* kind_;
    std::string path_;
};

class DriveAlert : public Alert {
public:
    explicit DriveAlert(DriveToolkit& toolkit) : toolkit_(toolkit) {}

    void beginSheetModalForWindow(Window*, std::function<void(int)> completion) override {
        toolkit_.showSheet({{"kind", "alert"},
                            {"message", messageText},
                            {"informative", informativeText},
                            {"buttons", buttons}},
                           [completion = std::move(completion)](const auto& answer) {
                               completion(answer.ok ? alertFirstButtonReturn : 0);
                           });
    }

private:
    DriveToolkit& toolkit_;
};

/// Keeps a panel alive until its sheet has ended, whatever its caller does.
template <typename Panel, typename... Arguments>
std::shared_ptr<Panel> makePanel(Arguments&&... arguments) {
    return std::make_shared<Panel>(std::forward<Arguments>(arguments)...);
}

}  // namespace

DriveToolkit::DriveToolkit() : pasteboard_(std::make_unique<PrivatePasteboard>()) {}

std::shared_ptr<SavePanel> DriveToolkit::makeSavePanel() {
    return makePanel<DriveFilePanel<SavePanel>>(*this, "save");
}

std::shared_ptr<OpenPanel> DriveToolkit::makeOpenPanel() {
    return makePanel<DriveFilePanel<OpenPanel>>(*this, "open");
}

std::shared_ptr<Alert> DriveToolkit::makeAlert() { return makePanel<DriveAlert>(*this); }

void DriveToolkit::showSheet(Json description, std::function<void(const Answer&)> end) {
    const auto kind = description["kind"].get<std::string>();
    sheets_.push_back(std::move(description));
    waiting_.push_back([this, kind, end = std::move(end)] { end(takeAnswer(kind)); });
}

DriveToolkit::Answer DriveToolkit::takeAnswer(const std::string& kind) {
    auto& queue = answers_[kind];
    if (queue.empty()) return {};
    Answer answer = std::move(queue.front());
    queue.pop_front();
    return answer;
}

void DriveToolkit::endSheets() {
    while (!waiting_.empty()) {
        const auto end = std::move(waiting_.front());
        waiting_.pop_front();
        end();
    }
}

void DriveToolkit::popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr&, View*) {
    lastMenu_ = menu;
    menu_ = jsonFrom(*menu);
}

void DriveToolkit::runPrintOperation(const PrintOperation&, Window*) { sheets_.push_back({{"kind", "print"}}); }

Json DriveToolkit::takeMenu() { return std::exchange(menu_, Json()); }

Json DriveToolkit::takeSheets() { return std::exchange(sheets_, Json::array()); }

Json jsonFrom(const Menu& menu) {
    Json items = Json::array();
    for (const auto& item : menu.items()) {
        if (item.isSeparator) {
            items.push_back({{"separator", true}});
        } else {
            items.push_back({{"title", item.title}, {"action", item.action}});
        }
    }
    return {{"title", menu.title()}, {"items", std::move(items)}};
}

}  // namespace zor
