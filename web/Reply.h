#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "web/WebAnswer.h"

namespace zor {

/// An answer with what only the server itself says in its head.
struct Reply {
    using Header = std::pair<std::string, std::string>;

    WebAnswer answer;
    std::vector<Header> headers = {};
    /// Whether the connection ends with it. Whoever is refused has to come again by the door.
    bool isLast = true;

    static Reply methodNotAllowed();
    /// All headers but the length of the body: those of the answer and those that every answer carries.
    std::vector<Header> allHeaders() const;
    /// As it goes over the wire, for answers that are given before the request's head has been read to its end.
    std::string wireText(bool withBody) const;
};

}  // namespace zor
