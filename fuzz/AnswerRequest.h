// SPDX-License-Identifier: MIT
// What the fuzz targets of the codec share.
#pragma once

#include <cstdlib>
#include <string>

#include <Pegasus/Common/Exception.h>

#include "servers/cimhost/protocol/RequestHandler.h"
#include "wire/cimxml/CimRequest.h"
#include "wire/cimxml/CimResponse.h"
#include "wire/cimxml/XmlError.h"

/// Has the operations answer a text as the body of a request. Aborts if a client does not understand the
/// answer. One thread at a time.
inline void answerRequest(const std::string& text, cimhost::Operations& operations) {
    std::string answer;
    try {
        const wire::XmlDocument document(text);
        answer = cimhost::handleRequest(wire::readRequest(document), operations);
    } catch (const wire::XmlError&) {
        return;
    }
    try {
        const wire::XmlDocument document(answer);
        wire::readResponse(document);
    } catch (const wire::XmlError&) {
        std::abort();
    } catch (const Pegasus::CIMException&) {
        // The operation failed and said so.
    }
}
