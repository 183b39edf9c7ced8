// SPDX-License-Identifier: MIT
#include "servers/cimhost/program/Options.h"

#include <limits>

namespace cimhost {

const char* const helpText =
    R"(usage: cimhost [--address ADDRESS] [--port PORT] [--mof FILE]... [--provider LIBRARY]
               [--devices FILE] [--credentials FILE]

A small CIM server for one machine: it serves the USB diagnostics to CIM clients on this machine, keeps
everything in memory, and ends with SIGTERM or SIGINT. For other machines, encryption and users, load the
same diagnostics into OpenPegasus.

When it is ready it prints one line, "listening on http://127.0.0.1:PORT". Everything else that it or the
provider has to say goes to standard error.

  --address ADDRESS   loopback address to listen on (default 127.0.0.1)
  --port PORT         port to listen on; 0, the default, takes a free one
  --mof FILE          read class definitions and instances from FILE instead of the installed ones; may be
                      given more than once
  --provider LIBRARY  load the provider from LIBRARY instead of the installed one
  --devices FILE      show FILE to the provider in place of the kernel's list of USB devices, for example a
                      recorded list
  --credentials FILE  let in only users of FILE, lines "user:password", which nobody else may read
  --help              print this text
  --version           print the version

Exit status: 0 after SIGTERM or SIGINT, 1 if it cannot start, 2 for wrong usage.

A session with the client wbemcli:
  cimhost --port 5988 &
  wbemcli ei http://localhost:5988/root/kavex:CIM_DiagnosticTest
)";

namespace {

std::uint16_t parsePort(const std::string& text) {
    std::uint32_t port = 0;
    for (const char character : text) {
        if (character < '0' || character > '9' || text.size() > 5) {
            port = std::numeric_limits<std::uint32_t>::max();
            break;
        }
        port = port * 10 + static_cast<std::uint32_t>(character - '0');
    }
    if (text.empty() || port > std::numeric_limits<std::uint16_t>::max()) {
        throw UsageError("\"" + text + "\" is no port: a number from 0 to 65535 is needed");
    }
    return static_cast<std::uint16_t>(port);
}

}  // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        // Both "--port 5988" and "--port=5988".
        const auto equals = argument->find('=');
        const std::string name = argument->substr(0, equals);
        const auto value = [&]() -> std::string {
            if (equals != std::string::npos) {
                return argument->substr(equals + 1);
            }
            if (std::next(argument) == arguments.end()) {
                throw UsageError("a value is missing behind " + name);
            }
            return *++argument;
        };
        if (*argument == "--help") {
            options.help = true;
        } else if (*argument == "--version") {
            options.version = true;
        } else if (name == "--address") {
            options.address = value();
        } else if (name == "--port") {
            options.port = parsePort(value());
        } else if (name == "--mof") {
            options.mofFiles.push_back(value());
        } else if (name == "--provider") {
            options.provider = value();
        } else if (name == "--devices") {
            options.devices = value();
        } else if (name == "--credentials") {
            options.credentials = value();
        } else {
            throw UsageError("there is no option " + *argument);
        }
    }
    return options;
}

}  // namespace cimhost
