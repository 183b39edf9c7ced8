// SPDX-License-Identifier: MIT
#include "cli/Syntax.h"

#include <algorithm>

namespace usbhcdiag {

const std::vector<OptionSyntax>& optionTable() {
    static const std::vector<OptionSyntax> table = {
        {Option::server, "server", 's', "URL",
         "talk to the CIM server at URL, for example http://localhost:5988,\n"
         "instead of a private one"},
        {Option::credentials, "credentials", 'c', "FILE",
         "user and password for that server: one line \"user:password\" in\n"
         "a file that only you can read"},
        {Option::element, "element", 'e', "DEVICEID",
         "the host controller with that DeviceID (see `usbhcdiag elements`)"},
        {Option::devices, "devices", 'd', "FILE",
         "read the recorded device list FILE instead of the kernel's"},
        {Option::json, "json", 'j', nullptr, "print JSON, for programs"},
        {Option::help, "help", 'h', nullptr, "print help (after a command: on that command)"},
        {Option::version, "version", 'V', nullptr, "print the version"},
    };
    return table;
}

const std::vector<CommandSyntax>& commandTable() {
    static const std::vector<CommandSyntax> table = {
        {Command::run,
         "run",
         "run the test and print its report",
         "Runs the diagnostic test on one USB host controller and prints the report, one\n"
         "line of \"TestResults\" per line and nothing else: a block for each USB device, a\n"
         "line of ten blanks behind each block.\n"
         "\n"
         "The test always reads the whole device list. The host controller chosen (without\n"
         "--element the first) is the one that the result is filed under.\n"
         "\n"
         "Exit status: 0 the result passed, 1 it did not or something failed, 3 there was\n"
         "no device list to read (standard error says what was found and what to do).\n",
         "  usbhcdiag run                        this machine's devices\n"
         "  usbhcdiag run --devices list.txt     a list from somebody's bug report\n"
         "  usbhcdiag run --json | jq .TestCompletionTime\n"
         "  usbhcdiag run --server http://localhost:5988 --element 0000:00:14.0\n",
         {Option::element, Option::devices, Option::server, Option::credentials, Option::json}},
        {Command::tests,
         "tests",
         "list the diagnostic tests",
         "Lists the diagnostic tests that the server offers, with --json as an array of\n"
         "instances with all their properties.\n",
         "  usbhcdiag tests\n"
         "  usbhcdiag tests --server http://localhost:5988 --json\n",
         {Option::server, Option::credentials, Option::json}},
        {Command::elements,
         "elements",
         "list the USB host controllers that can be tested",
         "Lists the USB host controllers that the server knows, with --json as an array of\n"
         "instances with all their properties. The DeviceID is what --element takes.\n",
         "  usbhcdiag elements\n"
         "  usbhcdiag elements --devices list.txt\n",
         {Option::devices, Option::server, Option::credentials, Option::json}},
        {Command::results,
         "results",
         "list the results that the server keeps",
         "Lists the results of earlier runs, with --json as an array of instances with all\n"
         "their properties, the report lines in \"TestResults\". A server keeps the last\n"
         "result of each host controller until it ends. A private server ends with the\n"
         "command: without --server there is nothing to list.\n",
         "  usbhcdiag results --server http://localhost:5988\n"
         "  usbhcdiag results --server http://localhost:5988 --element 0000:00:14.0 --json |\n"
         "      jq -r '.[].TestResults[]'          the report again\n",
         {Option::element, Option::server, Option::credentials, Option::json}},
        {Command::clear,
         "clear",
         "remove results from the server",
         "Removes the results that the server keeps: all, or those of one host controller.\n"
         "A result whose test is in progress stays; that is said on standard error, and the\n"
         "exit status is 1. A private server ends with the command: without --server there is\n"
         "nothing to remove.\n",
         "  usbhcdiag clear --server http://localhost:5988\n"
         "  usbhcdiag clear --server http://localhost:5988 --element 0000:00:14.0\n",
         {Option::element, Option::server, Option::credentials}},
        {Command::mof,
         "mof",
         "print this machine's elements as MOF, to load into OpenPegasus",
         "Prints the instances that a run refers to (the host controllers, the computer\n"
         "system, the test software) in MOF, the language that OpenPegasus loads. A private\n"
         "server makes them from this machine. The classes are not among them: load those\n"
         "first.\n",
         "  usbhcdiag mof > machine.mof && cimmof -n root/kavex machine.mof\n",
         {Option::devices, Option::server, Option::credentials}},
    };
    return table;
}

const OptionSyntax& syntaxOf(Option option) {
    return *std::find_if(optionTable().begin(), optionTable().end(),
                         [option](const OptionSyntax& syntax) { return syntax.option == option; });
}

const CommandSyntax& syntaxOf(Command command) {
    return *std::find_if(
        commandTable().begin(), commandTable().end(),
        [command](const CommandSyntax& syntax) { return syntax.command == command; });
}

const CommandSyntax* findCommand(std::string_view name) {
    const auto found =
        std::find_if(commandTable().begin(), commandTable().end(),
                     [name](const CommandSyntax& syntax) { return syntax.name == name; });
    return found == commandTable().end() ? nullptr : &*found;
}

}  // namespace usbhcdiag
