// SPDX-License-Identifier: MIT
// CIM values and instances as text and as MOF.
// Functions without state; any thread may call them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <Pegasus/Common/CIMInstance.h>

namespace usbhcdiag {

/// A property's value if it is a number that is not part of an array.
std::optional<std::uint16_t> numberOf(const Pegasus::CIMInstance& instance, const char* property);

/// The elements of a property's value as UTF-8 texts, one for a scalar; none if the instance has no
/// such property or it is null.
std::vector<std::string> textsOf(const Pegasus::CIMInstance& instance, const char* property);

/// A property's value as UTF-8 text: textsOf() with ", " between the elements.
std::string textOf(const Pegasus::CIMInstance& instance, const char* property);

/// A date and time for people ("2026-03-08 07:01:00 -04:00") from its CIM form; "-" for an
/// interval, which stands where nothing has happened yet. Text of another form is returned as it is.
std::string dateForPeople(const std::string& cimForm);

/// An instance as MOF: "instance of Class { ... };". Null properties are left out.
std::string mofOf(const Pegasus::CIMInstance& instance);

}  // namespace usbhcdiag
