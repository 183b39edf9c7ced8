// SPDX-License-Identifier: MIT
// What may be assumed of the places that output goes to.
//
// Functions without state; any thread may call them.
#pragma once

namespace usbhcdiag {

/// Whether file descriptor `fd` is a terminal.
bool isTerminal(int fd);

/// Whether coloured or bold text may go to `fd`: a terminal that is not "dumb", and no NO_COLOR in
/// the environment.
bool mayColour(int fd);

}  // namespace usbhcdiag
