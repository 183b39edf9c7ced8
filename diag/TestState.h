// SPDX-License-Identifier: MIT
// The values of a result's "TestState".
#pragma once

#include <Pegasus/Common/Config.h>

namespace Pegasus::TestState {

constexpr Uint16 PASSED = 2;
constexpr Uint16 FAILED = 3;
constexpr Uint16 IN_PROGRESS = 4;
constexpr Uint16 STOPPED = 7;

}  // namespace Pegasus::TestState
