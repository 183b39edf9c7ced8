// SPDX-License-Identifier: MIT
// Gives tests access to the result table of the process.
// One thread.
#pragma once

#include "diag/ZORVA_DiagnosticResultBuilder.h"

/// Empties the table when constructed and when destroyed.
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
