// SPDX-License-Identifier: MIT
// The method "RunTest", as far as it is the same for every test.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/ExclusiveRuns.h"

namespace Pegasus {

/// One call of RunTest: the order of the checks, the codes of the refusals, the copy of the
/// caller's settings into the result record. What depends on the test is left to a subclass.
///
/// One object serves one call on one thread, and no two calls overlap.
class ZORVA_DiagRunTestMethod {
public:
    ZORVA_DiagRunTestMethod() = default;
    /// @param handle       the way back into the server
    /// @param testName     name of the test to run
    /// @param inParameters as the client passed them
    ZORVA_DiagRunTestMethod(CIMOMHandle& handle, String testName,
                            Array<CIMParamValue> inParameters);
    virtual ~ZORVA_DiagRunTestMethod();

    /// Checks, prepares and runs the test; the value is the method's Uint32 return code.
    ///
    /// Appends the out-parameter "Result", the path of the result record, before the test runs, so
    /// it is there when the test fails too. The first check that fails ends the call with its code:
    /// verifyMSE()'s, 1024 without a result record, 1028 if the test is in progress,
    /// verifySettings()'s, verifyExclusivity()'s; executeTest()'s at last. Exceptions of these
    /// operations pass.
    virtual CIMValue processTest(Array<CIMParamValue>& outParameters);

    /// Makes sure that there is a fresh result record; false if none could be made.
    virtual Boolean doResultsExist() = 0;
    /// The value of a property of the result record.
    virtual CIMValue retrieveResultProperty(String propertyName) = 0;
    /// The path of the result record.
    virtual CIMObjectPath retrieveResultReference() = 0;
    /// Sets a property of the result record.
    virtual void writeToResults(String propertyName, CIMValue value) = 0;
    /// Appends one line to the result record's report.
    virtual void writeTestResults(String line) = 0;
    /// Whether the managed element will do: 0, or the code to refuse with. Sets the device ID.
    virtual Uint32 verifyMSE();
    /// Whether the test may run beside those that run: 0, or the code to refuse with.
    virtual Uint32 verifyExclusivity();
    /// Runs the test: 0, or the code of its failure.
    virtual Uint32 executeTest();

    /// Copies the properties of the instance that the in-parameter "Setting" designates into the
    /// result record; a setting that is absent, no reference or not to be found changes nothing.
    /// Returns 0. Throws what writeToResults() throws for a value of another type.
    Uint32 verifySettings();

    /// Copies one property of the setting into the result record, null or not; does nothing where
    /// the setting has none of that name.
    void putSettingInResult(CIMInstance& setting, String propertyName);

protected:
    /// The exclusive tests that run, for the whole process.
    static ExclusiveRuns mse_test_assoc;

    CIMOMHandle _handle;
    String _testName;
    /// Empty until verifyMSE() has found the element.
    String _deviceId;
    Array<CIMParamValue> _inParameters;
    /// Part of the known layout of this class; no operation needs it.
    [[maybe_unused]] Array<CIMParamValue> _parameters;
};

}  // namespace Pegasus
