// SPDX-License-Identifier: MIT
// CIM operations over HTTP: what the HTTP server hands its requests to.
#pragma once

#include <optional>
#include <string>

#include "servers/cimhost/operations/Operations.h"
#include "servers/cimhost/protocol/Credentials.h"
#include "wire/cimxml/XmlScan.h"
#include "wire/http/HttpMessage.h"

namespace cimhost {

class CimHeaders;

/// Answers HTTP requests with the results of CIM operations. Any number of threads may use it at
/// once. `operations` must outlive it.
class CimService {
public:
    /// Without `credentials` every client is admitted.
    explicit CimService(Operations& operations, std::optional<Credentials> credentials = {},
                        const wire::XmlLimits& limits = {});

    /// The answer to a request:
    /// 1. methods other than POST and M-POST: 405, or 501 where they are no methods of HTTP;
    /// 2. missing or wrong credentials: 401;
    /// 3. missing or wrong header fields, and messages that are not CIM-XML: 400, 411 or 501 with the
    ///    CIMError that the protocol names, and PGErrorDetail with a text;
    /// 4. otherwise 200, with results or the error of the operation in the message.
    wire::HttpResponse answer(wire::HttpRequest&& request) const;

private:
    wire::HttpResponse answerCall(wire::HttpRequest&& request, const CimHeaders& headers) const;
    bool isAdmitted(const wire::HttpRequest& request) const;

    Operations& operations_;
    std::optional<Credentials> credentials_;
    wire::XmlLimits limits_;
};

}  // namespace cimhost
