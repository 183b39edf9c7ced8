// SPDX-License-Identifier: MIT
// Which exclusive test runs on which element, and whether another run may start.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/Pair.h>

namespace Pegasus {

/// Pairs of an element's device ID and the name of an exclusive test that runs on it.
using ExclusiveRuns = Array<Pair<String, String>>;

/// What is known of a test that is about to run on an element.
struct ExclusivityFacts {
    bool isInUse;                ///< the test runs already
    bool isExclusive;            ///< the test has the characteristic "exclusive"; asked if in use
    bool isExclusiveForElement;  ///< its association with the element says so
};

/// Whether the test may run on the element: ReturnCode::SUCCESS or EXCLUSIVE_TEST_RUNNING.
///
/// 1. A test that is exclusive and in use is refused.
/// 2. One that is not both exclusive for the element and in use may run.
/// 3. For the others recordExclusiveRun() decides.
Uint32 checkExclusivity(const ExclusivityFacts& facts, ExclusiveRuns& runs, const String& deviceId,
                        const String& testName);

/// Walks the runs and enters this one; ReturnCode::SUCCESS or EXCLUSIVE_TEST_RUNNING.
///
/// 1. The walk goes from the first entry to the last, the size asked anew for each.
/// 2. An entry for this test and this element (both ignoring case) ends the walk: refused.
/// 3. For every other entry the pair is appended behind the last one, and the walk goes on.
/// 4. So an empty table gets no entry and the test may run; where the first entry is another's, the
///    walk reaches the pair that it has just appended, and the test is refused.
Uint32 recordExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName);

/// Walks the runs and removes this one.
///
/// The position advances after a removal too, so of two adjacent matching entries (both texts
/// ignoring case) the second stays.
void forgetExclusiveRun(ExclusiveRuns& runs, const String& deviceId, const String& testName);

}  // namespace Pegasus
