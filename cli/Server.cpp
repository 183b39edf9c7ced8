// SPDX-License-Identifier: MIT
#include "cli/Server.h"

#include <stdexcept>

#include "base/DescriptorIo.h"
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
    return url;
}

void checkEncryptionIsWanted(const Invocation& invocation) {
    if (invocation.cacert || invocation.cert || invocation.insecure) {
        throw options::UsageError(
            "--cacert, --cert and --insecure are for https, and the URL of --server begins with "
            "http://");
    }
}

void warnOfClearPassword(const ServerUrl& url, const std::string& address) {
    const std::string port = std::to_string(url.port);
    note("the password goes to " + url.host + " (" + address +
         ") unencrypted; with https:// it does not, nor through a tunnel: ssh -L " + port +
         ":localhost:" + port + " " + url.host);
}

wire::HttpClientOptions givenOptions(const Invocation& invocation, const ServerUrl& url) {
    if (!url.isEncrypted) {
        checkEncryptionIsWanted(invocation);
    }
    if (invocation.insecure) {
        note("--insecure: nobody checks that " + url.host +
             " is who answers; whoever stands between can read and change everything, the "
             "password included");
    }
    wire::HttpClientOptions options;
    options.checksCertificate = !invocation.insecure;
    options.authorities = invocation.cacert.value_or("");
    options.certificate = invocation.cert.value_or("");
    options.key = invocation.key.value_or("");
    options.proxy = invocation.proxy.value_or("");
    if (invocation.timeout.has_value()) {
        options.callTime = *invocation.timeout;
    }
    options.readsNetrc = true;
    options.passwordInClear = [url](const std::string& address) {
        warnOfClearPassword(url, address);
    };
    return options;
}

}  // namespace

Server::Server(const Invocation& invocation) {
    ServerUrl url;
    wire::HttpClientOptions options;
    if (invocation.server.has_value()) {
        url = givenUrl(invocation);
        options = givenOptions(invocation, url);
    } else {
        startPrivateServer(invocation);
        url = ServerUrl::parse(private_->url());
        url.userAndPassword = private_->user() + ":" + private_->password();
    }
    url_ = url.withoutCredentials();
    client_ = std::make_unique<wire::CimClient>(url, options);
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
                                               base::descriptorPath(list.get()));
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
    if (text.find("self-signed") != std::string::npos ||
        text.find("local issuer") != std::string::npos) {
        text += "\nThe certificate of an authority that you trust goes into a file for --cacert.";
    }
    if (text.find("certificate of this client") != std::string::npos) {
        text += "\nIt goes into a file for --cert, its key into one for --key.";
    }
    if (private_ != nullptr) {
        text = "the private server at " + text;
        const std::string written = private_->diagnostics();
        text += written.empty() ? "" : "\nIt wrote:\n" + written;
    }
    return text;
}

}  // namespace usbhcdiag
