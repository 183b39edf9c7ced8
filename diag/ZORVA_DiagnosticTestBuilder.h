// SPDX-License-Identifier: MIT
// The table of diagnostic tests that a provider offers.
#pragma once

#include "diag/InstanceTable.h"

namespace Pegasus {

/// A table of diagnostic test instances, filled by a concrete test class.
///
/// Look-ups by path ignore host and namespace; look-ups by name are exact. What leaves the table is
/// a copy. One thread at a time.
class ZORVA_DiagnosticTestBuilder {
public:
    /// An empty table.
    ZORVA_DiagnosticTestBuilder() = default;
    virtual ~ZORVA_DiagnosticTestBuilder();

    /// The tests that a concrete class offers; none here.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> buildTests();

    /// The test of the path, as an array of one. Throws BadReference "Invalid Reference" if the
    /// table has none.
    Array<CIMInstance> getTestInstance(CIMObjectPath path);

    /// All tests in table order.
    Array<CIMInstance> enumTestInstances();

    /// The paths of all tests in table order.
    Array<CIMObjectPath> enumTestReferences();

    /// The position of the first test whose "Name" is testName. Throws NoSuchProperty
    /// "ZORVA_Diagnostic getIsInUse NAME " and the name if there is none: the words name one
    /// caller, whichever it was, because clients know them so.
    Uint32 getInstanceIndex(String testName);

    /// The value of a property of the test of that name. Throws as getInstanceIndex() does, and
    /// NoSuchProperty with the property's name where the test has none such.
    CIMValue getTestProperty(String testName, String propertyName);

    /// Sets "IsInUse" or "Started" of the test of that name. Throws NotImplemented
    /// "ZORVA_DiagnosticTest property not writable" for any other property and otherwise as
    /// getTestProperty() does; TypeMismatchException where the value is no Boolean.
    void setTestProperty(String testName, String propertyName, CIMValue value);

    /// Whether the "Characteristics" of the test of that name hold the given one. Throws as
    /// getTestProperty() does.
    bool getHasCharacteristic(String testName, Uint16 characteristic);

protected:
    InstanceTable _tests;
};

}  // namespace Pegasus
