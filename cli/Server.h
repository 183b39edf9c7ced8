// SPDX-License-Identifier: MIT
// The server that a command talks to: the one named on the command line, or a private one.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/CommandLine.h"
#include "cli/PrivateServer.h"
#include "cli/ReplayedList.h"
#include "wire/client/CimClient.h"

namespace usbhcdiag {

/// The server that an invocation names; a private one is started here and ended with this object.
///
/// Main thread only.
class Server {
public:
    /// Does not connect yet. Throws options::UsageError for a URL that is none, Failure for credentials that
    /// cannot be used and for a private server that does not start, and what ReplayedList throws.
    ///
    /// For a run without a list of choice, where this user cannot read the kernel's list, the private
    /// server is shown one made from sysfs; standard error says so.
    explicit Server(const Invocation& invocation);

    wire::CimClient& client() { return *client_; }

    /// Where the server is, without credentials, for messages.
    const std::string& url() const { return url_; }

    /// The private server; null where another one is used.
    const PrivateServer* privateServer() const { return private_.get(); }

    /// The list that the private server was given; null where it reads the kernel's, and for another
    /// server.
    const ReplayedList* replayedList() const { return replayed_ ? &*replayed_ : nullptr; }

    /// Whether the private server was shown a list made from sysfs.
    bool showsSysfs() const { return showsSysfs_; }

    /// The message for a request that the server answered with an error, or did not answer: names
    /// the server; of a private one, also what it wrote to its standard error.
    std::string explain(const std::string& what) const;

private:
    void startPrivateServer(const Invocation& invocation);

    std::optional<ReplayedList> replayed_;
    std::unique_ptr<PrivateServer> private_;
    bool showsSysfs_ = false;
    std::string url_;
    std::unique_ptr<wire::CimClient> client_;
};

}  // namespace usbhcdiag
