// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/RequestHandler.h"

#include <array>
#include <string_view>

#include <Pegasus/Common/Exception.h>

#include "base/Ascii.h"
#include "servers/cimhost/protocol/OperationParameters.h"
#include "wire/cimxml/CimResponse.h"
#include "wire/cimxml/ClassWriter.h"
#include "wire/cimxml/ObjectWriter.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

namespace cimhost {

namespace {

using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMObjectPath;

/// The options of an operation; the defaults of those that a client leaves out are the protocol's.
ElementOptions elementOptions(const OperationParameters& parameters, bool includeQualifiers) {
    ElementOptions options;
    options.localOnly = parameters.boolean("LocalOnly", true);
    options.includeQualifiers = parameters.boolean("IncludeQualifiers", includeQualifiers);
    options.includeClassOrigin = parameters.boolean("IncludeClassOrigin", false);
    options.propertyList = parameters.propertyList("PropertyList");
    return options;
}

AssociationFilter associationFilter(const OperationParameters& parameters) {
    AssociationFilter filter;
    filter.assocClass = parameters.optionalClassName("AssocClass");
    filter.resultClass = parameters.optionalClassName("ResultClass");
    filter.role = parameters.optionalText("Role");
    filter.resultRole = parameters.optionalText("ResultRole");
    return filter;
}

void getInstance(const wire::CimRequest& request, Operations& operations,
                 wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"InstanceName", "LocalOnly", "IncludeQualifiers",
                                                   "IncludeClassOrigin", "PropertyList"});
    const ElementOptions options = elementOptions(parameters, false);
    response.results(options.includeClassOrigin)
        .instance(operations.getInstance(request.nameSpace, parameters.instanceName("InstanceName"),
                                         options));
}

void enumerateInstances(const wire::CimRequest& request, Operations& operations,
                        wire::ResponseWriter& response) {
    const OperationParameters parameters(
        request, {"ClassName", "LocalOnly", "DeepInheritance", "IncludeQualifiers",
                  "IncludeClassOrigin", "PropertyList"});
    const ElementOptions options = elementOptions(parameters, false);
    const Array<CIMInstance> instances =
        operations.enumerateInstances(request.nameSpace, parameters.className("ClassName"),
                                      parameters.boolean("DeepInheritance", true), options);
    wire::ObjectWriter results = response.results(options.includeClassOrigin);
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        results.namedInstance(instances[i]);
    }
}

void enumerateInstanceNames(const wire::CimRequest& request, Operations& operations,
                            wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"ClassName"});
    const Array<CIMObjectPath> names =
        operations.enumerateInstanceNames(request.nameSpace, parameters.className("ClassName"));
    wire::ObjectWriter results = response.results();
    for (Pegasus::Uint32 i = 0; i < names.size(); ++i) {
        results.instanceName(names[i]);
    }
}

void createInstance(const wire::CimRequest& request, Operations& operations,
                    wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"NewInstance"});
    response.results().instanceName(
        operations.createInstance(request.nameSpace, parameters.instance("NewInstance")));
}

void modifyInstance(const wire::CimRequest& request, Operations& operations,
                    wire::ResponseWriter& /*response*/) {
    const OperationParameters parameters(request,
                                         {"ModifiedInstance", "IncludeQualifiers", "PropertyList"});
    parameters.boolean("IncludeQualifiers", true);
    operations.modifyInstance(request.nameSpace, parameters.namedInstance("ModifiedInstance"),
                              parameters.propertyList("PropertyList"));
}

void deleteInstance(const wire::CimRequest& request, Operations& operations,
                    wire::ResponseWriter& /*response*/) {
    const OperationParameters parameters(request, {"InstanceName"});
    operations.deleteInstance(request.nameSpace, parameters.instanceName("InstanceName"));
}

void getProperty(const wire::CimRequest& request, Operations& operations,
                 wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"InstanceName", "PropertyName"});
    response.results().value(operations.getProperty(request.nameSpace,
                                                    parameters.instanceName("InstanceName"),
                                                    parameters.propertyName("PropertyName")));
}

void getClass(const wire::CimRequest& request, Operations& operations,
              wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"ClassName", "LocalOnly", "IncludeQualifiers",
                                                   "IncludeClassOrigin", "PropertyList"});
    wire::appendClass(response.out(),
                      operations.getClass(request.nameSpace, parameters.className("ClassName"),
                                          elementOptions(parameters, true)));
}

void enumerateClasses(const wire::CimRequest& request, Operations& operations,
                      wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"ClassName", "DeepInheritance", "LocalOnly",
                                                   "IncludeQualifiers", "IncludeClassOrigin"});
    for (const wire::ClassDefinition& definition : operations.enumerateClasses(
             request.nameSpace, parameters.optionalClassName("ClassName"),
             parameters.boolean("DeepInheritance", false), elementOptions(parameters, true))) {
        wire::appendClass(response.out(), definition);
    }
}

void enumerateClassNames(const wire::CimRequest& request, Operations& operations,
                         wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"ClassName", "DeepInheritance"});
    wire::ObjectWriter results = response.results();
    for (const Pegasus::CIMName& name : operations.enumerateClassNames(
             request.nameSpace, parameters.optionalClassName("ClassName"),
             parameters.boolean("DeepInheritance", false))) {
        results.className(name);
    }
}

void writeObjects(wire::ResponseWriter& response, const Array<CIMInstance>& instances,
                  bool includeClassOrigin) {
    wire::ObjectWriter results = response.results(includeClassOrigin);
    for (Pegasus::Uint32 i = 0; i < instances.size(); ++i) {
        results.objectWithPath(instances[i]);
    }
}

/// The form of the answer follows that of the question: paths of classes where ObjectName was given
/// as the name of a class.
void writeObjectPaths(wire::ResponseWriter& response, const Array<CIMObjectPath>& paths,
                      bool ofClasses) {
    wire::ObjectWriter results = response.results();
    for (Pegasus::Uint32 i = 0; i < paths.size(); ++i) {
        if (ofClasses) {
            results.classObjectPath(paths[i]);
        } else {
            results.objectPath(paths[i]);
        }
    }
}

void associators(const wire::CimRequest& request, Operations& operations,
                 wire::ResponseWriter& response) {
    const OperationParameters parameters(
        request, {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole",
                  "IncludeQualifiers", "IncludeClassOrigin", "PropertyList"});
    const ElementOptions options = elementOptions(parameters, false);
    writeObjects(response,
                 operations.associators(request.nameSpace, parameters.objectName("ObjectName"),
                                        associationFilter(parameters), options),
                 options.includeClassOrigin);
}

void associatorNames(const wire::CimRequest& request, Operations& operations,
                     wire::ResponseWriter& response) {
    const OperationParameters parameters(
        request, {"ObjectName", "AssocClass", "ResultClass", "Role", "ResultRole"});
    writeObjectPaths(
        response,
        operations.associatorNames(request.nameSpace, parameters.objectName("ObjectName"),
                                   associationFilter(parameters)),
        parameters.isClassName("ObjectName"));
}

void references(const wire::CimRequest& request, Operations& operations,
                wire::ResponseWriter& response) {
    const OperationParameters parameters(
        request, {"ObjectName", "ResultClass", "Role", "IncludeQualifiers", "IncludeClassOrigin",
                  "PropertyList"});
    const ElementOptions options = elementOptions(parameters, false);
    writeObjects(response,
                 operations.references(request.nameSpace, parameters.objectName("ObjectName"),
                                       associationFilter(parameters), options),
                 options.includeClassOrigin);
}

void referenceNames(const wire::CimRequest& request, Operations& operations,
                    wire::ResponseWriter& response) {
    const OperationParameters parameters(request, {"ObjectName", "ResultClass", "Role"});
    writeObjectPaths(
        response,
        operations.referenceNames(request.nameSpace, parameters.objectName("ObjectName"),
                                  associationFilter(parameters)),
        parameters.isClassName("ObjectName"));
}

void invokeMethod(const wire::CimRequest& request, Operations& operations,
                  wire::ResponseWriter& response) {
    const wire::MethodResult result = operations.invokeMethod(
        request.nameSpace, request.object, Pegasus::CIMName(wire::fromUtf8(request.method)),
        request.parameters);
    wire::ObjectWriter results = response.results();
    if (result.returnValue) {
        results.returnValue(*result.returnValue);
    }
    for (Pegasus::Uint32 i = 0; i < result.outParameters.size(); ++i) {
        results.paramValue(result.outParameters[i]);
    }
}

using Handler = void (*)(const wire::CimRequest&, Operations&, wire::ResponseWriter&);

struct NamedHandler {
    std::string_view operation;
    Handler handle;
};

constexpr std::array<NamedHandler, 14> handlers{{
    {"GetInstance", getInstance},
    {"EnumerateInstances", enumerateInstances},
    {"EnumerateInstanceNames", enumerateInstanceNames},
    {"CreateInstance", createInstance},
    {"ModifyInstance", modifyInstance},
    {"DeleteInstance", deleteInstance},
    {"GetProperty", getProperty},
    {"GetClass", getClass},
    {"EnumerateClasses", enumerateClasses},
    {"EnumerateClassNames", enumerateClassNames},
    {"Associators", associators},
    {"AssociatorNames", associatorNames},
    {"References", references},
    {"ReferenceNames", referenceNames},
}};

[[noreturn]] void notSupported(const wire::CimRequest& request, Operations& /*operations*/,
                               wire::ResponseWriter& /*response*/) {
    throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, wire::fromUtf8(request.method));
}

Handler handlerOf(const wire::CimRequest& request) {
    if (!request.intrinsic) {
        return invokeMethod;
    }
    for (const NamedHandler& named : handlers) {
        if (base::equalIgnoringCase(named.operation, request.method)) {
            return named.handle;
        }
    }
    return notSupported;
}

}  // namespace

std::string handleRequest(const wire::CimRequest& request, Operations& operations,
                          const wire::SizeWatch& watch) {
    wire::ResponseWriter response(request, watch);
    const auto tellSize = [&] {
        if (watch) {
            watch(response.out().size());
        }
    };
    try {
        handlerOf(request)(request, operations, response);
        tellSize();
    } catch (const wire::XmlError&) {
        throw;
    } catch (...) {
        response.fail(wire::failureOfException());
        tellSize();
    }
    return response.finish();
}

}  // namespace cimhost
