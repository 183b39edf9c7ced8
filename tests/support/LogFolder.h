// SPDX-License-Identifier: MIT
// The debug log that the code under test writes.
// One thread.
#pragma once

#include <string>

/// A folder of its own as the working directory, where the debug log is written, for as long as the
/// object lives.
class LogFolder {
public:
    LogFolder();
    ~LogFolder();
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    /// What was logged since the object was made, or since the last call; empty if nothing was.
    std::string take();

    const std::string& path() const { return path_; }

private:
    std::string path_;
    std::string before_;
};
