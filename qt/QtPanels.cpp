#include "qt/QtPanels.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "qt/PlainText.h"
#include "qt/QtConversions.h"
#include "qt/QtWindowPeer.h"

namespace zor {

namespace {

QStringList typeNames(const std::vector<std::string>& types) {
    QStringList names;
    for (const std::string& type : types) names.append(toQt(type));
    return names;
}

bool hasAllowedType(const QString& path, const QStringList& types) {
    return types.isEmpty() || types.contains(QFileInfo(path).suffix());
}

/// "Dashboard 1.2" has a suffix in Qt's eyes, so that the dialog's own default suffix is no help: the name is completed
/// before the dialog looks for a file that it would replace.
class TypedSaveDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;
    void setTypes(const QStringList& types) { types_ = types; }

    void accept() override {
        const QStringList chosen = selectedFiles();
        if (!chosen.isEmpty() && !hasAllowedType(chosen.first(), types_)) {
            selectFile(chosen.first() + '.' + types_.first());
        }
        QFileDialog::accept();
    }

private:
    QStringList types_;
};

/// What both file panels have in common.
template <typename Panel, typename Dialog>
class QtFilePanel : public Panel, public std::enable_shared_from_this<QtFilePanel<Panel, Dialog>> {
public:
    ~QtFilePanel() override { delete dialog_; }

    void beginSheetModalForWindow(Window* window, std::function<void(PanelResponse)> completion) override {
        delete dialog_;
        path_.clear();
        dialog_ = new Dialog(QtWindowPeer::widgetOf(window));
        const QStringList types = typeNames(this->allowedFileTypes);
        if (!types.isEmpty()) dialog_->setNameFilter("*." + types.join(" *."));
        prepare(*dialog_, types);
        QObject::connect(dialog_, &QDialog::finished,
                         [self = this->shared_from_this(), completion = std::move(completion)](int result) {
                             const QStringList files = self->dialog_->selectedFiles();
                             if (result == QDialog::Accepted && !files.isEmpty()) {
                                 self->path_ = files.first().toStdString();
                             }
                             // With the dialog goes this connection, which keeps the panel until then.
                             self->dialog_->deleteLater();
                             if (completion) {
                                 completion(self->path_.empty() ? PanelResponse::cancel : PanelResponse::ok);
                             }
                         });
        dialog_->open();
    }

    std::string path() const override { return path_; }

    void orderOut() override {
        if (dialog_) dialog_->hide();
    }

private:
    void prepare(QFileDialog& dialog, const QStringList& types);

    QPointer<Dialog> dialog_;
    std::string path_;
};

template <>
void QtFilePanel<SavePanel, TypedSaveDialog>::prepare(QFileDialog& dialog, const QStringList& types) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    static_cast<TypedSaveDialog&>(dialog).setTypes(types);
    if (!types.isEmpty()) dialog.setDefaultSuffix(types.first());
    // A title with a slash in it must not name a folder.
    dialog.selectFile(toQt(nameFieldStringValue).replace(u'/', u':'));
}

template <>
void QtFilePanel<OpenPanel, QFileDialog>::prepare(QFileDialog& dialog, const QStringList&) {
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
}

class QtAlert : public Alert {
public:
    void beginSheetModalForWindow(Window* window, std::function<void(int)> completion) override {
        auto* box = new QMessageBox(QtWindowPeer::widgetOf(window));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setIcon(QMessageBox::Warning);
        box->setText(toQt(messageText));
        box->setInformativeText(toQt(informativeText));
        showTextsPlainly(*box);
        const std::vector<std::string> titles = buttons.empty() ? std::vector<std::string>{"OK"} : buttons;
        QList<QAbstractButton*> made;
        for (const std::string& title : titles) made.append(box->addButton(toQt(title), QMessageBox::AcceptRole));
        box->setDefaultButton(static_cast<QPushButton*>(made.first()));
        // Escape means the last: the one that stands for doing nothing.
        box->setEscapeButton(made.last());
        QObject::connect(box, &QDialog::finished, [box, made, completion = std::move(completion)] {
            const auto index = made.indexOf(box->clickedButton());
            if (completion) completion(alertFirstButtonReturn + static_cast<int>(std::max<qsizetype>(0, index)));
        });
        box->open();
    }
};

}  // namespace

std::shared_ptr<SavePanel> makeQtSavePanel() {
    return std::make_shared<QtFilePanel<SavePanel, TypedSaveDialog>>();
}

std::shared_ptr<OpenPanel> makeQtOpenPanel() {
    return std::make_shared<QtFilePanel<OpenPanel, QFileDialog>>();
}

std::shared_ptr<Alert> makeQtAlert() {
    return std::make_shared<QtAlert>();
}

}  // namespace zor
