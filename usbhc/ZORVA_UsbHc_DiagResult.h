// SPDX-License-Identifier: MIT
// The results of the USB host-controller test.
#pragma once

#include "diag/ZORVA_DiagnosticResultBuilder.h"

namespace Pegasus {

/// The table of results, whose new entries are results of the USB host-controller test. One thread
/// at a time.
class ZORVA_UsbHc_DiagResult : public ZORVA_DiagnosticResultBuilder {
public:
    ZORVA_UsbHc_DiagResult() = default;
    ~ZORVA_UsbHc_DiagResult() override;

    /// Builds one result and appends it to the table, whatever the table holds already. Asks the
    /// server for the host system; its names are empty where the server knows none. Exceptions of
    /// that call pass, and nothing is appended then.
    void buildTestResult(CIMOMHandle handle, String diagnosticName, String executionId) override;

    /// Adds the properties that every result has, with their values before any run.
    void buildDefaultResultProperties(CIMInstance& instance) override;

private:
    /// Part of the known layout of this class; the operations use the handle that they are given.
    [[maybe_unused]] CIMOMHandle cimom_;
};

}  // namespace Pegasus
