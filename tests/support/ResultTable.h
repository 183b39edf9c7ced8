// SPDX-License-Identifier: MIT
// The result table of the process, as tests need it: readable, and empty at the start of each.
#pragma once

#include "diag/ZORVA_DiagnosticResultBuilder.h"

/// Empties the table when made and when destroyed.
class ResultTable : public Pegasus::ZORVA_DiagnosticResultBuilder {
public:
    ResultTable() { clear(); }
    ~ResultTable() override { clear(); }

    static void clear() {
        while (res_ref_inst.size() > 0) {
            removeResult(0);
        }
    }

    static Pegasus::InstanceTable& entries() { return res_ref_inst; }
};
