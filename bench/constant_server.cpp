// SPDX-License-Identifier: MIT
// What a server costs that has nothing to say: the HTTP library alone, answering every request on a
// connection with a constant body. The benchmarks measure cimhost against it.
//
// usage: constant_server BYTES; prints "listening on http://127.0.0.1:PORT"
#include <cstdlib>
#include <iostream>
#include <string>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>

namespace http = boost::beast::http;
using tcp = boost::asio::ip::tcp;

namespace {

void serve(tcp::socket& socket, const std::string& body) {
    boost::beast::flat_buffer buffer;
    while (true) {
        boost::beast::error_code error;
        http::request<http::string_body> request;
        http::read(socket, buffer, request, error);
        if (error) {
            return;
        }
        http::response<http::string_body> response(http::status::ok, request.version());
        response.set(http::field::content_type, "application/xml; charset=utf-8");
        response.set("CIMOperation", "MethodResponse");
        response.body() = body;
        response.prepare_payload();
        http::write(socket, response, error);
        if (error) {
            return;
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: constant_server BYTES\n";
        return 2;
    }
    const std::string body(std::strtoul(argv[1], nullptr, 10), 'x');
    boost::asio::io_context context;
    tcp::acceptor acceptor(context, {boost::asio::ip::make_address("127.0.0.1"), 0});
    std::cout << "listening on http://127.0.0.1:" << acceptor.local_endpoint().port() << std::endl;
    while (true) {
        tcp::socket socket = acceptor.accept();
        socket.set_option(tcp::no_delay(true));
        serve(socket, body);
    }
}
