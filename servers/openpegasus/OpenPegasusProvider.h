// SPDX-License-Identifier: MIT
// The provider library as OpenPegasus 2.14 knows providers.
#pragma once

#include <memory>

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include "servers/openpegasus/ClassAncestry.h"
#include "servers/openpegasus/LibraryProvider.h"

namespace openpegasus {

/// Takes the requests of the server, has the library answer them, and hands the answers back.
///
/// The server calls it from many threads at once; ServedProvider keeps the library's conditions.
/// Answers are delivered once the library has been left, in one piece and complete. What the
/// library throws passes on to the server, which makes a CIM status of it.
///
/// The library has no association operations of its own: they are answered from its association
/// instances.
class OpenPegasusProvider final : public Pegasus::CIMInstanceProvider,
                                  public Pegasus::CIMMethodProvider,
                                  public Pegasus::CIMAssociationProvider {
public:
    explicit OpenPegasusProvider(std::unique_ptr<LibraryProvider> library);
    ~OpenPegasusProvider() override;

    void initialize(Pegasus::CIMOMHandle& cimom) override;

    /// Ends the library's provider and deletes this object, as the server expects.
    void terminate() override;

    void getInstance(const Pegasus::OperationContext& context,
                     const Pegasus::CIMObjectPath& instanceReference,
                     Pegasus::Boolean includeQualifiers, Pegasus::Boolean includeClassOrigin,
                     const Pegasus::CIMPropertyList& propertyList,
                     Pegasus::InstanceResponseHandler& handler) override;

    void enumerateInstances(const Pegasus::OperationContext& context,
                            const Pegasus::CIMObjectPath& classReference,
                            Pegasus::Boolean includeQualifiers, Pegasus::Boolean includeClassOrigin,
                            const Pegasus::CIMPropertyList& propertyList,
                            Pegasus::InstanceResponseHandler& handler) override;

    void enumerateInstanceNames(const Pegasus::OperationContext& context,
                                const Pegasus::CIMObjectPath& classReference,
                                Pegasus::ObjectPathResponseHandler& handler) override;

    void modifyInstance(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& instanceReference,
                        const Pegasus::CIMInstance& instanceObject,
                        Pegasus::Boolean includeQualifiers,
                        const Pegasus::CIMPropertyList& propertyList,
                        Pegasus::ResponseHandler& handler) override;

    void createInstance(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& instanceReference,
                        const Pegasus::CIMInstance& instanceObject,
                        Pegasus::ObjectPathResponseHandler& handler) override;

    void deleteInstance(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& instanceReference,
                        Pegasus::ResponseHandler& handler) override;

    void invokeMethod(const Pegasus::OperationContext& context,
                      const Pegasus::CIMObjectPath& objectReference,
                      const Pegasus::CIMName& methodName,
                      const Pegasus::Array<Pegasus::CIMParamValue>& inParameters,
                      Pegasus::MethodResultResponseHandler& handler) override;

    void associators(const Pegasus::OperationContext& context,
                     const Pegasus::CIMObjectPath& objectName,
                     const Pegasus::CIMName& associationClass, const Pegasus::CIMName& resultClass,
                     const Pegasus::String& role, const Pegasus::String& resultRole,
                     Pegasus::Boolean includeQualifiers, Pegasus::Boolean includeClassOrigin,
                     const Pegasus::CIMPropertyList& propertyList,
                     Pegasus::ObjectResponseHandler& handler) override;

    void associatorNames(const Pegasus::OperationContext& context,
                         const Pegasus::CIMObjectPath& objectName,
                         const Pegasus::CIMName& associationClass,
                         const Pegasus::CIMName& resultClass, const Pegasus::String& role,
                         const Pegasus::String& resultRole,
                         Pegasus::ObjectPathResponseHandler& handler) override;

    void references(const Pegasus::OperationContext& context,
                    const Pegasus::CIMObjectPath& objectName, const Pegasus::CIMName& resultClass,
                    const Pegasus::String& role, Pegasus::Boolean includeQualifiers,
                    Pegasus::Boolean includeClassOrigin,
                    const Pegasus::CIMPropertyList& propertyList,
                    Pegasus::ObjectResponseHandler& handler) override;

    void referenceNames(const Pegasus::OperationContext& context,
                        const Pegasus::CIMObjectPath& objectName,
                        const Pegasus::CIMName& resultClass, const Pegasus::String& role,
                        Pegasus::ObjectPathResponseHandler& handler) override;

private:
    Pegasus::Array<Pegasus::CIMInstance> associationsOf(const Pegasus::OperationContext& context,
                                                        const Pegasus::CIMObjectPath& objectName,
                                                        const Pegasus::CIMName& associationClass);
    Pegasus::Array<Pegasus::CIMObjectPath> associatedWith(const Pegasus::OperationContext& context,
                                                          const Pegasus::CIMObjectPath& objectName,
                                                          const Pegasus::CIMName& associationClass,
                                                          const Pegasus::CIMName& resultClass,
                                                          const Pegasus::String& role,
                                                          const Pegasus::String& resultRole);

    std::unique_ptr<LibraryProvider> library_;
    std::unique_ptr<serving::ServedProvider> served_;
    ClassAncestry ancestry_;
};

}  // namespace openpegasus
