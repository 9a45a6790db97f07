#pragma once
// Controls of windows and forms: what they mean and how they look.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/foundation/Color.h"
#include "host/foundation/Font.h"
#include "host/views/DrawingContext.h"
#include "host/views/View.h"

namespace zor {

/// What a control does when it is used: an action of an object that it does not own, with the control as the sender.
struct ControlAction {
    std::weak_ptr<Object> target;
    std::string name;

    /// Nothing where the target is gone or declares no such action.
    void perform(const ObjectPtr& sender) const;
};

/// Text that the person cannot edit.
class TextField : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    std::string stringValue() const { return text_; }
    void setStringValue(std::string text);
    const Font& font() const { return font_; }
    void setFont(Font font);
    Color textColor() const { return textColor_; }
    void setTextColor(Color color);
    /// Behind the text; white at first.
    Color backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(Color color);
    TextAlignment alignment() const { return alignment_; }
    void setAlignment(TextAlignment alignment);
    /// From the top down, with lines broken to the width; otherwise one line in the middle of the height.
    bool wraps() const { return wraps_; }
    void setWraps(bool wraps);
    void drawRect(DrawingContext& context, const Rect& dirty) override;

protected:
    /// The text alone, in another colour than its own.
    void drawString(DrawingContext& context, Color color) const;

private:
    std::string text_;
    Font font_{.size = 13};
    Color textColor_ = Color::black();
    Color backgroundColor_ = Color::white();
    TextAlignment alignment_ = TextAlignment::left;
    bool wraps_ = false;
};

/// A push button. It acts when the press is released inside it, by its key, or by the space bar while it has the
/// keyboard.
class Button : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    std::string title() const { return title_; }
    void setTitle(std::string title);
    void setAction(ControlAction action) { action_ = std::move(action); }
    /// The characters that click it from anywhere in its window, unless what has the keyboard takes them; may be empty.
    const std::u16string& keyEquivalent() const { return keyEquivalent_; }
    void setKeyEquivalent(std::u16string characters);
    void click() { action_.perform(shared_from_this()); }

    bool acceptsFirstResponder() const override { return true; }
    void keyDown(const EventPtr& event) override;
    void mouseDown(const EventPtr& event) override;
    void mouseDragged(const EventPtr& event) override;
    void mouseUp(const EventPtr& event) override;
    void drawRect(DrawingContext& context, const Rect& dirty) override;

    static constexpr std::u16string_view returnKey = u"\r";
    static constexpr std::u16string_view escapeKey = u"\x1b";

private:
    void setPressed(const EventPtr& event);

    std::string title_;
    ControlAction action_;
    std::u16string keyEquivalent_;
    bool pressed_ = false;
};

/// A list with one column. Its delegate is asked by "tableView:shouldSelectRow:".
class TableView : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    const std::vector<std::string>& rows() const { return rows_; }
    void setRows(std::vector<std::string> rows);
    ObjectPtr delegate() const { return delegate_.lock(); }
    void setDelegate(const ObjectPtr& delegate) { delegate_ = delegate; }
    /// The first selected row, -1 for none.
    std::int64_t selectedRow() const { return selectedRow_; }
    /// Replaces the selection without asking the delegate; a row outside the list selects none.
    void selectRow(std::int64_t row);
    /// As a click does: asks the delegate, selects unless it forbids. False where it does not or the row is not there.
    bool clickRow(std::int64_t row);
    /// Told after rows or selection were set.
    void setObserver(std::function<void()> observer) { observer_ = std::move(observer); }
    /// Told after rows or selection were set, with the list as the sender.
    void addSelectionAction(ControlAction action) { selectionActions_.push_back(std::move(action)); }
    /// What the second click on a row does.
    void setDoubleAction(ControlAction action) { doubleAction_ = std::move(action); }

    /// Own coordinates.
    virtual Rect rectOfRow(std::int64_t row) const;
    bool acceptsFirstResponder() const override { return true; }
    /// Takes the keyboard of a window in which nobody has it.
    void viewDidMoveToWindow() override;
    /// Takes the keyboard.
    void mouseDown(const EventPtr& event) override;
    /// The arrows move the selection; other keys are passed on.
    void keyDown(const EventPtr& event) override;
    void drawRect(DrawingContext& context, const Rect& dirty) override;

protected:
    /// What stands in a row, on the ground of the list or of its selection; the row's title.
    virtual void drawRow(DrawingContext& context, std::int64_t row, const Rect& place, Color color);

private:
    bool hasRow(std::int64_t row) const;
    void changed();

    std::vector<std::string> rows_;
    std::weak_ptr<Object> delegate_;
    std::int64_t selectedRow_ = -1;
    std::function<void()> observer_;
    std::vector<ControlAction> selectionActions_;
    ControlAction doubleAction_;
};

}  // namespace zor
