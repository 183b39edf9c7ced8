// SPDX-License-Identifier: MIT
// Enumerating results: the time per result must not grow with their number.
#include <benchmark/benchmark.h>

#include "bench/library/Bench.h"
#include "contract/Names.h"
#include "tests/support/LogFolder.h"

namespace {

void enumerateResults(benchmark::State& state) {
    LogFolder folder;
    Bench bench;
    showDeviceList("");
    bench.makeResults(static_cast<int>(state.range(0)));
    std::int64_t results = 0;
    for (auto _ : state) {
        results +=
            static_cast<std::int64_t>(bench.client().instances(contract::classes::result).size());
    }
    state.SetItemsProcessed(results);
}
BENCHMARK(enumerateResults)->ArgName("results")->RangeMultiplier(10)->Range(10, 10000);

}  // namespace
