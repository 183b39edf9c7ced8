// SPDX-License-Identifier: MIT
#include "wire/cimxml/ValueConversion.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <type_traits>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "base/Utf8.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueTypes.h"
#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

[[noreturn]] void malformed(Pegasus::CIMType type, const std::string& text) {
    // Enough to recognise the text by, which may be as long as a request.
    constexpr std::size_t longest = 64;
    const std::string_view shown = base::utf8Prefix(text, longest);
    throw MalformedValue("\"" + std::string(shown) + (shown.size() < text.size() ? "..." : "") +
                         "\" is not a valid " + Pegasus::cimTypeToString(type));
}

/// A decimal real: none of the other forms that strtod knows.
template <typename T>
std::optional<T> parseReal(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size()) {
        return std::nullopt;
    }
    // Also refuses the infinity that strtod makes of numbers beyond every range.
    constexpr auto largest = static_cast<double>(std::numeric_limits<T>::max());
    if (value > largest || value < -largest) {
        return std::nullopt;
    }
    return static_cast<T>(value);
}

std::optional<Pegasus::Char16> parseCharacter(const std::string& text) {
    const Pegasus::String character = fromUtf8(text);
    if (character.size() != 1) {
        return std::nullopt;
    }
    return character[0];
}

std::optional<Pegasus::CIMDateTime> parseDateTime(const std::string& text) {
    try {
        return Pegasus::CIMDateTime(fromUtf8(text));
    } catch (const Pegasus::Exception&) {
        return std::nullopt;
    }
}

template <typename T>
T parseScalar(Pegasus::CIMType type, const std::string& text) {
    std::optional<T> value;
    if constexpr (std::is_same_v<T, Pegasus::Boolean>) {
        if (base::equalIgnoringCase(text, "TRUE")) {
            value = true;
        } else if (base::equalIgnoringCase(text, "FALSE")) {
            value = false;
        }
    } else if constexpr (std::is_integral_v<T>) {
        value = base::parseInteger<T>(text);
    } else if constexpr (std::is_floating_point_v<T>) {
        value = parseReal<T>(text);
    } else if constexpr (std::is_same_v<T, Pegasus::Char16>) {
        value = parseCharacter(text);
    } else if constexpr (std::is_same_v<T, Pegasus::CIMDateTime>) {
        value = parseDateTime(text);
    } else {
        value = fromUtf8(text);
    }
    if (!value) {
        malformed(type, text);
    }
    return *value;
}

void refuseReference(Pegasus::CIMType type, const std::string& text) {
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        malformed(type, text);
    }
}

template <typename T>
void appendInteger(std::string& out, T value) {
    std::array<char, 24> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    out.append(digits.data(), end);
}

void appendReal(std::string& out, double value, int fractionDigits) {
    std::array<char, 48> digits{};
    const int length = std::snprintf(digits.data(), digits.size(), "%.*e", fractionDigits, value);
    out.append(digits.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::optional<Pegasus::CIMType> typeOfName(std::string_view name) {
    for (int i = Pegasus::CIMTYPE_BOOLEAN; i <= Pegasus::CIMTYPE_REFERENCE; ++i) {
        const auto type = static_cast<Pegasus::CIMType>(i);
        if (name == Pegasus::cimTypeToString(type)) {
            return type;
        }
    }
    return std::nullopt;
}

Pegasus::CIMValue parseValue(Pegasus::CIMType type, const std::string& text) {
    refuseReference(type, text);
    return withType(type, [&](auto tag) {
        return Pegasus::CIMValue(parseScalar<typename decltype(tag)::Type>(type, text));
    });
}

Pegasus::CIMValue parseArray(Pegasus::CIMType type, const std::vector<std::string>& texts) {
    refuseReference(type, texts.empty() ? std::string() : texts.front());
    return withType(type, [&](auto tag) {
        using T = typename decltype(tag)::Type;
        Pegasus::Array<T> values;
        values.reserveCapacity(static_cast<Pegasus::Uint32>(texts.size()));
        for (const std::string& text : texts) {
            values.append(parseScalar<T>(type, text));
        }
        return Pegasus::CIMValue(values);
    });
}

void appendValue(std::string& out, Pegasus::Boolean value) {
    out += value ? "TRUE" : "FALSE";
}

void appendValue(std::string& out, Pegasus::Uint8 value) {
    appendInteger<unsigned>(out, value);
}

void appendValue(std::string& out, Pegasus::Sint8 value) {
    appendInteger<int>(out, value);
}

void appendValue(std::string& out, Pegasus::Uint16 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Sint16 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Uint32 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Sint32 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Uint64 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Sint64 value) {
    appendInteger(out, value);
}

void appendValue(std::string& out, Pegasus::Real32 value) {
    appendReal(out, value, 7);
}

void appendValue(std::string& out, Pegasus::Real64 value) {
    appendReal(out, value, 16);
}

void appendValue(std::string& out, const Pegasus::Char16& value) {
    Pegasus::String text;
    text.append(value);
    appendText(out, text);
}

void appendValue(std::string& out, const Pegasus::String& value) {
    appendText(out, value);
}

void appendValue(std::string& out, const Pegasus::CIMDateTime& value) {
    appendText(out, value.toString());
}

}  // namespace wire
