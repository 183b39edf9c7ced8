// SPDX-License-Identifier: MIT
// The same as constant_server on another widely used HTTP library, for comparison.
//
// usage: constant_httplib_server BYTES; prints "listening on http://127.0.0.1:PORT"
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string>

#include <httplib.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: constant_httplib_server BYTES\n";
        return 2;
    }
    const std::string body(std::strtoul(argv[1], nullptr, 10), 'x');
    httplib::Server server;
    server.set_tcp_nodelay(true);
    server.set_keep_alive_max_count(std::numeric_limits<std::size_t>::max());
    server.Post("/cimom", [&](const httplib::Request&, httplib::Response& response) {
        response.set_header("CIMOperation", "MethodResponse");
        response.set_content(body, "application/xml; charset=utf-8");
    });
    const int port = server.bind_to_any_port("127.0.0.1");
    std::cout << "listening on http://127.0.0.1:" << port << std::endl;
    return server.listen_after_bind() ? 0 : 1;
}
