// SPDX-License-Identifier: MIT
// Files in memory, for what is handed to a program that is started here.
#pragma once

#include <string>

#include "base/FileDescriptor.h"

namespace usbhcdiag {

/// A file that has no name, is gone when it is closed everywhere, and that only its owner may read;
/// programs started here do not inherit the descriptor. `name` shows in /proc alone. Throws Failure.
/// Any thread may call it.
base::FileDescriptor memoryFile(const char* name, const std::string& content = {});

}  // namespace usbhcdiag
