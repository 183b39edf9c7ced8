// SPDX-License-Identifier: MIT
// Interprets the loop settings of a result.
#pragma once

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// Interprets "LoopControl" and "LoopControlParameter" of a result record, tells whether a looping
/// test must stop, and counts its passes.
///
/// A test that loops asks getThisTestLoopControl() once and continueLoopingCheck() after each pass.
/// One thread at a time.
class ZORVA_DiagLoopControls {
public:
    ZORVA_DiagLoopControls() = default;
    virtual ~ZORVA_DiagLoopControls();

    /// The value of a property of the result record.
    virtual CIMValue retrieveResultProperty(String propertyName) = 0;
    /// Sets a property of the result record.
    virtual void writeToResults(String propertyName, CIMValue value) = 0;

    /// Reads the loop settings and returns their combined code: 2 continuous, which overrides all
    /// others; 3 count, 4 timer or 5 error count alone; 51 count and timer; 52 count and error
    /// count; 53 timer and error count; 54 all three; 56 none.
    ///
    /// If there are several settings of a kind, the last one counts. A parameter is read as a
    /// decimal number (for a timer: seconds) up to the first other character, 0 if there are no
    /// digits. Throws IndexOutOfBoundsException if "LoopControlParameter" is too short.
    Uint32 getThisTestLoopControl();

    /// Counts the pass that has ended, then returns whether the loop must stop. Always false for
    /// codes that getThisTestLoopControl() never returns.
    Boolean continueLoopingCheck(Uint16 code);

    /// Adds 1 to the result's "LoopsPassed" if its "TestState" is 2, to "LoopsFailed" if it is 3.
    void updateLoopCount();

    /// Does nothing: errors are not counted.
    void updateErrorCount(Uint32 errors);

    /// Whether as many passes have ended as were requested.
    Boolean LoopCountExceeded();

    /// Whether the requested time is over.
    Boolean TimerExceeded();

    /// Always false: errors are not counted.
    Boolean ErrorCountExceeded();

private:
    Uint32 countProperty(const char* name);

    Uint32 loopCountLimit_ = 0;
    Uint32 errorCountLimit_ = 0;
    Uint32 timerEnd_ = 0;  // in seconds since the epoch
};

}  // namespace Pegasus
