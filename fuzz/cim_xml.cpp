// SPDX-License-Identifier: MIT
// Fuzzes the codec: bytes as the body of a request, all the way through an operation, and as the body of
// a response. A refusal is an outcome; what is answered must be a document that the client understands.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/AnswerRequest.h"
#include "tests/servers/cimhost/protocol/ReplayOperations.h"
#include "wire/cimxml/XmlError.h"

namespace {

using namespace cimhost;

void asResponse(const std::string& text) {
    try {
        const ReplayOperations operations(text);
    } catch (const wire::XmlError&) {
        // Not a response.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static ReplayOperations operations(6, "CIM_ERR_NOT_FOUND: nothing is here");
    const std::string text(reinterpret_cast<const char*>(data), size);
    answerRequest(text, operations);
    asResponse(text);
    return 0;
}
