// SPDX-License-Identifier: MIT
// The instances of one association class.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/InstanceTable.h"

namespace Pegasus {

/// Pairs the elements of two roles and holds one association instance per pair.
///
/// The pairs are made by the constructor; elements that appear or disappear later are not seen. An
/// instance has two references, role 2 before role 1. Its path has two keys of the type string,
/// role 1 and role 2, which hold the two paths as text. One thread at a time.
class ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_AssociationBuilder() = default;

    /// Pairs every test with every managed element: calls the role operations of this class, not
    /// those of a subclass.
    ///
    /// @param handle              for calls back into the server
    /// @param associationClass    class of the instances
    /// @param role1Property       name of the reference to the role-1 element
    /// @param role2Property       name of the reference to the role-2 element
    /// @param role1ReferenceClass class that the role-1 reference is declared with
    /// @param role2ReferenceClass class that the role-2 reference is declared with
    ///
    /// Exceptions of the calls to the server propagate.
    ZORVA_AssociationBuilder(CIMOMHandle& handle, String associationClass, String role1Property,
                             String role2Property, String role1ReferenceClass,
                             String role2ReferenceClass);
    virtual ~ZORVA_AssociationBuilder();

    /// The associations of all pairs. The outer loop is over the role-2 paths, the inner one over
    /// the role-1 paths.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> getAssociations(Array<CIMObjectPath> role1,
                                                                    Array<CIMObjectPath> role2);

    /// The associations of the pairs whose values of the two keys are equal, ignoring case, in the
    /// same order.
    ///
    /// 1. Key names ignore case. If a path has several such keys, the last one counts.
    /// 2. A path without its key keeps the value of the path before it in the loop, the empty text
    ///    at the start. So it is compared with what an earlier path left.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> getAssociations(Array<CIMObjectPath> role1,
                                                                    Array<CIMObjectPath> role2,
                                                                    String role1KeyName,
                                                                    String role2KeyName);

    /// The paths of the role-1 elements; here those of all tests.
    virtual Array<CIMObjectPath> getRole1References();

    /// The paths of the role-2 elements; here those of all managed elements.
    virtual Array<CIMObjectPath> getRole2References();

    /// The association of the path, as an array of one; host and namespace are ignored. Throws
    /// BadReference "Invalid Reference" if there is none.
    Array<CIMInstance> getAssocInstance(CIMObjectPath reference);

    /// All associations in table order.
    Array<CIMInstance> enumAssocInstances();

    /// The paths of all associations in table order.
    Array<CIMObjectPath> enumAssocReferences();

protected:
    /// Stores the arguments of the constructor, without making pairs.
    void describe(CIMOMHandle& handle, const String& associationClass, const String& role1Property,
                  const String& role2Property, const String& role1ReferenceClass,
                  const String& role2ReferenceClass);

    CIMOMHandle handle_;
    InstanceTable associations_;
    String associationClass_;
    String role1Property_;
    String role2Property_;
    String role1ReferenceClass_;
    String role2ReferenceClass_;

private:
    void appendAssociation(InstanceTable& table, const CIMObjectPath& role1,
                           const CIMObjectPath& role2) const;
};

}  // namespace Pegasus
