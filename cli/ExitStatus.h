// SPDX-License-Identifier: MIT
// The exit statuses of usbhcdiag, as its manual page lists them.
#pragma once

#include "options/UsageError.h"

namespace usbhcdiag {

enum ExitStatus : int {
    exitSuccess = 0,                 ///< done; for `run`: the result passed
    exitFailure = 1,                 ///< could not be done, or the result did not pass
    exitDifferent = 1,               ///< `diff`: the lists differ
    exitUsage = options::exitUsage,  ///< the command line makes no sense
    exitNothingRead = 3,             ///< no device list, or nothing that could be read of it
};

}  // namespace usbhcdiag
