#include "tests/hostile/Resources.h"

#include <malloc.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "tests/support/Sanitizers.h"

namespace {

std::atomic<std::size_t> liveBytes = 0;
std::atomic<std::size_t> livePieces = 0;
std::atomic<std::size_t> allocatedBytes = 0;
std::atomic<std::size_t> mostBytes = 0;

void* counted(void* memory) {
    if (!memory) return nullptr;
    const std::size_t size = ::malloc_usable_size(memory);
    const std::size_t live = liveBytes += size;
    allocatedBytes += size;
    ++livePieces;
    std::size_t most = mostBytes;
    while (live > most && !mostBytes.compare_exchange_weak(most, live)) {
    }
    return memory;
}

void* taken(void* memory) {
    if (!memory) throw std::bad_alloc();
    return counted(memory);
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

// All forms of them: a sanitizer's own would not go together with these.
void* operator new(std::size_t size) {
    return taken(std::malloc(size == 0 ? 1 : size));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return taken(::memalign(static_cast<std::size_t>(alignment), size));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return counted(std::malloc(size == 0 ? 1 : size));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    return counted(::memalign(static_cast<std::size_t>(alignment), size));
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return operator new(size, alignment);
}
void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, nothrow);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t& nothrow) noexcept {
    return operator new(size, alignment, nothrow);
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
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    given(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
    given(memory);
}
void operator delete[](void* memory) noexcept {
    given(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    given(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept {
    given(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept {
    given(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    given(memory);
}
void operator delete[](void* memory, std::align_val_t, const std::nothrow_t&) noexcept {
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
    setTimer(isSanitized ? 10 * seconds : seconds);
}

TimeLimit::~TimeLimit() {
    setTimer(0);
}

bool wantsAll() {
    return std::getenv("ZOR_ALL") != nullptr;
}

}  // namespace zor::test
