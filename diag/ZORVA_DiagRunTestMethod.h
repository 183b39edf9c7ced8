// SPDX-License-Identifier: MIT
// The part of the method "RunTest" that all tests share.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/ExclusiveRuns.h"

namespace Pegasus {

/// One call of RunTest: the order of the checks, the return codes, the copy of the client's
/// settings into the result record. Subclasses implement what depends on the test.
///
/// One object serves one call on one thread, and no two calls overlap.
class ZORVA_DiagRunTestMethod {
public:
    ZORVA_DiagRunTestMethod() = default;
    /// @param handle       for calls back into the server
    /// @param testName     name of the test to run
    /// @param inParameters the in-parameters of the call
    ZORVA_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                            Array<CIMParamValue> inParameters);
    virtual ~ZORVA_DiagRunTestMethod();

    /// Checks, prepares and runs the test. Returns the method's return code, a Uint32.
    ///
    /// Appends the out-parameter "Result", the path of the result record, before the test runs, so
    /// that the client gets it even if the test fails. The first check that fails ends the call
    /// with its code: that of verifyMSE(), 1024 without a result record, 1028 if the test is in
    /// progress, that of verifySettings() or verifyExclusivity(). Otherwise returns the code of
    /// executeTest(). Exceptions of these operations propagate.
    virtual CIMValue processTest(Array<CIMParamValue>& outParameters);

    /// Makes sure that there is a new result record. Returns false if none could be made.
    virtual Boolean doResultsExist() = 0;
    /// The value of a property of the result record.
    virtual CIMValue retrieveResultProperty(String propertyName) = 0;
    /// The path of the result record.
    virtual CIMObjectPath retrieveResultReference() = 0;
    /// Sets a property of the result record.
    virtual void writeToResults(String propertyName, CIMValue value) = 0;
    /// Appends one line to the result record's report.
    virtual void writeTestResults(String line) = 0;
    /// Checks the managed element and sets the device ID. Returns 0 or the code of the failure.
    virtual Uint32 verifyMSE();
    /// Checks whether the running tests allow this one. Returns 0 or the code of the failure.
    virtual Uint32 verifyExclusivity();
    /// Runs the test. Returns 0 or the code of its failure.
    virtual Uint32 executeTest();

    /// Copies the properties of the instance that the in-parameter "Setting" refers to into the
    /// result record. Does nothing if the parameter is absent, is no reference or refers to
    /// nothing. Returns 0. Throws what writeToResults() throws for a value of another type.
    Uint32 verifySettings();

    /// Copies one property of the setting, null or not, into the result record. Does nothing if the
    /// setting has no such property.
    void putSettingInResult(CIMInstance& setting, String propertyName);

protected:
    /// The exclusive tests that are running in this process.
    static ExclusiveRuns mse_test_assoc;

    CIMOMHandle handle_;
    String testName_;
    /// Empty until verifyMSE() has set it.
    String deviceId_;
    Array<CIMParamValue> inParameters_;
    /// Unused; kept because the layout of this class is fixed.
    [[maybe_unused]] Array<CIMParamValue> parameters_;
};

}  // namespace Pegasus
