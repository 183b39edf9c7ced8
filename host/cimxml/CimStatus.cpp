// SPDX-License-Identifier: MIT
// CIM status codes and what a failure looks like to a client.
#include "host/cimxml/CimStatus.h"

#include <Pegasus/Common/Exception.h>

#include <array>
#include <exception>
#include <string_view>

#include "host/cimxml/XmlText.h"

namespace cimhost {

namespace {

/// Names by code. Codes that the standard skips are empty.
constexpr std::array<std::string_view, 30> names{
    "",
    "CIM_ERR_FAILED",
    "CIM_ERR_ACCESS_DENIED",
    "CIM_ERR_INVALID_NAMESPACE",
    "CIM_ERR_INVALID_PARAMETER",
    "CIM_ERR_INVALID_CLASS",
    "CIM_ERR_NOT_FOUND",
    "CIM_ERR_NOT_SUPPORTED",
    "CIM_ERR_CLASS_HAS_CHILDREN",
    "CIM_ERR_CLASS_HAS_INSTANCES",
    "CIM_ERR_INVALID_SUPERCLASS",
    "CIM_ERR_ALREADY_EXISTS",
    "CIM_ERR_NO_SUCH_PROPERTY",
    "CIM_ERR_TYPE_MISMATCH",
    "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED",
    "CIM_ERR_INVALID_QUERY",
    "CIM_ERR_METHOD_NOT_AVAILABLE",
    "CIM_ERR_METHOD_NOT_FOUND",
    "",
    "",
    "CIM_ERR_NAMESPACE_NOT_EMPTY",
    "CIM_ERR_INVALID_ENUMERATION_CONTEXT",
    "CIM_ERR_INVALID_OPERATION_TIMEOUT",
    "CIM_ERR_PULL_HAS_BEEN_ABANDONED",
    "CIM_ERR_PULL_CANNOT_BE_ABANDONED",
    "CIM_ERR_FILTERED_ENUMERATION_NOT_SUPPORTED",
    "CIM_ERR_CONTINUATION_ON_ERROR_NOT_SUPPORTED",
    "CIM_ERR_SERVER_LIMITS_EXCEEDED",
    "CIM_ERR_SERVER_IS_SHUTTING_DOWN",
    "",
};

/// The text of a foreign exception may hold any bytes.
CimFailure failure(unsigned code, const std::string& text) {
    return {code, describeStatus(code, isUtf8(text) ? text : "(a text that is not UTF-8)")};
}

}  // namespace

std::string describeStatus(unsigned code, const std::string& text) {
    std::string description;
    if (code < names.size() && !names.at(code).empty()) {
        description = names.at(code);
    } else {
        description = "Unrecognized CIM status code \"" + std::to_string(code) + "\"";
    }
    if (!text.empty()) {
        description += ": " + text;
    }
    return description;
}

CimFailure failureOfException() {
    try {
        throw;
    } catch (const Pegasus::CIMException& error) {
        return failure(static_cast<unsigned>(error.getCode()), toUtf8(error.getMessage()));
    } catch (const Pegasus::Exception& error) {
        return failure(Pegasus::CIM_ERR_FAILED, toUtf8(error.getMessage()));
    } catch (const std::exception& error) {
        return failure(Pegasus::CIM_ERR_FAILED, error.what());
    } catch (...) {
        return failure(Pegasus::CIM_ERR_FAILED, "Unknown error.");
    }
}

}  // namespace cimhost
