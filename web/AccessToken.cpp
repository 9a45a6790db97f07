#include "web/AccessToken.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <span>

namespace zor {

namespace {

constexpr std::size_t digitCount = 32;
constexpr std::string_view digits = "0123456789abcdef";

std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const auto byte : bytes) text += {digits[byte >> 4], digits[byte & 15]};
    return text;
}

/// Empty where the system has none to give.
std::string randomToken() {
    std::array<std::uint8_t, digitCount / 2> bytes;
    return getrandom(bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()) ? hexadecimal(bytes) : "";
}

/// Any text as the name of a file (FNV-1a, 64 bits).
std::string fileName(const std::string& site) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char character : site) hash = (hash ^ static_cast<std::uint8_t>(character)) * 0x100000001b3;
    std::array<std::uint8_t, 8> bytes;
    for (auto& byte : bytes) {
        byte = static_cast<std::uint8_t>(hash >> 56);
        hash <<= 8;
    }
    return hexadecimal(bytes) + ".token";
}

class Descriptor {
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    int get() const { return descriptor_; }

private:
    int descriptor_;
};

/// Empty where the file is missing, is not ours alone or holds no token.
std::string readToken(const std::filesystem::path& path) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (file.get() < 0 || fstat(file.get(), &status) != 0) return {};
    if (!S_ISREG(status.st_mode) || status.st_uid != geteuid() || (status.st_mode & 077) != 0) return {};
    std::array<char, digitCount + 2> contents;
    const auto size = read(file.get(), contents.data(), contents.size());
    if (size != digitCount + 1 || contents[digitCount] != '\n') return {};
    std::string token(contents.data(), digitCount);
    return token.find_first_not_of(digits) == std::string::npos ? token : "";
}

/// An error number, or 0. The file has its contents as soon as it has its name, and leaves one that is there alone.
int createToken(const std::filesystem::path& path, const std::string& token) {
    std::string scrap = path.string() + ".XXXXXX";
    const Descriptor file(mkostemp(scrap.data(), O_CLOEXEC));
    if (file.get() < 0) return errno;
    const std::string line = token + '\n';
    int error = 0;
    if (fchmod(file.get(), 0600) != 0 ||
        write(file.get(), line.data(), line.size()) != static_cast<ssize_t>(line.size()) || fsync(file.get()) != 0 ||
        (link(scrap.c_str(), path.c_str()) != 0 && errno != EEXIST)) {
        error = errno ? errno : EIO;
    }
    unlink(scrap.c_str());
    return error;
}

Status makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (std::filesystem::create_directories(folder, error) && !error) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    }
    if (error) return Error{"cannot make the folder " + folder.string() + ": " + error.message()};
    return success();
}

}  // namespace

Result<AccessToken> AccessToken::keep(const std::filesystem::path& folder, const std::string& site) {
    const auto path = folder / fileName(site);
    if (auto token = readToken(path); !token.empty()) return AccessToken(std::move(token), path);
    if (const auto made = makeFolder(folder); !made) return made.error();
    const std::string fresh = randomToken();
    if (fresh.empty()) return Error{"the system gives no random numbers for an access token"};
    // What is there is no token that may still be used.
    unlink(path.c_str());
    if (const int error = createToken(path, fresh); error != 0) {
        return Error{"cannot keep the access token in " + path.string() + ": " + std::strerror(error)};
    }
    // Another program may have been first: both use what is in the file.
    auto token = readToken(path);
    if (token.empty()) return Error{"cannot keep the access token in " + path.string()};
    return AccessToken(std::move(token), path);
}

bool AccessToken::matches(std::string_view text) const {
    if (text.size() != text_.size()) return false;
    unsigned difference = 0;
    for (std::size_t at = 0; at < text_.size(); ++at) {
        difference |= static_cast<unsigned char>(text[at]) ^ static_cast<unsigned char>(text_[at]);
    }
    return difference == 0;
}

}  // namespace zor
