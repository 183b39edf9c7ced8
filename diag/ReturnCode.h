// SPDX-License-Identifier: MIT
// The return codes of the methods of a diagnostic test.
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus::return_code {

constexpr Uint32 success = 0;
/// There is no result record for this test and element.
constexpr Uint32 noResultRecord = 1024;
/// The test is in progress for this element.
constexpr Uint32 testInProgress = 1028;
/// An exclusive test runs on the element.
constexpr Uint32 exclusiveTestRunning = 1034;
/// A parameter is no reference. As an estimated time: the test is unknown.
constexpr Uint32 notAReference = 1040;
/// The managed element cannot be resolved to an instance with properties.
constexpr Uint32 noSuchElement = 1044;
/// A parameter is absent.
constexpr Uint32 absentParameter = 1050;

}  // namespace Pegasus::return_code
