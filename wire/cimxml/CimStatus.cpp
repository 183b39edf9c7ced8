// SPDX-License-Identifier: MIT
#include "wire/cimxml/CimStatus.h"

#include <exception>
#include <string_view>

#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/Exception.h>

#include "base/Utf8.h"
#include "wire/cimxml/StringConversion.h"

namespace wire {

namespace {

/// The text of a foreign exception may hold any bytes.
CimFailure failure(unsigned code, const std::string& text) {
    return {code, describeStatus(code, base::isUtf8(text) ? text : "(a text that is not UTF-8)")};
}

}  // namespace

std::string describeStatus(unsigned code, const std::string& text) {
    constexpr std::string_view unrecognized = "Unrecognized CIM status code";
    std::string description =
        Pegasus::cimStatusCodeToString(static_cast<Pegasus::CIMStatusCode>(code));
    if (description == unrecognized) {
        description += " \"" + std::to_string(code) + "\"";
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

}  // namespace wire
