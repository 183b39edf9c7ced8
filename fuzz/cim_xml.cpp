// SPDX-License-Identifier: MIT
// Fuzzes the codec: bytes as the body of a request, all the way through an operation, and as the body of
// a response. A refusal is an outcome; what is answered must be a document that the client understands.
#include <Pegasus/Common/Exception.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "host/cimxml/Request.h"
#include "host/cimxml/Response.h"
#include "host/cimxml/XmlError.h"
#include "host/protocol/RequestHandler.h"
#include "tests/host/protocol/ReplayOperations.h"

namespace {

using namespace cimhost;

void asRequest(const std::string& text, Operations& operations) {
    std::string answer;
    try {
        const XmlDocument document(text);
        answer = handleRequest(readRequest(document), operations);
    } catch (const XmlError&) {
        return;
    }
    try {
        const XmlDocument document(answer);
        readResponse(document);
    } catch (const XmlError&) {
        std::abort();
    } catch (const Pegasus::CIMException&) {
        // The operation failed and said so.
    }
}

void asResponse(const std::string& text) {
    try {
        const ReplayOperations operations(text);
    } catch (const XmlError&) {
        // Not a response.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static ReplayOperations operations(6, "CIM_ERR_NOT_FOUND: nothing is here");
    const std::string text(reinterpret_cast<const char*>(data), size);
    asRequest(text, operations);
    asResponse(text);
    return 0;
}
