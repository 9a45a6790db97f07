#include "app/window/StationDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QSpinBox>
#include <limits>

#include "app/StationSource.h"

namespace zor {

StationDialog::StationDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("New Site"));
    driver_ = new QComboBox(this);
    driver_->setObjectName("station");
    driver_->addItem(tr("simulated: the built-in demo station"), "simulated");
    driver_->addItem(tr("weewx: an archive in SQLite"), "weewx:");
    file_ = new QLineEdit(this);
    file_->setObjectName("archive");
    file_->setPlaceholderText(tr("weewx.sdb"));
    browse_ = new QPushButton(tr("Choose..."), this);
    speed_ = new QDoubleSpinBox(this);
    speed_->setObjectName("speed");
    speed_->setRange(0.01, 1e6);
    speed_->setValue(1);
    speed_->setSuffix(tr(" times real time"));
    seed_ = new QSpinBox(this);
    seed_->setObjectName("seed");
    seed_->setMaximum(std::numeric_limits<int>::max());
    seed_->setValue(1);
    seed_->setToolTip(tr("Other weather for every number"));
    name_ = new QLineEdit(this);
    name_->setPlaceholderText(tr("from the station"));
    units_ = new QComboBox(this);
    units_->addItem(tr("Metric (°C, hPa, km/h, mm)"), "metric");
    units_->addItem(tr("US (°F, inHg, mph, in)"), "us");
    units_->addItem(tr("UK (°C, hPa, mph, mm)"), "uk");
    units_->addItem(tr("SI (°C, hPa, m/s, mm)"), "si");
    const auto system = QLocale::system().measurementSystem();
    units_->setCurrentIndex(system == QLocale::ImperialUSSystem ? 1 : system == QLocale::ImperialUKSystem ? 2 : 0);

    auto* fileRow = new QHBoxLayout;
    fileRow->addWidget(file_);
    fileRow->addWidget(browse_);
    auto* form = new QFormLayout(this);
    form->addRow(tr("&Station:"), driver_);
    // Beside a layout a form gives its label no buddy, and the mark of the key would be seen.
    auto* fileLabel = new QLabel(tr("&Archive:"), this);
    fileLabel->setBuddy(file_);
    form->addRow(fileLabel, fileRow);
    form->addRow(tr("S&peed:"), speed_);
    form->addRow(tr("S&eed:"), seed_);
    form->addRow(tr("&Name:"), name_);
    form->addRow(tr("&Units:"), units_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    accept_ = buttons->button(QDialogButtonBox::Ok);
    accept_->setText(tr("Create"));
    form->addRow(buttons);
    setMinimumWidth(460);

    connect(driver_, &QComboBox::currentIndexChanged, this, [this] { refresh(); });
    connect(file_, &QLineEdit::textChanged, this, [this] { refresh(); });
    connect(browse_, &QPushButton::clicked, this, [this] { chooseFile(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    refresh();
}

AgentConfiguration StationDialog::configuration() const {
    // The dialog is accepted with a file only.
    const QString source = driver_->currentData().toString() + (readsArchive() ? file_->text() : QString());
    AgentConfiguration configuration = configurationOfSource(source.toStdString()).valueOr({});
    if (!readsArchive()) {
        configuration.settings["speed"] = speed_->value();
        configuration.settings["seed"] = seed_->value();
    }
    configuration.unitSystem = unitSystemNamed(units_->currentData().toString().toStdString());
    if (!name_->text().trimmed().isEmpty()) configuration.settings["name"] = name_->text().trimmed().toStdString();
    return configuration;
}

bool StationDialog::readsArchive() const {
    return driver_->currentData().toString() == "weewx:";
}

void StationDialog::refresh() {
    file_->setEnabled(readsArchive());
    browse_->setEnabled(readsArchive());
    speed_->setEnabled(!readsArchive());
    seed_->setEnabled(!readsArchive());
    accept_->setEnabled(!readsArchive() || !file_->text().isEmpty());
}

void StationDialog::chooseFile() {
    const QString file = QFileDialog::getOpenFileName(this, tr("weewx Archive"), {},
                                                      tr("SQLite archives (*.sdb *.db *.sqlite);;All files (*)"));
    if (!file.isEmpty()) file_->setText(file);
}

}  // namespace zor
