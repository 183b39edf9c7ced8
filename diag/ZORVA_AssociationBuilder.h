// SPDX-License-Identifier: MIT
// The instances of one association class.
#pragma once

#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/InstanceTable.h"

namespace Pegasus {

/// Pairs the elements of two roles, makes one association instance per pair and answers for them.
///
/// The pairs are made when the object is; what appears or vanishes later is not seen. An instance
/// has two references, role 2 before role 1. Its path has two keys of the type string, role 1 and
/// role 2, that hold the texts of the two paths. One thread at a time.
class ZORVA_AssociationBuilder {
public:
    /// An association without a name and without instances.
    ZORVA_AssociationBuilder() = default;

    /// Pairs every test with every managed element: calls this class's own role operations.
    ///
    /// @param handle              the way back into the server
    /// @param associationClass    class of the instances
    /// @param role1Property       name of the reference to the role-1 element
    /// @param role2Property       name of the reference to the role-2 element
    /// @param role1ReferenceClass class that the role-1 reference is declared with
    /// @param role2ReferenceClass class that the role-2 reference is declared with
    ///
    /// Exceptions of the calls to the server pass.
    ZORVA_AssociationBuilder(CIMOMHandle& handle, String associationClass, String role1Property,
                             String role2Property, String role1ReferenceClass,
                             String role2ReferenceClass);
    virtual ~ZORVA_AssociationBuilder();

    /// The associations of every pair: the role-2 paths in order, and for each the role-1 paths.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> getAssociations(Array<CIMObjectPath> role1,
                                                                    Array<CIMObjectPath> role2);

    /// The associations of those pairs whose values of the two keys are equal, ignoring case, in
    /// the order of the other form.
    ///
    /// 1. Key names ignore case; of several such keys of a path the last one counts.
    /// 2. A path that lacks its key is taken to have the value of the path before it in the walk,
    ///    the empty one at the start. So a path is compared with what an earlier one left.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> getAssociations(Array<CIMObjectPath> role1,
                                                                    Array<CIMObjectPath> role2,
                                                                    String role1KeyName,
                                                                    String role2KeyName);

    /// The paths of the role-1 elements; here those of all tests.
    virtual Array<CIMObjectPath> getRole1References();

    /// The paths of the role-2 elements; here those of all managed elements.
    virtual Array<CIMObjectPath> getRole2References();

    /// The association of the path, whose host and namespace do not count, as an array of one.
    /// Throws BadReference "Invalid Reference" if there is none.
    Array<CIMInstance> getAssocInstance(CIMObjectPath reference);

    /// All associations in table order.
    Array<CIMInstance> enumAssocInstances();

    /// The paths of all associations in table order.
    Array<CIMObjectPath> enumAssocReferences();

protected:
    /// Takes over what the constructor with arguments takes, and pairs nothing.
    void describe(CIMOMHandle& handle, const String& associationClass, const String& role1Property,
                  const String& role2Property, const String& role1ReferenceClass,
                  const String& role2ReferenceClass);

    CIMOMHandle _handle;
    InstanceTable _associations;
    String _associationClass;
    String _role1Property;
    String _role2Property;
    String _role1ReferenceClass;
    String _role2ReferenceClass;

private:
    void appendAssociation(InstanceTable& table, const CIMObjectPath& role1,
                           const CIMObjectPath& role2) const;
};

}  // namespace Pegasus
