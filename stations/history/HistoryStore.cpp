#include "stations/history/HistoryStore.h"

#include "host/foundation/Log.h"
#include "stations/history/HistoryWriter.h"

namespace zor {
namespace {

constexpr std::size_t kMostSamples = 20000;

class StoreLoader : public HistoryLoader {
public:
    StoreLoader(std::shared_ptr<HistoryWriter> writer, std::string site)
        : writer_(std::move(writer)), site_(std::move(site)) {}

    std::vector<Sample> load(std::string_view key, Seconds from, Seconds to) override {
        if (writer_->isClosed() || !(from <= to)) return {};
        // What cannot be written now does not hide what is there already.
        static_cast<void>(writer_->flush());
        auto samples = HistoryFile::read(writer_->path(), site_, key, from, to, kMostSamples);
        if (samples) return std::move(*samples);
        logLine("The history cannot be read: " + samples.error().message);
        return {};
    }

private:
    const std::shared_ptr<HistoryWriter> writer_;
    const std::string site_;
};

}  // namespace

Result<std::shared_ptr<HistoryStore>> HistoryStore::open(const std::filesystem::path& path) {
    std::error_code code;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), code);
    if (code) return Error{"“" + path.parent_path().string() + "”: the folder cannot be made: " + code.message()};
    auto opened = HistoryFile::openForWriting(path);
    if (!opened) return opened.error();
    if (opened->damage) logLine(opened->damage->message);
    return std::shared_ptr<HistoryStore>(new HistoryStore(std::make_shared<HistoryWriter>(path, std::move(*opened))));
}

HistoryStore::~HistoryStore() {
    writer_->close();
}

std::optional<Error> HistoryStore::damage() const {
    return writer_->damage();
}

std::optional<Error> HistoryStore::trouble() const {
    return writer_->trouble();
}

void HistoryStore::append(std::string site, Reading reading) {
    writer_->append({std::move(site), std::move(reading)});
}

Status HistoryStore::flush() {
    return writer_->flush();
}

std::shared_ptr<HistoryLoader> HistoryStore::loader(std::string site) const {
    return std::make_shared<StoreLoader>(writer_, std::move(site));
}

}  // namespace zor
