// SPDX-License-Identifier: MIT
// The debug log that the code under test writes.
// One thread.
#pragma once

#include <string>

/// Makes a temporary folder the working directory, where the debug log is written, while the object
/// exists.
class LogFolder {
public:
    LogFolder();
    ~LogFolder();
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    /// Returns what was logged since the object was made or since the last call, and removes it.
    std::string take();

    const std::string& path() const { return path_; }

private:
    std::string path_;
    std::string before_;
};
