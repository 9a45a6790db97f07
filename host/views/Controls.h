#pragma once
// Controls that a toolkit shows natively over their views; here is what they mean.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/views/View.h"

namespace zor {

/// One line of text that the person cannot edit.
class TextField : public View {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }
    using View::View;

    std::string stringValue() const { return text_; }
    void setStringValue(std::string text);
    void drawRect(DrawingContext& context, const Rect& dirty) override;

private:
    std::string text_;
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

private:
    bool hasRow(std::int64_t row) const;
    void changed();

    std::vector<std::string> rows_;
    std::weak_ptr<Object> delegate_;
    std::int64_t selectedRow_ = -1;
    std::function<void()> observer_;
};

}  // namespace zor
