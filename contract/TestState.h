// SPDX-License-Identifier: MIT
// How a run stands.
#pragma once

#include <cstdint>

namespace contract {

/// The values of a result's property "TestState".
enum class TestState : std::uint16_t {
    unknown = 0,
    passed = 2,
    failed = 3,
    inProgress = 4,
    stopped = 7,
};

}  // namespace contract
