#include "stations/history/HistoryWriter.h"

#include <chrono>
#include <iterator>
#include <utility>

#include "host/foundation/Log.h"

namespace zor {
namespace {

/// How long readings are gathered for one transaction, and how long a disk that fails is left in peace.
constexpr std::chrono::seconds kGatherTime{1};
constexpr std::chrono::seconds kRetryTime{10};
constexpr std::size_t kBatch = 500;

}  // namespace

HistoryWriter::HistoryWriter(std::filesystem::path path, HistoryFile::Opened opened)
    : path_(std::move(path)), file_(std::move(opened.file)), damage_(std::move(opened.damage)) {
    thread_ = std::thread([this] { run(); });
}

void HistoryWriter::append(SiteReading reading) {
    {
        const std::lock_guard lock(mutex_);
        if (closing_) return;
        waiting_.push_back(std::move(reading));
        ++taken_;
        drop();
    }
    wake_.notify_one();
}

/// The caller holds the lock.
void HistoryWriter::drop() {
    if (waiting_.size() <= kCapacity) return;
    if (!std::exchange(isDropping_, true)) logLine("The history loses its oldest unwritten readings");
    const auto excess = waiting_.size() - kCapacity;
    waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(excess));
    settled_ += excess;
}

Status HistoryWriter::flush() {
    std::unique_lock lock(mutex_);
    const auto goal = taken_;
    // An attempt may be under way that began without the newest readings; the one after it has them.
    const auto lastAttempt = attempts_ + 2;
    ++flushes_;
    wake_.notify_one();
    progress_.wait(lock, [&] { return settled_ >= goal || (trouble_ && attempts_ >= lastAttempt) || ended_; });
    --flushes_;
    return trouble_ ? Status(*trouble_) : success();
}

void HistoryWriter::close() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
}

bool HistoryWriter::isClosed() const {
    const std::lock_guard lock(mutex_);
    return closing_;
}

std::optional<Error> HistoryWriter::damage() const {
    const std::lock_guard lock(mutex_);
    return damage_;
}

std::optional<Error> HistoryWriter::trouble() const {
    const std::lock_guard lock(mutex_);
    return trouble_;
}

void HistoryWriter::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return closing_ || !waiting_.empty(); });
        if (waiting_.empty()) break;
        wake_.wait_for(lock, trouble_ ? kRetryTime : kGatherTime,
                       [this] { return closing_ || flushes_ > 0 || (!trouble_ && waiting_.size() >= kBatch); });
        auto batch = std::exchange(waiting_, {});
        lock.unlock();
        const auto written = write(batch);
        lock.lock();
        settle(std::move(batch), written);
        progress_.notify_all();
    }
    file_.reset();
    ended_ = true;
    progress_.notify_all();
}

/// The caller holds the lock.
void HistoryWriter::settle(std::deque<SiteReading> batch, const Status& written) {
    ++attempts_;
    if (written) {
        settled_ += batch.size();
        trouble_.reset();
        isDropping_ = false;
        return;
    }
    if (!trouble_) logLine("The history is not stored: " + written.error().message);
    trouble_ = written.error();
    if (closing_) {
        settled_ += batch.size() + std::exchange(waiting_, {}).size();
        return;
    }
    waiting_.insert(waiting_.begin(), std::move_iterator(batch.begin()), std::move_iterator(batch.end()));
    drop();
}

Status HistoryWriter::write(const std::deque<SiteReading>& batch) {
    // A file that somebody removed takes what is written into it along.
    std::error_code code;
    if (file_ && !std::filesystem::exists(path_, code)) file_.reset();
    if (!file_) {
        if (const auto opened = take(HistoryFile::openForWriting(path_)); !opened) return opened;
    }
    auto written = file_->write(batch);
    if (written || !file_->isDamaged()) return written;
    file_.reset();
    if (const auto opened = take(HistoryFile::beginAnew(path_, written.error())); !opened) return opened;
    return file_->write(batch);
}

Status HistoryWriter::take(Result<HistoryFile::Opened> opened) {
    if (!opened) return opened.error();
    file_ = std::move(opened->file);
    if (opened->damage) {
        logLine(opened->damage->message);
        const std::lock_guard lock(mutex_);
        damage_ = std::move(opened->damage);
    }
    return success();
}

}  // namespace zor
