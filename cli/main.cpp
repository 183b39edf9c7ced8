// SPDX-License-Identifier: MIT
// usbhcdiag: the USB diagnostics for people.
#include <algorithm>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <Pegasus/Common/Exception.h>

#include "cli/Errors.h"
#include "cli/Note.h"
#include "cli/Syntax.h"
#include "cli/TerminalText.h"
#include "cli/commands/Commands.h"
#include "options/Completion.h"
#include "options/Help.h"
#include "options/UsageError.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/client/CimClient.h"

namespace usbhcdiag {
namespace {

ExitStatus dispatch(Server& server, const Invocation& invocation) {
    switch (invocation.command) {
        case Command::run:
            return runTest(server, invocation);
        case Command::tests:
            return listTests(server, invocation);
        case Command::elements:
            return listElements(server, invocation);
        case Command::results:
            return listResults(server, invocation);
        case Command::clear:
            return clearResults(server, invocation);
        case Command::mof:
            return printMof(server, invocation);
    }
    return exitFailure;
}

ExitStatus perform(const Invocation& invocation) {
    Server server(invocation);
    try {
        return dispatch(server, invocation);
    } catch (const wire::ClientError& error) {
        throw Failure(server.explain(error.what()));
    } catch (const Pegasus::Exception& error) {
        throw Failure(server.explain(wire::toUtf8(error.getMessage())));
    }
}

ExitStatus perform(const DevicesRequest& request) {
    return listDevices(request);
}

ExitStatus perform(const RecordRequest& request) {
    return recordList(request);
}

ExitStatus perform(const DiffRequest& request) {
    return compareLists(request);
}

ExitStatus perform(const HelpRequest& request) {
    std::cout << (request.command == nullptr ? options::programHelp(program())
                                             : options::commandHelp(program(), *request.command));
    return exitSuccess;
}

ExitStatus perform(const VersionRequest& /*request*/) {
    std::cout << options::versionText(program());
    return exitSuccess;
}

ExitStatus perform(const CompletionRequest& request) {
    std::cout << options::completionScript(program(), request.shell);
    return exitSuccess;
}

/// Takes a password in a URL out of what other users see of this process.
void hidePasswords(int count, char* words[]) {
    for (int i = 1; i < count; ++i) {
        char* const start = std::strstr(words[i], "://");
        char* const end = start == nullptr ? nullptr : std::strrchr(start, '@');
        if (end != nullptr) {
            std::fill(start + std::strlen("://"), end, '*');
        }
    }
}

int runProgram(int argc, char* argv[]) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    hidePasswords(argc, argv);
    try {
        const ExitStatus status =
            std::visit([](const auto& asked) { return perform(asked); }, readCommandLine(words));
        if (!std::cout.flush()) {
            throw Failure("standard output cannot be written");
        }
        return status;
    } catch (const options::UsageError& error) {
        std::cerr << linesWithoutControls(options::usageComplaint(program(), error.what()));
        return exitUsage;
    } catch (const NothingRead& error) {
        note(error.what());
        return exitNothingRead;
    } catch (const std::exception& error) {
        note(error.what());
        return exitFailure;
    }
}

}  // namespace
}  // namespace usbhcdiag

int main(int argc, char* argv[]) {
    return usbhcdiag::runProgram(argc, argv);
}
