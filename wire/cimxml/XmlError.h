// SPDX-License-Identifier: MIT
// What is wrong with a document that cannot be taken: the one exception of the codec.
#pragma once

#include <stdexcept>
#include <string>

namespace wire {

/// The kinds of faults that the protocol tells apart.
enum class XmlFault {
    notWellFormed,          ///< not XML, or XML beyond the limits
    notValid,               ///< well-formed, but not what CIM-XML calls for
    unsupportedCimVersion,  ///< CIMVERSION is not 2.x
    unsupportedDtdVersion,  ///< DTDVERSION is not 2.x
    multipleRequests,       ///< a batch of requests (MULTIREQ)
};

/// Thrown for a document that cannot be taken. what() names what is at fault, in UTF-8.
class XmlError : public std::runtime_error {
public:
    XmlError(XmlFault fault, const std::string& message)
        : std::runtime_error(message), fault_(fault) {}

    XmlFault fault() const { return fault_; }

private:
    XmlFault fault_;
};

}  // namespace wire
