// SPDX-License-Identifier: MIT
// CIM operations over HTTP.
#include "host/protocol/CimService.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "host/cimxml/Request.h"
#include "host/cimxml/XmlDocument.h"
#include "host/cimxml/XmlError.h"
#include "host/http/PercentEncoding.h"
#include "host/protocol/CimHeaders.h"
#include "host/protocol/RequestHandler.h"

namespace cimhost {

namespace {

constexpr std::array<std::string_view, 8> otherMethods{"GET",     "HEAD",    "PUT",   "DELETE",
                                                       "OPTIONS", "CONNECT", "TRACE", "PATCH"};

HttpResponse answerMethod(const std::string& method) {
    const bool isKnown =
        std::find(otherMethods.begin(), otherMethods.end(), method) != otherMethods.end();
    return {isKnown ? 405U : 501U, {{"Allow", "POST, M-POST"}}, {}};
}

/// The beginning of a text, without a character cut in two: what a message quotes may be as long as
/// a request.
std::string_view excerpt(std::string_view text) {
    constexpr std::size_t longest = 400;
    if (text.size() <= longest) {
        return text;
    }
    std::size_t end = longest;
    while ((text[end] & 0xC0) == 0x80) {
        --end;
    }
    return text.substr(0, end);
}

/// How a document that cannot be taken is refused.
RequestRefused refusalOf(const XmlError& error) {
    switch (error.fault()) {
        case XmlFault::notWellFormed:
            return {400, "request-not-well-formed", error.what()};
        case XmlFault::unsupportedCimVersion:
            return {501, "unsupported-cim-version", error.what()};
        case XmlFault::unsupportedDtdVersion:
            return {501, "unsupported-dtd-version", error.what()};
        case XmlFault::multipleRequests:
            return {501, "multiple-requests-unsupported", error.what()};
        default:
            return {400, "request-not-valid", error.what()};
    }
}

}  // namespace

CimService::CimService(Operations& operations, std::optional<Credentials> credentials,
                       const XmlLimits& limits)
    : operations_(operations), credentials_(std::move(credentials)), limits_(limits) {}

bool CimService::isAdmitted(const HttpRequest& request) const {
    return !credentials_ ||
           credentials_->admit(findField(request.fields, "Authorization").value_or(""));
}

HttpResponse CimService::answer(HttpRequest&& request) const {
    const bool extended = request.method == "M-POST";
    if (!extended && request.method != "POST") {
        return answerMethod(request.method);
    }
    if (!isAdmitted(request)) {
        return {401, {{"WWW-Authenticate", "Basic realm=\"cimhost\""}}, {}};
    }
    const HttpFields fields = std::move(request.fields);
    const CimHeaders headers(fields, extended);
    try {
        headers.check(request.http10);
        return answerCall(std::move(request), headers);
    } catch (const RequestRefused& refusal) {
        HttpResponse response{refusal.status(), {}, {}};
        headers.appendExtension(response.fields);
        if (!refusal.cimError().empty()) {
            headers.append(response.fields, "CIMError", refusal.cimError());
        }
        headers.append(response.fields, "PGErrorDetail", percentEncoded(excerpt(refusal.what())));
        return response;
    }
}

HttpResponse CimService::answerCall(HttpRequest&& request, const CimHeaders& headers) const {
    try {
        const XmlDocument document(std::move(request.body), limits_);
        const Request call = readRequest(document);
        headers.checkAgainst(call);
        HttpResponse response{200, {{"Content-Type", "application/xml; charset=utf-8"}}, {}};
        headers.appendExtension(response.fields);
        headers.append(response.fields, "CIMOperation", "MethodResponse");
        response.body = handleRequest(call, operations_);
        return response;
    } catch (const XmlError& error) {
        throw refusalOf(error);
    }
}

}  // namespace cimhost
