// SPDX-License-Identifier: MIT
#include "provider/PegasusCreateProvider.h"

#include "diag/ZORVA_DiagUtils.h"
#include "provider/ZORVA_UsbHc_DiagProvider.h"

extern "C" PEGASUS_EXPORT Pegasus::CIMProvider* PegasusCreateProvider(
    const Pegasus::String& providerName) {
    using Pegasus::ZORVA_DiagUtils;
    ZORVA_DiagUtils::DEBUG_PRINT("   Creating Provider \n");
    if (!Pegasus::String::equalNoCase(providerName, "ZORVA_UsbHc_DiagProvider")) {
        return nullptr;
    }
    ZORVA_DiagUtils::DEBUG_PRINT("   In checking provider :ZORVA_UsbHc_DiagProvider \n");
    return new Pegasus::ZORVA_UsbHc_DiagProvider;
}
