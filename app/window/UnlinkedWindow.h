#pragma once

#include <QDialog>
#include <QTimer>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "app/inspect/UnlinkedInstruments.h"

class QLabel;
class QTreeWidget;

namespace zor {

class SiteWindow;

/// Lists the instruments of a document whose stored property the station lacks, each with the station's properties to
/// choose from, the nearest first, and a button that links it. It follows the document while it is open.
class UnlinkedWindow : public QDialog {
public:
    explicit UnlinkedWindow(SiteWindow& window);
    /// The window's own one, made at its first showing.
    static void showFor(SiteWindow& window);

private:
    /// What a row shows; the instrument itself is looked up when it is needed, since the document may change.
    struct Row {
        std::int64_t widget = 0;
        std::string propertyName;
        std::string dashboard;
        bool operator==(const Row&) const = default;
    };

    std::vector<UnlinkedInstrument> present() const;
    void refresh();
    void fill(const std::vector<UnlinkedInstrument>& unlinked);
    void addRow(const UnlinkedInstrument& unlinked);
    void link(std::int64_t widget);

    SiteWindow& window_;
    QLabel* notice_;
    QTreeWidget* list_;
    std::vector<Row> rows_;
    /// The property chosen for a widget.
    std::map<std::int64_t, QString> choices_;
    QTimer clock_;
};

/// "3 instruments are not linked: View > Unlinked Instruments"; empty for none.
QString unlinkedNotice(std::size_t count);

}  // namespace zor
