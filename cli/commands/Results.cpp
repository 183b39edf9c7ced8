// SPDX-License-Identifier: MIT
// usbhcdiag results
#include "cli/Choice.h"
#include "cli/Diagnostics.h"
#include "cli/Listing.h"
#include "cli/ValueTexts.h"
#include "cli/commands/Commands.h"
#include "contract/Names.h"

namespace usbhcdiag {
namespace {

namespace properties = contract::properties;

std::string state(const Pegasus::CIMInstance& result) {
    const auto state = numberOf(result, properties::testState);
    return state.has_value() ? testStateText(*state) : "";
}

std::string lineCount(const Pegasus::CIMInstance& result) {
    return std::to_string(textsOf(result, properties::testResults).size());
}

std::string started(const Pegasus::CIMInstance& result) {
    return dateForPeople(textOf(result, properties::testStartTime));
}

std::string completed(const Pegasus::CIMInstance& result) {
    return dateForPeople(textOf(result, properties::testCompletionTime));
}

}  // namespace

ExitStatus listResults(Server& server, const Invocation& invocation) {
    const auto results = chooseResults(Diagnostics(server.client()).results(), invocation.element);
    print(results,
          {{"TEST", properties::diagnosticName},
           {"ELEMENT", properties::executionId},
           {"STATE", state},
           {"STARTED", started},
           {"COMPLETED", completed},
           {"LINES", lineCount}},
          invocation.json);
    explainEmptyPrivateServer(server);
    return exitSuccess;
}

}  // namespace usbhcdiag
