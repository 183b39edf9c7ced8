// SPDX-License-Identifier: MIT
// with-device-list: runs a command that reads a file of choice as the kernel's USB device list.
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include "devicelist/DeviceListMount.h"
#include "options/Completion.h"
#include "options/Help.h"
#include "options/Parser.h"
#include "options/UsageError.h"

namespace {

constexpr int failed = 1;
// As shells answer for a command that cannot be run, and for one that does not exist.
constexpr int cannotRun = 126;
constexpr int notFound = 127;

const options::Program& program() {
    static const options::Program program = {
        "with-device-list",
        std::string("Runs COMMAND so that it, and what it starts, reads FILE at ") +
            base::deviceListPath +
            ".\nNo other process sees a change. Needs root, or unprivileged user namespaces.\n",
        "Exit status: that of COMMAND; 1 if FILE cannot be shown, 2 for wrong usage, 126 if the\n"
        "command cannot be run, 127 if there is none of that name.\n",
        {options::completionOption(), options::helpOption("print this text"),
         options::versionOption()},
        {},
        {{"FILE", true}},
        true,
    };
    return program;
}

/// Shows the file and becomes the command; returns an exit status if it cannot.
int run(const std::string& file, std::vector<std::string> command) {
    try {
        devicelist::DeviceListMount(file).enter();
    } catch (const devicelist::DeviceListMountError& error) {
        std::cerr << "with-device-list: " << error.what() << '\n';
        return failed;
    }
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (std::string& word : command) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    execvp(words.front(), words.data());
    const int reason = errno;
    std::cerr << "with-device-list: cannot run " << command.front() << ": " << std::strerror(reason)
              << '\n';
    return reason == ENOENT ? notFound : cannotRun;
}

int perform(const options::ParsedLine& line) {
    if (line.has("help")) {
        std::cout << options::programHelp(program());
    } else if (line.has("version")) {
        std::cout << options::versionText(program());
    } else if (line.has("completion")) {
        std::cout << options::completionScript(program(), *line.argument("completion"));
    } else {
        return run(line.operands.front(), {line.operands.begin() + 1, line.operands.end()});
    }
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return perform(options::parse(program(), {argv + 1, argv + argc}));
    } catch (const options::UsageError& error) {
        std::cerr << options::usageComplaint(program(), error.what());
        return options::exitUsage;
    }
}
