// SPDX-License-Identifier: MIT
// CIM operations over HTTP: what the HTTP server hands its requests to.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "servers/cimhost/operations/Operations.h"
#include "servers/cimhost/protocol/AnswerBytes.h"
#include "servers/cimhost/protocol/Credentials.h"
#include "servers/cimhost/protocol/RefusalCount.h"
#include "wire/cimxml/XmlScan.h"
#include "wire/http/HttpMessage.h"

namespace cimhost {

class CimHeaders;

/// Answers HTTP requests with the results of CIM operations. Any number of threads may use it at
/// once. `operations` must outlive it.
class CimService {
public:
    /// Without `credentials` every client that the server lets connect is admitted.
    explicit CimService(Operations& operations, std::optional<Credentials> credentials = {},
                        const wire::XmlLimits& limits = {}, const AnswerLimits& answerLimits = {});

    /// The answer to a request:
    /// 1. from a browser, or for another host (see requireCimClient()): 403 with PGErrorDetail;
    /// 2. methods other than POST and M-POST: 405, or 501 where they are no methods of HTTP;
    /// 3. missing or wrong credentials: 401; wrong ones are counted on standard error;
    /// 4. missing or wrong header fields, and messages that are not CIM-XML: 400, 411 or 501 with the
    ///    CIMError that the protocol names, and PGErrorDetail with a text;
    /// 5. otherwise 200, with results or the error of the operation in the message;
    ///    CIM_ERR_SERVER_LIMITS_EXCEEDED if the results are too large. The answer counts until the
    ///    last copy of it is gone.
    wire::HttpResponse answer(wire::HttpRequest&& request) const;

private:
    wire::HttpResponse answerCall(wire::HttpRequest&& request, const CimHeaders& headers) const;
    bool isAdmitted(const wire::HttpFields& fields) const;

    Operations& operations_;
    std::optional<Credentials> credentials_;
    wire::XmlLimits limits_;
    AnswerLimits answerLimits_;
    std::shared_ptr<AnswerTotal> answerTotal_ = std::make_shared<AnswerTotal>(0);
    mutable RefusalCount wrongCredentials_{"a wrong user or password was refused"};
};

}  // namespace cimhost
