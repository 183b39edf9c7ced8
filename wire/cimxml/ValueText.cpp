// SPDX-License-Identifier: MIT
#include "wire/cimxml/ValueText.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <type_traits>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/ValueTypes.h"
#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlText.h"

namespace wire {

namespace {

[[noreturn]] void malformed(Pegasus::CIMType type, const std::string& text) {
    // Enough to recognise the text by, which may be as long as a request; no character is cut.
    std::size_t shown = 64;
    while (shown < text.size() && (text[shown] & 0xC0) == 0x80) {
        --shown;
    }
    const std::string excerpt = text.size() <= shown ? text : text.substr(0, shown) + "...";
    throw MalformedValue("\"" + excerpt + "\" is not a valid " + Pegasus::cimTypeToString(type));
}

bool equalsNoCase(std::string_view text, std::string_view upperCase) {
    if (text.size() != upperCase.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) != upperCase[i]) {
            return false;
        }
    }
    return true;
}

/// An integer, decimal or hexadecimal, with an optional sign before either.
template <typename T>
std::optional<T> parseInteger(std::string_view text) {
    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);
        base = 16;
    }
    Pegasus::Uint64 magnitude = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, magnitude, base);
    if (error != std::errc() || rest != end) {
        return std::nullopt;
    }
    const auto largest = static_cast<Pegasus::Uint64>(std::numeric_limits<T>::max());
    if (!negative) {
        return magnitude <= largest ? std::optional<T>(static_cast<T>(magnitude)) : std::nullopt;
    }
    const Pegasus::Uint64 mostNegative = std::is_signed_v<T> ? largest + 1 : 0;
    if (magnitude > mostNegative) {
        return std::nullopt;
    }
    return static_cast<T>(0 - magnitude);
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
        if (equalsNoCase(text, "TRUE")) {
            value = true;
        } else if (equalsNoCase(text, "FALSE")) {
            value = false;
        }
    } else if constexpr (std::is_integral_v<T>) {
        value = parseInteger<T>(text);
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
        return Pegasus::CIMValue(parseScalar<typename decltype(tag)::type>(type, text));
    });
}

Pegasus::CIMValue parseArray(Pegasus::CIMType type, const std::vector<std::string>& texts) {
    refuseReference(type, texts.empty() ? std::string() : texts.front());
    return withType(type, [&](auto tag) {
        using T = typename decltype(tag)::type;
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
