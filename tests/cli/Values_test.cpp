// SPDX-License-Identifier: MIT
#include "cli/Values.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace usbhcdiag {
namespace {

using namespace Pegasus;

template <typename T>
CIMValue arrayOf(std::initializer_list<T> elements) {
    Array<T> array;
    for (const T& element : elements) {
        array.append(element);
    }
    return CIMValue(array);
}

CIMInstance instanceWith(const char* name, const CIMValue& value) {
    CIMInstance instance(CIMName("ZORVA_UsbHc"));
    instance.addProperty(CIMProperty(CIMName(name), value));
    return instance;
}

TEST(Values, BecomeJsonByTheirType) {
    EXPECT_EQ(jsonOf(CIMValue(Boolean(true))).dump(), "true");
    EXPECT_EQ(jsonOf(CIMValue(Uint8(255))).dump(), "255");
    EXPECT_EQ(jsonOf(CIMValue(Sint8(-128))).dump(), "-128");
    EXPECT_EQ(jsonOf(CIMValue(Uint16(65535))).dump(), "65535");
    EXPECT_EQ(jsonOf(CIMValue(Uint64(18446744073709551615ULL))).dump(), "18446744073709551615");
    EXPECT_EQ(jsonOf(CIMValue(Sint64(-9223372036854775807LL - 1))).dump(), "-9223372036854775808");
    EXPECT_EQ(jsonOf(CIMValue(Real64(0.5))).dump(), "0.5");
    EXPECT_EQ(jsonOf(CIMValue(Char16(0x00E9))).dump(), "\"\u00E9\"");
    EXPECT_EQ(jsonOf(CIMValue(String("a\"b"))).dump(), "\"a\\\"b\"");
    EXPECT_EQ(jsonOf(CIMValue(CIMDateTime("20020308070100.000000-240"))).dump(),
              "\"20020308070100.000000-240\"");
    EXPECT_EQ(jsonOf(CIMValue(CIMObjectPath("C.K=\"v\""))).dump(), R"("C.K=\"v\"")");
}

TEST(Values, BecomeJsonArrays) {
    EXPECT_EQ(jsonOf(arrayOf<Uint16>({2, 5, 8})).dump(), "[2,5,8]");
    EXPECT_EQ(jsonOf(arrayOf<Uint8>({1, 2})).dump(), "[1,2]");
    EXPECT_EQ(jsonOf(arrayOf<Boolean>({true, false})).dump(), "[true,false]");
    EXPECT_EQ(jsonOf(arrayOf<String>({})).dump(), "[]");
    EXPECT_EQ(jsonOf(CIMValue(CIMTYPE_STRING, true)).dump(), "null");
}

TEST(Values, StayValidUtf8WhateverTheyHold) {
    const Char16 odd[] = {Char16('a'), Char16(0xD800), Char16(0x001B), Char16(0x00E9)};
    EXPECT_EQ(documentOf(instanceWith("A", CIMValue(String(odd, 4)))),
              "{\n  \"A\": \"a\uFFFD\\u001b\u00E9\"\n}\n");
}

TEST(Values, InstancesBecomeObjectsInTheOrderOfTheirProperties) {
    CIMInstance instance = instanceWith("Zeta", CIMValue(String("z")));
    instance.addProperty(CIMProperty(CIMName("Alpha"), CIMValue(CIMTYPE_UINT32, false)));
    EXPECT_EQ(jsonOf(instance).dump(), R"({"Zeta":"z","Alpha":null})");
    Array<CIMInstance> instances;
    EXPECT_EQ(documentOf(instances), "[]\n");
    instances.append(instance);
    EXPECT_EQ(jsonOf(instances).dump(), R"([{"Zeta":"z","Alpha":null}])");
}

TEST(Values, BecomeText) {
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(String("x \"y\""))), "A"), "x \"y\"");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Uint16(7))), "a"), "7");
    EXPECT_EQ(textOf(instanceWith("A", arrayOf<String>({"x", "y"})), "A"), "x, y");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(CIMTYPE_STRING, false)), "A"), "");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Uint16(7))), "B"), "");
}

TEST(Values, BecomeTextsOfTheirElements) {
    using Texts = std::vector<std::string>;
    EXPECT_EQ(textsOf(instanceWith("A", arrayOf<String>({"x", "", "z"})), "A"),
              Texts({"x", "", "z"}));
    EXPECT_EQ(textsOf(instanceWith("A", arrayOf<Uint16>({2, 5})), "A"), Texts({"2", "5"}));
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(String("x"))), "A"), Texts({"x"}));
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(CIMTYPE_STRING, true)), "A"), Texts());
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(String("x"))), "B"), Texts());
}

TEST(Values, BecomeANumberIfTheyAreOne) {
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(Uint16(7))), "a"), 7);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(String("7"))), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", arrayOf<Uint16>({7})), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(CIMTYPE_UINT16, false)), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(Uint16(7))), "B"), std::nullopt);
}

TEST(Values, DatesForPeople) {
    EXPECT_EQ(dateForPeople("20020308070100.000000-240"), "2002-03-08 07:01:00 -04:00");
    EXPECT_EQ(dateForPeople("20261120200752.123456+090"), "2026-11-20 20:07:52 +01:30");
    EXPECT_EQ(dateForPeople("00000000000000.000000:000"), "-");
    EXPECT_EQ(dateForPeople(""), "-");
    EXPECT_EQ(dateForPeople("200203**************+***"), "200203**************+***");
}

TEST(Values, InstancesBecomeMof) {
    CIMInstance instance = instanceWith("DeviceID", CIMValue(String("a\"b\\c\u00FC")));
    instance.addProperty(CIMProperty(CIMName("Name"), CIMValue(CIMTYPE_STRING, false)));
    instance.addProperty(CIMProperty(CIMName("Numbers"), arrayOf<Uint16>({0, 3})));
    instance.addProperty(CIMProperty(CIMName("None"), arrayOf<String>({})));
    instance.addProperty(CIMProperty(CIMName("Text"), CIMValue(String("line\nend\x01"))));
    instance.addProperty(CIMProperty(CIMName("On"), CIMValue(Boolean(true))));
    EXPECT_EQ(mofOf(instance),
              "instance of ZORVA_UsbHc {\n"
              "    DeviceID = \"a\\\"b\\\\c\u00FC\";\n"
              "    Numbers = { 0, 3 };\n"
              "    None = { };\n"
              "    Text = \"line\\x000Aend\\x0001\";\n"
              "    On = true;\n"
              "};\n");
}

}  // namespace
}  // namespace usbhcdiag
