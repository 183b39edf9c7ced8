// SPDX-License-Identifier: MIT
// Instances of CIM classes.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <Pegasus/Common/Exception.h>

namespace Pegasus {

class CIMConstInstance;
struct CIMInstanceRep;

/// A handle on an instance, or a null handle.
///
/// Copies refer to the same instance: properties, their values and the path that are set through
/// one are seen through all. clone() makes a new instance. All operations on a null handle except
/// isUninitialized(), copying and assigning throw UninitializedObjectException. Threads: as for
/// CIMProperty; an instance and its properties are used as one object.
class CIMInstance {
public:
    /// A null handle.
    CIMInstance() noexcept;
    /// A new instance without properties, whose path has only its class name. Throws
    /// UninitializedObjectException for a null name.
    CIMInstance(const CIMName& className);
    CIMInstance(const CIMInstance& other) noexcept;
    CIMInstance(CIMInstance&& other) noexcept;
    CIMInstance& operator=(const CIMInstance& other) noexcept;
    CIMInstance& operator=(CIMInstance&& other) noexcept;
    ~CIMInstance();

    const CIMName& getClassName() const;
    const CIMObjectPath& getPath() const;
    /// Throws TypeMismatchException, and changes nothing, for a path of another class.
    void setPath(const CIMObjectPath& path);

    /// Adds the property, not a clone: it can still be changed through `property`. Throws
    /// AlreadyExistsException if the instance has a property of that name (ignoring case). Returns
    /// this instance.
    CIMInstance& addProperty(const CIMProperty& property);
    /// The index of the property of that name (ignoring case), or PEG_NOT_FOUND.
    Uint32 findProperty(const CIMName& name) const;
    /// The property at the index, in the order of addition. Throws IndexOutOfBoundsException.
    CIMProperty getProperty(Uint32 index);
    CIMConstProperty getProperty(Uint32 index) const;
    /// Throws IndexOutOfBoundsException.
    void removeProperty(Uint32 index);
    Uint32 getPropertyCount() const;

    /// Removes the properties that the list does not request and, unless `includeClassOrigin`, the
    /// class origins of the others. `includeQualifiers` is ignored: instances have no qualifiers
    /// here.
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

    /// A handle on a new instance with clones of the properties.
    CIMInstance clone() const;
    /// Whether both have equal paths and identical properties in the same order.
    Boolean identical(const CIMConstInstance& other) const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMInstanceRep& rep() const;

    detail::SharedRep<CIMInstanceRep> rep_;
};

/// A handle on an instance through which it cannot be changed. Otherwise as CIMInstance.
class CIMConstInstance {
public:
    /// A null handle.
    CIMConstInstance() noexcept = default;
    CIMConstInstance(const CIMInstance& instance) noexcept : instance_(instance) {}
    CIMConstInstance(const CIMName& className) : instance_(className) {}

    const CIMName& getClassName() const { return instance_.getClassName(); }
    const CIMObjectPath& getPath() const { return instance_.getPath(); }
    Uint32 findProperty(const CIMName& name) const { return instance_.findProperty(name); }
    CIMConstProperty getProperty(Uint32 index) const { return instance_.getProperty(index); }
    Uint32 getPropertyCount() const { return instance_.getPropertyCount(); }
    CIMInstance clone() const { return instance_.clone(); }
    Boolean identical(const CIMConstInstance& other) const { return instance_.identical(other); }
    Boolean isUninitialized() const noexcept { return instance_.isUninitialized(); }

private:
    CIMInstance instance_;
};

}  // namespace Pegasus
