// SPDX-License-Identifier: MIT
#include "cli/InstanceJson.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

#include "tests/cli/CompactJson.h"
#include "tests/cli/Instances.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;

std::string jsonOf(const CIMInstance& instance) {
    return compactJson([&](JsonWriter& json) {
        json.beginObject();
        writeProperties(json, instance);
        json.endObject();
    });
}

std::string jsonOf(const CIMValue& value) {
    const std::string object = jsonOf(instanceWith("A", value));
    const std::string name = R"({"A":)";
    EXPECT_EQ(object.substr(0, name.size()), name);
    return object.substr(name.size(), object.size() - name.size() - 1);
}

TEST(InstanceJson, HasValuesByTheirType) {
    EXPECT_EQ(jsonOf(CIMValue(Boolean(true))), "true");
    EXPECT_EQ(jsonOf(CIMValue(Uint8(255))), "255");
    EXPECT_EQ(jsonOf(CIMValue(Sint8(-128))), "-128");
    EXPECT_EQ(jsonOf(CIMValue(Uint16(65535))), "65535");
    EXPECT_EQ(jsonOf(CIMValue(Uint64(18446744073709551615ULL))), "18446744073709551615");
    EXPECT_EQ(jsonOf(CIMValue(Sint64(-9223372036854775807LL - 1))), "-9223372036854775808");
    EXPECT_EQ(jsonOf(CIMValue(Real64(0.5))), "0.5");
    EXPECT_EQ(jsonOf(CIMValue(Char16(0x00E9))), "\"\u00E9\"");
    EXPECT_EQ(jsonOf(CIMValue(String("a\"b"))), "\"a\\\"b\"");
    EXPECT_EQ(jsonOf(CIMValue(CIMDateTime("20020308070100.000000-240"))),
              "\"20020308070100.000000-240\"");
    EXPECT_EQ(jsonOf(CIMValue(CIMObjectPath("C.K=\"v\""))), R"("C.K=\"v\"")");
}

TEST(InstanceJson, HasArrays) {
    EXPECT_EQ(jsonOf(arrayOf<Uint16>({2, 5, 8})), "[2,5,8]");
    EXPECT_EQ(jsonOf(arrayOf<Uint8>({1, 2})), "[1,2]");
    EXPECT_EQ(jsonOf(arrayOf<Boolean>({true, false})), "[true,false]");
    EXPECT_EQ(jsonOf(arrayOf<String>({})), "[]");
    EXPECT_EQ(jsonOf(arrayOf<String>({"a"})), R"(["a"])");
    EXPECT_EQ(jsonOf(CIMValue(CIMTYPE_STRING, true)), "null");
}

TEST(InstanceJson, IsValidUtf8WhateverTheStringsHold) {
    const Char16 odd[] = {Char16('a'), Char16(0xD800), Char16(0x001B), Char16(0x00E9)};
    EXPECT_EQ(jsonOf(CIMValue(String(odd, 4))), "\"a\uFFFD\\u001B\u00E9\"");
}

TEST(InstanceJson, HasPropertiesInTheirOrder) {
    CIMInstance instance = instanceWith("Zeta", CIMValue(String("z")));
    instance.addProperty(CIMProperty(CIMName("Alpha"), CIMValue(CIMTYPE_UINT32, false)));
    EXPECT_EQ(jsonOf(instance), R"({"Zeta":"z","Alpha":null})");
    Array<CIMInstance> instances;
    const auto write = [&instances](JsonWriter& json) { writeInstances(json, instances); };
    EXPECT_EQ(jsonText(write), "[]\n");
    instances.append(instance);
    EXPECT_EQ(compactJson(write), R"([{"Zeta":"z","Alpha":null}])");
}

}  // namespace
}  // namespace usbhcdiag
