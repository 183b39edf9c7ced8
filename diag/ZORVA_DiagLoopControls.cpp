// SPDX-License-Identifier: MIT
// What the loop settings of a result ask for.
#include "diag/ZORVA_DiagLoopControls.h"

#include <cstdlib>
#include <ctime>

#include "diag/TestState.h"

namespace Pegasus {
namespace {

// The values of "LoopControl" that mean something here.
constexpr Uint16 CONTINUOUS = 2;
constexpr Uint16 COUNT = 3;
constexpr Uint16 TIMER = 4;
constexpr Uint16 ERROR_COUNT = 5;

// What several of them together come to.
constexpr Uint16 COUNT_AND_TIMER = 51;
constexpr Uint16 COUNT_AND_ERROR_COUNT = 52;
constexpr Uint16 TIMER_AND_ERROR_COUNT = 53;
constexpr Uint16 ALL_THREE = 54;
constexpr Uint16 NONE = 56;

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

    bool continuous = false;
    bool count = false;
    bool timer = false;
    bool errorCount = false;
    for (Uint32 i = 0; i < controls.size(); ++i) {
        switch (controls[i]) {
            case CONTINUOUS:
                continuous = true;
                break;
            case COUNT:
                count = true;
                loopCountLimit_ = decimalValue(parameters[i]);
                break;
            case TIMER:
                timer = true;
                timerEnd_ = now() + decimalValue(parameters[i]);
                break;
            case ERROR_COUNT:
                errorCount = true;
                errorCountLimit_ = decimalValue(parameters[i]);
                break;
            default:
                break;
        }
    }
    if (continuous) {
        return CONTINUOUS;
    }
    if (count && timer) {
        return errorCount ? ALL_THREE : COUNT_AND_TIMER;
    }
    if (count) {
        return errorCount ? COUNT_AND_ERROR_COUNT : COUNT;
    }
    if (timer) {
        return errorCount ? TIMER_AND_ERROR_COUNT : TIMER;
    }
    return errorCount ? ERROR_COUNT : NONE;
}

Boolean ZORVA_DiagLoopControls::continueLoopingCheck(Uint16 code) {
    updateLoopCount();
    switch (code) {
        case CONTINUOUS:
            return retrieveResultProperty("TestState") == CIMValue(TestState::STOPPED);
        case COUNT:
            return LoopCountExceeded();
        case TIMER:
            return TimerExceeded();
        case ERROR_COUNT:
            return ErrorCountExceeded();
        case COUNT_AND_TIMER:
            return LoopCountExceeded() || TimerExceeded();
        case COUNT_AND_ERROR_COUNT:
            return LoopCountExceeded() || ErrorCountExceeded();
        case TIMER_AND_ERROR_COUNT:
            return TimerExceeded() || ErrorCountExceeded();
        case ALL_THREE:
            return LoopCountExceeded() || TimerExceeded() || ErrorCountExceeded();
        case NONE:
            return true;
        default:
            return false;
    }
}

void ZORVA_DiagLoopControls::updateLoopCount() {
    const CIMValue state = retrieveResultProperty("TestState");
    if (state == CIMValue(TestState::PASSED)) {
        writeToResults("LoopsPassed", CIMValue(countProperty("LoopsPassed") + 1));
    } else if (state == CIMValue(TestState::FAILED)) {
        writeToResults("LoopsFailed", CIMValue(countProperty("LoopsFailed") + 1));
    }
}

void ZORVA_DiagLoopControls::updateErrorCount(Uint32 /*errors*/) {}

Boolean ZORVA_DiagLoopControls::LoopCountExceeded() {
    // "Loopsfailed" is how readers of this property have always spelt it; property names ignore
    // case, so it is the property that updateLoopCount() writes as "LoopsFailed".
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
