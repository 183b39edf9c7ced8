// SPDX-License-Identifier: MIT
#include <optional>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include "pegasus/model/KeyInteger.h"
#include "pegasus/model/PathParts.h"

namespace Pegasus {

namespace {

CIMKeyBinding::Type keyTypeOf(const CIMValue& value) {
    if (value.isArray()) {
        throw TypeMismatchException();
    }
    switch (value.getType()) {
        case CIMTYPE_BOOLEAN:
            return CIMKeyBinding::BOOLEAN;
        case CIMTYPE_CHAR16:
        case CIMTYPE_STRING:
        case CIMTYPE_DATETIME:
            return CIMKeyBinding::STRING;
        case CIMTYPE_REFERENCE:
            return CIMKeyBinding::REFERENCE;
        case CIMTYPE_OBJECT:
        case CIMTYPE_INSTANCE:
            throw TypeMismatchException();
        default:
            return CIMKeyBinding::NUMERIC;
    }
}

bool equalNumbers(const String& x, const String& y) {
    const std::optional<KeyInteger> xNumber = parseKeyInteger(x, Sign::plusOrMinus);
    const std::optional<KeyInteger> yNumber = parseKeyInteger(y, Sign::plusOrMinus);
    return xNumber && yNumber && xNumber->isNegative == yNumber->isNegative &&
           xNumber->magnitude == yNumber->magnitude;
}

bool equalPaths(const String& x, const String& y) {
    PathParts xParts;
    PathParts yParts;
    return parsePath(x, xParts).size() == 0 && parsePath(y, yParts).size() == 0 && xParts == yParts;
}

}  // namespace

CIMKeyBinding::CIMKeyBinding(const CIMName& name, const CIMValue& value)
    : name_(name), value_(value.toString()), type_(keyTypeOf(value)) {}

// NOLINTNEXTLINE(readability-make-member-function-const): as OpenPegasus declares it
Boolean CIMKeyBinding::equal(const CIMValue& value) {
    return *this == CIMKeyBinding(name_, value);
}

Boolean operator==(const CIMKeyBinding& x, const CIMKeyBinding& y) {
    if (x.getType() != y.getType() || x.getName() != y.getName()) {
        return false;
    }
    if (x.getValue() == y.getValue()) {
        return true;
    }
    switch (x.getType()) {
        case CIMKeyBinding::BOOLEAN:
            return String::equalNoCase(x.getValue(), y.getValue());
        case CIMKeyBinding::STRING:
            return false;
        case CIMKeyBinding::NUMERIC:
            return equalNumbers(x.getValue(), y.getValue());
        case CIMKeyBinding::REFERENCE:
            return equalPaths(x.getValue(), y.getValue());
    }
    return false;
}

}  // namespace Pegasus
