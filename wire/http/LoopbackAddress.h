// SPDX-License-Identifier: MIT
// Which addresses are this machine's own.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>

namespace wire {

/// Whether `text` is a numeric address of 127.0.0.0/8; a name is none, whatever it begins with.
bool isLoopbackIpv4(const std::string& text);

/// Whether `text` is ::1, in any spelling, without brackets.
bool isLoopbackIpv6(const std::string& text);

}  // namespace wire
