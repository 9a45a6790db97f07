#pragma once
// One maker for each kind of editor; the caller owns what it makes.

#include "qt/panel/SettingEditor.h"

namespace zor {

SettingEditor* makeTextEditor(const PanelContext& context);
SettingEditor* makeNumberEditor(const Setting& setting, const PanelContext& context);
SettingEditor* makeSwitchEditor(const PanelContext& context);
SettingEditor* makeChoiceEditor(const Setting& setting, const PanelContext& context);
SettingEditor* makeColorEditor(const PanelContext& context);
SettingEditor* makeFontEditor(const PanelContext& context);
SettingEditor* makeAlignmentEditor(const PanelContext& context);
SettingEditor* makePropertyEditor(const PanelContext& context);
SettingEditor* makeNumberFormatEditor(const Setting& setting, const PanelContext& context);
SettingEditor* makeDateFormatEditor(const PanelContext& context);
SettingEditor* makeImageEditor(const PanelContext& context);
SettingEditor* makeUrlEditor(const PanelContext& context);
SettingEditor* makeThresholdsEditor(const PanelContext& context);

}  // namespace zor
