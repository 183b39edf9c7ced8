// SPDX-License-Identifier: MIT
#include "cli/Server.h"

#include <stdexcept>

#include "cli/MachineList.h"
#include "cli/MemoryFile.h"
#include "cli/Note.h"
#include "cli/TerminalText.h"
#include "options/UsageError.h"
#include "wire/http/CredentialsFile.h"

namespace usbhcdiag {
namespace {

using wire::ServerUrl;

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
    if (!url.userAndPassword.empty() && !url.isLoopback()) {
        const std::string port = std::to_string(url.port);
        note("the password goes to " + url.host +
             " unencrypted; through a tunnel it does not: ssh -L " + port + ":localhost:" + port +
             " " + url.host);
    }
    return url;
}

}  // namespace

Server::Server(const Invocation& invocation) {
    ServerUrl url;
    if (invocation.server.has_value()) {
        url = givenUrl(invocation);
    } else {
        startPrivateServer(invocation);
        url = ServerUrl::parse(private_->url());
        url.userAndPassword = private_->user() + ":" + private_->password();
    }
    url_ = url.withoutCredentials();
    client_ = std::make_unique<wire::CimClient>(url);
}

void Server::startPrivateServer(const Invocation& invocation) {
    std::optional<std::string> devices;
    std::optional<SysfsList> own;
    if (invocation.devices.has_value()) {
        devices = replayed_.emplace(*invocation.devices).path();
    } else if (invocation.command == Command::run) {
        own = sysfsList();
    }
    if (!own) {
        private_ = std::make_unique<PrivateServer>(cimhostProgram(), devices);
        return;
    }
    const base::FileDescriptor list = memoryFile("devices", own->text);
    private_ = std::make_unique<PrivateServer>(cimhostProgram(), devices,
                                               "/proc/self/fd/" + std::to_string(list.get()));
    showsSysfs_ = private_->notShown().empty();
    if (showsSysfs_) {
        note(own->origin);
    }
}

std::string Server::explain(const std::string& what) const {
    // The server's words are one line, so that they cannot pass for ours. A message of the client begins
    // with the URL.
    const std::string said = withoutControls(what.substr(0, what.find_last_not_of("\r\n") + 1));
    std::string text = said.rfind(url_, 0) == 0 ? said : url_ + ": " + said;
    if (text.find("answers 401 ") != std::string::npos) {
        text += "\nUser and password go into a file for --credentials.";
    }
    if (private_ != nullptr) {
        text = "the private server at " + text;
        const std::string written = private_->diagnostics();
        text += written.empty() ? "" : "\nIt wrote:\n" + written;
    }
    return text;
}

}  // namespace usbhcdiag
