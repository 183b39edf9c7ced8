// SPDX-License-Identifier: MIT
// The commands and options of usbhcdiag: the one table that the parser accepts, and that help and
// completion are made from.
#pragma once

#include "options/Program.h"

namespace usbhcdiag {

/// Lives as long as the process. Any thread may call it.
const options::Program& program();

}  // namespace usbhcdiag
