// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagLoopControls.h"

#include <cstdlib>
#include <ctime>

#include "diag/TestState.h"

namespace Pegasus {
namespace {

namespace loop_code {

// The values of "LoopControl" that are not ignored.
constexpr Uint16 continuous = 2;
constexpr Uint16 count = 3;
constexpr Uint16 timer = 4;
constexpr Uint16 errorCount = 5;

// The codes of their combinations.
constexpr Uint16 countAndTimer = 51;
constexpr Uint16 countAndErrorCount = 52;
constexpr Uint16 timerAndErrorCount = 53;
constexpr Uint16 allThree = 54;
constexpr Uint16 none = 56;

}  // namespace loop_code

Uint32 decimalValue(const String& text) {
    constexpr int base = 10;
    return static_cast<Uint32>(std::strtol(text.getCString(), nullptr, base));
}

Uint32 now() {
    return static_cast<Uint32>(std::time(nullptr));
}

}  // namespace

ZORVA_DiagLoopControls::~ZORVA_DiagLoopControls() = default;

Uint32 ZORVA_DiagLoopControls::getThisTestLoopControl() {
    Array<Uint16> controlValues;
    retrieveResultProperty("LoopControl").get(controlValues);
    Array<String> parameterValues;
    retrieveResultProperty("LoopControlParameter").get(parameterValues);
    const Array<Uint16>& controls = controlValues;
    const Array<String>& parameters = parameterValues;

    bool isContinuous = false;
    bool hasCount = false;
    bool hasTimer = false;
    bool hasErrorCount = false;
    for (Uint32 i = 0; i < controls.size(); ++i) {
        switch (controls[i]) {
            case loop_code::continuous:
                isContinuous = true;
                break;
            case loop_code::count:
                hasCount = true;
                loopCountLimit_ = decimalValue(parameters[i]);
                break;
            case loop_code::timer:
                hasTimer = true;
                timerEnd_ = now() + decimalValue(parameters[i]);
                break;
            case loop_code::errorCount:
                hasErrorCount = true;
                errorCountLimit_ = decimalValue(parameters[i]);
                break;
            default:
                break;
        }
    }
    if (isContinuous) {
        return loop_code::continuous;
    }
    if (hasCount && hasTimer) {
        return hasErrorCount ? loop_code::allThree : loop_code::countAndTimer;
    }
    if (hasCount) {
        return hasErrorCount ? loop_code::countAndErrorCount : loop_code::count;
    }
    if (hasTimer) {
        return hasErrorCount ? loop_code::timerAndErrorCount : loop_code::timer;
    }
    return hasErrorCount ? loop_code::errorCount : loop_code::none;
}

Boolean ZORVA_DiagLoopControls::continueLoopingCheck(Uint16 code) {
    updateLoopCount();
    switch (code) {
        case loop_code::continuous:
            return retrieveResultProperty("TestState") == CIMValue(test_state::stopped);
        case loop_code::count:
            return LoopCountExceeded();
        case loop_code::timer:
            return TimerExceeded();
        case loop_code::errorCount:
            return ErrorCountExceeded();
        case loop_code::countAndTimer:
            return LoopCountExceeded() || TimerExceeded();
        case loop_code::countAndErrorCount:
            return LoopCountExceeded() || ErrorCountExceeded();
        case loop_code::timerAndErrorCount:
            return TimerExceeded() || ErrorCountExceeded();
        case loop_code::allThree:
            return LoopCountExceeded() || TimerExceeded() || ErrorCountExceeded();
        case loop_code::none:
            return true;
        default:
            return false;
    }
}

void ZORVA_DiagLoopControls::updateLoopCount() {
    const CIMValue state = retrieveResultProperty("TestState");
    if (state == CIMValue(test_state::passed)) {
        writeToResults("LoopsPassed", CIMValue(countProperty("LoopsPassed") + 1));
    } else if (state == CIMValue(test_state::failed)) {
        writeToResults("LoopsFailed", CIMValue(countProperty("LoopsFailed") + 1));
    }
}

void ZORVA_DiagLoopControls::updateErrorCount(Uint32 /*errors*/) {}

Boolean ZORVA_DiagLoopControls::LoopCountExceeded() {
    // Readers of this property know it as "Loopsfailed". Property names ignore case, so this is the
    // property that updateLoopCount() writes as "LoopsFailed".
    return countProperty("LoopsPassed") + countProperty("Loopsfailed") >= loopCountLimit_;
}

Boolean ZORVA_DiagLoopControls::TimerExceeded() {
    return now() >= timerEnd_;
}

Boolean ZORVA_DiagLoopControls::ErrorCountExceeded() {
    return false;
}

Uint32 ZORVA_DiagLoopControls::countProperty(const char* name) {
    Uint32 count = 0;
    retrieveResultProperty(name).get(count);
    return count;
}

}  // namespace Pegasus
