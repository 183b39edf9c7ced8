// SPDX-License-Identifier: MIT
// The table of the results of diagnostic runs.
#pragma once

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/InstanceTable.h"

namespace Pegasus {

/// Holds the results of all diagnostic runs since the library was loaded.
///
/// All builders of a process share one table. A result is identified by the name of its diagnostic
/// and its execution ID, which is the device ID of the tested element. Instances that leave the
/// table are clones. An operation that throws leaves the table unchanged. One thread at a time, for
/// all builders together.
class ZORVA_DiagnosticResultBuilder {
public:
    /// The index that searches return for a result that is not in the table.
    static constexpr Uint32 resultNotFound = 77777777;

    ZORVA_DiagnosticResultBuilder() = default;
    virtual ~ZORVA_DiagnosticResultBuilder();

    /// Builds one result and appends it to the table, even if the table has one of the pair.
    ///
    /// A placeholder that concrete results override: its path disagrees with its properties on
    /// purpose, see the .cpp file.
    virtual void buildTestResult(CIMOMHandle handle, String diagnosticName, String executionId);

    /// Adds the properties that all results have, with their values before a run.
    virtual void buildDefaultResultProperties(CIMInstance& instance);

    /// Makes sure that the table holds a result of the pair, and returns whether it does.
    ///
    /// With `replace` an existing result is replaced by one with default values. The new one is
    /// appended before the old one is removed, so that nothing is lost if the call to the server
    /// fails.
    bool checkForTestResult(CIMOMHandle handle, String diagnosticName, String executionId,
                            bool replace);

    /// The result of the path, as an array of one; host and namespace are ignored. Throws
    /// BadReference "ZORVA_DiagnosticResultbuilder - Invalid Reference" if there is none.
    Array<CIMInstance> getResultInstance(CIMObjectPath reference);

    /// All results in table order.
    Array<CIMInstance> enumResultInstances();

    /// The paths of all results in table order.
    Array<CIMObjectPath> enumResultReferences();

    /// The path of a result. Throws IndexOutOfBoundsException if there is none.
    CIMObjectPath getTestResultReference(String diagnosticName, String executionId);

    /// The value of a property of a result. Throws IndexOutOfBoundsException if there is no such
    /// result, NoSuchProperty with the property's name if the result has no such property.
    CIMValue getResultProperty(String diagnosticName, String executionId, String propertyName);

    /// Sets a writable property of a result. Throws NotImplemented "ZORVA_DiagnosticResult property
    /// not writable" for any other property, TypeMismatchException for a value of another type, and
    /// otherwise as getResultProperty() does.
    void setResultProperty(String diagnosticName, String executionId, String propertyName,
                           CIMValue value);

    /// Appends one line, unchanged, to the "TestResults" of a result. Throws as getResultProperty()
    /// does.
    void setResultPropertyTestResults(const String& diagnosticName, const String& executionId,
                                      const String& line);

    /// The index of the first result of the pair, both compared exactly, or resultNotFound.
    Uint32 getRefInstIndex(String diagnosticName, String executionId);

    /// The value of a property of the result at the index. Throws IndexOutOfBoundsException if the
    /// index is past the end of the table, NoSuchProperty with the property's name if the result
    /// has no such property.
    CIMValue getPropertyValue(Uint32 index, String propertyName);

    /// The method "ClearResults" for one diagnostic: removes all results of the element that the
    /// in-parameter "SystemElement" refers to. A result whose test is in progress stays; for it an
    /// out-parameter "ResultsNotCleared" is appended: diagnostic name and device ID concatenated.
    ///
    /// Returns a Uint32: 0, 1050 if the parameter is absent, or 1040 if it is no reference.
    CIMValue clearResultElement(String diagnosticName, Array<CIMParamValue> inParameters,
                                Array<CIMParamValue>& outParameters);

protected:
    /// The table of the process. Subclasses append to it, but remove with removeResult() only,
    /// which also invalidates the last search.
    static InstanceTable res_ref_inst;

    /// Removes the result at the index, which must be valid.
    static void removeResult(Uint32 index);

private:
    /// As getRefInstIndex().
    static Uint32 firstResultOf(const String& diagnosticName, const String& executionId);
    /// The same, starting at the index `first`.
    static Uint32 nextResultOf(const String& diagnosticName, const String& executionId,
                               Uint32 first);

    /// The answer to a search, with the result's "TestResults" once a line was appended to it.
    struct Found {
        Uint32 index;
        String diagnosticName;
        String executionId;
        CIMProperty lines;
    };
    static Found lastFound_;
};

}  // namespace Pegasus
