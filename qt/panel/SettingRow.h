#pragma once

#include <QWidget>

#include "qt/panel/SettingEditor.h"

class QLabel;

namespace zor {

/// One entry of the panel: what it is called, its editor and, while input is refused, why.
class SettingRow final : public QWidget {
public:
    enum class Arrangement { labelBeside, labelAbove };

    SettingRow(const Setting& setting, const PanelContext& context, Arrangement arrangement);
    SettingEditor& editor() const { return *editor_; }

private:
    void showReason(const QString& reason);

    SettingEditor* editor_;
    QLabel* reason_;
};

}  // namespace zor
