// SPDX-License-Identifier: MIT
#include "tests/support/Client.h"

#include "contract/Names.h"

using namespace Pegasus;

namespace {

CIMObjectPath classPath(const std::string& className) {
    return CIMObjectPath(String(), CIMNamespaceName(contract::nameSpace),
                         CIMName(className.c_str()));
}

CIMInstanceProvider& instancesOf(CIMBaseProvider& provider) {
    return dynamic_cast<CIMInstanceProvider&>(provider);
}

}  // namespace

Client::Client(CIMBaseProvider* provider) : provider_(provider) {}

// Keeps the handler calls even if the request throws.
template <class Request>
void Client::send(std::vector<std::string>& calls, Request request) {
    handlerCalls_.clear();
    try {
        request();
    } catch (...) {
        handlerCalls_ = calls;
        throw;
    }
    handlerCalls_ = calls;
}

std::vector<CIMInstance> Client::instances(const std::string& className) {
    RecordingHandler<CIMInstance> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .enumerateInstances(OperationContext(), classPath(className), 0, CIMPropertyList(),
                                handler);
    });
    std::vector<CIMInstance> all;
    for (Uint32 i = 0; i < handler.objects.size(); ++i) {
        all.push_back(handler.objects[i]);
    }
    return all;
}

std::vector<std::string> Client::names(const std::string& className) {
    RecordingHandler<CIMObjectPath> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .enumerateInstanceNames(OperationContext(), classPath(className), handler);
    });
    return texts(handler.objects);
}

CIMInstance Client::get(const CIMObjectPath& path) {
    RecordingHandler<CIMInstance> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .getInstance(OperationContext(), path, 0, CIMPropertyList(), handler);
    });
    return handler.objects.size() == 0 ? CIMInstance() : handler.objects[0];
}

std::string Client::invoke(const std::string& method, const Array<CIMParamValue>& parameters,
                           const std::string& testName) {
    CIMObjectPath path = classPath(contract::classes::test);
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("Name"), String(testName.c_str()), CIMKeyBinding::STRING));
    path.setKeyBindings(keys);
    return invokeOn(path, method, parameters);
}

std::string Client::invokeOn(const CIMObjectPath& path, const std::string& method,
                             const Array<CIMParamValue>& parameters) {
    RecordingHandler<CIMValue> handler;
    Array<CIMParamValue> out;
    outParameters_.clear();
    send(handler.calls, [&] {
        dynamic_cast<CIMMethodProvider&>(*provider_)
            .invokeMethod(OperationContext(), path, String(method.c_str()), parameters, out,
                          handler);
    });
    for (Uint32 i = 0; i < out.size(); ++i) {
        outParameters_.push_back(text(out[i].getParameterName()) + "=" + text(out[i].getValue()) +
                                 (out[i].isTyped() ? "" : " (untyped)"));
    }
    return handler.objects.size() == 0 ? std::string() : text(handler.objects[0]);
}

void Client::create() {
    RecordingHandler<CIMObjectPath> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .createInstance(OperationContext(), classPath(contract::classes::result),
                            CIMInstance(CIMName(contract::classes::result)), handler);
    });
}

void Client::modify() {
    RecordingHandler<void> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .modifyInstance(OperationContext(), classPath(contract::classes::result),
                            CIMInstance(CIMName(contract::classes::result)), 0, CIMPropertyList(),
                            handler);
    });
}

void Client::remove() {
    RecordingHandler<void> handler;
    send(handler.calls, [&] {
        instancesOf(*provider_)
            .deleteInstance(OperationContext(), classPath(contract::classes::result), handler);
    });
}
