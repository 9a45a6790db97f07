#include "qt/QtPanels.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QTextDocument>
#include <fstream>

#include "qt/PlainText.h"
#include "tests/support/TemporaryFolder.h"

namespace zor {

namespace {

template <typename Dialog>
Dialog* shownDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<Dialog*>(widget); dialog && dialog->isVisible()) return dialog;
    }
    return nullptr;
}

void letDialogsGo() {
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

TEST(QtPanels, SavingCompletesTheName) {
    const test::TemporaryFolder folder;
    std::vector<PanelResponse> responses;
    std::weak_ptr<SavePanel> alive;
    std::string path;
    {
        const auto panel = makeQtSavePanel();
        alive = panel;
        panel->allowedFileTypes = {"zordashboard"};
        panel->nameFieldStringValue = "Garden 1.2";
        panel->beginSheetModalForWindow(nullptr, [&, kept = std::weak_ptr(panel)](PanelResponse response) {
            responses.push_back(response);
            path = kept.lock()->path();
            kept.lock()->orderOut();
        });
        EXPECT_EQ(panel->path(), "");
    }
    auto* dialog = shownDialog<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog->nameFilters(), QStringList("*.zordashboard"));
    EXPECT_THAT(dialog->selectedFiles().first().toStdString(), testing::EndsWith("/Garden 1.2"));
    dialog->setDirectory(folder.path().c_str());
    dialog->selectFile("Garden 1.2");
    static_cast<QDialog*>(dialog)->accept();
    EXPECT_THAT(responses, testing::ElementsAre(PanelResponse::ok));
    EXPECT_EQ(path, (folder / "Garden 1.2.zordashboard").string());
    EXPECT_FALSE(dialog->isVisible());
    letDialogsGo();
    EXPECT_TRUE(alive.expired());
}

TEST(QtPanels, AFolderIsNeverNamedByATitle) {
    const auto panel = makeQtSavePanel();
    panel->nameFieldStringValue = "In/Out";
    panel->beginSheetModalForWindow(nullptr, {});
    auto* dialog = shownDialog<QFileDialog>();
    EXPECT_THAT(dialog->selectedFiles().first().toStdString(), testing::EndsWith("/In:Out"));
    dialog->reject();
    letDialogsGo();
}

TEST(QtPanels, CancellingGivesNoPath) {
    const auto panel = makeQtOpenPanel();
    panel->allowedFileTypes = {"zordashboard", "qm4dashboard"};
    std::vector<PanelResponse> responses;
    panel->beginSheetModalForWindow(nullptr, [&](PanelResponse response) { responses.push_back(response); });
    auto* dialog = shownDialog<QFileDialog>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->nameFilters(), QStringList("*.zordashboard *.qm4dashboard"));
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    dialog->reject();
    EXPECT_THAT(responses, testing::ElementsAre(PanelResponse::cancel));
    EXPECT_EQ(panel->path(), "");
    letDialogsGo();
}

TEST(QtPanels, OpeningGivesTheFile) {
    const test::TemporaryFolder folder;
    const auto file = folder.write("a.zordashboard", "x");
    const auto panel = makeQtOpenPanel();
    PanelResponse response = PanelResponse::cancel;
    panel->beginSheetModalForWindow(nullptr, [&](PanelResponse given) { response = given; });
    auto* dialog = shownDialog<QFileDialog>();
    dialog->setDirectory(folder.path().c_str());
    dialog->selectFile(file.c_str());
    static_cast<QDialog*>(dialog)->accept();
    EXPECT_EQ(response, PanelResponse::ok);
    EXPECT_EQ(panel->path(), file.string());
    letDialogsGo();
}

TEST(QtPanels, AnAlertTellsWhichButton) {
    for (const int pressed : {0, 1}) {
        int code = -1;
        {
            const auto alert = makeQtAlert();
            alert->messageText = "Warning";
            alert->informativeText = "Some widgets may need to be relinked.";
            alert->buttons = {"Import", "Cancel"};
            alert->beginSheetModalForWindow(nullptr, [&](int given) { code = given; });
        }
        auto* box = shownDialog<QMessageBox>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Warning");
        EXPECT_EQ(box->informativeText(), "Some widgets may need to be relinked.");
        EXPECT_EQ(box->buttons().size(), 2);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == (pressed == 0 ? "Import" : "Cancel")) button->click();
        }
        EXPECT_EQ(code, alertFirstButtonReturn + pressed);
        letDialogsGo();
    }
}

TEST(QtPanels, AnAlertShowsMarkupAsText) {
    const auto alert = makeQtAlert();
    alert->messageText = "<b>Warning</b>";
    alert->informativeText = "For the <img src=\"/etc/hostname\">.\n\nSome widgets.";
    alert->beginSheetModalForWindow(nullptr, [](int) {});
    auto* box = shownDialog<QMessageBox>();
    ASSERT_NE(box, nullptr);
    int found = 0;
    for (const auto* label : box->findChildren<QLabel*>()) {
        if (label->text().isEmpty()) continue;
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        found += label->text() == "<b>Warning</b>";
        found += label->text() == "For the <img src=\"/etc/hostname\">.\n\nSome widgets.";
    }
    EXPECT_EQ(found, 2);
    box->reject();
    letDialogsGo();
}

TEST(QtPanels, AToolTipShowsMarkupAsText) {
    EXPECT_EQ(plainToolTip("wind < 3 & rain"), "wind < 3 & rain");
    const QString tip = plainToolTip("Roof <img src='/etc/hostname'>");
    EXPECT_TRUE(Qt::mightBeRichText(tip));
    EXPECT_FALSE(tip.contains("<img"));
    EXPECT_TRUE(tip.contains("&lt;img src='/etc/hostname'&gt;")) << tip.toStdString();
}

TEST(QtPanels, AnAlertWithoutButtonsHasOne) {
    int code = -1;
    makeQtAlert()->beginSheetModalForWindow(nullptr, [&](int given) { code = given; });
    auto* box = shownDialog<QMessageBox>();
    ASSERT_EQ(box->buttons().size(), 1);
    EXPECT_EQ(box->buttons().first()->text(), "OK");
    box->reject();
    EXPECT_EQ(code, 1000);
    letDialogsGo();
}

}  // namespace zor
