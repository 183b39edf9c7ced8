// SPDX-License-Identifier: MIT
#include "cli/ValueTexts.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <type_traits>

#include <Pegasus/Common/CIMProperty.h>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "base/Parts.h"
#include "cli/ValueElements.h"
#include "wire/cimxml/StringConversion.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using wire::toUtf8;

/// A property's value; null if the instance has no such property.
CIMValue valueOf(const CIMInstance& instance, const char* property) {
    const Uint32 position = instance.findProperty(CIMName(property));
    return position == PEG_NOT_FOUND ? CIMValue() : instance.getProperty(position).getValue();
}

/// With a point, which makes it a real.
std::string realText(double value) {
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::string text(digits.data(), end);
    return std::isfinite(value) && text.find_first_of(".e") == std::string::npos ? text + ".0"
                                                                                 : text;
}

std::string textOf(const ValueElement& element) {
    return std::visit(
        [](const auto& value) -> std::string {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, bool>) {
                return value ? "true" : "false";
            } else if constexpr (std::is_same_v<T, std::string>) {
                return value;
            } else if constexpr (std::is_same_v<T, double>) {
                return realText(value);
            } else {
                return std::to_string(value);
            }
        },
        element);
}

std::string mofString(const std::string& content) {
    constexpr std::string_view digits = base::upperHexDigits;
    std::string text = "\"";
    for (const char character : content) {
        const auto byte = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\') {
            text += std::string("\\") + character;
        } else if (byte < 0x20) {
            text += std::string("\\x00") + digits[byte >> 4U] + digits[byte & 15U];
        } else {
            text += character;
        }
    }
    return text + "\"";
}

/// A constant of MOF: strings, date and time and references in quotes.
std::string mofConstant(const ValueElement& element) {
    const std::string text = textOf(element);
    return std::holds_alternative<std::string>(element) ? mofString(text) : text;
}

std::string mofValue(const CIMValue& value) {
    std::string text;
    for (const ValueElement& element : elementsOf(value)) {
        base::appendPart(text, ", ", mofConstant(element));
    }
    if (!value.isArray()) {
        return text;
    }
    return text.empty() ? "{ }" : "{ " + text + " }";
}

bool isPointInTime(std::string_view text) {
    return text.size() == 25 && text[14] == '.' && (text[21] == '+' || text[21] == '-') &&
           base::parseDigits(text.substr(0, 14)) && base::parseDigits(text.substr(22));
}

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::optional<std::uint16_t> numberOf(const CIMInstance& instance, const char* property) {
    const CIMValue value = valueOf(instance, property);
    if (value.isArray() || value.isNull()) {
        return std::nullopt;
    }
    return std::visit(
        [](const auto& number) -> std::optional<std::uint16_t> {
            using T = std::decay_t<decltype(number)>;
            if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::string>) {
                return std::nullopt;
            } else {
                return static_cast<std::uint16_t>(number);
            }
        },
        elementsOf(value).front());
}

std::vector<std::string> textsOf(const CIMInstance& instance, const char* property) {
    std::vector<std::string> texts;
    for (const ValueElement& element : elementsOf(valueOf(instance, property))) {
        texts.push_back(textOf(element));
    }
    return texts;
}

std::string textOf(const CIMInstance& instance, const char* property) {
    return base::joined(textsOf(instance, property), ", ");
}

std::string dateForPeople(const std::string& cimForm) {
    if (cimForm.find(':') != std::string::npos || cimForm.empty()) {
        return "-";
    }
    if (!isPointInTime(cimForm)) {
        return cimForm;
    }
    const int offset = base::parseDigits<std::uint16_t>(cimForm.substr(22)).value_or(0);
    return cimForm.substr(0, 4) + "-" + cimForm.substr(4, 2) + "-" + cimForm.substr(6, 2) + " " +
           cimForm.substr(8, 2) + ":" + cimForm.substr(10, 2) + ":" + cimForm.substr(12, 2) + " " +
           cimForm[21] + twoDigits(offset / 60) + ":" + twoDigits(offset % 60);
}

std::string mofOf(const CIMInstance& instance) {
    std::string text = "instance of " + toUtf8(instance.getClassName().getString()) + " {\n";
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        const CIMValue& value = property.getValue();
        if (!value.isNull()) {
            text +=
                "    " + toUtf8(property.getName().getString()) + " = " + mofValue(value) + ";\n";
        }
    }
    return text + "};\n";
}

}  // namespace usbhcdiag
