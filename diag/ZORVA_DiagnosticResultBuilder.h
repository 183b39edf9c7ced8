// SPDX-License-Identifier: MIT
// The table of the results of all diagnostic runs.
#pragma once

#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include "diag/InstanceTable.h"

namespace Pegasus {

/// The results that diagnostics have left since the library was loaded, and what can be done with
/// them.
///
/// All builders of a process see one table. A result is known by its diagnostic's name and its
/// execution ID, which is the device ID of the element that was tested. What leaves the table is a
/// copy. An operation that throws leaves the table as it was. One thread at a time.
class ZORVA_DiagnosticResultBuilder {
public:
    /// The index of a result that the table does not hold.
    static constexpr Uint32 RESULT_NOT_FOUND = 77777777;

    ZORVA_DiagnosticResultBuilder() = default;
    virtual ~ZORVA_DiagnosticResultBuilder();

    /// Builds one result and appends it to the table, whatever the table holds already.
    ///
    /// This one is a placeholder for a concrete result to override: its path disagrees with its
    /// properties on purpose, see the .cpp file.
    virtual void buildTestResult(CIMOMHandle handle, String diagnosticName, String executionId);

    /// Adds the properties that every result has, with their values before any run.
    virtual void buildDefaultResultProperties(CIMInstance& instance);

    /// Makes sure that the table holds a result of the pair, and returns whether it does.
    ///
    /// With `replace` a result with default values takes the place of one that is there: it is
    /// appended first and the old one removed after, so that a failure of the call to the server
    /// in between loses nothing.
    bool checkForTestResult(CIMOMHandle handle, String diagnosticName, String executionId,
                            bool replace);

    /// The result of the path, whose host and namespace do not count, as an array of one. Throws
    /// BadReference "ZORVA_DiagnosticResultbuilder - Invalid Reference" if the table has none.
    Array<CIMInstance> getResultInstance(CIMObjectPath reference);

    /// All results in table order.
    Array<CIMInstance> enumResultInstances();

    /// The paths of all results in table order.
    Array<CIMObjectPath> enumResultReferences();

    /// The path of a result. Throws IndexOutOfBoundsException if the table has none.
    CIMObjectPath getTestResultReference(String diagnosticName, String executionId);

    /// The value of a property of a result. Throws IndexOutOfBoundsException if the table has no
    /// such result, NoSuchProperty with the property's name if that has no such property.
    CIMValue getResultProperty(String diagnosticName, String executionId, String propertyName);

    /// Sets one of the writable properties of a result. Throws NotImplemented
    /// "ZORVA_DiagnosticResult property not writable" for all others, TypeMismatchException for a
    /// value of another type, and otherwise as getResultProperty() does.
    void setResultProperty(String diagnosticName, String executionId, String propertyName,
                           CIMValue value);

    /// Appends one line, as it stands, to the "TestResults" of a result. Throws as
    /// getResultProperty() does.
    void setResultPropertyTestResults(const String& diagnosticName, const String& executionId,
                                      const String& line);

    /// The index of the first result of the pair, both compared exactly; RESULT_NOT_FOUND if there
    /// is none.
    Uint32 getRefInstIndex(String diagnosticName, String executionId);

    /// The value of a property of the result at the index. Throws IndexOutOfBoundsException past
    /// the end of the table, NoSuchProperty with the property's name if there is none such.
    CIMValue getPropertyValue(Uint32 index, String propertyName);

    /// The method "ClearResults" for one diagnostic: removes every result of the element that the
    /// in-parameter "SystemElement" designates. A result whose test is in progress stays, and an
    /// out-parameter "ResultsNotCleared" is appended for it: diagnostic name and device ID in one.
    ///
    /// Returns, as a Uint32, 0, or 1050 if the parameter is absent, or 1040 if it is no reference.
    CIMValue clearResultElement(String diagnosticName, Array<CIMParamValue> inParameters,
                                Array<CIMParamValue>& outParameters);

protected:
    /// The one table of the process. Subclasses append to it, and remove by removeResult() alone.
    static InstanceTable res_ref_inst;

    /// Removes the result at the index, which must be one of the table.
    static void removeResult(Uint32 index);

private:
    /// As getRefInstIndex().
    static Uint32 firstResultOf(const String& diagnosticName, const String& executionId);
    /// The same of the results from the index `first` on.
    static Uint32 nextResultOf(const String& diagnosticName, const String& executionId,
                               Uint32 first);

    /// A result's index and what identifies it, and its "TestResults" once a line was appended.
    struct Found {
        Uint32 index;
        String diagnosticName;
        String executionId;
        CIMProperty lines;
    };
    static Found last_found;
};

}  // namespace Pegasus
