// SPDX-License-Identifier: MIT
#include "cli/Syntax.h"

namespace usbhcdiag {
namespace {

std::vector<options::Option> allOptions() {
    return {
        {"server", 's', options::Argument{"URL"},
         "talk to the CIM server at URL, for example https://host:5989 or\n"
         "http://localhost:5988, instead of a private one"},
        {"credentials", 'c', options::Argument{"FILE", true},
         "user and password for that server: one line \"user:password\" in\n"
         "a file that only you can read; without it they come from ~/.netrc"},
        {"cacert", 0, options::Argument{"FILE", true},
         "trust the authorities in FILE (PEM), not those of the system"},
        {"cert", 0, options::Argument{"FILE", true},
         "show that server the certificate in FILE (PEM)"},
        {"key", 0, options::Argument{"FILE", true},
         "the private key of --cert (PEM), where that file does not hold it"},
        {"insecure", 0, {}, "do not check who the server of an https URL is"},
        {"proxy", 0, options::Argument{"URL"},
         "reach that server through a proxy; the environment names none"},
        {"timeout", 0, options::Argument{"SECONDS"},
         "wait that long for each answer of that server (60)"},
        {"element", 'e', options::Argument{"DEVICEID"},
         "the host controller with that DeviceID (see `usbhcdiag elements`)"},
        {"devices", 'd', options::Argument{"FILE", true},
         "read the recorded device list FILE, - for standard input, instead\n"
         "of the kernel's"},
        {"json", 'j', {}, "print JSON, for programs"},
        {"tree", 't', {}, "draw host controllers, hubs and devices as a tree"},
        {"id", 'i', options::Argument{"ID"},
         "only devices of that vendor, or of that product: 046d, 046d:c00e"},
        {"bus", 'b', options::Argument{"NUMBER"}, "only devices of that bus"},
        {"class", 0, options::Argument{"NAME"},
         "only devices of that class, in words, as abbreviated by the\n"
         "kernel, or by two hexadecimal digits"},
        {"driver", 0, options::Argument{"NAME"},
         "only devices that this driver has taken; \"(none)\": that have an\n"
         "interface without driver"},
        {"problems", 'p', {}, "only devices with a problem, which is named"},
        {"output", 'o', options::Argument{"FILE", true},
         "write FILE, whole or not at all, instead of standard output (-)"},
        {"redact", 'r', {}, "put placeholders for serial numbers"},
        options::helpOption("print help (after a command: on that command)"),
        options::versionOption(),
    };
}

/// The options of a command that asks a server, with its own before them.
std::vector<std::string> withServer(std::vector<std::string> own) {
    own.insert(own.end(), {"server", "credentials", "cacert", "cert", "key", "insecure", "proxy",
                           "timeout", "help"});
    return own;
}

std::vector<options::Command> allCommands() {
    std::vector<options::Command> commands = {
        {"run", "run the test and print its report",
         "Runs the diagnostic test on one USB host controller and prints the report, one\n"
         "line of \"TestResults\" per line and nothing else: a block for each USB device, a\n"
         "line of ten blanks after each block.\n"
         "\n"
         "The test always reads the whole device list. The host controller chosen (without\n"
         "--element the first) is the one that the result is filed under.\n"
         "\n"
         "What the report leaves out of the list, or mixes up, is said on standard error;\n"
         "with --json also in devices_in_list, devices_in_report, left_out and mixed, and\n"
         "all devices in device_list.\n"
         "\n"
         "Exit status: 0 the result passed, 1 it did not or something failed, 3 there was\n"
         "no device list to read (standard error says what was found and what to do).\n",
         "  usbhcdiag run                        this machine's devices\n"
         "  usbhcdiag run --devices list.txt     a list from somebody's bug report\n"
         "  usbhcdiag run --json | jq .TestCompletionTime\n"
         "  usbhcdiag run --server https://host --element 0000:00:14.0\n",
         withServer({"element", "devices", "json"})},
        {"devices",
         "list the USB devices, all of them",
         "Lists the USB devices of this machine, or of the recorded list FILE (- for standard\n"
         "input), a line for each: port path as in sysfs, id, speed, class, drivers, whether\n"
         "the test's report has it, and name. Names that the device does not give come from\n"
         "the system's hardware database and stand in square brackets. No server is asked,\n"
         "and root is not needed.\n"
         "\n"
         "Problems are: a device of USB 3 or later at 480 Mb/s or less, an interface without\n"
         "driver, a device without active configuration, a bus whose periodic transfers take\n"
         "more than 80 %, damaged lines of the list.\n"
         "\n"
         "The object that --json prints is described in usbhcdiag-json(5).\n",
         "  usbhcdiag devices --tree             this machine's devices below their hubs\n"
         "  usbhcdiag devices list.txt           those of somebody's bug report\n"
         "  usbhcdiag devices --class hub --bus 1\n"
         "  usbhcdiag devices --problems\n"
         "  usbhcdiag devices --json | jq -r '.devices[].id'\n",
         {"devices", "json", "tree", "id", "bus", "class", "driver", "problems", "help"},
         {options::Argument{"FILE", true, {}, true}}},
        {"record",
         "keep this machine's list of devices, for a bug report",
         "Prints the list of this machine's USB devices, as `run --devices`, `devices` and\n"
         "`diff` take it: the kernel's where it can be read (by root), otherwise one made from\n"
         "sysfs; standard error says which. With --devices it is a recorded list, byte for\n"
         "byte.\n"
         "\n"
         "--redact puts a placeholder of the same length for each serial number but those of\n"
         "root hubs, which are bus addresses. Names of devices and makers stay.\n"
         "\n"
         "Exit status: 0 done, 1 something failed, 3 there was no device list, or no device\n"
         "in it.\n",
         "  usbhcdiag record --redact -o list.txt     to attach to a bug report\n"
         "  usbhcdiag record --redact --devices old.txt >list.txt\n",
         {"output", "redact", "devices", "help"}},
        {"diff",
         "tell what has changed between two lists of devices",
         "Tells which devices the list NEW has more or less than the list OLD, and which have\n"
         "moved to another port or have another speed, configuration, driver or serial\n"
         "number: a line for each, and nothing if the lists are the same. Lists are what\n"
         "`record` writes, - for standard input; without NEW it is this machine's.\n"
         "\n"
         "A device is known by vendor, product and serial number; without a serial number,\n"
         "one of a kind is taken for another. Numbers on the bus, bandwidth, names and\n"
         "versions are not compared.\n"
         "\n"
         "Exit status: 0 the same, 1 differences, 3 a list cannot be read, or is none.\n",
         "  usbhcdiag diff yesterday.txt              what has changed since\n"
         "  usbhcdiag diff before.txt after.txt --json | jq '.differences[].kind'\n",
         {"json", "help"},
         {options::Argument{"OLD", true}, options::Argument{"NEW", true, {}, true}}},
        {"tests", "list the diagnostic tests",
         "Lists the diagnostic tests that the server offers, with --json as an array of\n"
         "instances with all their properties.\n",
         "  usbhcdiag tests\n"
         "  usbhcdiag tests --server http://localhost:5988 --json\n",
         withServer({"json"})},
        {"elements", "list the USB host controllers that can be tested",
         "Lists the USB host controllers that the server knows, with --json as an array of\n"
         "instances with all their properties. The DeviceID is what --element takes.\n",
         "  usbhcdiag elements\n"
         "  usbhcdiag elements --devices list.txt\n",
         withServer({"devices", "json"})},
        {"results", "list the results that the server keeps",
         "Lists the results of earlier runs, with --json as an array of instances with all\n"
         "their properties, the report lines in \"TestResults\". A server keeps the last\n"
         "result of each host controller until it ends. A private server ends with the\n"
         "command: without --server there is nothing to list.\n",
         "  usbhcdiag results --server http://localhost:5988\n"
         "  usbhcdiag results --server http://localhost:5988 --element 0000:00:14.0 --json |\n"
         "      jq -r '.[].TestResults[]'          the report again\n",
         withServer({"element", "json"})},
        {"clear", "remove results from the server",
         "Removes the results that the server keeps: all, or those of one host controller.\n"
         "A result whose test is in progress stays, and one of another test; that is said on\n"
         "standard error, and the exit status is 1. A private server ends with the command:\n"
         "without --server there is nothing to remove.\n",
         "  usbhcdiag clear --server http://localhost:5988\n"
         "  usbhcdiag clear --server http://localhost:5988 --element 0000:00:14.0\n",
         withServer({"element"})},
        {"mof", "print this machine's elements as MOF, to load into OpenPegasus",
         "Prints the instances that a run refers to (the host controllers, the computer\n"
         "system, the test software) in MOF, the language that OpenPegasus loads. A private\n"
         "server makes them from this machine. The classes are not among them: load those\n"
         "first.\n",
         "  usbhcdiag mof > machine.mof && cimmof -n root/kavex machine.mof\n",
         withServer({"devices"})},
        {"completion",
         "print the completion for a shell",
         "Prints a script with which the shell completes the commands, options and file names\n"
         "of usbhcdiag. SHELL is bash, zsh or fish. The packages install all three.\n",
         "  source <(usbhcdiag completion bash)        in ~/.bashrc; zsh likewise\n"
         "  usbhcdiag completion fish | source         in ~/.config/fish/config.fish\n",
         {"help"},
         {options::shellArgument()}},
    };
    options::Argument topic{"COMMAND", false, {}, true};
    for (const options::Command& command : commands) {
        topic.words.push_back(command.name);
    }
    commands.push_back(
        {"help",
         "print help, on a command or on all",
         "Prints the same as `usbhcdiag COMMAND --help`, or as `usbhcdiag --help`.\n",
         "  usbhcdiag help run\n",
         {"help"},
         {topic}});
    return commands;
}

}  // namespace

const options::Program& program() {
    static const options::Program program = {
        "usbhcdiag",
        "Diagnoses the USB host controllers of a Linux machine through CIM, the model that\n"
        "management servers speak. Without --server each command starts a private server\n"
        "(cimhost) with the diagnostics provider in it, and ends it again: nothing else needs\n"
        "to be installed or running.\n",
        "Start with:\n"
        "  usbhcdiag run             the report on this machine's USB devices\n"
        "  usbhcdiag devices --tree  all its USB devices, below their hubs\n"
        "  usbhcdiag elements        the host controllers it can be filed under\n"
        "\n"
        "Exit status: 0 done (run: the result passed; diff: no difference), 1 a failure (run:\n"
        "the result did not pass; diff: differences), 2 wrong usage, 3 there was no device\n"
        "list to read.\n"
        "\n"
        "NO_COLOR in the environment turns colours off. The manual: man usbhcdiag\n",
        allOptions(),
        allCommands(),
    };
    return program;
}

}  // namespace usbhcdiag
