#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/views/Menu.h"
#include "host/views/Printing.h"
#include "host/views/Toolkit.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeWindowPeer.h"

namespace zor {

/// A toolkit without a screen: everything that it is asked to show is kept for the test to look at.
class FakeToolkit : public Toolkit {
public:
    /// A fresh one, installed as the current toolkit until the next.
    static FakeToolkit& install();

    /// What a sheet showed, in the order of their beginning.
    struct ShownSheet {
        /// "save", "open" or "alert".
        std::string kind;
        Window* window = nullptr;
        /// The save panel's suggested name.
        std::string name;
        std::vector<std::string> allowedTypes;
        std::string message;
        std::string informative;
        std::vector<std::string> buttons;
        /// The file answered.
        std::string path;
        bool orderedOut = false;
    };
    struct FileAnswer {
        PanelResponse response = PanelResponse::ok;
        std::string path = {};
    };
    struct ShownMenu {
        std::shared_ptr<Menu> menu;
        EventPtr event;
        View* view = nullptr;
    };
    struct Printing {
        PrintOperation operation;
        Window* window = nullptr;
    };

    std::vector<std::shared_ptr<ShownSheet>> sheets;
    /// The answers to the next sheets of each kind; a file sheet without one is cancelled, an alert without one gives
    /// the code of its last button.
    std::deque<FileAnswer> saveAnswers;
    std::deque<FileAnswer> openAnswers;
    std::deque<int> alertAnswers;
    /// Keeps answers back until deliverAnswers(), as a person would; otherwise they come within the beginning.
    bool holdAnswers = false;
    /// Answers the sheets that wait now, in order, with what is queued by then.
    void deliverAnswers();
    /// For the panels: notes the sheet and has it answered.
    void present(const std::shared_ptr<ShownSheet>& sheet, std::function<void()> answer);

    std::vector<ShownMenu> menus;
    std::vector<Printing> printings;
    std::vector<std::string> helpAnchors;
    /// The font files activated, in order, each time anew; `fontStatus` is what activateFont answers.
    std::vector<std::filesystem::path> activatedFonts;
    Status fontStatus = success();
    /// The peers made, in order.
    std::vector<std::shared_ptr<FakeWindowPeer>> peers;
    FakePasteboard pasteboard;
    Point mouse;
    /// Pictures fail while it is set.
    bool failDrawing = false;
    /// The size of every picture asked for, in order.
    std::vector<Size> pictures;
    /// Answers loadInterface; without one, it fails.
    std::function<Result<ObjectPtr>(const std::filesystem::path&, const ObjectPtr&)> interfaceLoader;

    /// Picture data that sizeOfImageData reads.
    static Bytes imageData(Size size);

    /// Half the font's size for each code point wide (bold: six tenths), 1.2 times its size high.
    Size sizeOfText(std::string_view text, const Font& font) override;
    /// 0.95, 0.25 and 0.7 times the font's size.
    FontMetrics metricsOfFont(const Font& font) override;
    Status activateFont(const std::filesystem::path& file) override;
    /// "pdf WIDTH HEIGHT" or "png WIDTH HEIGHT" and one line for each operation, as RecordingContext writes them.
    std::shared_ptr<const Bytes> pdfOfDrawing(Size size, const Drawing& drawing) override;
    std::shared_ptr<const Bytes> pngOfDrawing(Size size, const Drawing& drawing) override;
    Result<Size> sizeOfImageData(const Bytes& data) override;
    std::shared_ptr<WindowPeer> makeWindowPeer(Window& window) override;
    std::shared_ptr<SavePanel> makeSavePanel() override;
    std::shared_ptr<OpenPanel> makeOpenPanel() override;
    std::shared_ptr<Alert> makeAlert() override;
    Pasteboard& generalPasteboard() override { return pasteboard; }
    void popUpContextMenu(const std::shared_ptr<Menu>& menu, const EventPtr& event, View* view) override;
    void runPrintOperation(const PrintOperation& operation, Window* window) override;
    Point mouseLocation() override { return mouse; }
    void openHelp(std::string_view anchor) override { helpAnchors.emplace_back(anchor); }
    Result<ObjectPtr> loadInterface(const std::filesystem::path& file, const ObjectPtr& owner) override;

private:
    std::shared_ptr<const Bytes> picture(std::string_view kind, Size size, const Drawing& drawing);

    std::deque<std::function<void()>> held_;
};

/// Bytes as text, for what the fake writes as a picture.
std::string textOf(const std::shared_ptr<const Bytes>& bytes);

}  // namespace zor
