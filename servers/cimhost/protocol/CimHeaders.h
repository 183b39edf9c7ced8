// SPDX-License-Identifier: MIT
// The header fields by which CIM operations over HTTP describe their message.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "wire/cimxml/CimRequest.h"
#include "wire/http/HttpMessage.h"

namespace cimhost {

/// Thrown for a request that is refused before any operation is asked. what() is the detail for
/// whoever reads the answer, in UTF-8.
class RequestRefused : public std::runtime_error {
public:
    /// `cimError`: the value of the CIMError field; empty where the protocol names none.
    RequestRefused(unsigned status, std::string_view cimError, const std::string& detail)
        : std::runtime_error(detail), status_(status), cimError_(cimError) {}

    unsigned status() const { return status_; }
    const std::string& cimError() const { return cimError_; }

private:
    unsigned status_;
    std::string cimError_;
};

/// The CIM fields of a request, by POST or M-POST, and of its answer. Refers to the request; one
/// thread at a time.
class CimHeaders {
public:
    explicit CimHeaders(const wire::HttpFields& fields, bool extended);

    /// A CIM field. With M-POST it carries the prefix that the Man field announces; the name without
    /// it is taken as well.
    std::optional<std::string> find(std::string_view name) const;

    /// Checks what can be checked without the message: host, length, operation, type of content,
    /// version of the protocol. Throws RequestRefused.
    void check(bool http10) const;

    /// Checks that version, method and object are those of the message. Throws RequestRefused.
    void checkAgainst(const wire::CimRequest& request) const;

    /// Appends a CIM field to the answer, with the prefix that an answer to M-POST has.
    void append(wire::HttpFields& answer, std::string_view name, std::string_view value) const;

    /// Appends the fields that an answer to M-POST has before the others.
    void appendExtension(wire::HttpFields& answer) const;

private:
    void checkContentType() const;
    std::string require(std::string_view name) const;

    const wire::HttpFields& fields_;
    bool extended_;
    std::string prefix_;  ///< "73-"; empty without M-POST or Man
};

}  // namespace cimhost
