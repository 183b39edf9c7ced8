// SPDX-License-Identifier: MIT
#include "servers/openpegasus/OpenPegasusProvider.h"

#include <dlfcn.h>

#include <chrono>
#include <utility>

#include <Pegasus/Common/CIMObject.h>

#include "servers/openpegasus/OpenPegasusConnection.h"
#include "servers/serving/AssociationQuery.h"
#include "servers/serving/ProviderBusy.h"

using namespace Pegasus;

namespace openpegasus {

namespace {

/// The server does not end a provider that has requests inside, so that this is waited out only
/// where a request slips in at that very moment, or a method goes on that its request gave up.
constexpr std::chrono::seconds terminationPatience{5};

/// Keeps the code of this library in memory, whatever the server does with its handle on it.
void stayLoaded() {
    Dl_info self;
    if (dladdr(reinterpret_cast<void*>(&stayLoaded), &self) != 0) {
        static_cast<void>(dlopen(self.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE));
    }
}

/// Delivers one object, or an array of them.
template <class Answer, class Handler>
void answerWith(const Answer& answer, Handler& handler) {
    handler.processing();
    handler.deliver(answer);
    handler.complete();
}

}  // namespace

OpenPegasusProvider::OpenPegasusProvider(std::unique_ptr<LibraryProvider> library)
    : library_(std::move(library)) {}

OpenPegasusProvider::~OpenPegasusProvider() = default;

void OpenPegasusProvider::initialize(CIMOMHandle& cimom) {
    served_ = library_->serve(std::make_shared<OpenPegasusConnection>(cimom));
}

void OpenPegasusProvider::terminate() {
    // The server may end a provider whose initialization failed.
    if (served_ && !served_->terminate(terminationPatience)) {
        stayLoaded();
        return;
    }
    delete this;
}

void OpenPegasusProvider::getInstance(const OperationContext& context,
                                      const CIMObjectPath& instanceReference,
                                      Boolean /*includeQualifiers*/, Boolean /*includeClassOrigin*/,
                                      const CIMPropertyList& /*propertyList*/,
                                      InstanceResponseHandler& handler) {
    answerWith(served_->getInstance(context, instanceReference), handler);
}

void OpenPegasusProvider::enumerateInstances(const OperationContext& context,
                                             const CIMObjectPath& classReference,
                                             Boolean /*includeQualifiers*/,
                                             Boolean /*includeClassOrigin*/,
                                             const CIMPropertyList& /*propertyList*/,
                                             InstanceResponseHandler& handler) {
    answerWith(served_->enumerateInstances(context, classReference), handler);
}

void OpenPegasusProvider::enumerateInstanceNames(const OperationContext& context,
                                                 const CIMObjectPath& classReference,
                                                 ObjectPathResponseHandler& handler) {
    answerWith(served_->enumerateInstanceNames(context, classReference), handler);
}

void OpenPegasusProvider::modifyInstance(const OperationContext& context,
                                         const CIMObjectPath& instanceReference,
                                         const CIMInstance& instanceObject,
                                         Boolean /*includeQualifiers*/,
                                         const CIMPropertyList& propertyList,
                                         ResponseHandler& handler) {
    served_->modifyInstance(context, instanceReference, instanceObject, propertyList);
    handler.processing();
    handler.complete();
}

void OpenPegasusProvider::createInstance(const OperationContext& context,
                                         const CIMObjectPath& instanceReference,
                                         const CIMInstance& instanceObject,
                                         ObjectPathResponseHandler& handler) {
    answerWith(served_->createInstance(context, instanceReference, instanceObject), handler);
}

void OpenPegasusProvider::deleteInstance(const OperationContext& context,
                                         const CIMObjectPath& instanceReference,
                                         ResponseHandler& handler) {
    served_->deleteInstance(context, instanceReference);
    handler.processing();
    handler.complete();
}

void OpenPegasusProvider::invokeMethod(const OperationContext& context,
                                       const CIMObjectPath& objectReference,
                                       const CIMName& methodName,
                                       const Array<CIMParamValue>& inParameters,
                                       MethodResultResponseHandler& handler) {
    serving::MethodAnswer answer;
    try {
        answer =
            served_->invokeMethod(context, objectReference, methodName.getString(), inParameters);
    } catch (const serving::ProviderBusy&) {
        // The server cannot know that the method still needs this library.
        stayLoaded();
        throw;
    }
    handler.processing();
    handler.deliverParamValue(answer.outParameters);
    // A null value in place of none would be an error to the server.
    if (answer.hasValue) {
        handler.deliver(answer.value);
    }
    handler.complete();
}

void OpenPegasusProvider::associators(const OperationContext& context,
                                      const CIMObjectPath& objectName,
                                      const CIMName& associationClass, const CIMName& resultClass,
                                      const String& role, const String& resultRole,
                                      Boolean includeQualifiers, const Boolean includeClassOrigin,
                                      const CIMPropertyList& propertyList,
                                      ObjectResponseHandler& handler) {
    const Array<CIMObjectPath> paths =
        associatedWith(context, objectName, associationClass, resultClass, role, resultRole);
    Array<CIMObject> objects;
    for (Uint32 i = 0; i < paths.size(); i++) {
        try {
            CIMInstance instance = CIMOMHandle().getInstance(
                context, objectName.getNameSpace(), paths[i], /*localOnly=*/false,
                includeQualifiers, includeClassOrigin, propertyList);
            instance.setPath(paths[i]);
            objects.append(CIMObject(instance));
        } catch (const CIMException& refusal) {
            // Another client may have removed the object since it was found.
            if (refusal.getCode() != CIM_ERR_NOT_FOUND) {
                throw;
            }
        }
    }
    answerWith(objects, handler);
}

void OpenPegasusProvider::associatorNames(const OperationContext& context,
                                          const CIMObjectPath& objectName,
                                          const CIMName& associationClass,
                                          const CIMName& resultClass, const String& role,
                                          const String& resultRole,
                                          ObjectPathResponseHandler& handler) {
    answerWith(associatedWith(context, objectName, associationClass, resultClass, role, resultRole),
               handler);
}

void OpenPegasusProvider::references(const OperationContext& context,
                                     const CIMObjectPath& objectName, const CIMName& resultClass,
                                     const String& role, Boolean /*includeQualifiers*/,
                                     Boolean /*includeClassOrigin*/,
                                     const CIMPropertyList& /*propertyList*/,
                                     ObjectResponseHandler& handler) {
    const Array<CIMInstance> referring = serving::referringInstances(
        associationsOf(context, objectName, resultClass), {objectName, role, String(), nullptr});
    Array<CIMObject> objects;
    for (Uint32 i = 0; i < referring.size(); i++) {
        objects.append(CIMObject(referring[i]));
    }
    answerWith(objects, handler);
}

void OpenPegasusProvider::referenceNames(const OperationContext& context,
                                         const CIMObjectPath& objectName,
                                         const CIMName& resultClass, const String& role,
                                         ObjectPathResponseHandler& handler) {
    const Array<CIMInstance> referring = serving::referringInstances(
        associationsOf(context, objectName, resultClass), {objectName, role, String(), nullptr});
    Array<CIMObjectPath> paths;
    for (Uint32 i = 0; i < referring.size(); i++) {
        paths.append(referring[i].getPath());
    }
    answerWith(paths, handler);
}

/// Every instance of the association class: the server asks for each class by itself.
Array<CIMInstance> OpenPegasusProvider::associationsOf(const OperationContext& context,
                                                       const CIMObjectPath& objectName,
                                                       const CIMName& associationClass) {
    return served_->enumerateInstances(
        context, CIMObjectPath(objectName.getHost(), objectName.getNameSpace(), associationClass));
}

Array<CIMObjectPath> OpenPegasusProvider::associatedWith(const OperationContext& context,
                                                         const CIMObjectPath& objectName,
                                                         const CIMName& associationClass,
                                                         const CIMName& resultClass,
                                                         const String& role,
                                                         const String& resultRole) {
    serving::AssociationQuery query{objectName, role, resultRole, nullptr};
    if (!resultClass.isNull()) {
        query.isResultClass = [&](const CIMName& className) {
            return ancestry_.isA(context, objectName.getNameSpace(), className, resultClass);
        };
    }
    return serving::associatedPaths(associationsOf(context, objectName, associationClass), query);
}

}  // namespace openpegasus

/// The one symbol that the library exports: the server asks it for each provider registered with
/// this library. Null if there is none of that name; the server reports it.
extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& providerName) {
    std::unique_ptr<openpegasus::LibraryProvider> library =
        openpegasus::LibraryProvider::create(providerName);
    return library ? new openpegasus::OpenPegasusProvider(std::move(library)) : nullptr;
}
