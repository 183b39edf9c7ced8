// SPDX-License-Identifier: MIT
// A property: a name with a value of a fixed type.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus {

class CIMConstProperty;
struct CIMPropertyRep;

/// A handle on a property, or on nothing.
///
/// Copies stand for the same property: what is set through one is seen through all, also after the
/// property was added to an instance. clone() makes a property of its own. Apart from
/// isUninitialized(), copying and assigning, every operation on a handle that stands for nothing
/// throws UninitializedObjectException. Threads that share a property must not change it while
/// another uses it; handles may be copied and destroyed at any time.
class CIMProperty {
public:
    /// A handle on nothing.
    CIMProperty() noexcept;
    /// A property of the value's type. Throws TypeMismatchException if a fixed array size is not
    /// the value's (unless that is a null array), or a class of references is given for anything
    /// but a scalar reference; UninitializedObjectException for a null name.
    CIMProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize = 0,
                const CIMName& referenceClassName = CIMName(),
                const CIMName& classOrigin = CIMName(), Boolean propagated = false);
    CIMProperty(const CIMProperty& other) noexcept;
    CIMProperty(CIMProperty&& other) noexcept;
    CIMProperty& operator=(const CIMProperty& other) noexcept;
    CIMProperty& operator=(CIMProperty&& other) noexcept;
    ~CIMProperty();

    const CIMName& getName() const;
    /// Throws UninitializedObjectException for a null name.
    void setName(const CIMName& name);
    const CIMValue& getValue() const;
    CIMType getType() const;
    Boolean isArray() const;
    /// Throws TypeMismatchException for a value, even a null, of another type or array-ness, and
    /// for an array that is not of the fixed size; the property is then as it was.
    void setValue(CIMValue value);
    /// The fixed array size, or 0.
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;
    const CIMName& getClassOrigin() const;
    void setClassOrigin(const CIMName& classOrigin);
    Boolean getPropagated() const;
    void setPropagated(Boolean propagated);

    /// Whether both have the same name (ignoring case), value and attributes.
    Boolean identical(const CIMConstProperty& other) const;
    CIMProperty clone() const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMPropertyRep& rep() const;

    Detail::SharedRep<CIMPropertyRep> rep_;
};

/// A handle on a property through which it cannot be changed.
class CIMConstProperty {
public:
    /// A handle on nothing.
    CIMConstProperty() noexcept = default;
    CIMConstProperty(const CIMProperty& property) noexcept : property_(property) {}
    CIMConstProperty(const CIMName& name, const CIMValue& value, Uint32 arraySize = 0,
                     const CIMName& referenceClassName = CIMName(),
                     const CIMName& classOrigin = CIMName(), Boolean propagated = false)
        : property_(name, value, arraySize, referenceClassName, classOrigin, propagated) {}

    const CIMName& getName() const { return property_.getName(); }
    const CIMValue& getValue() const { return property_.getValue(); }
    CIMType getType() const { return property_.getType(); }
    Boolean isArray() const { return property_.isArray(); }
    Uint32 getArraySize() const { return property_.getArraySize(); }
    const CIMName& getReferenceClassName() const { return property_.getReferenceClassName(); }
    const CIMName& getClassOrigin() const { return property_.getClassOrigin(); }
    Boolean getPropagated() const { return property_.getPropagated(); }

    Boolean identical(const CIMConstProperty& other) const { return property_.identical(other); }
    CIMProperty clone() const { return property_.clone(); }
    Boolean isUninitialized() const noexcept { return property_.isUninitialized(); }

private:
    CIMProperty property_;
};

}  // namespace Pegasus
