#include "host/foundation/SafeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <system_error>
#include <utility>

#include "host/foundation/WritingNotes.h"

namespace zor {

namespace {

namespace fs = std::filesystem;

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int number() const { return number_; }
    /// Whether all went well; a late failure to write shows here.
    bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

Error failure(const char* deed, const fs::path& path, int code) {
    return {std::string("cannot ") + deed + " \"" + path.string() + "\": " + std::generic_category().message(code)};
}

/// The call's result, repeated where a signal interrupted it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

/// Where the path leads in the end, which need not exist.
std::optional<fs::path> followLinks(fs::path path) {
    constexpr int mostLinks = 40;
    for (int count = 0; count < mostLinks; ++count) {
        std::error_code error;
        const auto target = fs::read_symlink(path, error);
        if (error) return path;
        path = path.parent_path() / target;
    }
    return {};
}

bool writeAll(int file, std::span<const std::uint8_t> data) {
    while (!data.empty()) {
        const auto written = uninterrupted([&] { return ::write(file, data.data(), data.size()); });
        if (written <= 0) return false;
        data = data.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

/// So many programs can write one file at the same time.
constexpr int mostScraps = 4;

/// Names that are found again after a crash. Files whose long names begin alike share them, which does no harm.
fs::path scrapOf(const fs::path& path, int number) {
    constexpr std::size_t longestName = 200;
    const std::string name = path.filename().string().substr(0, longestName);
    return path.parent_path() / ("." + name + "." + std::to_string(number) + ".zor-tmp");
}

/// Whoever writes a scrap holds its lock, which the system lets go with the program.
bool removeIfAbandoned(const fs::path& scrap) {
    const Descriptor file(::open(scrap.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return file && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0 && ::unlink(scrap.c_str()) == 0;
}

/// A new file beside the path, with the permissions every new file gets.
Descriptor createBeside(const fs::path& path, fs::path& scrap) {
    for (int number = 0; number < mostScraps; ++number) {
        scrap = scrapOf(path, number);
        removeIfAbandoned(scrap);
        Descriptor file(::open(scrap.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
        if (!file && errno != EEXIST) return file;
        if (!file) continue;
        // Before it had its lock it looked abandoned, and another program may be removing it or have done so. A file
        // system without locks is taken as it is.
        struct stat status {};
        const bool isBeingRemoved = ::flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        const bool isRemoved = ::fstat(file.number(), &status) == 0 && status.st_nlink == 0;
        if (!isBeingRemoved && !isRemoved) return file;
    }
    errno = EBUSY;
    return Descriptor(-1);
}

bool syncFolder(const fs::path& folder) {
    Descriptor descriptor(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor) return false;
    // Some file systems cannot sync a folder and say so; there is no more to be had from them.
    return ::fsync(descriptor.number()) == 0 || errno == EINVAL;
}

}  // namespace

Result<Bytes> readFile(const fs::path& path, std::uintmax_t limit) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return failure("read", path, errno);
    Bytes data;
    std::array<std::uint8_t, 1 << 16> buffer;
    for (;;) {
        const auto count = uninterrupted([&] { return ::read(file.number(), buffer.data(), buffer.size()); });
        if (count < 0) return failure("read", path, errno);
        if (count == 0) return data;
        if (static_cast<std::uintmax_t>(count) > limit - data.size()) return failure("read", path, EFBIG);
        data.insert(data.end(), buffer.begin(), buffer.begin() + count);
    }
}

void removeAbandonedScraps(const fs::path& path) {
    const auto target = followLinks(path);
    for (int number = 0; target && number < mostScraps; ++number) removeIfAbandoned(scrapOf(*target, number));
}

Status writeFileAtomically(const fs::path& path, std::span<const std::uint8_t> data) {
    const auto failed = [&path](int code) { return failure("write", path, code); };

    const auto target = followLinks(path);
    if (!target) return failed(ELOOP);
    struct stat old {};
    const bool exists = ::stat(target->c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return failed(errno);
    // A rename would put a file in the place of a device or a pipe.
    if (exists && !S_ISREG(old.st_mode)) return failed(S_ISDIR(old.st_mode) ? EISDIR : EINVAL);

    const WritingNote note(*target);
    fs::path scrap;
    Descriptor file = createBeside(*target, scrap);
    if (!file) return failed(errno);
    const bool replaced = writeAll(file.number(), data) &&
                          (!exists || ::fchmod(file.number(), old.st_mode & 07777) == 0) &&
                          ::fsync(file.number()) == 0 && ::rename(scrap.c_str(), target->c_str()) == 0;
    if (!replaced) {
        const int code = errno;
        ::unlink(scrap.c_str());
        return failed(code);
    }
    // Not closed before it has its name, as the lock goes with it.
    if (!file.close() || !syncFolder(target->parent_path())) return failed(errno);
    return success();
}

}  // namespace zor
