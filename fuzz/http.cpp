// SPDX-License-Identifier: MIT
// Fuzzes the server from its socket: whatever the bytes, it answers or closes, and serves the next client.
// Nothing that a client sends is an error of the server: no exception leaves the service, no answer is 500.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "servers/cimhost/protocol/CimService.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "tests/support/RawConnection.h"
#include "wire/http/HttpServer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cimhost;
    static ReplayOperations operations(6, "CIM_ERR_NOT_FOUND: nothing is here");
    static const CimService service(operations);
    static const wire::HttpServer server(
        wire::ListenAddress("127.0.0.1", 0), [](wire::HttpRequest&& request) noexcept {
            wire::HttpResponse response = service.answer(std::move(request));
            if (response.status == 500) {
                std::abort();
            }
            return response;
        });
    RawConnection connection(server.port());
    connection.send({reinterpret_cast<const char*>(data), size});
    connection.finishSending();
    connection.readAll();
    return 0;
}
