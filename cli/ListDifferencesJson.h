// SPDX-License-Identifier: MIT
// The differences between two device lists as JSON, described in usbhcdiag-json(5).
#pragma once

#include "cli/ListDifferences.h"
#include "cli/Values.h"

namespace usbhcdiag {

/// The object for the differences. Strings are as the devices gave them: documentOf() makes valid UTF-8 of
/// them. Any thread may call it.
Json differencesJson(const ListDifferences& differences);

}  // namespace usbhcdiag
