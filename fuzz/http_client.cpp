// SPDX-License-Identifier: MIT
// Fuzzes the HTTP client: whatever a server sends, the exchange ends with an answer or with HttpError.
#include <sys/socket.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "fuzz/Conversation.h"
#include "wire/http/HttpClient.h"

namespace {

std::optional<Conversation> conversation;

}  // namespace

// In place of the C library's: whoever connects is connected to the conversation, without a server that would
// need a thread.
extern "C" int connect(int socket, const sockaddr* /*address*/, socklen_t /*size*/) {
    return dup2(conversation->takeOtherEnd().get(), socket) < 0 ? -1 : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    conversation.emplace(std::string_view(reinterpret_cast<const char*>(data), size));
    wire::HttpClientLimits limits;
    limits.bodyBytes = 64UL * 1024;
    limits.headerBytes = 4UL * 1024;
    wire::HttpClient client("127.0.0.1", 5988, limits);
    wire::HttpRequest request;
    request.method = "POST";
    request.target = "/cimom";
    request.fields = {{"CIMOperation", "MethodCall"}};
    request.body = "<CIM/>";
    try {
        const wire::HttpResponse response = client.exchange(request);
        if (response.body.size() > limits.bodyBytes || response.status / 100 == 1) {
            std::abort();
        }
    } catch (const wire::HttpError&) {
        // No answer.
    }
    if (conversation->heard().compare(0, 21, "POST /cimom HTTP/1.1\r") != 0) {
        std::abort();
    }
    return 0;
}
