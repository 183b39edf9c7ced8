// SPDX-License-Identifier: MIT
#include "tests/host/protocol/ReplayOperations.h"

#include <Pegasus/Common/Exception.h>

#include "host/cimxml/CimStatus.h"
#include "host/cimxml/ObjectReader.h"
#include "host/cimxml/XmlText.h"
#include "tests/host/protocol/ReadClass.h"

using namespace cimhost;
using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;

namespace {

/// The text of an error without the "CIM_ERR_...: " that the protocol puts in front of it.
std::string bareText(unsigned status, const std::string& description) {
    const std::string prefix = describeStatus(status, "x");
    const std::string name = prefix.substr(0, prefix.size() - 1);
    return description.compare(0, name.size(), name) == 0 ? description.substr(name.size()) : "";
}

}  // namespace

ReplayOperations::ReplayOperations(const std::string& body)
    : document_(std::make_unique<XmlDocument>(body)) {
    try {
        readResponse(*document_);
    } catch (const Pegasus::CIMException& error) {
        status_ = error.getCode();
        text_ = bareText(status_, toUtf8(error.getMessage()));
    }
}

ReplayOperations::ReplayOperations(unsigned status, std::string text)
    : status_(status), text_(bareText(status, std::move(text))) {}

Response ReplayOperations::response() const {
    if (status_ != 0) {
        throw Pegasus::CIMException(static_cast<Pegasus::CIMStatusCode>(status_), fromUtf8(text_));
    }
    return readResponse(*document_);
}

Array<CIMInstance> ReplayOperations::instances() const {
    Array<CIMInstance> instances;
    for (const XmlElement element : response().results) {
        instances.append(readInstanceWithPath(element));
    }
    return instances;
}

Array<CIMObjectPath> ReplayOperations::paths() const {
    Array<CIMObjectPath> paths;
    for (const XmlElement element : response().results) {
        paths.append(readPath(element.name() == "OBJECTPATH" ? onlyChild(element) : element));
    }
    return paths;
}

CIMInstance ReplayOperations::getInstance(const CIMNamespaceName&, const CIMObjectPath&,
                                          const ElementOptions&) {
    return readInstance(response().results.firstChild());
}

Array<CIMInstance> ReplayOperations::enumerateInstances(const CIMNamespaceName&, const CIMName&,
                                                        bool, const ElementOptions&) {
    return instances();
}

Array<CIMObjectPath> ReplayOperations::enumerateInstanceNames(const CIMNamespaceName&,
                                                              const CIMName&) {
    return paths();
}

CIMObjectPath ReplayOperations::createInstance(const CIMNamespaceName&, const CIMInstance&) {
    return paths()[0];
}

void ReplayOperations::modifyInstance(const CIMNamespaceName&, const CIMInstance&,
                                      const Pegasus::CIMPropertyList&) {
    response();
}

void ReplayOperations::deleteInstance(const CIMNamespaceName&, const CIMObjectPath&) {
    response();
}

Pegasus::CIMValue ReplayOperations::getProperty(const CIMNamespaceName&, const CIMObjectPath&,
                                                const CIMName&) {
    return readContent(response().results, Pegasus::CIMTYPE_STRING, false);
}

ClassDefinition ReplayOperations::getClass(const CIMNamespaceName&, const CIMName&,
                                           const ElementOptions&) {
    return readClass(response().results.firstChild());
}

std::vector<ClassDefinition> ReplayOperations::enumerateClasses(const CIMNamespaceName&,
                                                                const CIMName&, bool,
                                                                const ElementOptions&) {
    std::vector<ClassDefinition> classes;
    for (const XmlElement element : response().results) {
        classes.push_back(readClass(element));
    }
    return classes;
}

std::vector<CIMName> ReplayOperations::enumerateClassNames(const CIMNamespaceName&, const CIMName&,
                                                           bool) {
    std::vector<CIMName> names;
    for (const XmlElement element : response().results) {
        names.push_back(nameAttribute(element, "NAME"));
    }
    return names;
}

Array<CIMInstance> ReplayOperations::associators(const CIMNamespaceName&, const CIMObjectPath&,
                                                 const AssociationFilter&, const ElementOptions&) {
    return instances();
}

Array<CIMObjectPath> ReplayOperations::associatorNames(const CIMNamespaceName&,
                                                       const CIMObjectPath&,
                                                       const AssociationFilter&) {
    return paths();
}

Array<CIMInstance> ReplayOperations::references(const CIMNamespaceName&, const CIMObjectPath&,
                                                const AssociationFilter&, const ElementOptions&) {
    return instances();
}

Array<CIMObjectPath> ReplayOperations::referenceNames(const CIMNamespaceName&, const CIMObjectPath&,
                                                      const AssociationFilter&) {
    return paths();
}

MethodResult ReplayOperations::invokeMethod(const CIMNamespaceName&, const CIMObjectPath&,
                                            const CIMName&, const Array<Pegasus::CIMParamValue>&) {
    const Response recorded = response();
    MethodResult result;
    result.outParameters = recorded.outParameters;
    if (recorded.returnValue) {
        result.returnValue = readReturnValue(recorded.returnValue);
    }
    return result;
}
