// SPDX-License-Identifier: MIT
// The table of diagnostic tests that a provider offers.
#pragma once

#include "diag/InstanceTable.h"

namespace Pegasus {

/// A table of diagnostic test instances, filled by a subclass.
///
/// Look-ups by path ignore host and namespace; look-ups by name are exact. Instances that leave the
/// table are clones. One thread at a time.
class ZORVA_DiagnosticTestBuilder {
public:
    /// An empty table.
    ZORVA_DiagnosticTestBuilder() = default;
    virtual ~ZORVA_DiagnosticTestBuilder();

    /// The tests that a subclass offers; none here.
    virtual Array<Pair<CIMObjectPath, CIMInstance>> buildTests();

    /// The test of the path, as an array of one. Throws BadReference "Invalid Reference" if there
    /// is none.
    Array<CIMInstance> getTestInstance(CIMObjectPath path);

    /// All tests in table order.
    Array<CIMInstance> enumTestInstances();

    /// The paths of all tests in table order.
    Array<CIMObjectPath> enumTestReferences();

    /// The index of the first test whose "Name" is testName. Throws NoSuchProperty
    /// "ZORVA_Diagnostic getIsInUse NAME " and the name if there is none. The text names this one
    /// caller for all of them, because clients rely on it.
    Uint32 getInstanceIndex(String testName);

    /// The value of a property of the test of that name. Throws as getInstanceIndex() does, and
    /// NoSuchProperty with the property's name if the test has no such property.
    CIMValue getTestProperty(String testName, String propertyName);

    /// Sets "IsInUse" or "Started" of the test of that name. Throws NotImplemented
    /// "ZORVA_DiagnosticTest property not writable" for any other property, TypeMismatchException
    /// if the value is no Boolean, and otherwise as getTestProperty() does.
    void setTestProperty(String testName, String propertyName, CIMValue value);

    /// Whether the "Characteristics" of the test of that name contain `characteristic`. Throws as
    /// getTestProperty() does, and TypeMismatchException if they are no array of Uint16.
    bool getHasCharacteristic(String testName, Uint16 characteristic);

protected:
    InstanceTable tests_;
};

}  // namespace Pegasus
