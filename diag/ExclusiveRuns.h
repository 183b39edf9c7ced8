// SPDX-License-Identifier: MIT
// Tracks the exclusive tests that run, and decides whether another run may start.
// One thread at a time may use a table.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/Pair.h>

namespace Pegasus {

/// Pairs of an element's device ID and the name of an exclusive test that is running on it.
using ExclusiveRuns = Array<Pair<String, String>>;

/// What the decision about a run depends on.
struct ExclusivityFacts {
    bool isInUse;                ///< the test is running
    bool isExclusive;            ///< the test has the characteristic "exclusive"; only if in use
    bool isExclusiveForElement;  ///< the test's association with the element says so
};

/// Checks whether the test may run on the element. Returns return_code::success or
/// return_code::exclusiveTestRunning.
///
/// 1. A test that is exclusive and in use is rejected.
/// 2. A test that is not both exclusive for the element and in use may run.
/// 3. Otherwise recordExclusiveRun() decides.
Uint32 checkExclusivity(const ExclusivityFacts& facts, ExclusiveRuns& runs, const String& deviceId,
                        const String& testName);

/// Searches the runs for this one and adds it. Returns return_code::success or
/// return_code::exclusiveTestRunning.
///
/// 1. The search goes from the first entry to the last and reads the table's size again for each.
/// 2. An entry for this test and this element (both ignoring case) ends the search: rejected.
/// 3. For every other entry the pair is appended to the table, and the search continues.
/// 4. So an empty table stays empty and the test may run. If the first entry is a different run,
///    the search reaches the pair that it has just appended, and the test is rejected.
Uint32 recordExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName);

/// Removes this run (both texts ignoring case) from the table.
///
/// The position advances after a removal too, so the second of two adjacent matching entries stays.
void forgetExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName);

}  // namespace Pegasus
