// SPDX-License-Identifier: MIT
// The factory, the only function that the library exports.
#pragma once

#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/CIMBaseProvider.h>

/// Makes a provider object for the name "ZORVA_UsbHc_DiagProvider" (ignoring case), which the
/// caller owns. Returns null for any other name. Any thread may call it.
extern "C" PEGASUS_EXPORT Pegasus::CIMProvider* PegasusCreateProvider(
    const Pegasus::String& providerName);
