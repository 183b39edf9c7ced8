// SPDX-License-Identifier: MIT
#include "base/DescriptorIo.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace base {

std::string descriptorPath(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

bool readUpTo(int descriptor, std::size_t limit, std::string& content) {
    constexpr std::size_t longestStep = std::size_t{64} << 10;
    const std::size_t begin = content.size();
    std::size_t length = 0;
    while (length < limit) {
        const std::size_t step = std::min(longestStep, limit - length);
        content.resize(begin + length + step);
        const ssize_t count = ::read(descriptor, &content[begin + length], step);
        if (count == 0 || (count < 0 && errno != EINTR)) {
            content.resize(begin + length);
            return count == 0;
        }
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    content.resize(begin + length);
    return true;
}

bool writeAll(int descriptor, std::string_view content) {
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace base
