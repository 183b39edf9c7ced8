// SPDX-License-Identifier: MIT
// The results of the USB host-controller test.
#pragma once

#include "diag/ZORVA_DiagnosticResultBuilder.h"

namespace Pegasus {

/// Adds results of the USB host-controller test to the table of results. One thread at a time, for
/// all objects together.
class ZORVA_UsbHc_DiagResult : public ZORVA_DiagnosticResultBuilder {
public:
    ZORVA_UsbHc_DiagResult() = default;
    ~ZORVA_UsbHc_DiagResult() override;

    /// Builds one result and appends it to the table, even if the table has one of the pair. Calls
    /// the server to look up the host system, whose names are empty if it is unknown. If that call
    /// throws anything but a CIMException, the exception propagates and nothing is appended.
    void buildTestResult(CIMOMHandle handle, String diagnosticName, String executionId) override;

    /// Adds the properties that all results have, with their values before a run.
    void buildDefaultResultProperties(CIMInstance& instance) override;

private:
    /// Unused, since the operations have a handle as argument; kept because the layout of this
    /// class is fixed.
    [[maybe_unused]] CIMOMHandle cimom_;
};

}  // namespace Pegasus
