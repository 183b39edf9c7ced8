// SPDX-License-Identifier: MIT
#include "diag/ExclusiveRuns.h"

#include "diag/ReturnCode.h"

namespace Pegasus {
namespace {

bool isRunOf(const Pair<String, String>& run, const String& deviceId, const String& testName) {
    return String::equalNoCase(run.second, testName) && String::equalNoCase(run.first, deviceId);
}

}  // namespace

Uint32 checkExclusivity(const ExclusivityFacts& facts, ExclusiveRuns& runs, const String& deviceId,
                        const String& testName) {
    if (facts.isExclusive && facts.isInUse) {
        return return_code::exclusiveTestRunning;
    }
    if (facts.isExclusiveForElement && facts.isInUse) {
        return recordExclusiveRun(runs, deviceId, testName);
    }
    return return_code::success;
}

Uint32 recordExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName) {
    for (Uint32 i = 0; i < runs.size(); ++i) {
        if (isRunOf(runs[i], deviceId, testName)) {
            return return_code::exclusiveTestRunning;
        }
        runs.append(Pair<String, String>(deviceId, testName));
    }
    return return_code::success;
}

void forgetExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName) {
    for (Uint32 i = 0; i < runs.size(); ++i) {
        if (isRunOf(runs[i], deviceId, testName)) {
            runs.remove(i);
        }
    }
}

}  // namespace Pegasus
