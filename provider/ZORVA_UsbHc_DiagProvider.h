// SPDX-License-Identifier: MIT
// The provider object that the CIM server calls.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// Serves the diagnostic of USB host controllers: its test, its results and their associations.
///
/// Instances are delivered with all properties: flags and property lists are ignored. Classes that
/// are not served have no instances and no methods. Exceptions propagate to the server. The only
/// state that outlives a request is the result table, which all provider objects of a process
/// share.
///
/// Takes no locks. The server must let only one thread at a time run in the provider objects of a
/// process, where a call back into the server counts as outside, and must not let methods overlap.
class ZORVA_UsbHc_DiagProvider : public CIMInstanceProvider, public CIMMethodProvider {
public:
    // The names of the served classes, and of the test software, which is not served.
    static const String DIAG_TEST;
    static const String DIAG_RESULT;
    static const String DIAG_RESULT_FOR_MSE;
    static const String DIAG_RESULT_FOR_TEST;
    static const String DIAG_TEST_FOR_MSE;
    static const String DIAG_TEST_SOFTWARE_ASSOC;
    static const String DIAG_TEST_SOFTWARE;

    ZORVA_UsbHc_DiagProvider();
    ~ZORVA_UsbHc_DiagProvider() override;

    /// Delivers the instance of the path. Throws BadReference (status 6) if there is none.
    void getInstance(const OperationContext& context, const CIMObjectPath& ref, Uint32 flags,
                     const CIMPropertyList& propertyList,
                     ResponseHandler<CIMInstance>& handler) override;

    /// Delivers all instances of the path's class in one call of the handler.
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& ref, Uint32 flags,
                            const CIMPropertyList& propertyList,
                            ResponseHandler<CIMInstance>& handler) override;

    /// Delivers the paths of all instances of the path's class in one call of the handler.
    void enumerateInstanceNames(const OperationContext& context, const CIMObjectPath& ref,
                                ResponseHandler<CIMObjectPath>& handler) override;

    // Not supported for any class: throw NotSupported (status 7) with the operation's qualified
    // name.
    void modifyInstance(const OperationContext& context, const CIMObjectPath& ref,
                        const CIMInstance& instance, Uint32 flags,
                        const CIMPropertyList& propertyList,
                        ResponseHandler<void>& handler) override;
    void createInstance(const OperationContext& context, const CIMObjectPath& ref,
                        const CIMInstance& instance,
                        ResponseHandler<CIMObjectPath>& handler) override;
    void deleteInstance(const OperationContext& context, const CIMObjectPath& ref,
                        ResponseHandler<void>& handler) override;

    /// Runs "RunTest", "ClearResults" or "DiscontinueTest" for the test in the path's key "Name".
    /// The first two deliver their return code, the third delivers no value.
    ///
    /// Names ignore case. "StartService" and "StopService" throw NotSupported (status 7). Other
    /// methods, and methods of other classes, complete without a value.
    void invokeMethod(const OperationContext& context, const CIMObjectPath& ref,
                      const String& methodName, const Array<CIMParamValue>& inParameters,
                      Array<CIMParamValue>& outParameters,
                      ResponseHandler<CIMValue>& handler) override;

    /// Stores the handle, and asks the server not to unload the provider while it is idle, which
    /// would lose the results. Never fails.
    void initialize(CIMOMHandle& cimom) override;

    /// Only logs: the provider can be called until the server deletes it.
    void terminate() override;

private:
    // Makes the object that serves a class and calls `use` with it.
    template <class Use>
    void withModelOf(const String& className, Use use);

    void discontinueTest(const String& testName, const Array<CIMParamValue>& inParameters,
                         Array<CIMParamValue>& outParameters);

    CIMOMHandle _cimom;
    /// Unused; kept because the layout of this class is fixed.
    [[maybe_unused]] Array<CIMInstance> instances_;
    /// Gives access to the result table.
    ZORVA_UsbHc_DiagResult* _diagResult;
    ZORVA_UsbHc_DiagResult ownDiagResult_;
};

}  // namespace Pegasus
