// SPDX-License-Identifier: MIT
// The provider as the CIM server drives it.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>

#include "usbhc/ZORVA_UsbHc_DiagResult.h"

namespace Pegasus {

/// Serves the diagnostic of USB host controllers: its test, its results and their associations.
///
/// Instances are delivered whole, whatever the flags and the property list ask for; a class that is
/// not served here has no instances and no methods. Exceptions of the tables pass to the server.
/// What lives from one request to the next is the result table, which all provider objects of a
/// process share. No lock is taken: the server keeps requests apart that would meet in a table.
class ZORVA_UsbHc_DiagProvider : public CIMInstanceProvider, public CIMMethodProvider {
public:
    // The classes that the provider serves; of the last one it serves no instances.
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

    /// Delivers all instances of the path's class at once.
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& ref, Uint32 flags,
                            const CIMPropertyList& propertyList,
                            ResponseHandler<CIMInstance>& handler) override;

    /// Delivers the paths of all instances of the path's class at once.
    void enumerateInstanceNames(const OperationContext& context, const CIMObjectPath& ref,
                                ResponseHandler<CIMObjectPath>& handler) override;

    // Refused for every class: NotSupported (status 7) with the operation's qualified name.
    void modifyInstance(const OperationContext& context, const CIMObjectPath& ref,
                        const CIMInstance& instance, Uint32 flags,
                        const CIMPropertyList& propertyList,
                        ResponseHandler<void>& handler) override;
    void createInstance(const OperationContext& context, const CIMObjectPath& ref,
                        const CIMInstance& instance,
                        ResponseHandler<CIMObjectPath>& handler) override;
    void deleteInstance(const OperationContext& context, const CIMObjectPath& ref,
                        ResponseHandler<void>& handler) override;

    /// Runs "RunTest", "ClearResults" or "DiscontinueTest" of the test that the path's key "Name"
    /// names; the first two deliver their return code, the third delivers no value.
    ///
    /// Names ignore case. "StartService" and "StopService" throw NotSupported (status 7). Another
    /// method, or another class, completes without a value.
    void invokeMethod(const OperationContext& context, const CIMObjectPath& ref,
                      const String& methodName, const Array<CIMParamValue>& inParameters,
                      Array<CIMParamValue>& outParameters,
                      ResponseHandler<CIMValue>& handler) override;

    /// Keeps the handle, and asks the server not to unload the provider while it is idle: with it
    /// the results would go. Reports no failure.
    void initialize(CIMOMHandle& cimom) override;

    /// Only logs: the provider goes on serving, until the server deletes it.
    void terminate() override;

private:
    // The model of a class lives for one request; `use` is called with it.
    template <class Use>
    void withModelOf(const String& className, Use use);

    void discontinueTest(const String& testName, const Array<CIMParamValue>& inParameters,
                         Array<CIMParamValue>& outParameters);

    CIMOMHandle _cimom;
    /// Part of the known layout of this class; no operation needs it.
    [[maybe_unused]] Array<CIMInstance> instances_;
    /// The provider's way to the result table.
    ZORVA_UsbHc_DiagResult* _diagResult;
    ZORVA_UsbHc_DiagResult ownDiagResult_;
};

}  // namespace Pegasus
