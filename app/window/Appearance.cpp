#include "app/window/Appearance.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <array>

namespace zor {

namespace {

const QString appearanceKey = QStringLiteral("appearance");
constexpr std::array<const char*, 3> names{"system", "light", "dark"};

struct Tones {
    QColor window, base, text, quiet, button, line, accent;
};

const Tones lightTones{"#f5f5f7", "#ffffff", "#1d1d1f", "#8a8a8f", "#ececef", "#c8c8cc", "#0a6ed1"};
const Tones darkTones{"#232326", "#1b1b1d", "#f0f0f2", "#85858a", "#323236", "#0f0f10", "#3a8fe8"};

QPalette paletteOf(const Tones& tones) {
    QPalette palette(tones.button, tones.window);
    palette.setColor(QPalette::WindowText, tones.text);
    palette.setColor(QPalette::Base, tones.base);
    palette.setColor(QPalette::AlternateBase, tones.window);
    palette.setColor(QPalette::Text, tones.text);
    palette.setColor(QPalette::ButtonText, tones.text);
    palette.setColor(QPalette::PlaceholderText, tones.quiet);
    palette.setColor(QPalette::ToolTipBase, tones.base);
    palette.setColor(QPalette::ToolTipText, tones.text);
    palette.setColor(QPalette::Highlight, tones.accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, tones.accent);
    palette.setColor(QPalette::Shadow, tones.line);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, tones.quiet);
    }
    return palette;
}

/// A style sheet keeps the colours of the palette with which it was read.
void readStyleSheetsAgain() {
    for (QWidget* widget : QApplication::allWidgets()) {
        const QString sheet = widget->styleSheet();
        if (sheet.isEmpty()) continue;
        widget->setStyleSheet({});
        widget->setStyleSheet(sheet);
    }
}

void apply(Appearance appearance) {
    if (appearance == Appearance::system) {
        QApplication::setPalette(QPalette());
    } else {
        // Other styles paint with colours of their own.
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        QApplication::setPalette(paletteOf(appearance == Appearance::dark ? darkTones : lightTones));
    }
    readStyleSheetsAgain();
}

}  // namespace

Appearance chosenAppearance() {
    const QString name = QSettings().value(appearanceKey, names[0]).toString();
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (name == names[index]) return static_cast<Appearance>(index);
    }
    return Appearance::system;
}

void setAppearance(Appearance appearance) {
    QSettings().setValue(appearanceKey, names[static_cast<std::size_t>(appearance)]);
    apply(appearance);
}

void applyChosenAppearance() {
    if (chosenAppearance() != Appearance::system) apply(chosenAppearance());
}

void addAppearanceMenu(QMenu& menu) {
    auto* choices = menu.addMenu(QObject::tr("&Appearance"));
    auto* group = new QActionGroup(choices);
    const std::array texts{QObject::tr("As the Desktop"), QObject::tr("Light"), QObject::tr("Dark")};
    for (std::size_t index = 0; index < texts.size(); ++index) {
        auto* action = choices->addAction(texts[index]);
        action->setCheckable(true);
        action->setChecked(chosenAppearance() == static_cast<Appearance>(index));
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, choices,
                         [index] { setAppearance(static_cast<Appearance>(index)); });
    }
}

}  // namespace zor
