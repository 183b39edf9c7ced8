// SPDX-License-Identifier: MIT
// Helpers of the tests that compare the object model with the recorded behaviour of OpenPegasus
// 2.14.4.
//
// A text like "string-047" is the number of a recorded behaviour; uncovered_rows.py checks that
// each number is in a test, or in left_out.txt with a reason.
#pragma once

#include <initializer_list>
#include <string>
#include <typeinfo>

#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>
#include <gtest/gtest.h>

/// Sets the number of the recorded behaviour that the rest of the block checks.
#define ROW(id) SCOPED_TRACE(id)

/// Expects the statement to throw exactly this class of the object model, with this message.
#define EXPECT_THROWS(statement, Class, text)                             \
    EXPECT_EQ(modeltest::thrownBy([&] { static_cast<void>(statement); }), \
              modeltest::describeException(typeid(Class), text))

namespace modeltest {

inline std::string utf8(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

inline std::string describeException(const std::type_info& type, const std::string& message) {
    return std::string("throws ") + type.name() + " \"" + message + "\"";
}

template <class Action>
std::string thrownBy(Action action) {
    try {
        action();
    } catch (const Pegasus::Exception& exception) {
        return describeException(typeid(exception), utf8(exception.getMessage()));
    }
    return "throws nothing";
}

/// The text in quotes, with a backslash before quotes and backslashes.
inline std::string quoted(const Pegasus::String& text) {
    std::string result = "\"";
    for (const char c : utf8(text)) {
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result + '"';
}

/// For example: uint16[] null toString ""
inline std::string describe(const Pegasus::CIMValue& value) {
    return std::string(Pegasus::cimTypeToString(value.getType())) + (value.isArray() ? "[]" : "") +
           (value.isNull() ? " null" : "") + " toString " + quoted(value.toString());
}

/// For example: ["a" STRING "2", "b" NUMERIC "1"]
inline std::string describe(const Pegasus::Array<Pegasus::CIMKeyBinding>& keys) {
    constexpr const char* typeNames[] = {"BOOLEAN", "STRING", "NUMERIC", "REFERENCE"};
    std::string result = "[";
    for (Pegasus::Uint32 i = 0; i < keys.size(); ++i) {
        result += (i == 0 ? "" : ", ") + quoted(keys[i].getName().getString()) + ' ' +
                  typeNames[keys[i].getType()] + ' ' + quoted(keys[i].getValue());
    }
    return result + ']';
}

/// For example: host "" ns "root/x" class "C" keys []
inline std::string describe(const Pegasus::CIMObjectPath& path) {
    return "host " + quoted(path.getHost()) + " ns " +
           (path.getNameSpace().isNull() ? "null" : quoted(path.getNameSpace().getString())) +
           " class " +
           (path.getClassName().isNull() ? "null" : quoted(path.getClassName().getString())) +
           " keys " + describe(path.getKeyBindings());
}

/// A text and the number of its recorded behaviour, if any.
struct TextCase {
    const char* row;
    const char* text;
};

template <class T>
Pegasus::Array<T> arrayOf(std::initializer_list<T> items) {
    return Pegasus::Array<T>(items.begin(), static_cast<Pegasus::Uint32>(items.size()));
}

}  // namespace modeltest
