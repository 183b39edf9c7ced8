// SPDX-License-Identifier: MIT
// Properties of CIM instances: a name and a value, whose type is fixed.
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

/// A handle on a property, or a null handle.
///
/// Copies refer to the same property: what is set through one is seen through all, even after the
/// property was added to an instance. clone() makes a new property. All operations on a null handle
/// except isUninitialized(), copying and assigning throw UninitializedObjectException.
///
/// A property must not be changed while another thread uses it through any of its handles.
/// Different handles may be copied and destroyed by different threads: the reference count is
/// atomic.
class CIMProperty {
public:
    /// A null handle.
    CIMProperty() noexcept;
    /// A new property of the value's type. Throws TypeMismatchException if the fixed array size
    /// `arraySize` is not that of the value (unless that is a null array), or if a reference class
    /// is given and the value is no scalar reference; UninitializedObjectException for a null name.
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
    /// Throws TypeMismatchException, and changes nothing, for a value of another type, even if it
    /// is null, for an array instead of a scalar or the reverse, and for an array of another size
    /// than the fixed one.
    void setValue(CIMValue value);
    /// The fixed array size, or 0 if there is none.
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;
    const CIMName& getClassOrigin() const;
    void setClassOrigin(const CIMName& classOrigin);
    Boolean getPropagated() const;
    void setPropagated(Boolean propagated);

    /// Whether both have the same name (ignoring case), value and attributes.
    Boolean identical(const CIMConstProperty& other) const;
    /// A handle on a new property with the same content.
    CIMProperty clone() const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMPropertyRep& rep() const;

    detail::SharedRep<CIMPropertyRep> rep_;
};

/// A handle on a property through which it cannot be changed. Otherwise as CIMProperty.
class CIMConstProperty {
public:
    /// A null handle.
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
