// SPDX-License-Identifier: MIT
// Fuzzes the client: whatever a server sends, an operation ends with its result, with ClientError or with the server's
// error. libcurl is not instrumented: what is found is in our own code.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <Pegasus/Common/Exception.h>

#include "fuzz/Conversation.h"
#include "wire/client/CimClient.h"

namespace {

std::optional<Conversation> conversation;

}  // namespace

// In place of the C library's: whoever connects is connected to the conversation, without a server that would
// need a thread. A second connection fails: the first has been used up. Exported, so that libcurl meets it.
extern "C" __attribute__((visibility("default"))) int connect(int socket,
                                                              const sockaddr* /*address*/,
                                                              socklen_t /*size*/) {
    const base::FileDescriptor end = conversation->takeOtherEnd();
    if (!end.isOpen() || dup2(end.get(), socket) < 0) {
        return -1;
    }
    return fcntl(socket, F_SETFL, O_NONBLOCK);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view said(reinterpret_cast<const char*>(data), size);
    if (said.find("Retry-After") != std::string_view::npos) {
        return 0;  // the client would wait
    }
    conversation.emplace(said);
    wire::HttpClientOptions options;
    options.bodyBytes = 64UL * 1024;
    options.headerBytes = 4UL * 1024;
    wire::ServerUrl url;
    url.host = "127.0.0.1";
    wire::CimClient client(url, options);
    try {
        client.enumerateInstances(Pegasus::CIMNamespaceName("root/kavex"), "ZORVA_UsbHc");
    } catch (const wire::ClientError&) {
        // No answer, or none that makes sense.
    } catch (const Pegasus::Exception&) {
        // The server's own error.
    }
    if (conversation->heard().compare(0, 21, "POST /cimom HTTP/1.1\r") != 0) {
        std::abort();
    }
    return 0;
}
