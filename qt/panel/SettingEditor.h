#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "host/station/Agent.h"
#include "host/station/Settings.h"

namespace zor {

/// What editors look up beside the value of their own.
struct PanelContext {
    std::shared_ptr<Agent> agent;
    std::weak_ptr<Object> target;

    /// The property that the target shows now, or none.
    std::shared_ptr<Property> property() const;
};

/// Shows the value of one setting and offers what the person makes of it, at once.
class SettingEditor : public QWidget {
public:
    /// Takes a value, or gives the reason why not.
    using Taker = std::function<Status(const Value&)>;

    explicit SettingEditor(PanelContext context);
    void setTaker(Taker taker) { taker_ = std::move(taker); }
    /// Told the reason for which the last input was refused; an empty text when all is well again.
    void setReasonObserver(std::function<void(const QString&)> observer) { reasonObserver_ = std::move(observer); }

    /// The target's value. What the person is typing stays while that is the same as before.
    void setValue(const Value& value);
    /// Shows anew what depends on the station: live values, examples.
    virtual void refreshExamples() {}

protected:
    const PanelContext& context() const { return context_; }
    const Value& value() const { return value_; }
    /// Shows the value without offering it.
    virtual void display(const Value& value) = 0;
    /// Whether the target takes the value.
    bool offer(const Value& value);
    void refuse(const QString& reason);
    /// Forgets what was refused and shows the target's value.
    void settle();
    /// The reason to show for the one that the setting gave.
    virtual QString reasonFor(const Value& refused, const QString& reason) const;

private:
    PanelContext context_;
    Taker taker_;
    std::function<void(const QString&)> reasonObserver_;
    Value value_;
    bool hasValue_ = false;
    bool refused_ = false;
};

/// The editor for a setting's kind; the caller owns it.
SettingEditor* makeSettingEditor(const Setting& setting, const PanelContext& context);

}  // namespace zor
