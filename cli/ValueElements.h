// SPDX-License-Identifier: MIT
// CIM values in the few types that their texts differ by.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include <Pegasus/Common/CIMValue.h>

namespace usbhcdiag {

/// A number and a truth value as such, everything else as its UTF-8 text (date and time, and
/// references, in their CIM form).
using ValueElement = std::variant<bool, std::uint64_t, std::int64_t, double, std::string>;

/// The elements of a value, one for a scalar, none for null. Any thread may call it.
std::vector<ValueElement> elementsOf(const Pegasus::CIMValue& value);

}  // namespace usbhcdiag
