#pragma once
// What strangers write, made harmless for a page and for an address.

#include <string>
#include <string_view>

namespace zor {

/// Text that stands for itself in HTML, in an attribute too.
std::string htmlEscaped(std::string_view text);
/// One component of a URL's path: everything but letters, digits and "-._~" as %XX.
std::string percentEncoded(std::string_view component);
/// The same of every component between slashes.
std::string percentEncodedPath(std::string_view path);
/// "%XX" as bytes; a "%" that no two hexadecimal digits follow stands for itself.
std::string percentDecoded(std::string_view text);
/// Whether nothing of the UTF-8 text can be seen: white space, fillers, marks of direction.
bool isBlank(std::string_view text);

}  // namespace zor
