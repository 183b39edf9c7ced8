// SPDX-License-Identifier: MIT
// JSON documents in a form that is easy to write into a test.
#pragma once

#include <string>

#include "cli/JsonWriter.h"

namespace usbhcdiag {

/// The text of a JSON document without the blanks between its values, everything else as it is. Fails
/// the test for text that is no such document.
std::string compactJson(const std::string& text);

/// The same for the document that `write` writes.
std::string compactJson(const std::function<void(JsonWriter&)>& write);

}  // namespace usbhcdiag
