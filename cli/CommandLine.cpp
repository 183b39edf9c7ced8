// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <cstdint>
#include <map>

#include "base/Integers.h"
#include "cli/Syntax.h"
#include "options/Parser.h"
#include "options/UsageError.h"

namespace usbhcdiag {
namespace {

using options::UsageError;

const std::map<std::string, Command>& serverCommands() {
    static const std::map<std::string, Command> commands = {
        {"run", Command::run},         {"tests", Command::tests}, {"elements", Command::elements},
        {"results", Command::results}, {"clear", Command::clear}, {"mof", Command::mof},
    };
    return commands;
}

bool isCommand(const options::ParsedLine& line, const char* name) {
    return line.command != nullptr && line.command->name == name;
}

HelpRequest helpRequest(const options::ParsedLine& line) {
    if (!isCommand(line, "help")) {
        return {line.command};
    }
    if (line.operands.empty()) {
        return {line.has("help") ? line.command : nullptr};
    }
    const options::Command* command = options::findCommand(program(), line.operands.front());
    if (command == nullptr) {
        throw UsageError("there is no command \"" + line.operands.front() + "\"");
    }
    return {command};
}

void checkCombination(const Invocation& invocation) {
    if (invocation.server.has_value() && invocation.devices.has_value()) {
        throw UsageError(
            "--devices shows a list to a private server only; the server of --server reads its own "
            "machine's list");
    }
    if (invocation.key.has_value() && !invocation.cert.has_value()) {
        throw UsageError("--key belongs to the certificate of --cert, which is missing");
    }
    if (invocation.insecure && invocation.cacert.has_value()) {
        throw UsageError(
            "--cacert says what to trust, --insecure trusts everything: take one of them");
    }
}

void checkServerIsNamed(const options::ParsedLine& line) {
    for (const char* option :
         {"credentials", "cacert", "cert", "key", "insecure", "proxy", "timeout"}) {
        if (line.has(option) && !line.has("server")) {
            throw UsageError("--" + std::string(option) +
                             " is for the server of --server, which is missing");
        }
    }
}

std::chrono::seconds timeoutOf(const std::string& text) {
    constexpr std::uint32_t longest = 86'400;
    const auto seconds = base::parseDigits<std::uint32_t>(text);
    if (!seconds || *seconds == 0 || *seconds > longest) {
        throw UsageError("--timeout is a number of seconds from 1 to " + std::to_string(longest) +
                         ", not \"" + text + "\"");
    }
    return std::chrono::seconds(*seconds);
}

DevicesRequest devicesRequest(const options::ParsedLine& line) {
    DevicesRequest request;
    request.file = line.argument("devices");
    if (!line.operands.empty()) {
        if (request.file) {
            throw UsageError("the list is named twice: \"" + line.operands.front() +
                             "\", and by --devices");
        }
        request.file = line.operands.front();
    }
    if (const auto id = line.argument("id")) {
        request.filter.setId(*id);
    }
    if (const auto bus = line.argument("bus")) {
        request.filter.setBus(*bus);
    }
    request.filter.usbClass = line.argument("class");
    request.filter.driver = line.argument("driver");
    request.filter.onlyProblems = line.has("problems");
    request.tree = line.has("tree");
    request.json = line.has("json");
    if (request.tree && request.json) {
        throw UsageError("--tree draws for people, --json prints for programs: take one of them");
    }
    return request;
}

DiffRequest diffRequest(const options::ParsedLine& line) {
    DiffRequest request;
    request.before = line.operands.front();
    if (line.operands.size() > 1) {
        request.after = line.operands.back();
    }
    request.json = line.has("json");
    if (request.before == "-" && request.after == "-") {
        throw UsageError("standard input (-) can be one of the lists, not both");
    }
    return request;
}

}  // namespace

CommandLine readCommandLine(const std::vector<std::string>& words) {
    const options::ParsedLine line = options::parse(program(), words);
    if (line.has("help") || isCommand(line, "help")) {
        return helpRequest(line);
    }
    if (line.has("version")) {
        return VersionRequest{};
    }
    if (isCommand(line, "completion")) {
        return CompletionRequest{line.operands.front()};
    }
    if (isCommand(line, "devices")) {
        return devicesRequest(line);
    }
    if (isCommand(line, "record")) {
        return RecordRequest{line.argument("devices"), line.argument("output"), line.has("redact")};
    }
    if (isCommand(line, "diff")) {
        return diffRequest(line);
    }
    Invocation invocation;
    invocation.command = serverCommands().at(line.command->name);
    invocation.server = line.argument("server");
    invocation.credentials = line.argument("credentials");
    invocation.cacert = line.argument("cacert");
    invocation.cert = line.argument("cert");
    invocation.key = line.argument("key");
    invocation.insecure = line.has("insecure");
    invocation.proxy = line.argument("proxy");
    if (const auto timeout = line.argument("timeout")) {
        invocation.timeout = timeoutOf(*timeout);
    }
    invocation.element = line.argument("element");
    invocation.devices = line.argument("devices");
    invocation.json = line.has("json");
    checkServerIsNamed(line);
    checkCombination(invocation);
    return invocation;
}

}  // namespace usbhcdiag
