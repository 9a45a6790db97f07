#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "host/foundation/Result.h"

namespace zor {

/// The secret of a site that lets browsers of other machines in: 128 random bits, written as 32 hexadecimal digits.
class AccessToken {
public:
    /// Reads the site's token from its file in the folder, or makes both, for their owner's eyes alone. A file that
    /// others may read or that holds no token is replaced. The error names the file and says why.
    static Result<AccessToken> keep(const std::filesystem::path& folder, const std::string& site);

    const std::string& text() const { return text_; }
    const std::filesystem::path& file() const { return file_; }
    /// In a time that does not tell how much of it was right.
    bool matches(std::string_view text) const;

private:
    AccessToken(std::string text, std::filesystem::path file) : text_(std::move(text)), file_(std::move(file)) {}

    std::string text_;
    std::filesystem::path file_;
};

}  // namespace zor
