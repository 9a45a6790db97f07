// Stands in for libFuzzer where the compiler has none: TARGET RUNS FOLDER gives a target so many changed inputs, made
// from the files of the folder, the same ones every time. It does not learn which of them reach something new.

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>
#include <vector>

#include "host/foundation/SafeFile.h"

using namespace zor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int*, char***);

namespace {

/// What an input may grow by.
constexpr std::size_t mostGrowth = 4096;
constexpr unsigned secondsOfHang = 60;

std::minstd_rand plainRandom;

std::size_t below(std::size_t end) {
    return end == 0 ? 0 : plainRandom() % end;
}

std::vector<Bytes> inputsOf(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<Bytes> inputs;
    for (const auto& file : files) {
        if (auto data = readFile(file)) inputs.push_back(std::move(*data));
    }
    return inputs;
}

}  // namespace

/// A change that knows nothing of the format: a byte replaced, a bit turned, bytes left out, doubled or put in.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize) {
    constexpr std::array<std::uint8_t, 8> telling{0x00, 0x01, 0x7F, 0x80, 0xFF, 0x0F, 0xD0, 0x5F};
    const std::size_t place = below(size);
    const std::size_t count = std::min(1 + below(8), size - place);
    switch (size == 0 ? 4 : plainRandom() % 5) {
        case 0:
            data[place] = telling[below(telling.size())];
            return size;
        case 1:
            data[place] ^= static_cast<std::uint8_t>(1U << below(8));
            return size;
        case 2:
            std::memmove(data + place, data + place + count, size - place - count);
            return size - count;
        case 3:
            if (size + count > maxSize) return size;
            std::memmove(data + place + count, data + place, size - place);
            return size + count;
        default:
            if (size + 1 > maxSize) return size;
            std::memmove(data + place + 1, data + place, size - place);
            data[place] = static_cast<std::uint8_t>(plainRandom());
            return size + 1;
    }
}

int main(int argc, char** argv) {
    if (argc != 3) return std::fprintf(stderr, "usage: %s RUNS FOLDER\n", argv[0]), 2;
    const long runs = std::strtol(argv[1], nullptr, 10);
    const auto inputs = inputsOf(argv[2]);
    if (inputs.empty() || runs <= 0) return std::fprintf(stderr, "nothing to run\n"), 2;
    if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&argc, &argv);
    signal(SIGALRM, [](int) { std::abort(); });
    for (long run = 0; run < runs; ++run) {
        alarm(secondsOfHang);
        Bytes input = inputs[below(inputs.size())];
        const std::size_t largest = input.size() + mostGrowth;
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            const std::size_t size = input.size();
            input.resize(largest);
            input.resize(LLVMFuzzerCustomMutator(input.data(), size, largest, static_cast<unsigned>(plainRandom())));
        }
        input.shrink_to_fit();
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    std::printf("%ld runs\n", runs);
    return 0;
}
