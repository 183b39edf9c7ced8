// SPDX-License-Identifier: MIT
// From a request that has been read to the answer that is sent.
#pragma once

#include <string>

#include "servers/cimhost/operations/Operations.h"
#include "wire/cimxml/CimRequest.h"

namespace cimhost {

/// Has a request answered by `operations` and returns the whole answer: a document with results, or
/// with the error that the operation failed with. Operations that are not offered are
/// CIM_ERR_NOT_SUPPORTED. Throws XmlError where a parameter is not of the form that its operation
/// calls for. Any thread may call it.
std::string handleRequest(const wire::CimRequest& request, Operations& operations);

}  // namespace cimhost
