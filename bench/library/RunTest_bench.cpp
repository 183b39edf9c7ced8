// SPDX-License-Identifier: MIT
// A whole run, against its own log writes alone and with results of other elements in the table.
#include <cstdlib>
#include <iostream>

#include <benchmark/benchmark.h>

#include "bench/library/Bench.h"
#include "diag/ZORVA_DiagUtils.h"
#include "tests/support/LogFolder.h"

namespace {

// What one run logs, message by message.
const std::vector<const char*> logOfARun = {
    "\n\n\nIn Invoke Method\n",
    "         DeviceID is: 1 \n",
    "      In ZORVA_UsbHc_DiagResult::buildTestResult\n",
    "      btr point 1 \n",
    "  in SystemInfo \n",
    "      btr point 3 \n",
    "         in verifySettings \n",
    "   In ZORVA_UsbHc_DiagTest constructor\n",
    "      In ZORVA_UsbHc_DiagTest::buildTests\n",
    "  in SystemInfo \n",
    "      Retrieved system information...building tests...\n",
    "      Leaving ZORVA_UsbHc_DiagTest::buildTests\n",
    "   Leaving ZORVA_UsbHc_DiagTest constructor\n",
    "         in executeTest \n",
    "   In ZORVA_UsbHc_DiagTest constructor\n",
    "      In ZORVA_UsbHc_DiagTest::buildTests\n",
    "  in SystemInfo \n",
    "      Retrieved system information...building tests...\n",
    "      Leaving ZORVA_UsbHc_DiagTest::buildTests\n",
    "   Leaving ZORVA_UsbHc_DiagTest constructor\n",
    "In GetUsbDeviceInformation Test  \n",
    "         in UsbHc_ \n",
    "DeviceID is: ",
    "",
    "\n",
    "      TEST COMPLETE \n"};

void writeLogOfARun() {
    for (const char* message : logOfARun) {
        Pegasus::ZORVA_DiagUtils::DEBUG_PRINT(message);
    }
}

// Ends the program if a run does not log exactly what writeLogOfARun() writes.
void checkLogOfARun(Bench& bench) {
    LogFolder folder;
    bench.run(1);
    const std::string ofTheRun = folder.take();
    writeLogOfARun();
    if (folder.take() != ofTheRun) {
        std::cerr << "a run logs something else:\n" << ofTheRun;
        std::abort();
    }
}

void logWritesAlone(benchmark::State& state) {
    LogFolder folder;
    for (auto _ : state) {
        writeLogOfARun();
    }
}
BENCHMARK(logWritesAlone);

void runTest(benchmark::State& state) {
    LogFolder folder;
    Bench bench;
    checkLogOfARun(bench);
    showDeviceList("");
    bench.makeResults(static_cast<int>(state.range(0)) + 1);
    showDeviceList(eightKibibyteList());
    for (auto _ : state) {
        bench.run(1);
    }
}
BENCHMARK(runTest)->ArgName("otherResults")->Arg(0)->Arg(100);

}  // namespace
