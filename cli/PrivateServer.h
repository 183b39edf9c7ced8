// SPDX-License-Identifier: MIT
// A CIM server of this command's own.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>

#include "base/FileDescriptor.h"

namespace usbhcdiag {

/// The program `cimhost`, started for this command alone on a free loopback port.
///
/// Only this process can use it: its user and password are made for this run and handed over in a
/// file that has no name, so that nothing is left behind, whatever happens. It ends with this
/// object, and when this process ends in any way, SIGKILL included.
///
/// Its working directory is one where no file can be made: it leaves no debug log behind.
///
/// Main thread only: the server ends with the thread that started it.
class PrivateServer {
public:
    /// Starts `program` and waits until it is ready. `devices`: the device list to show it, with a
    /// name that it finds from any folder; otherwise it finds the kernel's. Throws Failure with what it said.
    ///
    /// `ownList`: a list of this machine's own devices, to be shown where the kernel's is not. Where
    /// that cannot be done the server starts without it, in the view of this process; see notShown().
    PrivateServer(const std::string& program, const std::optional<std::string>& devices,
                  const std::optional<std::string>& ownList = std::nullopt);
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;
    ~PrivateServer();

    const std::string& url() const { return url_; }
    const std::string& user() const { return user_; }
    const std::string& password() const { return password_; }
    pid_t process() const { return process_; }

    /// Why `ownList` could not be shown; empty if it was, or if there was none.
    const std::string& notShown() const { return notShown_; }

    /// What the server has written to its standard error so far, at most the last 64 KiB.
    std::string diagnostics() const;

private:
    std::string start(const std::string& program, const std::optional<std::string>& devices,
                      const std::optional<std::string>& ownList);
    [[noreturn]] void become(const std::string& program, const std::optional<std::string>& devices,
                             int readyPipe, pid_t parent) const;
    std::string firstLine(const std::string& program, const base::FileDescriptor& readyPipe) const;
    void readMore(const std::string& program, const base::FileDescriptor& readyPipe,
                  std::chrono::steady_clock::time_point deadline, std::string& said) const;
    void end();

    std::string url_;
    std::string user_;
    std::string password_;
    std::string notShown_;
    base::FileDescriptor credentials_;
    base::FileDescriptor diagnostics_;
    pid_t process_ = -1;
};

/// The `cimhost` that belongs to this program: the one beside its executable, to which `link`
/// points. Throws Failure if there is none.
std::string cimhostProgram(const std::string& link = "/proc/self/exe");

}  // namespace usbhcdiag
