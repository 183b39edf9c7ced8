// SPDX-License-Identifier: MIT
// What every CIM-XML message has around it, request or response.
//
// Functions without state; any thread may call them.
#pragma once

#include <string>
#include <string_view>

#include "wire/cimxml/XmlDocument.h"

namespace wire {

/// The MESSAGE element of a document. Throws XmlError where the root is not CIM with a message
/// inside, or for versions of CIM or of the DTD that are not spoken here.
XmlElement readMessage(XmlElement root);

/// Appends the begin of a message, up to and with the opening tag of MESSAGE.
void beginMessage(std::string& out, std::string_view messageId);

/// Appends the end of a message.
void endMessage(std::string& out);

}  // namespace wire
