// SPDX-License-Identifier: MIT
// The properties that a client asks for.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A list of property names, or null, which asks for every property; an empty list asks for none.
/// Duplicates are kept. Copies are independent.
class CIMPropertyList {
public:
    /// The null list: every property.
    CIMPropertyList() = default;
    /// Throws UninitializedObjectException if one of the names is null.
    CIMPropertyList(const Array<CIMName>& propertyNames) { set(propertyNames); }

    /// Replaces the names; if one of them is null, throws and changes nothing.
    void set(const Array<CIMName>& propertyNames);
    /// Makes this the null list.
    void clear();

    Boolean isNull() const { return isNull_; }
    Uint32 size() const { return names_.size(); }
    /// Throws IndexOutOfBoundsException.
    const CIMName& operator[](Uint32 index) const { return names_[index]; }
    Array<CIMName> getPropertyNameArray() const { return names_; }

    /// Whether the name is in the list.
    Boolean contains(const CIMName& name) const;
    /// Whether the list asks for the property: it is null, or contains the name.
    Boolean useThisProperty(const CIMName& name) const { return isNull_ || contains(name); }

private:
    Array<CIMName> names_;
    Boolean isNull_ = true;
};

}  // namespace Pegasus
