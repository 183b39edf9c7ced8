// SPDX-License-Identifier: MIT
// Reading an 8 KiB device list into the queue, beside one pass over the same bytes that splits the lines and
// lower-cases them: the least that a reader which ignores case can do.
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "tests/support/PrivateDeviceList.h"
#include "usbdevices/getString.h"
#include "usbdevices/result.h"

namespace {

/// A list as long as the reader takes: a sample over and over.
std::string longList() {
    constexpr std::size_t mostThatIsRead = 8192;
    std::ifstream file(ZORVA_DEVICE_LIST, std::ios::binary);
    const std::string sample{std::istreambuf_iterator<char>(file), {}};
    std::string list;
    while (list.size() < mostThatIsRead && !sample.empty()) {
        list += sample;
    }
    list.resize(mostThatIsRead);
    return list;
}

void splitAndLowerCase(benchmark::State& state) {
    const std::string list = longList();
    for ([[maybe_unused]] const auto& round : state) {
        std::vector<std::string> lines;
        std::string line;
        for (const char character : list) {
            if (character == '\n') {
                lines.push_back(line);
                line.clear();
            } else {
                line += lowerCase(character);
            }
        }
        benchmark::DoNotOptimize(lines.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(list.size()));
}
BENCHMARK(splitAndLowerCase);

void readIntoQueue(benchmark::State& state) {
    const std::string list = longList();
    PrivateDeviceList::show(list);
    std::ostringstream banner;
    std::streambuf* const output = std::cout.rdbuf(banner.rdbuf());
    std::size_t devices = 0;
    for ([[maybe_unused]] const auto& round : state) {
        result reader;
        devices = reader.GetUsbDeviceInfomation().size();
        banner.str({});
    }
    std::cout.rdbuf(output);
    state.counters["devices"] = static_cast<double>(devices);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(list.size()));
}
BENCHMARK(readIntoQueue);

}  // namespace

int main(int argc, char* argv[]) {
    PrivateDeviceList::enterOrExit();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
