// SPDX-License-Identifier: MIT
// The values of a result's "TestState".
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus::test_state {

constexpr Uint16 passed = 2;
constexpr Uint16 failed = 3;
constexpr Uint16 inProgress = 4;
/// A client asked to discontinue the test.
constexpr Uint16 stopped = 7;

}  // namespace Pegasus::test_state
