#pragma once
// Names come from files and stations. Shown where Qt takes what looks like markup for markup, one of them could pass
// for a text of the program's own, and have files opened that it names.

#include <QString>

class QMessageBox;

namespace zor {

/// A tool tip that reads like the text, whatever it looks like.
QString plainToolTip(const QString& text);

/// Both of the box's texts as they stand. Called once they have been set.
void showTextsPlainly(QMessageBox& box);

}  // namespace zor
