// SPDX-License-Identifier: MIT
// From the type of a value, known when the program runs, to the C++ type that holds it.
#pragma once

#include <stdexcept>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/String.h>

namespace wire {

/// Carries a C++ type as an argument.
template <typename T>
struct TypeTag {
    using Type = T;
};

/// Calls visit(TypeTag<T>()) with the C++ type that holds one value of `type`. Throws
/// std::invalid_argument for references and for types that the object model does not hold, which
/// callers treat before.
template <typename Visit>
auto withType(Pegasus::CIMType type, Visit visit) {
    switch (type) {
        case Pegasus::CIMTYPE_BOOLEAN:
            return visit(TypeTag<Pegasus::Boolean>());
        case Pegasus::CIMTYPE_UINT8:
            return visit(TypeTag<Pegasus::Uint8>());
        case Pegasus::CIMTYPE_SINT8:
            return visit(TypeTag<Pegasus::Sint8>());
        case Pegasus::CIMTYPE_UINT16:
            return visit(TypeTag<Pegasus::Uint16>());
        case Pegasus::CIMTYPE_SINT16:
            return visit(TypeTag<Pegasus::Sint16>());
        case Pegasus::CIMTYPE_UINT32:
            return visit(TypeTag<Pegasus::Uint32>());
        case Pegasus::CIMTYPE_SINT32:
            return visit(TypeTag<Pegasus::Sint32>());
        case Pegasus::CIMTYPE_UINT64:
            return visit(TypeTag<Pegasus::Uint64>());
        case Pegasus::CIMTYPE_SINT64:
            return visit(TypeTag<Pegasus::Sint64>());
        case Pegasus::CIMTYPE_REAL32:
            return visit(TypeTag<Pegasus::Real32>());
        case Pegasus::CIMTYPE_REAL64:
            return visit(TypeTag<Pegasus::Real64>());
        case Pegasus::CIMTYPE_CHAR16:
            return visit(TypeTag<Pegasus::Char16>());
        case Pegasus::CIMTYPE_STRING:
            return visit(TypeTag<Pegasus::String>());
        case Pegasus::CIMTYPE_DATETIME:
            return visit(TypeTag<Pegasus::CIMDateTime>());
        default:
            throw std::invalid_argument("a value of a type without text");
    }
}

}  // namespace wire
