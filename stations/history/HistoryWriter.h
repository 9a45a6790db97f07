#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

#include "stations/history/HistoryFile.h"

namespace zor {

/// The thread that writes the history store's file: readings are queued and written in transactions.
class HistoryWriter {
public:
    /// Beyond this many readings the oldest that wait are dropped: half a day of one station whose disk is full.
    static constexpr std::size_t kCapacity = 20000;

    HistoryWriter(std::filesystem::path path, HistoryFile::Opened opened);
    ~HistoryWriter() { close(); }

    void append(SiteReading reading);
    Status flush();
    /// Writes what is left, once, and closes the file; nothing is taken after it.
    void close();

    const std::filesystem::path& path() const { return path_; }
    bool isClosed() const;
    std::optional<Error> damage() const;
    std::optional<Error> trouble() const;

private:
    void run();
    void drop();
    void settle(std::deque<SiteReading> batch, const Status& written);
    Status write(const std::deque<SiteReading>& batch);
    Status take(Result<HistoryFile::Opened> opened);

    const std::filesystem::path path_;
    /// The writing thread's alone; none while it cannot be opened.
    std::optional<HistoryFile> file_;

    mutable std::mutex mutex_;
    /// There is something to do, and something was done.
    std::condition_variable wake_;
    std::condition_variable progress_;
    std::deque<SiteReading> waiting_;
    /// Readings taken and readings dealt with, and attempts to write, since the start.
    std::uint64_t taken_ = 0;
    std::uint64_t settled_ = 0;
    std::uint64_t attempts_ = 0;
    int flushes_ = 0;
    bool closing_ = false;
    bool ended_ = false;
    bool isDropping_ = false;
    std::optional<Error> damage_;
    std::optional<Error> trouble_;
    std::thread thread_;
};

}  // namespace zor
