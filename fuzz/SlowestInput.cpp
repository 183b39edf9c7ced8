// SPDX-License-Identifier: MIT
// Stands before the LLVMFuzzerTestOneInput of every target (the linker's --wrap) and says at the end what the slowest
// input took, for libFuzzer counts in seconds. In processor time, which does not depend on what else the machine does.
// Where the environment variable ZORVA_SLOWEST_INPUT names a file, the input is written there.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

extern "C" int __real_LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

double processorMilliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

class SlowestInput {
public:
    SlowestInput() = default;
    SlowestInput(const SlowestInput&) = delete;
    SlowestInput& operator=(const SlowestInput&) = delete;

    ~SlowestInput() {
        if (milliseconds_ < 0) {
            return;
        }
        std::fprintf(stderr, "slowest input: %.1f ms, %zu bytes\n", milliseconds_, input_.size());
        if (const char* const path = std::getenv("ZORVA_SLOWEST_INPUT")) {
            std::ofstream(path, std::ios::binary) << input_;
        }
    }

    void note(double milliseconds, const std::uint8_t* data, std::size_t size) {
        if (milliseconds > milliseconds_) {
            milliseconds_ = milliseconds;
            input_.assign(reinterpret_cast<const char*>(data), size);
        }
    }

private:
    double milliseconds_ = -1;
    std::string input_;
};

}  // namespace

extern "C" int __wrap_LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static SlowestInput slowest;
    // libFuzzer begins with an empty input; it makes what the target keeps for all others.
    static bool isFirst = true;
    const double begun = processorMilliseconds();
    const int result = __real_LLVMFuzzerTestOneInput(data, size);
    if (!isFirst) {
        slowest.note(processorMilliseconds() - begun, data, size);
    }
    isFirst = false;
    return result;
}
