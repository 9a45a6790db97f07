#include "app/window/WebAccessDialog.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>

#include "app/window/WebAccess.h"

namespace zor {

namespace {

constexpr int firstPortForEverybody = 1024;
constexpr int lastPort = 65535;
/// An address with its token can be read whole.
constexpr int addressWidth = 580;

}  // namespace

WebAccessDialog::WebAccessDialog(WebAccess& access, std::function<void()> showHelp, QWidget* parent)
    : QDialog(parent), access_(access) {
    setWindowTitle(tr("Web Access"));
    setAttribute(Qt::WA_DeleteOnClose);
    serves_ = new QCheckBox(tr("&Serve the dashboards to browsers on this machine"), this);
    servesOthers_ = new QCheckBox(tr("…and to &other machines, which need the token in the address"), this);
    port_ = new QSpinBox(this);
    port_->setRange(firstPortForEverybody, lastPort);
    port_->setKeyboardTracking(false);
    auto* portLabel = new QLabel(tr("&Port:"), this);
    portLabel->setBuddy(port_);
    trouble_ = new QLabel(this);
    trouble_->setObjectName("trouble");
    trouble_->setWordWrap(true);
    trouble_->setTextFormat(Qt::PlainText);
    trouble_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    addresses_ = new QWidget(this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help, this);
    close_ = buttons->button(QDialogButtonBox::Close);

    // What depends on the first choice stands under its text.
    const int indent =
        style()->pixelMetric(QStyle::PM_IndicatorWidth) + style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    auto* details = new QVBoxLayout;
    details->setContentsMargins(indent, 0, 0, 0);
    details->addWidget(servesOthers_);
    auto* portRow = new QHBoxLayout;
    portRow->addWidget(portLabel);
    portRow->addWidget(port_);
    portRow->addStretch();
    details->addLayout(portRow);
    details->addWidget(trouble_);
    details->addWidget(addresses_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(serves_);
    layout->addLayout(details);
    layout->addSpacing(layout->spacing());
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    addresses_->setMinimumWidth(addressWidth);

    refresh();
    connect(serves_, &QCheckBox::toggled, this, [this] { choose(); });
    connect(servesOthers_, &QCheckBox::toggled, this, [this] { choose(); });
    connect(port_, &QSpinBox::valueChanged, this, [this] { choose(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, showHelp);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this, showHelp);
}

void WebAccessDialog::choose() {
    access_.choose({serves_->isChecked(), servesOthers_->isChecked(), static_cast<std::uint16_t>(port_->value())});
    refresh();
}

void WebAccessDialog::refresh() {
    const auto& choice = access_.choice();
    serves_->setChecked(choice.serves);
    servesOthers_->setChecked(choice.servesOthers);
    servesOthers_->setEnabled(choice.serves);
    port_->setValue(choice.port);
    port_->setEnabled(choice.serves);
    trouble_->setText(tr("Nothing is served: %1.").arg(QString::fromStdString(access_.trouble())));
    trouble_->setVisible(!access_.trouble().empty());
    showAddresses();
}

void WebAccessDialog::showAddresses() {
    qDeleteAll(addresses_->findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
    delete addresses_->layout();
    auto* grid = new QGridLayout(addresses_);
    grid->setContentsMargins(0, 0, 0, 0);
    QWidget* before = port_;
    for (const auto& each : access_.addresses()) {
        const QString address = QString::fromStdString(each);
        auto* text = new QLineEdit(address, addresses_);
        text->setReadOnly(true);
        text->setCursorPosition(0);
        text->setAccessibleName(tr("Address"));
        auto* copy = new QPushButton(tr("Copy"), addresses_);
        copy->setAutoDefault(false);
        copy->setAccessibleName(tr("Copy %1").arg(address));
        connect(copy, &QPushButton::clicked, this, [address] { QGuiApplication::clipboard()->setText(address); });
        const int row = grid->rowCount();
        grid->addWidget(text, row, 0);
        grid->addWidget(copy, row, 1);
        setTabOrder(before, text);
        setTabOrder(text, copy);
        before = copy;
    }
    setTabOrder(before, close_);
}

}  // namespace zor
