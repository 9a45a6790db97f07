#include "qt/interface/ControlPalette.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

#include "host/views/ControlColors.h"

namespace zor {

namespace {

constexpr double edgeTone = 0.16;
constexpr double quietTone = 0.4;
constexpr int darkGround = 128;

Color colorOf(const QPalette& palette, QPalette::ColorRole role) {
    return Color::rgb(palette.color(QPalette::Active, role).rgb() & RGB_MASK);
}

ControlColors controlColorsOf(const QPalette& palette) {
    ControlColors colors;
    colors.ground = colorOf(palette, QPalette::Window);
    colors.field = colorOf(palette, QPalette::Base);
    colors.text = colorOf(palette, QPalette::WindowText);
    // On a light ground buttons are lighter than it, on a dark one too.
    const bool dark = palette.color(QPalette::Window).lightness() < darkGround;
    colors.face = dark ? colorOf(palette, QPalette::Button) : colors.field;
    colors.edge = colors.ground.mixedWith(colors.text, edgeTone);
    colors.quiet = colors.text.mixedWith(colors.ground, quietTone);
    colors.accent = colorOf(palette, QPalette::Highlight);
    colors.onAccent = colorOf(palette, QPalette::HighlightedText);
    return colors;
}

/// Widgets draw themselves again after a change of the palette; this comes before.
class PaletteFollower final : public QObject {
public:
    explicit PaletteFollower(QObject* application) : QObject(application) {
        application->installEventFilter(this);
        take();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == parent() && event->type() == QEvent::ApplicationPaletteChange) take();
        return QObject::eventFilter(watched, event);
    }

private:
    static void take() { ControlColors::setCurrent(controlColorsOf(QGuiApplication::palette())); }
};

}  // namespace

void followApplicationPalette() {
    static QObject* followed = nullptr;
    QObject* application = QCoreApplication::instance();
    if (!application || followed == application) return;
    followed = application;
    new PaletteFollower(application);
}

}  // namespace zor
