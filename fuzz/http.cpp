// SPDX-License-Identifier: MIT
// Fuzzes the server from its socket: whatever the bytes, it answers or closes. Nothing that a client sends is an
// error of the server: no exception leaves the service, no answer is 500.
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

#include "fuzz/Conversation.h"
#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "wire/http/HttpConnection.h"

namespace {

wire::HttpLimits limits() {
    wire::HttpLimits limits;
    // Nobody takes the answers: where there are more than the system buffers, waiting helps nobody.
    limits.responseTime = std::chrono::milliseconds(20);
    return limits;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cimhost;
    static ReplayOperations operations(6, "CIM_ERR_NOT_FOUND: nothing is here");
    static const CimService service(operations);
    static wire::ServerContext context(
        [](wire::HttpRequest&& request) noexcept {
            wire::HttpResponse response = service.answer(std::move(request));
            if (response.status == 500) {
                std::abort();
            }
            return response;
        },
        limits(), {});
    Conversation conversation({reinterpret_cast<const char*>(data), size});
    wire::ConnectionPlaces::Place* const place =
        context.places.enter(conversation.takeOtherEnd().release());
    if (place == nullptr) {
        std::abort();  // an earlier connection has kept its place
    }
    wire::serveConnection(context, *place);
    const std::string answers = conversation.heard();
    if (!answers.empty() && answers.compare(0, 9, "HTTP/1.1 ") != 0) {
        std::abort();
    }
    return 0;
}
