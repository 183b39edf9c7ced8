// SPDX-License-Identifier: MIT
// A response as a server writes it and as a client reads it.
#pragma once

#include <functional>
#include <string>

#include <Pegasus/Common/CIMParamValue.h>

#include "wire/cimxml/CimRequest.h"
#include "wire/cimxml/CimStatus.h"
#include "wire/cimxml/ObjectWriter.h"
#include "wire/cimxml/XmlDocument.h"

namespace wire {

/// The answer to a request, written from front to back. One thread at a time.
class ResponseWriter {
public:
    /// Begins the answer to `request`, which must outlive the writer. `watch` is told how it grows.
    explicit ResponseWriter(const CimRequest& request, SizeWatch watch = {});

    /// Where the answer goes: RETURNVALUE and PARAMVALUE elements for a method; for an operation
    /// what stands inside IRETURNVALUE, which is left out where nothing is written.
    /// `classOrigin`: see ObjectWriter.
    ObjectWriter results(bool classOrigin = false) {
        return ObjectWriter(out_, classOrigin, &watch_);
    }

    /// The same place, for elements that ObjectWriter does not know.
    std::string& out() { return out_; }

    /// Drops what was written, gives back its memory, and answers with an error.
    void fail(const CimFailure& failure);

    /// Ends the answer and hands it out. The writer is of no use afterwards.
    std::string finish();

private:
    const CimRequest& request_;
    SizeWatch watch_;
    std::string out_;
    std::size_t begin_ = 0;    ///< where the content of the response begins
    std::size_t results_ = 0;  ///< where the results begin
    bool failed_ = false;
};

/// What a client finds in a response. It refers to the document, which must outlive it.
struct CimResponse {
    /// IRETURNVALUE; none where an operation answered with nothing.
    XmlElement results;
    /// RETURNVALUE; none where a method answered without a value.
    XmlElement returnValue;
    Pegasus::Array<Pegasus::CIMParamValue> outParameters;
};

/// Reads a response. An error in it is thrown as Pegasus::CIMException with the server's code and
/// description; XmlError means that the document is no response.
CimResponse readResponse(const XmlDocument& document);

/// The value of a RETURNVALUE element.
Pegasus::CIMValue readReturnValue(XmlElement returnValue);

}  // namespace wire
