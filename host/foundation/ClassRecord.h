#pragma once
// What a class says of itself, once: its name and base class, its actions, its named properties. The registry, the
// archiver, menus, the catalogue, the property panel and the automation all go through these records.

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/foundation/Value.h"

namespace zor {

class Bundle;

struct ActionRecord {
    /// With its colons: "alignTopEdges:", "standardDashboardPlugIn", "tableView:shouldSelectRow:".
    std::string name;
    /// Arguments beyond those given are absent; the result is absent for an action without one.
    std::function<Value(Object&, std::span<const Value>)> perform;
};

struct PropertyRecord {
    std::string name;
    std::function<Value(const Object&)> get;
    /// Empty for a property that can only be read; false where the value is of the wrong kind.
    std::function<bool(Object&, const Value&)> set;
};

class ClassRecord {
public:
    ClassRecord(std::string name, const ClassRecord* base) : name_(std::move(name)), base_(base) {}
    ClassRecord(const ClassRecord&) = delete;
    ClassRecord& operator=(const ClassRecord&) = delete;

    const std::string& name() const { return name_; }
    const ClassRecord* base() const { return base_; }
    bool isKindOf(const ClassRecord& other) const;
    /// An object to be filled by initWithCoder, empty for an abstract class.
    ObjectPtr create() const { return create_ ? create_() : ObjectPtr{}; }
    bool isCreatable() const { return static_cast<bool>(create_); }
    /// Looked up here and then in the base classes; empty where none has it.
    const ActionRecord* action(std::string_view name) const;
    const PropertyRecord* property(std::string_view name) const;
    /// Makes and initialises an object of a class whose header the caller never sees. Plug-ins take agent, site window
    /// controller and, for a document class, widgets and size; trailing arguments may be left out.
    const std::function<ObjectPtr(std::span<const Value>)>& initializer() const { return initializer_; }
    /// The plug-in bundle whose module declared the class, or empty for the host's own.
    std::shared_ptr<Bundle> bundle() const { return bundle_.lock(); }

private:
    template <typename T>
    friend class ClassBuilder;
    friend class ClassRegistry;

    std::string name_;
    const ClassRecord* base_;
    std::function<ObjectPtr()> create_;
    std::function<ObjectPtr(std::span<const Value>)> initializer_;
    std::vector<ActionRecord> actions_;
    std::vector<PropertyRecord> properties_;
    std::weak_ptr<Bundle> bundle_;
};

}  // namespace zor
