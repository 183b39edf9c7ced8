// SPDX-License-Identifier: MIT
// Fuzzes the server from its socket: whatever the bytes, it answers or closes, and serves the next client.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "host/http/HttpServer.h"
#include "host/protocol/CimService.h"
#include "tests/host/protocol/ReplayOperations.h"
#include "tests/support/RawConnection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cimhost;
    static ReplayOperations operations(6, "CIM_ERR_NOT_FOUND: nothing is here");
    static const CimService service(operations);
    static const HttpServer server(ListenAddress("127.0.0.1", 0), [](HttpRequest&& request) {
        return service.answer(std::move(request));
    });
    RawConnection connection(server.port());
    connection.send({reinterpret_cast<const char*>(data), size});
    connection.finishSending();
    connection.readAll();
    return 0;
}
