// SPDX-License-Identifier: MIT
// A server that answers whatever it is asked with what another one answered before.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "servers/cimhost/operations/Operations.h"
#include "wire/cimxml/CimResponse.h"

/// Every operation answers with the results of one recorded response, or fails as it did. Results
/// are the recorded ones read into the object model, so that they go out through the codec as those
/// of a real operation would. For one request at a time.
class ReplayOperations : public cimhost::Operations {
public:
    /// `body` is a response in CIM-XML.
    explicit ReplayOperations(const std::string& body);

    /// Fails with a status and its bare text.
    ReplayOperations(unsigned status, std::string text);

    Pegasus::CIMInstance getInstance(const Pegasus::CIMNamespaceName&,
                                     const Pegasus::CIMObjectPath&,
                                     const cimhost::ElementOptions&) override;
    Pegasus::Array<Pegasus::CIMInstance> enumerateInstances(
        const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&, bool,
        const cimhost::ElementOptions&) override;
    Pegasus::Array<Pegasus::CIMObjectPath> enumerateInstanceNames(const Pegasus::CIMNamespaceName&,
                                                                  const Pegasus::CIMName&) override;
    Pegasus::CIMObjectPath createInstance(const Pegasus::CIMNamespaceName&,
                                          const Pegasus::CIMInstance&) override;
    void modifyInstance(const Pegasus::CIMNamespaceName&, const Pegasus::CIMInstance&,
                        const Pegasus::CIMPropertyList&) override;
    void deleteInstance(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath&) override;
    Pegasus::CIMValue getProperty(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath&,
                                  const Pegasus::CIMName&) override;
    wire::ClassDefinition getClass(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&,
                                   const cimhost::ElementOptions&) override;
    std::vector<wire::ClassDefinition> enumerateClasses(const Pegasus::CIMNamespaceName&,
                                                        const Pegasus::CIMName&, bool,
                                                        const cimhost::ElementOptions&) override;
    std::vector<Pegasus::CIMName> enumerateClassNames(const Pegasus::CIMNamespaceName&,
                                                      const Pegasus::CIMName&, bool) override;
    Pegasus::Array<Pegasus::CIMInstance> associators(const Pegasus::CIMNamespaceName&,
                                                     const Pegasus::CIMObjectPath&,
                                                     const cimhost::AssociationFilter&,
                                                     const cimhost::ElementOptions&) override;
    Pegasus::Array<Pegasus::CIMObjectPath> associatorNames(
        const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath&,
        const cimhost::AssociationFilter&) override;
    Pegasus::Array<Pegasus::CIMInstance> references(const Pegasus::CIMNamespaceName&,
                                                    const Pegasus::CIMObjectPath&,
                                                    const cimhost::AssociationFilter&,
                                                    const cimhost::ElementOptions&) override;
    Pegasus::Array<Pegasus::CIMObjectPath> referenceNames(
        const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath&,
        const cimhost::AssociationFilter&) override;
    wire::MethodResult invokeMethod(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath&,
                                    const Pegasus::CIMName&,
                                    const Pegasus::Array<Pegasus::CIMParamValue>&) override;

    /// The operation that was asked last with its arguments, in one line: "getInstance root/x
    /// A.b="c" local only(P)". Options that are false and filters that are empty are left out.
    const std::string& lastCall() const { return lastCall_; }

private:
    void note(const std::string& operation, const Pegasus::CIMNamespaceName& nameSpace,
              const std::string& arguments);

    /// The recorded response; throws the recorded error.
    wire::CimResponse response() const;
    Pegasus::Array<Pegasus::CIMInstance> instances() const;
    Pegasus::Array<Pegasus::CIMObjectPath> paths() const;

    std::unique_ptr<wire::XmlDocument> document_;
    unsigned status_ = 0;
    std::string text_;
    std::string lastCall_;
};
