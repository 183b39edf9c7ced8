// SPDX-License-Identifier: MIT
// Runs a command line as a user would type it, for tests of programs.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

struct CommandOutcome {
    std::string output;
    int status;  // 128 and the signal's number where one ended it
};

/// Runs `line` in a shell, both outputs in one unless the line says otherwise.
inline CommandOutcome runCommand(const std::string& line) {
    std::FILE* pipe = popen(("exec 2>&1; " + line).c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("cannot run " + line);
    }
    std::string output;
    std::array<char, 4096> buffer = {};
    std::size_t length = 0;
    while ((length = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) {
        output.append(buffer.data(), length);
    }
    const int status = pclose(pipe);
    constexpr int killed = 128;
    return {output, WIFEXITED(status) ? WEXITSTATUS(status) : killed + WTERMSIG(status)};
}
