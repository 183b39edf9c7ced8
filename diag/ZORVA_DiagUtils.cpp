// SPDX-License-Identifier: MIT
#include "diag/ZORVA_DiagUtils.h"

#include "diag/DebugLogFile.h"

namespace Pegasus {

ZORVA_DiagUtils::~ZORVA_DiagUtils() = default;

void ZORVA_DiagUtils::DEBUG_PRINT(String message) {
    appendToLogFile(debugLogName, message.getCString());
}

CIMDateTime ZORVA_DiagUtils::getCurrentDateTime() {
    return CIMDateTime::getCurrentDateTime();
}

}  // namespace Pegasus
