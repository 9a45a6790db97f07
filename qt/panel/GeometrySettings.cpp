#include "qt/panel/GeometrySettings.h"

#include "host/instruments/ZORWidgetHostView.h"

namespace zor {

const SettingList& geometrySettings() {
    using Widget = ZORWidgetHostView;
    static const SettingList list = [] {
        constexpr double farthest = largestDrawableSide;
        SettingList made = {
            makeSetting<Widget>("frameXCoordinate", "X", SettingKind::number, &Widget::frameXCoordinate,
                                &Widget::setFrameXCoordinate),
            makeSetting<Widget>("frameYCoordinate", "Y", SettingKind::number, &Widget::frameYCoordinate,
                                &Widget::setFrameYCoordinate),
            makeSetting<Widget>("frameWidth", "Width", SettingKind::number, &Widget::frameWidth,
                                &Widget::setFrameWidth),
            makeSetting<Widget>("frameHeight", "Height", SettingKind::number, &Widget::frameHeight,
                                &Widget::setFrameHeight),
        };
        for (auto& setting : made) {
            setting.unit = "pt";
            setting.minimum = setting.name.ends_with("Coordinate") ? -farthest : Widget::leastSide;
            setting.maximum = farthest;
        }
        return made;
    }();
    return list;
}

}  // namespace zor
