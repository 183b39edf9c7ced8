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

/// A handle on an instance, or on nothing.
///
/// Copies stand for the same instance: properties, their values and the path that are set through
/// one are seen through all. clone() makes an instance of its own. Apart from isUninitialized(),
/// copying and assigning, every operation on a handle that stands for nothing throws
/// UninitializedObjectException. Threads that share an instance must not change it while another
/// uses it; handles may be copied and destroyed at any time.
class CIMInstance {
public:
    /// A handle on nothing.
    CIMInstance() noexcept;
    /// An instance without properties, whose path names its class and nothing else. Throws
    /// UninitializedObjectException for a null name.
    CIMInstance(const CIMName& className);
    CIMInstance(const CIMInstance& other) noexcept;
    CIMInstance(CIMInstance&& other) noexcept;
    CIMInstance& operator=(const CIMInstance& other) noexcept;
    CIMInstance& operator=(CIMInstance&& other) noexcept;
    ~CIMInstance();

    const CIMName& getClassName() const;
    const CIMObjectPath& getPath() const;
    /// Throws TypeMismatchException for a path of another class; the old path then stays.
    void setPath(const CIMObjectPath& path);

    /// Adds the property itself, not a copy: it stays reachable through `property`. Throws
    /// AlreadyExistsException if the instance has one of that name (ignoring case). Returns this
    /// instance.
    CIMInstance& addProperty(const CIMProperty& property);
    /// Index of the property of that name (ignoring case), or PEG_NOT_FOUND.
    Uint32 findProperty(const CIMName& name) const;
    /// The property at an index, in the order in which they were added. Throws
    /// IndexOutOfBoundsException.
    CIMProperty getProperty(Uint32 index);
    CIMConstProperty getProperty(Uint32 index) const;
    /// Throws IndexOutOfBoundsException.
    void removeProperty(Uint32 index);
    Uint32 getPropertyCount() const;

    /// Leaves only the properties that the list asks for and, unless they are to be included, takes
    /// their class origins away. There are no qualifiers that could be included.
    void instanceFilter(Boolean includeQualifiers, Boolean includeClassOrigin,
                        const CIMPropertyList& propertyList);

    /// An instance of its own, with properties of its own.
    CIMInstance clone() const;
    /// Whether both have equal paths and identical properties in the same order.
    Boolean identical(const CIMConstInstance& other) const;
    Boolean isUninitialized() const noexcept { return !rep_; }

private:
    CIMInstanceRep& rep() const;

    Detail::SharedRep<CIMInstanceRep> rep_;
};

/// A handle on an instance through which it cannot be changed.
class CIMConstInstance {
public:
    /// A handle on nothing.
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
