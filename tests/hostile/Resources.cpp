#include "tests/hostile/Resources.h"

#include <malloc.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBytes = 0;
std::atomic<std::size_t> livePieces = 0;
std::atomic<std::size_t> allocatedBytes = 0;
std::atomic<std::size_t> mostBytes = 0;

void* taken(void* memory) {
    if (!memory) throw std::bad_alloc();
    const std::size_t size = ::malloc_usable_size(memory);
    const std::size_t live = liveBytes += size;
    allocatedBytes += size;
    ++livePieces;
    std::size_t most = mostBytes;
    while (live > most && !mostBytes.compare_exchange_weak(most, live)) {
    }
    return memory;
}

void given(void* memory) {
    if (!memory) return;
    liveBytes -= ::malloc_usable_size(memory);
    --livePieces;
    std::free(memory);
}

char workInHand[256];

void outOfTime(int) {
    static constexpr char words[] = "takes too long: ";
    (void)!::write(STDERR_FILENO, words, sizeof words - 1);
    (void)!::write(STDERR_FILENO, workInHand, sizeof workInHand);
    ::_exit(1);
}

void setTimer(double seconds) {
    const auto whole = static_cast<time_t>(seconds);
    const itimerval timer{{}, {whole, static_cast<suseconds_t>((seconds - static_cast<double>(whole)) * 1e6)}};
    ::setitimer(ITIMER_PROF, &timer, nullptr);
}

}  // namespace

void* operator new(std::size_t size) {
    return taken(std::malloc(size == 0 ? 1 : size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return taken(::memalign(static_cast<std::size_t>(alignment), size));
}
void operator delete(void* memory) noexcept {
    given(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    given(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    given(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    given(memory);
}

namespace zor::test {

LiveMemory liveMemory() {
    return {liveBytes, livePieces};
}

MemoryMeter::MemoryMeter() : bytesAtStart_(liveBytes), allocatedAtStart_(allocatedBytes) {
    mostBytes = bytesAtStart_;
}

std::size_t MemoryMeter::peak() const {
    return mostBytes - bytesAtStart_;
}

std::size_t MemoryMeter::allocated() const {
    return allocatedBytes - allocatedAtStart_;
}

TimeLimit::TimeLimit(std::string work, double seconds) {
    std::snprintf(workInHand, sizeof workInHand, "%s\n", work.c_str());
    std::signal(SIGPROF, outOfTime);
    setTimer(seconds);
}

TimeLimit::~TimeLimit() {
    setTimer(0);
}

bool wantsAll() {
    return std::getenv("ZOR_ALL") != nullptr;
}

}  // namespace zor::test
