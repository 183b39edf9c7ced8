// SPDX-License-Identifier: MIT
#include "host/mof/MofValue.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <strings.h>

#include <cstdlib>
#include <limits>
#include <type_traits>

namespace cimhost {

namespace {

using Pegasus::CIMType;
using Pegasus::CIMValue;

struct TypeKeyword {
    const char* keyword;
    CIMType type;
};

constexpr TypeKeyword typeKeywords[] = {
    {"boolean", Pegasus::CIMTYPE_BOOLEAN},    {"uint8", Pegasus::CIMTYPE_UINT8},
    {"sint8", Pegasus::CIMTYPE_SINT8},        {"uint16", Pegasus::CIMTYPE_UINT16},
    {"sint16", Pegasus::CIMTYPE_SINT16},      {"uint32", Pegasus::CIMTYPE_UINT32},
    {"sint32", Pegasus::CIMTYPE_SINT32},      {"uint64", Pegasus::CIMTYPE_UINT64},
    {"sint64", Pegasus::CIMTYPE_SINT64},      {"real32", Pegasus::CIMTYPE_REAL32},
    {"real64", Pegasus::CIMTYPE_REAL64},      {"char16", Pegasus::CIMTYPE_CHAR16},
    {"string", Pegasus::CIMTYPE_STRING},      {"datetime", Pegasus::CIMTYPE_DATETIME},
    {"reference", Pegasus::CIMTYPE_REFERENCE}};

[[noreturn]] void failKind(const MofLiteral& literal, CIMType type) {
    throw MofError(literal.position, std::string("this is no value of type ") + typeName(type));
}

template <class Integer>
Integer toInteger(const MofLiteral& literal, CIMType type) {
    if (literal.kind != MofLiteral::Kind::Integer) {
        failKind(literal, type);
    }
    using Limits = std::numeric_limits<Integer>;
    const auto largest = static_cast<std::uint64_t>(Limits::max());
    const std::uint64_t limit =
        literal.negative ? (std::is_signed_v<Integer> ? largest + 1 : 0) : largest;
    if (literal.magnitude > limit) {
        throw MofError(literal.position, (literal.negative ? "-" : "") +
                                             std::to_string(literal.magnitude) +
                                             " is out of the range of " + typeName(type));
    }
    const std::uint64_t bits = literal.negative ? ~literal.magnitude + 1 : literal.magnitude;
    return static_cast<Integer>(bits);
}

template <class Real>
Real toReal(const MofLiteral& literal, CIMType type) {
    if (literal.kind == MofLiteral::Kind::Integer) {
        const Real value = static_cast<Real>(literal.magnitude);
        return literal.negative ? -value : value;
    }
    if (literal.kind != MofLiteral::Kind::Real) {
        failKind(literal, type);
    }
    return static_cast<Real>(std::strtod(literal.text.c_str(), nullptr));
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Boolean& value) {
    if (literal.kind != MofLiteral::Kind::Boolean) {
        failKind(literal, type);
    }
    value = literal.magnitude != 0;
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Char16& value) {
    if (literal.kind != MofLiteral::Kind::Character) {
        failKind(literal, type);
    }
    value = Pegasus::Char16(static_cast<Pegasus::Uint16>(literal.magnitude));
}

void read(const MofLiteral& literal, CIMType type, Pegasus::String& value) {
    if (literal.kind != MofLiteral::Kind::Text) {
        failKind(literal, type);
    }
    value = toString(literal.text, literal.position);
}

void read(const MofLiteral& literal, CIMType type, Pegasus::CIMDateTime& value) {
    if (literal.kind != MofLiteral::Kind::Text) {
        failKind(literal, type);
    }
    try {
        value.set(toString(literal.text, literal.position));
    } catch (const Pegasus::Exception&) {
        throw MofError(literal.position, "\"" + literal.text + "\" is no date, time or interval");
    }
}

void read(const MofLiteral& literal, CIMType type, Pegasus::CIMObjectPath& value) {
    if (literal.kind == MofLiteral::Kind::Reference) {
        value = literal.path;
        return;
    }
    if (literal.kind != MofLiteral::Kind::Text) {
        failKind(literal, type);
    }
    try {
        value.set(toString(literal.text, literal.position));
    } catch (const Pegasus::Exception&) {
        throw MofError(literal.position, "\"" + literal.text + "\" is no object path");
    }
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Real32& value) {
    value = toReal<Pegasus::Real32>(literal, type);
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Real64& value) {
    value = toReal<Pegasus::Real64>(literal, type);
}

template <class Integer>
void read(const MofLiteral& literal, CIMType type, Integer& value) {
    value = toInteger<Integer>(literal, type);
}

template <class Element>
CIMValue convert(const MofValue& value, CIMType type, bool isArray) {
    if (!isArray) {
        Element element{};
        read(value.literals.front(), type, element);
        return CIMValue(element);
    }
    Pegasus::Array<Element> elements;
    for (const MofLiteral& literal : value.literals) {
        Element element{};
        read(literal, type, element);
        elements.append(element);
    }
    return CIMValue(elements);
}

}  // namespace

bool parseTypeName(const std::string& word, CIMType& type) {
    for (const TypeKeyword& entry : typeKeywords) {
        if (entry.type != Pegasus::CIMTYPE_REFERENCE &&
            strcasecmp(word.c_str(), entry.keyword) == 0) {
            type = entry.type;
            return true;
        }
    }
    return false;
}

const char* typeName(CIMType type) {
    for (const TypeKeyword& entry : typeKeywords) {
        if (entry.type == type) {
            return entry.keyword;
        }
    }
    return "object";
}

Pegasus::String toString(const std::string& text, const MofPosition& position) {
    try {
        return Pegasus::String(text.c_str());
    } catch (const Pegasus::Exception&) {
        throw MofError(position, "the text is not valid UTF-8");
    }
}

CIMValue toCimValue(const MofValue& value, CIMType type, bool isArray) {
    if (!value.isList && value.literals.front().kind == MofLiteral::Kind::Null) {
        return CIMValue(type, isArray);
    }
    if (value.isList != isArray) {
        throw MofError(value.position, isArray ? "a list in braces is needed here"
                                               : "a single value is needed here, not a list");
    }
    switch (type) {
        case Pegasus::CIMTYPE_BOOLEAN:
            return convert<Pegasus::Boolean>(value, type, isArray);
        case Pegasus::CIMTYPE_UINT8:
            return convert<Pegasus::Uint8>(value, type, isArray);
        case Pegasus::CIMTYPE_SINT8:
            return convert<Pegasus::Sint8>(value, type, isArray);
        case Pegasus::CIMTYPE_UINT16:
            return convert<Pegasus::Uint16>(value, type, isArray);
        case Pegasus::CIMTYPE_SINT16:
            return convert<Pegasus::Sint16>(value, type, isArray);
        case Pegasus::CIMTYPE_UINT32:
            return convert<Pegasus::Uint32>(value, type, isArray);
        case Pegasus::CIMTYPE_SINT32:
            return convert<Pegasus::Sint32>(value, type, isArray);
        case Pegasus::CIMTYPE_UINT64:
            return convert<Pegasus::Uint64>(value, type, isArray);
        case Pegasus::CIMTYPE_SINT64:
            return convert<Pegasus::Sint64>(value, type, isArray);
        case Pegasus::CIMTYPE_REAL32:
            return convert<Pegasus::Real32>(value, type, isArray);
        case Pegasus::CIMTYPE_REAL64:
            return convert<Pegasus::Real64>(value, type, isArray);
        case Pegasus::CIMTYPE_CHAR16:
            return convert<Pegasus::Char16>(value, type, isArray);
        case Pegasus::CIMTYPE_STRING:
            return convert<Pegasus::String>(value, type, isArray);
        case Pegasus::CIMTYPE_DATETIME:
            return convert<Pegasus::CIMDateTime>(value, type, isArray);
        case Pegasus::CIMTYPE_REFERENCE:
            return convert<Pegasus::CIMObjectPath>(value, type, isArray);
        default:
            throw MofError(value.position, "there are no literals of this type");
    }
}

}  // namespace cimhost
