#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QToolButton>
#include <array>

#include "qt/QtConversions.h"
#include "qt/panel/Editors.h"

namespace zor {

namespace {

struct Side {
    const char* name;
    const char* label;
    /// Of the room beside a short line, the part that lies before it.
    double share;
};

constexpr std::array<Side, 3> sides{{{"left", QT_TRANSLATE_NOOP("QObject", "Left"), 0},
                                     {"center", QT_TRANSLATE_NOOP("QObject", "Center"), 0.5},
                                     {"right", QT_TRANSLATE_NOOP("QObject", "Right"), 1}}};

/// Four lines of text.
class SideButton final : public QToolButton {
public:
    SideButton(QWidget* parent, double share) : QToolButton(parent), share_(share) {
        setCheckable(true);
        setFocusPolicy(Qt::StrongFocus);
        setFixedSize(40, 26);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QToolButton::paintEvent(event);
        QPainter painter(this);
        const QColor ink = palette().color(QPalette::ButtonText);
        constexpr std::array lengths{14, 9, 14, 7};
        int y = height() / 2 - 5;
        for (const int length : lengths) {
            const int x = (width() - 14) / 2 + static_cast<int>((14 - length) * share_);
            painter.fillRect(x, y, length, 1, ink);
            y += 3;
        }
    }

private:
    double share_;
};

class AlignmentEditor final : public SettingEditor {
public:
    explicit AlignmentEditor(const PanelContext& context) : SettingEditor(context), group_(new QButtonGroup(this)) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSpacing(2);
        for (std::size_t index = 0; index < sides.size(); ++index) {
            auto* button = new SideButton(this, sides[index].share);
            button->setToolTip(QObject::tr(sides[index].label));
            button->setAccessibleName(button->toolTip());
            group_->addButton(button, static_cast<int>(index));
            layout->addWidget(button);
        }
        layout->addStretch();
        setFocusProxy(group_->button(0));
        // Also by the arrow keys, which check without a click.
        connect(group_, &QButtonGroup::idToggled, this, [this](int id, bool on) {
            const char* name = sides[static_cast<std::size_t>(id)].name;
            if (on && value().asString() != name) offer(name);
        });
    }

private:
    void display(const Value& value) override {
        for (std::size_t index = 0; index < sides.size(); ++index) {
            if (value.asString() == sides[index].name) group_->button(static_cast<int>(index))->setChecked(true);
        }
    }

    QButtonGroup* group_;
};

}  // namespace

SettingEditor* makeAlignmentEditor(const PanelContext& context) {
    return new AlignmentEditor(context);
}

}  // namespace zor
