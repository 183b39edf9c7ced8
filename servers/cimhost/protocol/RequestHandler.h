// SPDX-License-Identifier: MIT
// From a request that has been read to the answer that is sent.
#pragma once

#include <string>

#include "servers/cimhost/operations/Operations.h"
#include "wire/cimxml/CimRequest.h"
#include "wire/cimxml/ObjectWriter.h"

namespace cimhost {

/// Has a request answered by `operations` and returns the whole answer: a document with results, or
/// with the error that the operation failed with. Operations that are not offered are
/// CIM_ERR_NOT_SUPPORTED. Throws XmlError where a parameter is not of the form that its operation
/// calls for. `watch` is told how large the answer has become, after a refusal too, and refuses by a
/// CIMException more than there may be. Any thread may call it.
std::string handleRequest(const wire::CimRequest& request, Operations& operations,
                          const wire::SizeWatch& watch = {});

}  // namespace cimhost
