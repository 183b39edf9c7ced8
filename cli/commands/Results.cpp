// SPDX-License-Identifier: MIT
// usbhcdiag results
#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/Values.h"
#include "cli/commands/Commands.h"

namespace usbhcdiag {
namespace {

std::string state(const Pegasus::CIMInstance& result) {
    const Json value = valueOf(result, "TestState");
    return value.is_number() ? testStateText(value.get<std::uint16_t>()) : "";
}

std::string lineCount(const Pegasus::CIMInstance& result) {
    return std::to_string(valueOf(result, "TestResults").size());
}

std::string started(const Pegasus::CIMInstance& result) {
    return dateForPeople(textOf(result, "TestStartTime"));
}

std::string completed(const Pegasus::CIMInstance& result) {
    return dateForPeople(textOf(result, "TestCompletionTime"));
}

}  // namespace

ExitStatus listResults(Server& server, const Invocation& invocation) {
    const auto results = chooseResults(Diagnostics(server.client()).results(), invocation.element);
    print(results,
          {{"TEST", "DiagnosticName"},
           {"ELEMENT", "ExecutionID"},
           {"STATE", state},
           {"STARTED", started},
           {"COMPLETED", completed},
           {"LINES", lineCount}},
          invocation.json);
    noteThatAPrivateServerHasNone(server);
    return exitSuccess;
}

}  // namespace usbhcdiag
