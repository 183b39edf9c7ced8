// SPDX-License-Identifier: MIT
// The differences between two device lists as JSON, described in usbhcdiag-json(5).
#pragma once

#include "cli/JsonWriter.h"
#include "cli/ListDifferences.h"

namespace usbhcdiag {

/// Writes the object for the differences. Any thread may call it for different writers.
void writeDifferences(JsonWriter& json, const ListDifferences& differences);

}  // namespace usbhcdiag
