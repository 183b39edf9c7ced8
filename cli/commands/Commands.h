// SPDX-License-Identifier: MIT
// The commands of usbhcdiag, one source file each.
//
// Each prints what was asked for on standard output and notes on standard error, and returns the
// exit status; main thread only. Failures are thrown: options::UsageError, Failure, NothingRead, and what Diagnostics throws.
#pragma once

#include "cli/CommandLine.h"
#include "cli/ExitStatus.h"
#include "cli/Server.h"

namespace usbhcdiag {

ExitStatus runTest(Server& server, const Invocation& invocation);
ExitStatus listTests(Server& server, const Invocation& invocation);
ExitStatus listElements(Server& server, const Invocation& invocation);
ExitStatus listResults(Server& server, const Invocation& invocation);
ExitStatus clearResults(Server& server, const Invocation& invocation);
ExitStatus printMof(Server& server, const Invocation& invocation);

// The commands that ask no server.
ExitStatus listDevices(const DevicesRequest& request);
ExitStatus recordList(const RecordRequest& request);
ExitStatus compareLists(const DiffRequest& request);

}  // namespace usbhcdiag
