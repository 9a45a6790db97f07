#pragma once
// What a piece of work takes of memory and processor time.

#include <cstddef>
#include <string>

namespace zor::test {

/// Bytes and pieces of memory that the program holds at this moment, all threads together.
struct LiveMemory {
    std::size_t bytes = 0;
    std::size_t pieces = 0;
    bool operator==(const LiveMemory&) const = default;
};
LiveMemory liveMemory();

/// From its making on: the most bytes held at any moment beyond those held at the beginning, and all that were asked
/// for, which grows with the work done.
class MemoryMeter {
public:
    MemoryMeter();
    std::size_t peak() const;
    std::size_t allocated() const;

private:
    std::size_t bytesAtStart_;
    std::size_t allocatedAtStart_;
};

/// Ends the program with an error that names the work, where that takes more processor time than the seconds given, or
/// ten times as long under a sanitizer: work that may never end would otherwise only stop the tests.
class TimeLimit {
public:
    TimeLimit(std::string work, double seconds);
    TimeLimit(const TimeLimit&) = delete;
    TimeLimit& operator=(const TimeLimit&) = delete;
    ~TimeLimit();
};

/// Whether the variable asks for everything instead of a portion.
bool wantsAll();

}  // namespace zor::test
