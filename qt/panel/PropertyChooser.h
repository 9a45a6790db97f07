#pragma once

#include <QFrame>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/station/Agent.h"

class QLineEdit;
class QTreeWidget;

namespace zor {

/// A list to choose a property of a station from, with a search field and live values; none and the name that is
/// stored are offered too. It closes with the choice.
class PropertyChooser final : public QFrame {
public:
    using Choice = std::optional<std::string>;

    /// `agent` may be absent.
    PropertyChooser(QWidget* parent, std::shared_ptr<Agent> agent, const Choice& current);
    void setObserver(std::function<void(const Choice&)> observer) { observer_ = std::move(observer); }
    /// Opens below the widget, as wide as it at least.
    void openBelow(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addEntry(const Choice& name, const QString& title);
    void filter(const QString& text);
    void refreshValues();
    void choose();

    std::shared_ptr<Agent> agent_;
    std::function<void(const Choice&)> observer_;
    QLineEdit* search_;
    QTreeWidget* list_;
    QTimer clock_;
};

}  // namespace zor
