#pragma once

#include <QString>

class QMenu;

namespace zor {

/// Light or dark windows: as the desktop has them, or as the person chose; remembered from start to start.
enum class Appearance { system, light, dark };

Appearance chosenAppearance();
/// Applies to all windows at once.
void setAppearance(Appearance appearance);
/// At start: what was chosen last.
void applyChosenAppearance();
/// Adds the three choices to a menu.
void addAppearanceMenu(QMenu& menu);

}  // namespace zor
