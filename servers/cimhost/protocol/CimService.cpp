// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/CimService.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/Utf8.h"
#include "servers/cimhost/protocol/CimHeaders.h"
#include "servers/cimhost/protocol/RequestHandler.h"
#include "servers/cimhost/protocol/RequestOrigin.h"
#include "wire/cimxml/CimRequest.h"
#include "wire/cimxml/XmlDocument.h"
#include "wire/cimxml/XmlError.h"
#include "wire/http/PercentEncoding.h"

namespace cimhost {

namespace {

constexpr std::array<std::string_view, 8> otherMethods{"GET",     "HEAD",    "PUT",   "DELETE",
                                                       "OPTIONS", "CONNECT", "TRACE", "PATCH"};

wire::HttpResponse answerMethod(const std::string& method) {
    const bool isKnown =
        std::find(otherMethods.begin(), otherMethods.end(), method) != otherMethods.end();
    return {isKnown ? 405U : 501U, {{"Allow", "POST, M-POST"}}, {}};
}

// What a message quotes may be as long as a request.
constexpr std::size_t longestDetails = 400;

/// How a document that cannot be taken is refused.
RequestRefused refusalOf(const wire::XmlError& error) {
    switch (error.fault()) {
        case wire::XmlFault::notWellFormed:
            return {400, "request-not-well-formed", error.what()};
        case wire::XmlFault::unsupportedCimVersion:
            return {501, "unsupported-cim-version", error.what()};
        case wire::XmlFault::unsupportedDtdVersion:
            return {501, "unsupported-dtd-version", error.what()};
        case wire::XmlFault::multipleRequests:
            return {501, "multiple-requests-unsupported", error.what()};
        default:
            return {400, "request-not-valid", error.what()};
    }
}

}  // namespace

CimService::CimService(Operations& operations, std::optional<Credentials> credentials,
                       const wire::XmlLimits& limits, const AnswerLimits& answerLimits)
    : operations_(operations),
      credentials_(std::move(credentials)),
      limits_(limits),
      answerLimits_(answerLimits) {}

bool CimService::isAdmitted(const wire::HttpFields& fields) const {
    if (!credentials_) {
        return true;
    }
    const auto given = wire::findField(fields, "Authorization");
    if (!given) {
        return false;
    }
    const bool admitted = credentials_->admit(*given);
    if (!admitted) {
        wrongCredentials_.add();
    }
    return admitted;
}

wire::HttpResponse CimService::answer(wire::HttpRequest&& request) const {
    const bool extended = request.method == "M-POST";
    const wire::HttpFields fields = std::move(request.fields);
    const CimHeaders headers(fields, extended);
    try {
        requireCimClient(fields);
        if (!extended && request.method != "POST") {
            return answerMethod(request.method);
        }
        if (!isAdmitted(fields)) {
            return {401, {{"WWW-Authenticate", "Basic realm=\"cimhost\""}}, {}};
        }
        headers.check(request.http10);
        return answerCall(std::move(request), headers);
    } catch (const RequestRefused& refusal) {
        wire::HttpResponse response{refusal.status(), {}, {}};
        headers.appendExtension(response.fields);
        if (!refusal.cimError().empty()) {
            headers.append(response.fields, "CIMError", refusal.cimError());
        }
        headers.append(response.fields, "PGErrorDetail",
                       wire::percentEncoded(base::utf8Prefix(refusal.what(), longestDetails)));
        return response;
    }
}

wire::HttpResponse CimService::answerCall(wire::HttpRequest&& request,
                                          const CimHeaders& headers) const {
    try {
        const wire::XmlDocument document(std::move(request.body), limits_);
        const wire::CimRequest call = wire::readRequest(document);
        headers.checkAgainst(call);
        wire::HttpResponse response{200, {{"Content-Type", "application/xml; charset=utf-8"}}, {}};
        headers.appendExtension(response.fields);
        headers.append(response.fields, "CIMOperation", "MethodResponse");
        const auto bytes = std::make_shared<AnswerBytes>(answerLimits_, answerTotal_);
        response.body =
            handleRequest(call, operations_, [&](std::size_t size) { bytes->set(size); });
        response.held = bytes;
        return response;
    } catch (const wire::XmlError& error) {
        throw refusalOf(error);
    }
}

}  // namespace cimhost
