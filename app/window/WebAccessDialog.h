#pragma once

#include <QDialog>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace zor {

class WebAccess;

/// Switches the web access on and off and shows its addresses. What is chosen holds at once. It stands beside the
/// windows, and is gone once it is closed.
class WebAccessDialog : public QDialog {
public:
    WebAccessDialog(WebAccess& access, std::function<void()> showHelp, QWidget* parent);

private:
    void choose();
    void refresh();
    void showAddresses();

    WebAccess& access_;
    QCheckBox* serves_ = nullptr;
    QCheckBox* servesOthers_ = nullptr;
    QSpinBox* port_ = nullptr;
    QLabel* trouble_ = nullptr;
    QWidget* addresses_ = nullptr;
    QPushButton* close_ = nullptr;
};

}  // namespace zor
