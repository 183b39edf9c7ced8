// SPDX-License-Identifier: MIT
#include "servers/cimhost/mof/MofValue.h"

#include <cstdlib>
#include <limits>
#include <type_traits>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "wire/cimxml/ValueTypes.h"

namespace cimhost {

namespace {

using Pegasus::CIMType;
using Pegasus::CIMValue;

void requireKind(const MofLiteral& literal, MofLiteral::Kind kind, CIMType type) {
    if (literal.kind != kind) {
        throw MofError(literal.position,
                       std::string("this is no value of type ") + Pegasus::cimTypeToString(type));
    }
}

template <class Integer>
Integer toInteger(const MofLiteral& literal, CIMType type) {
    requireKind(literal, MofLiteral::Kind::integer, type);
    using Limits = std::numeric_limits<Integer>;
    const auto largest = static_cast<std::uint64_t>(Limits::max());
    const std::uint64_t limit =
        literal.negative ? (std::is_signed_v<Integer> ? largest + 1 : 0) : largest;
    if (literal.magnitude > limit) {
        throw MofError(literal.position,
                       (literal.negative ? "-" : "") + std::to_string(literal.magnitude) +
                           " is out of the range of " + Pegasus::cimTypeToString(type));
    }
    const std::uint64_t bits = literal.negative ? ~literal.magnitude + 1 : literal.magnitude;
    return static_cast<Integer>(bits);
}

template <class Real>
Real toReal(const MofLiteral& literal, CIMType type) {
    if (literal.kind == MofLiteral::Kind::integer) {
        const Real value = static_cast<Real>(literal.magnitude);
        return literal.negative ? -value : value;
    }
    requireKind(literal, MofLiteral::Kind::real, type);
    return static_cast<Real>(std::strtod(literal.text.c_str(), nullptr));
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Boolean& value) {
    requireKind(literal, MofLiteral::Kind::boolean, type);
    value = literal.magnitude != 0;
}

void read(const MofLiteral& literal, CIMType type, Pegasus::Char16& value) {
    requireKind(literal, MofLiteral::Kind::character, type);
    value = Pegasus::Char16(static_cast<Pegasus::Uint16>(literal.magnitude));
}

void read(const MofLiteral& literal, CIMType type, Pegasus::String& value) {
    requireKind(literal, MofLiteral::Kind::text, type);
    value = toString(literal.text, literal.position);
}

/// Sets a value from its form as text. Malformed text is refused: it "is `what`".
template <class Value>
void readText(const MofLiteral& literal, CIMType type, const char* what, Value& value) {
    requireKind(literal, MofLiteral::Kind::text, type);
    try {
        value.set(toString(literal.text, literal.position));
    } catch (const Pegasus::Exception&) {
        throw MofError(literal.position, "\"" + literal.text + "\" is " + what);
    }
}

void read(const MofLiteral& literal, CIMType type, Pegasus::CIMDateTime& value) {
    readText(literal, type, "no date, time or interval", value);
}

void read(const MofLiteral& literal, CIMType type, Pegasus::CIMObjectPath& value) {
    if (literal.kind == MofLiteral::Kind::reference) {
        value = literal.path;
        return;
    }
    readText(literal, type, "no object path", value);
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
    for (int number = Pegasus::CIMTYPE_BOOLEAN; number <= Pegasus::CIMTYPE_DATETIME; ++number) {
        const auto candidate = static_cast<CIMType>(number);
        if (base::equalIgnoringCase(word, Pegasus::cimTypeToString(candidate))) {
            type = candidate;
            return true;
        }
    }
    return false;
}

Pegasus::String toString(const std::string& text, const MofPosition& position) {
    try {
        return Pegasus::String(text.c_str());
    } catch (const Pegasus::Exception&) {
        throw MofError(position, "the text is not valid UTF-8");
    }
}

CIMValue toCimValue(const MofValue& value, CIMType type, bool isArray) {
    if (!value.isList && value.literals.front().kind == MofLiteral::Kind::null) {
        return CIMValue(type, isArray);
    }
    if (value.isList != isArray) {
        throw MofError(value.position, isArray ? "a list in braces is needed here"
                                               : "a single value is needed here, not a list");
    }
    if (type == Pegasus::CIMTYPE_REFERENCE) {
        return convert<Pegasus::CIMObjectPath>(value, type, isArray);
    }
    return wire::withType(type, [&](auto tag) {
        return convert<typename decltype(tag)::Type>(value, type, isArray);
    });
}

}  // namespace cimhost
