// SPDX-License-Identifier: MIT
// The operations of a CIM server, in terms of the object model: the boundary between the wire
// (codec and HTTP) and what answers.
#pragma once

#include <vector>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/String.h>

#include "wire/cimxml/ClassDefinition.h"
#include "wire/cimxml/MethodResult.h"

namespace cimhost {

/// What of an instance or class is wanted. The defaults here are false; those of the protocol
/// (LocalOnly is true for most operations) are the codec's business.
struct ElementOptions {
    bool localOnly = false;
    bool includeQualifiers = false;
    bool includeClassOrigin = false;
    Pegasus::CIMPropertyList propertyList;  ///< null: every property
};

/// Which associations are followed. A null name and an empty role do not filter.
struct AssociationFilter {
    Pegasus::CIMName assocClass;   ///< class of the association (Associators, AssociatorNames)
    Pegasus::CIMName resultClass;  ///< class of what is found (for References: of the association)
    Pegasus::String role;          ///< property that holds the object asked about
    Pegasus::String resultRole;    ///< property that holds what is found (Associators only)
};

/// The operations of a CIM server.
///
/// Threads: every operation may be called from any number of threads at once.
///
/// Failure: a Pegasus::CIMException carries the CIM status and the bare text (without the
/// "CIM_ERR_..." prefix, which the codec writes). Any other Pegasus::Exception, any std::exception
/// and anything else thrown means status 1 (CIM_ERR_FAILED), with the exception's text, its what(),
/// or "Unknown error.".
///
/// Arguments: object names carry keys as they came over the wire; their host and namespace are not
/// looked at, `nameSpace` says where the operation works. An unknown namespace is
/// CIM_ERR_INVALID_NAMESPACE.
///
/// Results are the caller's own: nothing else reads or writes them afterwards.
class Operations {
public:
    Operations() = default;
    Operations(const Operations&) = delete;
    Operations& operator=(const Operations&) = delete;
    virtual ~Operations() = default;

    /// The instance of that name, without properties outside the property list.
    virtual Pegasus::CIMInstance getInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                             const Pegasus::CIMObjectPath& instanceName,
                                             const ElementOptions& options) = 0;

    /// The instances of a class and of its subclasses, each with its path (class and keys).
    /// Without `deepInheritance` only properties that the class itself has.
    virtual Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        bool deepInheritance, const ElementOptions& options) = 0;

    /// The names (class and keys) of the instances of a class and of its subclasses.
    virtual Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className) = 0;

    /// Creates an instance; its keys are among its properties. Returns its name.
    virtual Pegasus::CIMObjectPath createInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                                  const Pegasus::CIMInstance& newInstance) = 0;

    /// Changes the properties of the instance that `modifiedInstance.getPath()` names: those in the
    /// property list, or every one given where the list is null.
    virtual void modifyInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                const Pegasus::CIMInstance& modifiedInstance,
                                const Pegasus::CIMPropertyList& propertyList) = 0;

    virtual void deleteInstance(const Pegasus::CIMNamespaceName& nameSpace,
                                const Pegasus::CIMObjectPath& instanceName) = 0;

    /// The value of one property; CIM_ERR_NO_SUCH_PROPERTY if the instance has none of that name.
    virtual Pegasus::CIMValue getProperty(const Pegasus::CIMNamespaceName& nameSpace,
                                          const Pegasus::CIMObjectPath& instanceName,
                                          const Pegasus::CIMName& propertyName) = 0;

    /// A class with the elements of its superclasses (unless localOnly); what `options` exclude is
    /// left out of the definition returned.
    virtual wire::ClassDefinition getClass(const Pegasus::CIMNamespaceName& nameSpace,
                                           const Pegasus::CIMName& className,
                                           const ElementOptions& options) = 0;

    /// The direct subclasses of a class, or all of them with `deepInheritance`; the root classes
    /// (or every class) where `className` is null. The property list of `options` is not used.
    virtual std::vector<wire::ClassDefinition> enumerateClasses(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        bool deepInheritance, const ElementOptions& options) = 0;

    virtual std::vector<Pegasus::CIMName> enumerateClassNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        bool deepInheritance) = 0;

    /// The instances associated with an instance, each with its full path: host, namespace, keys.
    /// `objectName` without keys, which names a class, is CIM_ERR_NOT_SUPPORTED here and in
    /// references(). localOnly is not used.
    virtual Pegasus::Array<Pegasus::CIMInstance> associators(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter, const ElementOptions& options) = 0;

    /// The full paths of what is associated with an instance; for an `objectName` without keys the
    /// paths (without keys) of the classes that the associations declare.
    virtual Pegasus::Array<Pegasus::CIMObjectPath> associatorNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter) = 0;

    /// The association instances that refer to an instance, each with its full path. assocClass and
    /// resultRole of the filter are not used.
    virtual Pegasus::Array<Pegasus::CIMInstance> references(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter, const ElementOptions& options) = 0;

    /// The full paths of the association instances that refer to an instance; for an `objectName`
    /// without keys the paths of the association classes.
    virtual Pegasus::Array<Pegasus::CIMObjectPath> referenceNames(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const AssociationFilter& filter) = 0;

    /// Invokes a method on an instance, or on a class where `objectName` has no keys.
    ///
    /// A parameter that came without a type (no PARAMTYPE) is handed over with isTyped() false, as
    /// String, Array<String>, CIMObjectPath or Array<CIMObjectPath> (a null one as a null String);
    /// it gets its type from the method's declaration. A typed one is taken as it is.
    virtual wire::MethodResult invokeMethod(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMObjectPath& objectName,
        const Pegasus::CIMName& methodName,
        const Pegasus::Array<Pegasus::CIMParamValue>& inParameters) = 0;
};

}  // namespace cimhost
