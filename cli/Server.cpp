// SPDX-License-Identifier: MIT
#include "cli/Server.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>

#include "cli/Errors.h"
#include "options/UsageError.h"
#include "wire/http/CredentialsFile.h"

namespace usbhcdiag {
namespace {

using wire::ServerUrl;

bool isLoopback(const std::string& host) {
    return host == "localhost" || host == "::1" || host.rfind("127.", 0) == 0;
}

ServerUrl givenUrl(const Invocation& invocation) {
    ServerUrl url;
    try {
        url = ServerUrl::parse(*invocation.server);
    } catch (const std::invalid_argument& error) {
        throw options::UsageError(std::string("--server: ") + error.what());
    }
    if (invocation.credentials.has_value()) {
        url.userAndPassword = wire::readCredentialsFile(*invocation.credentials).front();
    }
    if (!url.userAndPassword.empty() && !isLoopback(url.host)) {
        std::cerr << "usbhcdiag: the password goes to " << url.host
                  << " unencrypted; through a tunnel it does not: ssh -L " << url.port
                  << ":localhost:" << url.port << " " << url.host << "\n";
    }
    return url;
}

/// The name of a device list as the private server, which works in another folder, finds it.
std::optional<std::string> absoluteName(const std::optional<std::string>& file) {
    if (!file.has_value()) {
        return std::nullopt;
    }
    const std::unique_ptr<char, decltype(&std::free)> name(::realpath(file->c_str(), nullptr),
                                                           &std::free);
    if (name == nullptr) {
        throw Failure("device list " + *file + ": " + std::strerror(errno));
    }
    return name.get();
}

}  // namespace

Server::Server(const Invocation& invocation) {
    ServerUrl url;
    if (invocation.server.has_value()) {
        url = givenUrl(invocation);
    } else {
        private_ =
            std::make_unique<PrivateServer>(cimhostProgram(), absoluteName(invocation.devices));
        url = ServerUrl::parse(private_->url());
        url.userAndPassword = private_->user() + ":" + private_->password();
    }
    url_ = url.withoutCredentials();
    client_ = std::make_unique<wire::CimClient>(url);
}

std::string Server::explain(const std::string& what) const {
    // A message of the client begins with the URL.
    std::string text = what.rfind(url_, 0) == 0 ? what : url_ + ": " + what;
    if (text.find("answers 401 ") != std::string::npos) {
        text += "\nUser and password go into a file for --credentials.";
    }
    if (private_ != nullptr) {
        text = "the private server at " + text;
        const std::string said = private_->diagnostics();
        text += said.empty() ? "" : "\nIt wrote:\n" + said;
    }
    return text;
}

}  // namespace usbhcdiag
