// SPDX-License-Identifier: MIT
#include "wire/http/CredentialsFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "base/FileDescriptor.h"

namespace wire {

namespace {

constexpr std::size_t largestFile = 64UL * 1024;

[[noreturn]] void fail(const std::string& path, const std::string& what) {
    throw std::runtime_error("credentials file " + path + ": " + what);
}

/// An open file; checked and read through one descriptor, so that nobody can swap it in between.
class File {
public:
    explicit File(const std::string& path)
        : path_(path), file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        if (!file_.isOpen()) {
            fail(path_, std::generic_category().message(errno));
        }
    }

    void checkPrivate() const {
        struct stat status {};
        if (fstat(file_.get(), &status) != 0) {
            fail(path_, std::generic_category().message(errno));
        }
        if (!S_ISREG(status.st_mode)) {
            fail(path_, "it is not a regular file");
        }
        if (status.st_uid != geteuid() && status.st_uid != 0) {
            fail(path_, "it belongs to another user");
        }
        if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
            fail(path_, "others than its owner have access to it; run: chmod 600 " + path_);
        }
    }

    std::string read() const {
        std::string content;
        std::array<char, 4096> buffer{};
        while (true) {
            const ssize_t count = ::read(file_.get(), buffer.data(), buffer.size());
            if (count < 0) {
                fail(path_, std::generic_category().message(errno));
            }
            if (count == 0) {
                return content;
            }
            content.append(buffer.data(), static_cast<std::size_t>(count));
            if (content.size() > largestFile) {
                fail(path_, "it is larger than " + std::to_string(largestFile) + " bytes");
            }
        }
    }

private:
    const std::string& path_;
    base::FileDescriptor file_;
};

}  // namespace

std::vector<std::string> readCredentialsFile(const std::string& path) {
    const File file(path);
    file.checkPrivate();
    const std::string content = file.read();

    std::vector<std::string> lines;
    std::string_view rest = content;
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(line.size() < rest.size() ? line.size() + 1 : line.size());
        if (line.empty() || line.front() == '#') {
            continue;
        }
        const std::size_t colon = line.find(':');
        if (colon == std::string_view::npos || colon == 0) {
            fail(path, "line " + std::to_string(number) + " does not read user:password");
        }
        lines.emplace_back(line);
    }
    if (lines.empty()) {
        fail(path, "it names no user");
    }
    return lines;
}

}  // namespace wire
