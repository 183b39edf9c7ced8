// SPDX-License-Identifier: MIT
// Values as text: what stands inside a VALUE element, and types by name.
// Functions without state; any thread may call them.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/String.h>

namespace wire {

/// Thrown for text that is no value of the type wanted. what() names the text and the type.
class MalformedValue : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The type of that name, "uint16" for example; absent for names that are none.
std::optional<Pegasus::CIMType> typeOfName(std::string_view name);

/// The value that UTF-8 text stands for.
///
/// Boolean: TRUE or FALSE in any case. Integers: decimal, or hexadecimal after 0x, with an
/// optional sign. Reals: decimal with optional fraction and exponent. char16: one character of the
/// basic plane. datetime: the 25 characters of a time stamp or interval. string: the text.
/// Throws MalformedValue for other text, numbers beyond the type's range, and for references, which
/// have no such text.
Pegasus::CIMValue parseValue(Pegasus::CIMType type, const std::string& text);

/// The array of what each text stands for; fails as parseValue() does.
Pegasus::CIMValue parseArray(Pegasus::CIMType type, const std::vector<std::string>& texts);

/// Appends a value as it stands in a VALUE element, escaped: TRUE or FALSE, decimal integers, reals
/// with 8 or 17 significant digits.
void appendValue(std::string& out, Pegasus::Boolean value);
void appendValue(std::string& out, Pegasus::Uint8 value);
void appendValue(std::string& out, Pegasus::Sint8 value);
void appendValue(std::string& out, Pegasus::Uint16 value);
void appendValue(std::string& out, Pegasus::Sint16 value);
void appendValue(std::string& out, Pegasus::Uint32 value);
void appendValue(std::string& out, Pegasus::Sint32 value);
void appendValue(std::string& out, Pegasus::Uint64 value);
void appendValue(std::string& out, Pegasus::Sint64 value);
void appendValue(std::string& out, Pegasus::Real32 value);
void appendValue(std::string& out, Pegasus::Real64 value);
void appendValue(std::string& out, const Pegasus::Char16& value);
void appendValue(std::string& out, const Pegasus::String& value);
void appendValue(std::string& out, const Pegasus::CIMDateTime& value);

}  // namespace wire
