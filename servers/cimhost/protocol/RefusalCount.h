// SPDX-License-Identifier: MIT
// Tells the administrator how often something was refused, without letting clients fill the log.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace cimhost {

/// Counts, and writes the number to standard error each time that it has doubled, in a line
/// "cimhost: WHAT (N so far)". Any number of threads may add.
class RefusalCount {
public:
    explicit RefusalCount(std::string what);

    void add();

private:
    const std::string what_;
    std::atomic<std::uint64_t> count_{0};
};

}  // namespace cimhost
