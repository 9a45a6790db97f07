#pragma once

#include <QWidget>
#include <vector>

#include "qt/panel/SettingRow.h"

class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace zor {

/// An object and those of its settings that the panel shows together.
struct PanelSection {
    enum class Arrangement { list, pairs };

    QString title;
    std::weak_ptr<Object> object;
    /// Lives as long as the program.
    const SettingList* settings = nullptr;
    Arrangement arrangement = Arrangement::list;
};

/// The content of a property panel: an editor for every setting, and the way back to what there was.
class PropertyPanel final : public QWidget {
public:
    explicit PropertyPanel(std::function<void()> changeObserver);
    ~PropertyPanel() override;

    /// Other objects, whose present values become the ones that Revert restores. None makes an empty panel.
    void setSections(std::vector<PanelSection> sections, const PanelContext& context);
    /// The present values become the ones that Revert restores.
    void keepPresentValues();
    /// Shows what the objects have now, soon and once for many changes.
    void scheduleRefresh();
    void refresh();
    /// The height at which nothing has to be scrolled.
    int fullHeight() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        std::weak_ptr<Object> object;
        const Setting* setting;
        SettingRow* row;
        Value original;
    };

    void addSection(const PanelSection& section, const PanelContext& context, QVBoxLayout& column);
    SettingRow* addEntry(const std::weak_ptr<Object>& object, const Setting& setting, const PanelContext& context,
                         SettingRow::Arrangement arrangement);
    /// A field that still had the keyboard while it is destroyed would tell an editor that is gone.
    void leaveFields();
    bool differsFromOriginal() const;
    void revert();

    std::function<void()> changeObserver_;
    QScrollArea* scroller_;
    QPushButton* revert_;
    std::vector<Entry> entries_;
    bool refreshScheduled_ = false;
};

}  // namespace zor
