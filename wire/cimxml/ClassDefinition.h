// SPDX-License-Identifier: MIT
// Class definitions as plain values: what the MOF reader reads, the repository keeps and resolves,
// and the codec writes. Values may be copied and read from any thread; none of them locks.
#pragma once

#include <vector>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>

namespace wire {

/// How a qualifier passes to subclasses and whether they may change it.
struct QualifierFlavor {
    bool overridable = true;    ///< EnableOverride, as opposed to DisableOverride
    bool toSubclass = true;     ///< ToSubclass, as opposed to Restricted
    bool translatable = false;  ///< Translatable

    bool operator==(const QualifierFlavor& other) const {
        return overridable == other.overridable && toSubclass == other.toSubclass &&
               translatable == other.translatable;
    }
};

/// A qualifier with its value, on a class or one of its elements. The value's type is the declared
/// one.
struct Qualifier {
    Pegasus::CIMName name;
    Pegasus::CIMValue value;
    QualifierFlavor flavor;
    bool propagated = false;  ///< taken over from the superclass
};

/// The qualifiers of one element, in the order written; a name stands at most once.
using Qualifiers = std::vector<Qualifier>;

/// The qualifier of that name (compared without case), or null.
const Qualifier* findQualifier(const Qualifiers& qualifiers, const Pegasus::CIMName& name);

/// Whether a Boolean qualifier is there and true; `otherwise` where it is absent.
bool isQualified(const Qualifiers& qualifiers, const Pegasus::CIMName& name,
                 bool otherwise = false);

/// The declaration of a qualifier type: what its values are and where it may stand.
struct QualifierDeclaration {
    Pegasus::CIMName name;
    Pegasus::CIMValue defaultValue;  ///< typed; null where none is declared
    QualifierFlavor flavor;
    std::vector<Pegasus::CIMName> scopes;  ///< "class", "association", "property", ..., or "any"
};

/// A property or reference of a class.
struct PropertyDefinition {
    Pegasus::CIMName name;
    Pegasus::CIMType type = Pegasus::CIMTYPE_STRING;
    bool isArray = false;
    Pegasus::Uint32 arraySize = 0;    ///< of a fixed-size array; 0: any size
    Pegasus::CIMName referenceClass;  ///< of a reference; otherwise null
    Pegasus::CIMValue defaultValue;   ///< always of `type` and array-ness; null where none is given
    Qualifiers qualifiers;
    Pegasus::CIMName classOrigin;  ///< the class that declared it first
    bool propagated = false;       ///< taken over from the superclass as it is

    bool isKey() const;
};

/// A parameter of a method.
struct ParameterDefinition {
    Pegasus::CIMName name;
    Pegasus::CIMType type = Pegasus::CIMTYPE_STRING;
    bool isArray = false;
    Pegasus::Uint32 arraySize = 0;
    Pegasus::CIMName referenceClass;  ///< of a reference; otherwise null
    Qualifiers qualifiers;

    bool isIn() const;   ///< [In], which is the default
    bool isOut() const;  ///< [Out]
};

/// A method of a class.
struct MethodDefinition {
    Pegasus::CIMName name;
    Pegasus::CIMType returnType = Pegasus::CIMTYPE_UINT32;
    std::vector<ParameterDefinition> parameters;
    Qualifiers qualifiers;
    Pegasus::CIMName classOrigin;
    bool propagated = false;

    /// The parameter of that name (compared without case), or null.
    const ParameterDefinition* findParameter(const Pegasus::CIMName& parameterName) const;
};

/// A class. As read from MOF it holds its own elements; as resolved by the repository also those of
/// its superclasses, marked `propagated`.
struct ClassDefinition {
    Pegasus::CIMName name;
    Pegasus::CIMName superclass;  ///< null at the root of a hierarchy
    Qualifiers qualifiers;
    std::vector<PropertyDefinition> properties;
    std::vector<MethodDefinition> methods;

    bool isAssociation() const;

    /// The element of that name (compared without case), or null.
    const PropertyDefinition* findProperty(const Pegasus::CIMName& propertyName) const;
    const MethodDefinition* findMethod(const Pegasus::CIMName& methodName) const;
};

}  // namespace wire
