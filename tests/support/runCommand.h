// SPDX-License-Identifier: MIT
// Runs a command line in a shell, for tests of programs.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <stdexcept>
#include <string>

struct CommandOutcome {
    std::string output;
    int status;  ///< the exit status, or 128 plus the number of the signal that ended it
};

/// Runs `line` in a shell and waits for its end. Standard error is redirected to standard output
/// unless the line redirects it. Throws std::runtime_error if no process can be made. Any thread.
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
