// SPDX-License-Identifier: MIT
#include "tests/servers/cimhost/protocol/ReplayOperations.h"

#include <Pegasus/Common/Exception.h>

#include "tests/servers/cimhost/protocol/ReadClass.h"
#include "wire/cimxml/CimStatus.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/StringConversion.h"

using namespace cimhost;
using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;

namespace {

/// The text of an error without the "CIM_ERR_...: " that the protocol puts in front of it.
std::string bareText(unsigned status, const std::string& description) {
    const std::string prefix = wire::describeStatus(status, "x");
    const std::string name = prefix.substr(0, prefix.size() - 1);
    return description.compare(0, name.size(), name) == 0 ? description.substr(name.size()) : "";
}

std::string text(const CIMObjectPath& path) {
    return wire::toUtf8(path.toString());
}
std::string text(const CIMName& name) {
    return wire::toUtf8(name.getString());
}
std::string flag(const std::string& name, bool value) {
    return value ? name : "";
}

std::string text(const Pegasus::CIMPropertyList& list) {
    if (list.isNull()) {
        return "";
    }
    std::string names;
    for (Pegasus::Uint32 i = 0; i < list.size(); ++i) {
        names += (i == 0 ? "" : ",") + text(list[i]);
    }
    return " only(" + names + ")";
}

std::string text(const ElementOptions& options) {
    return flag(" local", options.localOnly) + flag(" qualifiers", options.includeQualifiers) +
           flag(" origin", options.includeClassOrigin) + text(options.propertyList);
}

std::string text(const AssociationFilter& filter) {
    const auto part = [](const std::string& name, const std::string& value) {
        return value.empty() ? "" : " " + name + "=" + value;
    };
    return part("assoc", text(filter.assocClass)) + part("result", text(filter.resultClass)) +
           part("role", wire::toUtf8(filter.role)) +
           part("resultRole", wire::toUtf8(filter.resultRole));
}

std::string text(const CIMInstance& instance) {
    std::string properties;
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const Pegasus::CIMConstProperty property = instance.getProperty(i);
        properties +=
            " " + text(property.getName()) + "=" + wire::toUtf8(property.getValue().toString());
    }
    return text(instance.getPath()) + " {" + properties + " }";
}

std::string text(const Array<Pegasus::CIMParamValue>& parameters) {
    std::string list;
    for (Pegasus::Uint32 i = 0; i < parameters.size(); ++i) {
        list += " " + wire::toUtf8(parameters[i].getParameterName()) +
                (parameters[i].isTyped() ? ":" : "~") +
                Pegasus::cimTypeToString(parameters[i].getValue().getType()) + "=" +
                wire::toUtf8(parameters[i].getValue().toString());
    }
    return list;
}

}  // namespace

ReplayOperations::ReplayOperations(const std::string& body)
    : document_(std::make_unique<wire::XmlDocument>(body)) {
    try {
        wire::readResponse(*document_);
    } catch (const Pegasus::CIMException& error) {
        status_ = error.getCode();
        text_ = bareText(status_, wire::toUtf8(error.getMessage()));
    }
}

ReplayOperations::ReplayOperations(unsigned status, std::string text)
    : status_(status), text_(bareText(status, std::move(text))) {}

void ReplayOperations::note(const std::string& operation, const CIMNamespaceName& nameSpace,
                            const std::string& arguments) {
    lastCall_ = operation + " " + wire::toUtf8(nameSpace.getString()) + " " + arguments;
}

wire::CimResponse ReplayOperations::response() const {
    if (status_ != 0) {
        throw Pegasus::CIMException(static_cast<Pegasus::CIMStatusCode>(status_),
                                    wire::fromUtf8(text_));
    }
    return wire::readResponse(*document_);
}

Array<CIMInstance> ReplayOperations::instances() const {
    Array<CIMInstance> instances;
    for (const wire::XmlElement element : response().results) {
        instances.append(wire::readInstanceWithPath(element));
    }
    return instances;
}

Array<CIMObjectPath> ReplayOperations::paths() const {
    Array<CIMObjectPath> paths;
    for (const wire::XmlElement element : response().results) {
        paths.append(
            wire::readPath(element.name() == "OBJECTPATH" ? wire::onlyChild(element) : element));
    }
    return paths;
}

CIMInstance ReplayOperations::getInstance(const CIMNamespaceName& nameSpace,
                                          const CIMObjectPath& instanceName,
                                          const ElementOptions& options) {
    note("getInstance", nameSpace, text(instanceName) + text(options));
    return wire::readInstance(response().results.firstChild());
}

Array<CIMInstance> ReplayOperations::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                        const CIMName& className,
                                                        bool deepInheritance,
                                                        const ElementOptions& options) {
    note("enumerateInstances", nameSpace,
         text(className) + flag(" deep", deepInheritance) + text(options));
    return instances();
}

Array<CIMObjectPath> ReplayOperations::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                              const CIMName& className) {
    note("enumerateInstanceNames", nameSpace, text(className));
    return paths();
}

CIMObjectPath ReplayOperations::createInstance(const CIMNamespaceName& nameSpace,
                                               const CIMInstance& newInstance) {
    note("createInstance", nameSpace, text(newInstance));
    return paths()[0];
}

void ReplayOperations::modifyInstance(const CIMNamespaceName& nameSpace,
                                      const CIMInstance& modifiedInstance,
                                      const Pegasus::CIMPropertyList& propertyList) {
    note("modifyInstance", nameSpace, text(modifiedInstance) + text(propertyList));
    response();
}

void ReplayOperations::deleteInstance(const CIMNamespaceName& nameSpace,
                                      const CIMObjectPath& instanceName) {
    note("deleteInstance", nameSpace, text(instanceName));
    response();
}

Pegasus::CIMValue ReplayOperations::getProperty(const CIMNamespaceName& nameSpace,
                                                const CIMObjectPath& instanceName,
                                                const CIMName& propertyName) {
    note("getProperty", nameSpace, text(instanceName) + " " + text(propertyName));
    return wire::readContent(response().results, Pegasus::CIMTYPE_STRING, false);
}

wire::ClassDefinition ReplayOperations::getClass(const CIMNamespaceName& nameSpace,
                                                 const CIMName& className,
                                                 const ElementOptions& options) {
    note("getClass", nameSpace, text(className) + text(options));
    return readClass(response().results.firstChild());
}

std::vector<wire::ClassDefinition> ReplayOperations::enumerateClasses(
    const CIMNamespaceName& nameSpace, const CIMName& className, bool deepInheritance,
    const ElementOptions& options) {
    note("enumerateClasses", nameSpace,
         text(className) + flag(" deep", deepInheritance) + text(options));
    std::vector<wire::ClassDefinition> classes;
    for (const wire::XmlElement element : response().results) {
        classes.push_back(readClass(element));
    }
    return classes;
}

std::vector<CIMName> ReplayOperations::enumerateClassNames(const CIMNamespaceName& nameSpace,
                                                           const CIMName& className,
                                                           bool deepInheritance) {
    note("enumerateClassNames", nameSpace, text(className) + flag(" deep", deepInheritance));
    std::vector<CIMName> names;
    for (const wire::XmlElement element : response().results) {
        names.push_back(wire::nameAttribute(element, "NAME"));
    }
    return names;
}

Array<CIMInstance> ReplayOperations::associators(const CIMNamespaceName& nameSpace,
                                                 const CIMObjectPath& objectName,
                                                 const AssociationFilter& filter,
                                                 const ElementOptions& options) {
    note("associators", nameSpace, text(objectName) + text(filter) + text(options));
    return instances();
}

Array<CIMObjectPath> ReplayOperations::associatorNames(const CIMNamespaceName& nameSpace,
                                                       const CIMObjectPath& objectName,
                                                       const AssociationFilter& filter) {
    note("associatorNames", nameSpace, text(objectName) + text(filter));
    return paths();
}

Array<CIMInstance> ReplayOperations::references(const CIMNamespaceName& nameSpace,
                                                const CIMObjectPath& objectName,
                                                const AssociationFilter& filter,
                                                const ElementOptions& options) {
    note("references", nameSpace, text(objectName) + text(filter) + text(options));
    return instances();
}

Array<CIMObjectPath> ReplayOperations::referenceNames(const CIMNamespaceName& nameSpace,
                                                      const CIMObjectPath& objectName,
                                                      const AssociationFilter& filter) {
    note("referenceNames", nameSpace, text(objectName) + text(filter));
    return paths();
}

wire::MethodResult ReplayOperations::invokeMethod(
    const CIMNamespaceName& nameSpace, const CIMObjectPath& objectName, const CIMName& methodName,
    const Array<Pegasus::CIMParamValue>& inParameters) {
    note("invokeMethod", nameSpace, text(objectName) + " " + text(methodName) + text(inParameters));
    const wire::CimResponse recorded = response();
    wire::MethodResult result;
    result.outParameters = recorded.outParameters;
    if (recorded.returnValue) {
        result.returnValue = wire::readReturnValue(recorded.returnValue);
    }
    return result;
}
