#pragma once

#include <QDialog>

#include "host/station/Agent.h"

class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace zor {

/// Asks which station a new Site Document reads.
class StationDialog : public QDialog {
public:
    explicit StationDialog(QWidget* parent);
    AgentConfiguration configuration() const;

private:
    void chooseFile();
    void refresh();
    bool readsArchive() const;

    QComboBox* driver_ = nullptr;
    QLineEdit* file_ = nullptr;
    QPushButton* browse_ = nullptr;
    QDoubleSpinBox* speed_ = nullptr;
    QSpinBox* seed_ = nullptr;
    QLineEdit* name_ = nullptr;
    QComboBox* units_ = nullptr;
    QPushButton* accept_ = nullptr;
};

}  // namespace zor
