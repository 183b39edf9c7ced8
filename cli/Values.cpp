// SPDX-License-Identifier: MIT
#include "cli/Values.h"

#include <cstdint>
#include <string_view>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <nlohmann/json.hpp>

#include "base/Ascii.h"
#include "base/Integers.h"
#include "wire/cimxml/StringConversion.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;
using wire::toUtf8;

template <typename T>
Json scalar(const T& value) {
    return value;
}

Json scalar(const String& value) {
    return toUtf8(value);
}

Json scalar(const Char16& value) {
    return toUtf8(String(&value, 1));
}

Json scalar(const CIMDateTime& value) {
    return toUtf8(value.toString());
}

Json scalar(const CIMObjectPath& value) {
    return toUtf8(value.toString());
}

template <typename T>
Json typed(const CIMValue& value) {
    if (!value.isArray()) {
        T single{};
        value.get(single);
        return scalar(single);
    }
    Array<T> elements;
    value.get(elements);
    Json array = Json::array();
    for (Uint32 i = 0; i < elements.size(); ++i) {
        array.push_back(scalar(elements[i]));
    }
    return array;
}

/// A property's value as JSON; null if the instance has no such property.
Json valueOf(const CIMInstance& instance, const char* property) {
    const Uint32 position = instance.findProperty(CIMName(property));
    return position == PEG_NOT_FOUND ? Json() : jsonOf(instance.getProperty(position).getValue());
}

std::string textOf(const Json& json) {
    return json.is_string() ? json.get<std::string>() : json.dump();
}

/// A constant of MOF: strings, date and time and references in quotes, everything else as in JSON.
std::string mofConstant(const Json& json) {
    if (!json.is_string()) {
        return json.dump();
    }
    std::string text = "\"";
    for (const char character : json.get<std::string>()) {
        constexpr std::string_view digits = base::upperHexDigits;
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

std::string mofValue(const Json& json) {
    if (!json.is_array()) {
        return mofConstant(json);
    }
    std::string text;
    for (const Json& element : json) {
        text += text.empty() ? " " : ", ";
        text += mofConstant(element);
    }
    return "{" + text + " }";
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
    const Json value = valueOf(instance, property);
    return value.is_number() ? std::optional(value.get<std::uint16_t>()) : std::nullopt;
}

std::vector<std::string> textsOf(const CIMInstance& instance, const char* property) {
    const Json value = valueOf(instance, property);
    std::vector<std::string> texts;
    // The one element of a scalar is the scalar; null has none.
    for (const Json& element : value) {
        texts.push_back(textOf(element));
    }
    return texts;
}

std::string textOf(const CIMInstance& instance, const char* property) {
    std::string text;
    for (const std::string& element : textsOf(instance, property)) {
        text += (text.empty() ? "" : ", ") + element;
    }
    return text;
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

Json jsonOf(const CIMValue& value) {
    if (value.isNull()) {
        return nullptr;
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return typed<Boolean>(value);
        case CIMTYPE_UINT8:
            return typed<Uint8>(value);
        case CIMTYPE_SINT8:
            return typed<Sint8>(value);
        case CIMTYPE_UINT16:
            return typed<Uint16>(value);
        case CIMTYPE_SINT16:
            return typed<Sint16>(value);
        case CIMTYPE_UINT32:
            return typed<Uint32>(value);
        case CIMTYPE_SINT32:
            return typed<Sint32>(value);
        case CIMTYPE_UINT64:
            return typed<Uint64>(value);
        case CIMTYPE_SINT64:
            return typed<Sint64>(value);
        case CIMTYPE_REAL32:
            return typed<Real32>(value);
        case CIMTYPE_REAL64:
            return typed<Real64>(value);
        case CIMTYPE_CHAR16:
            return typed<Char16>(value);
        case CIMTYPE_STRING:
            return typed<String>(value);
        case CIMTYPE_DATETIME:
            return typed<CIMDateTime>(value);
        case CIMTYPE_REFERENCE:
            return typed<CIMObjectPath>(value);
        default:
            return toUtf8(value.toString());
    }
}

Json jsonOf(const CIMInstance& instance) {
    Json object = Json::object();
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        object[toUtf8(property.getName().getString())] = jsonOf(property.getValue());
    }
    return object;
}

Json jsonOf(const Array<CIMInstance>& instances) {
    Json array = Json::array();
    for (Uint32 i = 0; i < instances.size(); ++i) {
        array.push_back(jsonOf(instances[i]));
    }
    return array;
}

std::string documentOf(const Json& json) {
    constexpr int indentation = 2;
    return json.dump(indentation, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string documentOf(const CIMInstance& instance) {
    return documentOf(jsonOf(instance));
}

std::string documentOf(const Array<CIMInstance>& instances) {
    return documentOf(jsonOf(instances));
}

std::string mofOf(const CIMInstance& instance) {
    std::string text = "instance of " + toUtf8(instance.getClassName().getString()) + " {\n";
    const Json properties = jsonOf(instance);
    for (const auto& [name, value] : properties.items()) {
        if (!value.is_null()) {
            text += "    " + name + " = " + mofValue(value) + ";\n";
        }
    }
    return text + "};\n";
}

}  // namespace usbhcdiag
