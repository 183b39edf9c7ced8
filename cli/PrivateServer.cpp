// SPDX-License-Identifier: MIT
#include "cli/PrivateServer.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>
#include <vector>

#include "base/Ascii.h"
#include "base/DescriptorIo.h"
#include "cli/Errors.h"
#include "cli/MemoryFile.h"
#include "devicelist/DeviceListMount.h"

namespace usbhcdiag {
namespace {

using Clock = std::chrono::steady_clock;

// Generous: a machine under load starts programs slowly, and a failed start shows at once.
constexpr std::chrono::seconds startLimit{30};
constexpr std::chrono::seconds endLimit{3};

// The descriptor that the server finds its credentials at.
constexpr int credentialsNumber = 3;

std::string randomHex() {
    std::array<unsigned char, 16> bytes{};
    if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        throw Failure("cannot make a password: " + systemReason());
    }
    constexpr std::string_view digits = base::lowerHexDigits;
    std::string text;
    for (const unsigned char byte : bytes) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

/// The line that begins so says on the pipe of the ready line why the list is not shown.
constexpr std::string_view notShownMark = "not shown: ";

bool beginsWith(const std::string& line, std::string_view mark) {
    return line.compare(0, mark.size(), mark) == 0;
}

void say(int pipe, std::string_view text) {
    [[maybe_unused]] const auto written = ::write(pipe, text.data(), text.size());
}

/// Waits for `process` until `limit` has passed; whether it has ended.
bool waitFor(pid_t process, Clock::duration limit) {
    const auto deadline = Clock::now() + limit;
    // No call waits for a process with a limit on every kernel that we serve (pidfd is from 5.3).
    constexpr std::chrono::milliseconds longestPause{50};
    std::chrono::milliseconds pause{1};
    while (true) {
        if (::waitpid(process, nullptr, WNOHANG) != 0) {
            return true;
        }
        if (Clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, longestPause);
    }
}

}  // namespace

PrivateServer::PrivateServer(const std::string& program, const std::optional<std::string>& devices,
                             const std::optional<std::string>& ownList)
    : user_("usbhcdiag"),
      password_(randomHex()),
      credentials_(memoryFile("credentials", user_ + ":" + password_ + "\n")),
      diagnostics_(memoryFile("diagnostics")) {
    try {
        std::string line = start(program, devices, ownList);
        if (ownList && beginsWith(line, notShownMark)) {
            notShown_ = line.substr(notShownMark.size());
            end();
            line = start(program, devices, std::nullopt);
        }
        constexpr std::string_view announcement = "listening on ";
        if (!beginsWith(line, announcement)) {
            throw Failure(program + " is not the cimhost of this version: it says \"" + line +
                          "\"");
        }
        url_ = line.substr(announcement.size());
    } catch (...) {
        end();
        throw;
    }
}

PrivateServer::~PrivateServer() {
    end();
}

std::string PrivateServer::start(const std::string& program,
                                 const std::optional<std::string>& devices,
                                 const std::optional<std::string>& ownList) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw Failure("cannot make a pipe: " + systemReason());
    }
    const base::FileDescriptor readEnd(ends[0]);
    base::FileDescriptor writeEnd(ends[1]);
    const pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ < 0) {
        throw Failure("cannot start " + program + ": " + systemReason());
    }
    if (process_ == 0) {
        // Nothing may be thrown into code that is the parent's. Where the list is not shown this
        // process may be in a view without it, which is no place for a server.
        try {
            if (ownList) {
                devicelist::DeviceListMount(*ownList).enter();
            }
            become(program, devices, writeEnd.get(), parent);
        } catch (const devicelist::DeviceListMountError& error) {
            say(writeEnd.get(), notShownMark);
            say(writeEnd.get(), error.what());
            say(writeEnd.get(), "\n");
        } catch (...) {
            say(diagnostics_.get(), "something failed before the start\n");
        }
        ::_exit(1);
    }
    writeEnd.close();
    return firstLine(program, readEnd);
}

void PrivateServer::become(const std::string& program, const std::optional<std::string>& devices,
                           int readyPipe, pid_t parent) const {
    // A signal to the terminal's group is for this command, which then takes the server with it.
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) {
        ::_exit(1);  // it ended before the line above
    }
    const std::string credentialsName = base::descriptorPath(credentialsNumber);
    std::vector<const char*> arguments = {program.c_str(), "--port", "0", "--credentials",
                                          credentialsName.c_str()};
    if (devices.has_value()) {
        arguments.insert(arguments.end(), {"--devices", devices->c_str()});
    }
    arguments.push_back(nullptr);

    const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    // Above the numbers that are about to be taken, so that no dup2 closes another's source.
    const int credentials = ::fcntl(credentials_.get(), F_DUPFD_CLOEXEC, 10);
    const int output = ::fcntl(readyPipe, F_DUPFD_CLOEXEC, 10);
    const int errors = ::fcntl(diagnostics_.get(), F_DUPFD_CLOEXEC, 10);
    const bool ready = ::dup2(input, STDIN_FILENO) >= 0 && ::dup2(output, STDOUT_FILENO) >= 0 &&
                       ::dup2(errors, STDERR_FILENO) >= 0 &&
                       ::dup2(credentials, credentialsNumber) >= 0 && ::chdir("/proc") == 0;
    if (ready) {
        ::execv(program.c_str(), const_cast<char* const*>(arguments.data()));
    }
    say(STDERR_FILENO, "cannot be run: " + systemReason() + "\n");
    ::_exit(1);
}

std::string PrivateServer::firstLine(const std::string& program,
                                     const base::FileDescriptor& readyPipe) const {
    const auto deadline = Clock::now() + startLimit;
    std::string said;
    while (said.find('\n') == std::string::npos) {
        readMore(program, readyPipe, deadline, said);
    }
    return said.substr(0, said.find('\n'));
}

void PrivateServer::readMore(const std::string& program, const base::FileDescriptor& readyPipe,
                             std::chrono::steady_clock::time_point deadline,
                             std::string& said) const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd poll{readyPipe.get(), POLLIN, 0};
    const int found = ::poll(&poll, 1, left > 0 ? static_cast<int>(left) : 0);
    if (found < 0 && errno == EINTR) {
        return;
    }
    if (found <= 0) {
        throw Failure(program + " is not ready after " + std::to_string(startLimit.count()) +
                      " seconds\n" + diagnostics());
    }
    std::array<char, 512> buffer{};
    const ssize_t count = ::read(readyPipe.get(), buffer.data(), buffer.size());
    if (count <= 0) {
        throw Failure("the private server did not start: " + program + "\n" + diagnostics());
    }
    said.append(buffer.data(), static_cast<size_t>(count));
}

void PrivateServer::end() {
    if (process_ > 0) {
        ::kill(process_, SIGTERM);
        // A list whose reading waits for ever must not hold up the end.
        if (!waitFor(process_, endLimit)) {
            ::kill(process_, SIGKILL);
            ::waitpid(process_, nullptr, 0);
        }
        process_ = -1;
    }
}

std::string PrivateServer::diagnostics() const {
    constexpr off_t limit = 65536;
    struct stat status {};
    if (::fstat(diagnostics_.get(), &status) != 0) {
        return {};
    }
    const off_t start = status.st_size > limit ? status.st_size - limit : 0;
    std::string text(static_cast<size_t>(status.st_size - start), '\0');
    const ssize_t count = ::pread(diagnostics_.get(), text.data(), text.size(), start);
    text.resize(count > 0 ? static_cast<size_t>(count) : 0);
    while (!text.empty() && text.back() == '\n') {
        text.pop_back();
    }
    return text;
}

std::string cimhostProgram(const std::string& link) {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    if (length <= 0) {
        throw Failure("cannot find this program's own folder: " + link + ": " + systemReason());
    }
    path.resize(static_cast<size_t>(length));
    path.replace(path.rfind('/') + 1, std::string::npos, "cimhost");
    if (::access(path.c_str(), X_OK) != 0) {
        throw Failure("the private server is missing: " + path + ": " + systemReason() +
                      "\nIt belongs beside usbhcdiag. With --server URL another one is used.");
    }
    return path;
}

}  // namespace usbhcdiag
