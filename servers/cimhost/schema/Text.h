// SPDX-License-Identifier: MIT
// Texts of the object model for messages and comparisons.
#pragma once

#include <string>

#include <Pegasus/Common/String.h>

namespace cimhost {

/// The UTF-8 of a string.
inline std::string utf8(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

}  // namespace cimhost
