#include "tests/support/FakeToolkit.h"

#include <algorithm>
#include <charconv>

#include "host/views/RecordingContext.h"

namespace zor {

namespace {

using ShownSheet = FakeToolkit::ShownSheet;

template <typename Answer>
Answer takeNext(std::deque<Answer>& queue, Answer otherwise) {
    if (queue.empty()) return otherwise;
    Answer next = std::move(queue.front());
    queue.pop_front();
    return next;
}

template <typename Panel>
class FakeFilePanel : public Panel {
public:
    FakeFilePanel(FakeToolkit& toolkit, std::string kind, std::deque<FakeToolkit::FileAnswer>& answers)
        : toolkit_(toolkit), answers_(answers) {
        sheet_->kind = std::move(kind);
    }

    void beginSheetModalForWindow(Window* window, std::function<void(PanelResponse)> completion) override {
        sheet_->window = window;
        sheet_->allowedTypes = this->allowedFileTypes;
        if constexpr (std::is_same_v<Panel, SavePanel>) sheet_->name = this->nameFieldStringValue;
        toolkit_.present(sheet_, [sheet = sheet_, &answers = answers_, completion = std::move(completion)] {
            const auto answer = takeNext(answers, {PanelResponse::cancel, {}});
            sheet->path = answer.response == PanelResponse::ok ? answer.path : "";
            completion(answer.response);
        });
    }

    std::string path() const override { return sheet_->path; }
    void orderOut() override { sheet_->orderedOut = true; }

private:
    FakeToolkit& toolkit_;
    std::deque<FakeToolkit::FileAnswer>& answers_;
    std::shared_ptr<ShownSheet> sheet_ = std::make_shared<ShownSheet>();
};

class FakeAlert : public Alert {
public:
    explicit FakeAlert(FakeToolkit& toolkit) : toolkit_(toolkit) {}

    void beginSheetModalForWindow(Window* window, std::function<void(int)> completion) override {
        auto sheet = std::make_shared<ShownSheet>();
        sheet->kind = "alert";
        sheet->window = window;
        sheet->message = messageText;
        sheet->informative = informativeText;
        sheet->buttons = buttons;
        const int last = alertFirstButtonReturn + std::max(0, static_cast<int>(buttons.size()) - 1);
        toolkit_.present(sheet, [&toolkit = toolkit_, last, completion = std::move(completion)] {
            completion(takeNext(toolkit.alertAnswers, last));
        });
    }

private:
    FakeToolkit& toolkit_;
};

std::size_t codePoints(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

constexpr std::string_view imageMark = "image ";

}  // namespace

FakeToolkit& FakeToolkit::install() {
    auto made = std::make_unique<FakeToolkit>();
    FakeToolkit& toolkit = *made;
    Toolkit::install(std::move(made));
    return toolkit;
}

void FakeToolkit::present(const std::shared_ptr<ShownSheet>& sheet, std::function<void()> answer) {
    sheets.push_back(sheet);
    if (holdAnswers) {
        held_.push_back(std::move(answer));
    } else {
        answer();
    }
}

void FakeToolkit::deliverAnswers() {
    for (const auto& answer : std::exchange(held_, {})) answer();
}

Bytes FakeToolkit::imageData(Size size) {
    const std::string text = std::string(imageMark) + shortestNumber(size.width) + " " + shortestNumber(size.height);
    return {text.begin(), text.end()};
}

Size FakeToolkit::sizeOfText(std::string_view text, const Font& font) {
    return {static_cast<double>(codePoints(text)) * font.size * (font.bold ? 0.6 : 0.5), 1.2 * font.size};
}

FontMetrics FakeToolkit::metricsOfFont(const Font& font) {
    return {0.95 * font.size, 0.25 * font.size, 0.7 * font.size};
}

Status FakeToolkit::activateFont(const std::filesystem::path& file) {
    activatedFonts.push_back(file);
    return fontStatus;
}

std::shared_ptr<const Bytes> FakeToolkit::picture(std::string_view kind, Size size, const Drawing& drawing) {
    pictures.push_back(size);
    if (failDrawing) return {};
    RecordingContext context;
    drawing(context);
    const std::string text = std::string(kind) + " " + shortestNumber(size.width) + " " + shortestNumber(size.height) +
                             "\n" + context.text();
    return std::make_shared<const Bytes>(text.begin(), text.end());
}

std::shared_ptr<const Bytes> FakeToolkit::pdfOfDrawing(Size size, const Drawing& drawing) {
    return picture("pdf", size, drawing);
}

std::shared_ptr<const Bytes> FakeToolkit::pngOfDrawing(Size size, const Drawing& drawing) {
    return picture("png", size, drawing);
}

Result<Size> FakeToolkit::sizeOfImageData(const Bytes& data) {
    const std::string text(data.begin(), data.end());
    if (!text.starts_with(imageMark)) return Error{"image data: no picture"};
    Size size;
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data() + imageMark.size(), end, size.width);
    const auto height = std::from_chars(std::min(width.ptr + 1, end), end, size.height);
    if (width.ec != std::errc{} || height.ec != std::errc{}) return Error{"image data: no size"};
    return size;
}

std::shared_ptr<WindowPeer> FakeToolkit::makeWindowPeer(Window&) {
    return peers.emplace_back(std::make_shared<FakeWindowPeer>());
}

std::shared_ptr<SavePanel> FakeToolkit::makeSavePanel() {
    return std::make_shared<FakeFilePanel<SavePanel>>(*this, "save", saveAnswers);
}

std::shared_ptr<OpenPanel> FakeToolkit::makeOpenPanel() {
    return std::make_shared<FakeFilePanel<OpenPanel>>(*this, "open", openAnswers);
}

std::shared_ptr<Alert> FakeToolkit::makeAlert() {
    return std::make_shared<FakeAlert>(*this);
}

void FakeToolkit::popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) {
    menus.push_back({menu, event, view});
}

void FakeToolkit::runPrintOperation(const PrintOperation& operation, Window* window) {
    printings.push_back({operation, window});
}

Result<ObjectPtr> FakeToolkit::loadInterface(const std::filesystem::path& file, const ObjectPtr& owner) {
    if (!interfaceLoader) return Error{"interface " + file.filename().string() + ": no loader"};
    return interfaceLoader(file, owner);
}

std::string textOf(const std::shared_ptr<const Bytes>& bytes) {
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

}  // namespace zor
