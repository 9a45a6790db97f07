#pragma once
// A form file (*.ui, as Qt Designer writes it) as plain data.

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "host/foundation/Result.h"
#include "host/foundation/Value.h"

namespace zor {

struct FormWidget {
    std::string className;
    std::string name;
    /// Rectangles, texts, numbers, booleans; an enumeration or set is its text, a font {"family", "size", "bold"}.
    /// Properties of other kinds are left out.
    std::map<std::string, Value, std::less<>> properties;
    std::vector<FormWidget> children;

    /// Absent where the widget has no such property.
    Value property(std::string_view key) const;
};

/// Names of widgets; signal and slot without their arguments.
struct FormConnection {
    std::string sender;
    std::string signal;
    std::string receiver;
    std::string slot;
};

struct Form {
    FormWidget root;
    std::vector<FormConnection> connections;
};

/// The error names the file and what is wrong with it.
Result<Form> readForm(const std::filesystem::path& file);

}  // namespace zor
