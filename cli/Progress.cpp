// SPDX-License-Identifier: MIT
#include "cli/Progress.h"

#include <unistd.h>

#include <chrono>
#include <iostream>

#include "cli/Terminal.h"
#include "cli/TerminalText.h"

namespace usbhcdiag {

Progress::Progress(const std::string& text) {
    if (isTerminal(STDERR_FILENO)) {
        thread_ = std::thread([this, line = withoutControls(text)] { show(line); });
    }
}

Progress::~Progress() {
    if (thread_.joinable()) {
        {
            const base::MutexLock lock(mutex_);
            isEnded_ = true;
        }
        ended_.notify_one();
        thread_.join();
    }
}

void Progress::show(const std::string& text) {
    using namespace std::chrono;
    const auto start = steady_clock::now();
    base::MutexLock lock(mutex_);
    while (!isEnded_) {
        const auto gone = duration_cast<seconds>(steady_clock::now() - start);
        std::cerr << "\r" << text << " ... " << gone.count() << " s" << std::flush;
        lock.waitUntil(ended_, steady_clock::now() + milliseconds(250));
    }
    std::cerr << "\r\033[K" << std::flush;
}

}  // namespace usbhcdiag
