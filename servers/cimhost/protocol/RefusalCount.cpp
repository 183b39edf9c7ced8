// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/RefusalCount.h"

#include <iostream>
#include <utility>

namespace cimhost {

RefusalCount::RefusalCount(std::string what) : what_(std::move(what)) {}

void RefusalCount::add() {
    const std::uint64_t count = ++count_;
    const bool isPowerOfTwo = (count & (count - 1)) == 0;
    if (isPowerOfTwo) {
        std::cerr << "cimhost: " + what_ + " (" + std::to_string(count) + " so far)\n";
    }
}

}  // namespace cimhost
