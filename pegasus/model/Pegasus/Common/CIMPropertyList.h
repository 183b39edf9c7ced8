// SPDX-License-Identifier: MIT
// The names of the properties that a client requests.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Config.h>

namespace Pegasus {

/// A list of property names, or a null list, which requests all properties; an empty list requests
/// none. Duplicates are kept. Copies are independent. Threads: as for String.
class CIMPropertyList {
public:
    /// A null list.
    CIMPropertyList() = default;
    /// Throws UninitializedObjectException if one of the names is null.
    CIMPropertyList(const Array<CIMName>& propertyNames) { set(propertyNames); }

    /// Replaces the names. If one of them is null, throws UninitializedObjectException and changes
    /// nothing.
    void set(const Array<CIMName>& propertyNames);
    /// Makes this a null list.
    void clear();

    Boolean isNull() const { return isNull_; }
    Uint32 size() const { return names_.size(); }
    /// Throws IndexOutOfBoundsException.
    const CIMName& operator[](Uint32 index) const { return names_[index]; }
    Array<CIMName> getPropertyNameArray() const { return names_; }

    /// Whether the name is in the list.
    Boolean contains(const CIMName& name) const;
    /// Whether the list requests the property: it is null, or contains the name.
    Boolean useThisProperty(const CIMName& name) const { return isNull_ || contains(name); }

private:
    Array<CIMName> names_;
    Boolean isNull_ = true;
};

}  // namespace Pegasus
