#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/foundation/Image.h"
#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"

namespace zor {

namespace {

constexpr int thumbnailSide = 44;

class ImageEditor final : public SettingEditor {
public:
    explicit ImageEditor(const PanelContext& context)
        : SettingEditor(context),
          thumbnail_(new QLabel(this)),
          choose_(new QPushButton(tr("Choose..."), this)),
          remove_(new QPushButton(tr("Remove"), this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(6);
        // Side by side they would be wider than the panel.
        auto* buttons = new QVBoxLayout;
        buttons->setSpacing(4);
        buttons->addWidget(choose_);
        buttons->addWidget(remove_);
        layout->addWidget(thumbnail_, 0, Qt::AlignTop);
        layout->addLayout(buttons);
        layout->addStretch();
        thumbnail_->setFixedSize(thumbnailSide, thumbnailSide);
        thumbnail_->setAlignment(Qt::AlignCenter);
        thumbnail_->setFrameShape(QFrame::StyledPanel);
        setFocusProxy(choose_);
        for (QPushButton* button : {choose_, remove_}) button->setAutoDefault(false);
        connect(choose_, &QPushButton::clicked, this, [this] { chooseFile(); });
        connect(remove_, &QPushButton::clicked, this, [this] {
            offer({});
            settle();
        });
    }

private:
    void display(const Value& value) override {
        const auto image = value.as<Image>();
        QPixmap picture;
        if (image && image->data()) picture.loadFromData(image->data()->data(), static_cast<uint>(image->data()->size()));
        const double ratio = devicePixelRatioF();
        if (!picture.isNull()) {
            picture = picture.scaled(QSize(thumbnailSide - 4, thumbnailSide - 4) * ratio, Qt::KeepAspectRatio,
                                     Qt::SmoothTransformation);
            picture.setDevicePixelRatio(ratio);
        }
        thumbnail_->setPixmap(picture);
        remove_->setEnabled(image != nullptr);
    }

    void chooseFile() {
        auto* dialog = new QFileDialog(window(), tr("Choose a Picture"));
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::ExistingFile);
        dialog->setNameFilters({tr("Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.webp *.svg)"), tr("All files (*)")});
        connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) { offer(file.toStdString()); });
        dialog->open();
    }

    QString reasonFor(const Value& refused, const QString& reason) const override {
        if (!refused.isString()) return reason;
        return tr("“%1” is no picture that can be read").arg(QFileInfo(toQt(refused.asString())).fileName());
    }

    QLabel* thumbnail_;
    QPushButton* choose_;
    QPushButton* remove_;
};

}  // namespace

SettingEditor* makeImageEditor(const PanelContext& context) {
    return new ImageEditor(context);
}

}  // namespace zor
