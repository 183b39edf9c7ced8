// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimResponse.h"

#include <utility>

#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/Message.h"
#include "wire/cimxml/ObjectReader.h"
#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/ValueConversion.h"
#include "wire/cimxml/XmlError.h"
#include "wire/cimxml/XmlEscaping.h"

namespace wire {

namespace {

// Most answers are smaller, so that one allocation is enough for them.
constexpr std::size_t expectedSize = 4096;

std::string_view responseElement(const CimRequest& request) {
    return request.intrinsic ? "IMETHODRESPONSE" : "METHODRESPONSE";
}

[[noreturn]] void throwError(XmlElement error) {
    unsigned code = Pegasus::CIM_ERR_FAILED;
    try {
        Pegasus::Uint32 given = 0;
        parseValue(Pegasus::CIMTYPE_UINT32, requiredAttribute(error, "CODE")).get(given);
        code = given;
    } catch (const MalformedValue& malformed) {
        failNotValid(error, malformed.what());
    }
    throw Pegasus::CIMException(static_cast<Pegasus::CIMStatusCode>(code),
                                fromUtf8(error.attribute("DESCRIPTION").value_or(std::string())));
}

}  // namespace

ResponseWriter::ResponseWriter(const CimRequest& request, SizeWatch watch)
    : request_(request), watch_(std::move(watch)) {
    out_.reserve(expectedSize);
    beginMessage(out_, request.messageId);
    out_ += "<SIMPLERSP>\n<";
    out_ += responseElement(request);
    appendAttribute(out_, "NAME", request.method);
    out_ += ">\n";
    begin_ = out_.size();
    if (request.intrinsic) {
        out_ += "<IRETURNVALUE>\n";
    }
    results_ = out_.size();
}

void ResponseWriter::fail(const CimFailure& failure) {
    failed_ = true;
    out_.resize(begin_);
    out_.shrink_to_fit();
    out_ += "<ERROR";
    appendAttribute(out_, "CODE", std::to_string(failure.code));
    appendAttribute(out_, "DESCRIPTION", failure.description);
    out_ += "/>\n";
}

std::string ResponseWriter::finish() {
    if (request_.intrinsic && !failed_) {
        if (out_.size() == results_) {
            out_.resize(begin_);
        } else {
            out_ += "</IRETURNVALUE>\n";
        }
    }
    out_ += "</";
    out_ += responseElement(request_);
    out_ += ">\n</SIMPLERSP>\n";
    endMessage(out_);
    return std::move(out_);
}

CimResponse readResponse(const XmlDocument& document) {
    const XmlElement message = readMessage(document.root());
    const XmlElement simple = expectElement(message.firstChild(), "SIMPLERSP");
    const XmlElement method = onlyChild(simple);
    if (method.name() != "IMETHODRESPONSE" && method.name() != "METHODRESPONSE") {
        failNotValid(simple, "the response of a method is expected inside");
    }
    CimResponse response;
    for (const XmlElement element : method) {
        if (element.name() == "ERROR") {
            throwError(element);
        }
        if (element.name() == "IRETURNVALUE") {
            response.results = element;
        } else if (element.name() == "RETURNVALUE") {
            response.returnValue = element;
        } else {
            response.outParameters.append(readParamValue(element));
        }
    }
    return response;
}

Pegasus::CIMValue readReturnValue(XmlElement returnValue) {
    const Pegasus::CIMType type = returnValue.attribute("PARAMTYPE")
                                      ? typeAttribute(returnValue, "PARAMTYPE")
                                      : Pegasus::CIMTYPE_STRING;
    return readContent(returnValue, type, false);
}

}  // namespace wire
