// SPDX-License-Identifier: MIT
#include "diag/DebugLogFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "base/FileDescriptor.h"

namespace Pegasus {

void appendToLogFile(const char* fileName, const char* text) {
    if (*fileName == '\0') {
        return;
    }
    constexpr mode_t permissions = 0664;
    // Non-blocking, so that a FIFO in place of the log cannot block the server.
    const base::FileDescriptor file(open(
        fileName, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, permissions));
    if (!file.isOpen()) {
        return;
    }
    size_t left = std::strlen(text);
    while (left > 0) {
        const ssize_t written = write(file.get(), text, left);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            break;
        }
        text += written;
        left -= static_cast<size_t>(written);
    }
}

}  // namespace Pegasus
