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
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        ended_.notify_one();
        thread_.join();
    }
}

void Progress::show(const std::string& text) {
    using namespace std::chrono;
    const auto start = steady_clock::now();
    std::unique_lock lock(mutex_);
    do {
        const auto gone = duration_cast<seconds>(steady_clock::now() - start);
        std::cerr << "\r" << text << " ... " << gone.count() << " s" << std::flush;
    } while (!ended_.wait_for(lock, milliseconds(250), [this] { return isEnded_; }));
    std::cerr << "\r\033[K" << std::flush;
}

}  // namespace usbhcdiag
