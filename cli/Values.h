// SPDX-License-Identifier: MIT
// CIM values and instances as text, as JSON and as MOF.
// Functions without state; any thread may call them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMValue.h>
#include <nlohmann/json_fwd.hpp>

namespace usbhcdiag {

/// JSON objects keep the order in which the server delivered the properties. Only declared here: the
/// definition takes a second to compile, and most commands print whole documents.
using Json = nlohmann::ordered_json;

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

/// A value as JSON: numbers, booleans and arrays as such, null as null, everything else as text
/// (date and time, and references, in their CIM form).
Json jsonOf(const Pegasus::CIMValue& value);

/// An instance as an object of its properties.
Json jsonOf(const Pegasus::CIMInstance& instance);

/// Instances as an array of objects.
Json jsonOf(const Pegasus::Array<Pegasus::CIMInstance>& instances);

/// JSON documents of the same, indented, valid UTF-8 whatever the strings hold.
std::string documentOf(const Json& json);
std::string documentOf(const Pegasus::CIMInstance& instance);
std::string documentOf(const Pegasus::Array<Pegasus::CIMInstance>& instances);

/// An instance as MOF: "instance of Class { ... };". Null properties are left out.
std::string mofOf(const Pegasus::CIMInstance& instance);

}  // namespace usbhcdiag
