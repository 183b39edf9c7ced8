// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/Options.h"

#include "base/Integers.h"
#include "options/Parser.h"
#include "options/UsageError.h"

namespace cimhost {
namespace {

options::Option mofOption() {
    options::Option option{"mof", 0, options::Argument{"FILE", true},
                           "read class definitions and instances from FILE instead of the\n"
                           "installed ones; may be given more than once"};
    option.isRepeatable = true;
    return option;
}

std::uint16_t parsePort(const std::string& text) {
    const std::optional<std::uint16_t> port = base::parseDigits<std::uint16_t>(text);
    if (!port.has_value()) {
        throw options::UsageError("\"" + text +
                                  "\" is no port: a number from 0 to 65535 is needed");
    }
    return *port;
}

}  // namespace

const options::Program& program() {
    static const options::Program program = {
        "cimhost",
        "A small CIM server for one machine: it serves the USB diagnostics to CIM clients on this\n"
        "machine, keeps everything in memory, and ends with SIGTERM or SIGINT. For other "
        "machines,\n"
        "encryption and users, load the same diagnostics into OpenPegasus.\n"
        "\n"
        "When it is ready it prints one line, \"listening on http://127.0.0.1:PORT\". Everything "
        "else\n"
        "that it or the provider has to say goes to standard error.\n",
        "Exit status: 0 after SIGTERM or SIGINT, 1 if it cannot start, 2 for wrong usage.\n"
        "\n"
        "A session with the client wbemcli:\n"
        "  cimhost --port 5988 &\n"
        "  wbemcli ei http://localhost:5988/root/kavex:CIM_DiagnosticTest\n",
        {
            {"address", 0, options::Argument{"ADDRESS"},
             "loopback address to listen on (default 127.0.0.1)"},
            {"port", 0, options::Argument{"PORT"},
             "port to listen on; 0, the default, takes a free one"},
            mofOption(),
            {"provider", 0, options::Argument{"LIBRARY", true},
             "load the provider from LIBRARY instead of the installed one"},
            {"devices", 0, options::Argument{"FILE", true},
             "show FILE to the provider in place of the kernel's list of USB\n"
             "devices, for example a recorded list"},
            {"credentials", 0, options::Argument{"FILE", true},
             "let in only users of FILE, lines \"user:password\", which nobody\n"
             "else may read, instead of this user and root"},
            {"open", 0, std::nullopt,
             "let in every user of this machine instead of this user and root"},
            options::completionOption(),
            options::helpOption("print this text"),
            options::versionOption(),
        },
    };
    return program;
}

Options parseOptions(const std::vector<std::string>& arguments) {
    const options::ParsedLine line = options::parse(program(), arguments);
    Options options;
    options.address = line.argument("address").value_or(options.address);
    if (line.has("port")) {
        options.port = parsePort(*line.argument("port"));
    }
    options.mofFiles = line.options.at("mof");
    options.provider = line.argument("provider");
    options.devices = line.argument("devices");
    options.credentials = line.argument("credentials");
    options.open = line.has("open");
    if (options.open && options.credentials.has_value()) {
        throw options::UsageError("--open and --credentials exclude each other");
    }
    options.help = line.has("help");
    options.version = line.has("version");
    options.completion = line.argument("completion");
    return options;
}

}  // namespace cimhost
