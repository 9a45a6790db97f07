#pragma once
// Declares a class record from member functions:
//
//   const ClassRecord& Canvas::staticClass() {
//       static const ClassRecord& record = ClassBuilder<Canvas>("Canvas", &View::staticClass())
//           .creatable()
//           .action("copy:", &Canvas::copyAction)
//           .property("step", &Canvas::step, &Canvas::setStep)
//           .registered();
//       return record;
//   }

#include <utility>

#include "host/foundation/ClassRegistry.h"
#include "host/foundation/FlatDelete.h"
#include "host/foundation/Object.h"
#include "host/foundation/ValueConversion.h"

namespace zor {

template <typename T>
class ClassBuilder {
public:
    ClassBuilder(std::string name, const ClassRecord* base)
        : record_(std::make_unique<ClassRecord>(std::move(name), base)) {}

    ClassBuilder& creatable() {
        record_->create_ = [] { return std::shared_ptr<T>(new T(), FlatDelete()); };
        return *this;
    }

    ClassBuilder& initializer(std::function<ObjectPtr(std::span<const Value>)> make) {
        record_->initializer_ = std::move(make);
        return *this;
    }

    /// An action without argument and result, or one that takes its sender or other convertible arguments.
    template <typename R, typename C, typename... Args>
    ClassBuilder& action(std::string name, R (C::*member)(Args...)) {
        return addAction<R, Args...>(std::move(name), member);
    }

    template <typename R, typename C, typename... Args>
    ClassBuilder& action(std::string name, R (C::*member)(Args...) const) {
        return addAction<R, Args...>(std::move(name), member);
    }

    template <typename G, typename C>
    ClassBuilder& property(std::string name, G (C::*getter)() const) {
        record_->properties_.push_back({std::move(name), reader(getter), {}});
        return *this;
    }

    template <typename G, typename C, typename A, typename D>
    ClassBuilder& property(std::string name, G (C::*getter)() const, void (D::*setter)(A)) {
        auto set = [setter](Object& object, const Value& value) {
            auto argument = ValueConversion<std::remove_cvref_t<A>>::from(value);
            if (!argument) return false;
            (static_cast<T&>(object).*setter)(std::move(*argument));
            return true;
        };
        record_->properties_.push_back({std::move(name), reader(getter), std::move(set)});
        return *this;
    }

    /// Hands the record to the process's registry, which keeps it for good.
    const ClassRecord& registered() { return ClassRegistry::shared().add(std::move(record_)); }

private:
    template <typename G, typename C>
    static auto reader(G (C::*getter)() const) {
        return [getter](const Object& object) {
            return ValueConversion<std::remove_cvref_t<G>>::to((static_cast<const T&>(object).*getter)());
        };
    }

    template <typename R, typename... Args, typename Member>
    ClassBuilder& addAction(std::string name, Member member) {
        auto perform = [member](Object& object, std::span<const Value> arguments) {
            return call<R, Args...>(static_cast<T&>(object), member, arguments, std::index_sequence_for<Args...>{});
        };
        record_->actions_.push_back({std::move(name), std::move(perform)});
        return *this;
    }

    template <typename R, typename... Args, typename Member, std::size_t... I>
    static Value call(T& object, Member member, std::span<const Value> arguments, std::index_sequence<I...>) {
        [[maybe_unused]] auto argument = [&](std::size_t index) {
            return index < arguments.size() ? arguments[index] : Value();
        };
        if constexpr (std::is_void_v<R>) {
            (object.*member)(ValueConversion<std::remove_cvref_t<Args>>::orDefault(argument(I))...);
            return {};
        } else {
            return ValueConversion<std::remove_cvref_t<R>>::to(
                (object.*member)(ValueConversion<std::remove_cvref_t<Args>>::orDefault(argument(I))...));
        }
    }

    std::unique_ptr<ClassRecord> record_;
};

}  // namespace zor
