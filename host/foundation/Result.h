#pragma once
// What a fallible operation of the host gives: its value, or an error that says what was wrong with what.

#include <string>
#include <utility>
#include <variant>

namespace zor {

struct Error {
    /// One sentence without a full stop that names the fault and, where there is one, the key or offset at fault.
    std::string message;
    bool operator==(const Error&) const = default;
};

template <typename T>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    explicit operator bool() const { return state_.index() == 0; }
    T& value() { return std::get<0>(state_); }
    const T& value() const { return std::get<0>(state_); }
    T& operator*() { return value(); }
    const T& operator*() const { return value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }
    const Error& error() const { return std::get<1>(state_); }
    /// The value, or `fallback` where there is an error.
    T valueOr(T fallback) const { return *this ? value() : std::move(fallback); }

private:
    std::variant<T, Error> state_;
};

/// The result of an operation that gives nothing but success.
using Status = Result<std::monostate>;
inline Status success() { return std::monostate{}; }

}  // namespace zor
