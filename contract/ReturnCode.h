// SPDX-License-Identifier: MIT
// What the methods of the test answer.
#pragma once

#include <cstdint>

namespace contract {

/// The values that "RunTest" and "ClearResults" return.
enum class ReturnCode : std::uint32_t {
    success = 0,
    noResultRecord = 1024,        ///< there is no result record for this test and element
    testInProgress = 1028,        ///< the test is in progress on the element
    exclusiveTestRunning = 1034,  ///< a test that runs alone is in progress on the element
    notAReference = 1040,         ///< a parameter is not a reference
    noSuchElement = 1044,         ///< the element cannot be found, or has no properties
    absentParameter = 1050,       ///< a parameter is missing
};

}  // namespace contract
