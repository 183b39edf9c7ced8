// SPDX-License-Identifier: MIT
#include "cli/ValueTexts.h"

#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

#include "tests/cli/Instances.h"

namespace usbhcdiag {
namespace {

using namespace Pegasus;

TEST(ValueTexts, BecomeText) {
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(String("x \"y\""))), "A"), "x \"y\"");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Uint16(7))), "a"), "7");
    EXPECT_EQ(textOf(instanceWith("A", arrayOf<String>({"x", "y"})), "A"), "x, y");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(CIMTYPE_STRING, false)), "A"), "");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Uint16(7))), "B"), "");
}

TEST(ValueTexts, OfNumbersAndTruthValues) {
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Boolean(false))), "A"), "false");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Sint8(-128))), "A"), "-128");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Uint64(18446744073709551615ULL))), "A"),
              "18446744073709551615");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Real64(0.5))), "A"), "0.5");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Real32(480))), "A"), "480.0");
    EXPECT_EQ(textOf(instanceWith("A", CIMValue(Real64(1e300))), "A"), "1e+300");
}

TEST(ValueTexts, BecomeTextsOfTheirElements) {
    using Texts = std::vector<std::string>;
    EXPECT_EQ(textsOf(instanceWith("A", arrayOf<String>({"x", "", "z"})), "A"),
              Texts({"x", "", "z"}));
    EXPECT_EQ(textsOf(instanceWith("A", arrayOf<Uint16>({2, 5})), "A"), Texts({"2", "5"}));
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(String("x"))), "A"), Texts({"x"}));
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(CIMTYPE_STRING, true)), "A"), Texts());
    EXPECT_EQ(textsOf(instanceWith("A", CIMValue(String("x"))), "B"), Texts());
}

TEST(ValueTexts, BecomeANumberIfTheyAreOne) {
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(Uint16(7))), "a"), 7);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(String("7"))), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", arrayOf<Uint16>({7})), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(CIMTYPE_UINT16, false)), "A"), std::nullopt);
    EXPECT_EQ(numberOf(instanceWith("A", CIMValue(Uint16(7))), "B"), std::nullopt);
}

TEST(ValueTexts, DatesForPeople) {
    EXPECT_EQ(dateForPeople("20020308070100.000000-240"), "2002-03-08 07:01:00 -04:00");
    EXPECT_EQ(dateForPeople("20261120200752.123456+090"), "2026-11-20 20:07:52 +01:30");
    EXPECT_EQ(dateForPeople("00000000000000.000000:000"), "-");
    EXPECT_EQ(dateForPeople(""), "-");
    EXPECT_EQ(dateForPeople("200203**************+***"), "200203**************+***");
}

TEST(ValueTexts, InstancesBecomeMof) {
    CIMInstance instance = instanceWith("DeviceID", CIMValue(String("a\"b\\c\u00FC")));
    instance.addProperty(CIMProperty(CIMName("Name"), CIMValue(CIMTYPE_STRING, false)));
    instance.addProperty(CIMProperty(CIMName("Numbers"), arrayOf<Uint16>({0, 3})));
    instance.addProperty(CIMProperty(CIMName("None"), arrayOf<String>({})));
    instance.addProperty(CIMProperty(CIMName("Text"), CIMValue(String("line\nend\x01"))));
    instance.addProperty(CIMProperty(CIMName("On"), CIMValue(Boolean(true))));
    instance.addProperty(CIMProperty(CIMName("Rate"), CIMValue(Real64(480))));
    instance.addProperty(CIMProperty(CIMName("Texts"), arrayOf<String>({"", "a"})));
    EXPECT_EQ(mofOf(instance),
              "instance of ZORVA_UsbHc {\n"
              "    DeviceID = \"a\\\"b\\\\c\u00FC\";\n"
              "    Numbers = { 0, 3 };\n"
              "    None = { };\n"
              "    Text = \"line\\x000Aend\\x0001\";\n"
              "    On = true;\n"
              "    Rate = 480.0;\n"
              "    Texts = { \"\", \"a\" };\n"
              "};\n");
}

}  // namespace
}  // namespace usbhcdiag
