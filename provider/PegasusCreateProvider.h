// SPDX-License-Identifier: MIT
// The one function by which a server gets at the library.
#pragma once

#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/CIMBaseProvider.h>

/// A new provider object for the name "ZORVA_UsbHc_DiagProvider" (ignoring case), which belongs to
/// the caller; null for any other name. Any thread may call it.
extern "C" PEGASUS_EXPORT Pegasus::CIMProvider* PegasusCreateProvider(
    const Pegasus::String& providerName);
