// SPDX-License-Identifier: MIT
// The line that says what is going on while a person waits.
#pragma once

#include <condition_variable>
#include <string>
#include <thread>

#include "base/ThreadSafety.h"

namespace usbhcdiag {

/// Shows a text and the seconds gone by on standard error, where that is a terminal, from
/// construction to destruction, and then erases it. Does nothing where it is not a terminal.
class Progress {
public:
    /// `text` is one line of UTF-8.
    explicit Progress(const std::string& text);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

private:
    void show(const std::string& text);

    base::Mutex mutex_;
    std::condition_variable ended_;
    bool isEnded_ ZORVA_GUARDED_BY(mutex_) = false;
    std::thread thread_;
};

}  // namespace usbhcdiag
