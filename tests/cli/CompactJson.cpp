// SPDX-License-Identifier: MIT
#include "tests/cli/CompactJson.h"

#include <gtest/gtest.h>
#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace usbhcdiag {

std::string compactJson(const std::string& text) {
    using namespace rapidjson;
    StringStream stream(text.c_str());
    StringBuffer compact;
    Writer<StringBuffer> writer(compact);
    const ParseResult result =
        Reader().Parse<kParseValidateEncodingFlag | kParseFullPrecisionFlag>(stream, writer);
    EXPECT_FALSE(result.IsError())
        << GetParseError_En(result.Code()) << " at " << result.Offset() << " of\n"
        << text;
    return {compact.GetString(), compact.GetSize()};
}

std::string compactJson(const std::function<void(JsonWriter&)>& write) {
    return compactJson(jsonText(write));
}

}  // namespace usbhcdiag
