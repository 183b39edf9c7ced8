// SPDX-License-Identifier: MIT
#include "tests/support/TestServer.h"

#include "contract/Names.h"
#include "tests/support/ObjectModelText.h"

using namespace Pegasus;

namespace {

CIMObjectPath classAndKeys(const CIMObjectPath& path) {
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

}  // namespace

void TestServer::add(const CIMObjectPath& path, const CIMInstance& instance) {
    classes_[text(path.getClassName())].push_back({path, instance});
}

void TestServer::add(const char* className, const char* key, const char* value) {
    CIMInstance instance{CIMName(className)};
    instance.addProperty(CIMProperty(CIMName(key), CIMValue(String(value))));
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName(key), String(value), CIMKeyBinding::STRING));
    add(CIMObjectPath(String(), CIMNamespaceName(contract::nameSpace), CIMName(className), keys),
        instance);
}

void TestServer::addHost() {
    const CIMName className(contract::classes::computerSystem);
    CIMInstance system(className);
    system.addProperty(CIMProperty(CIMName("Name"), CIMValue(String("host1"))));
    system.addProperty(CIMProperty(CIMName("CreationClassName"), CIMValue(className.getString())));
    system.addProperty(CIMProperty(CIMName("Roles"), CIMValue(String("desk"))));
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("Name"), String("host1"), CIMKeyBinding::STRING));
    add(CIMObjectPath(String("server"), CIMNamespaceName(contract::nameSpace), className, keys),
        system);
    add(contract::classes::testSoftware, "Name", "usbhc-diagnostics");
}

void TestServer::addElement(const char* deviceId) {
    add(contract::classes::managedElement, contract::properties::deviceId, deviceId);
}

void TestServer::record(const Call& call, const CIMNamespaceName& nameSpace) {
    calls_.push_back(call);
    if (beforeCall) {
        beforeCall(calls_.size());
    }
    if (nameSpace.isNull() || !(nameSpace == CIMNamespaceName(contract::nameSpace))) {
        throw CIMException(CIM_ERR_INVALID_NAMESPACE, nameSpace.getString());
    }
}

Array<CIMObjectPath> TestServer::enumerateInstanceNames(const OperationContext& /*context*/,
                                                        const CIMNamespaceName& nameSpace,
                                                        const CIMName& className) {
    Call call;
    call.text = "enumerateInstanceNames " + text(nameSpace) + " " + text(className);
    record(call, nameSpace);
    Array<CIMObjectPath> paths;
    for (const Entry& entry : classes_[text(className)]) {
        paths.append(entry.path);
    }
    return paths;
}

CIMInstance TestServer::getInstance(const OperationContext& /*context*/,
                                    const CIMNamespaceName& nameSpace,
                                    const CIMObjectPath& instanceName, Boolean localOnly,
                                    Boolean includeQualifiers, Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList) {
    Call call;
    call.text = "getInstance " + text(nameSpace) + " " + text(instanceName);
    call.localOnly = localOnly;
    call.includeQualifiers = includeQualifiers;
    call.includeClassOrigin = includeClassOrigin;
    call.allProperties = propertyList.isNull();
    record(call, nameSpace);
    for (const Entry& entry : classes_[text(instanceName.getClassName())]) {
        if (classAndKeys(entry.path) == classAndKeys(instanceName)) {
            return entry.instance;
        }
    }
    throw CIMException(CIM_ERR_NOT_FOUND, instanceName.toString());
}

void TestServer::disallowProviderUnload() {
    ++unloadsDisallowed_;
    if (beforeCall) {
        beforeCall(0);
    }
}
