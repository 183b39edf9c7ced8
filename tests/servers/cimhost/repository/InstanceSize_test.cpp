// SPDX-License-Identifier: MIT
#include "servers/cimhost/repository/InstanceSize.h"

#include <string>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMProperty;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint16;

String textOf(std::size_t length) {
    return {std::string(length, 'x').c_str()};
}

TEST(InstanceSize, ATextTakesTwoBytesForEachCharacter) {
    EXPECT_EQ(sizeOf(CIMValue(textOf(1000))) - sizeOf(CIMValue(textOf(0))), 2000U);
    Array<String> texts;
    texts.append(textOf(1000));
    texts.append(textOf(500));
    EXPECT_GE(sizeOf(CIMValue(texts)), 3000U);
}

TEST(InstanceSize, EmptyElementsOfArraysTakeRoomToo) {
    Array<String> texts;
    Array<Uint16> numbers;
    for (int i = 0; i < 1000; ++i) {
        texts.append(String());
        numbers.append(7);
    }
    EXPECT_EQ(sizeOf(CIMValue(texts)), 1000 * sizeof(String));
    EXPECT_EQ(sizeOf(CIMValue(numbers)), 2000U);
    EXPECT_EQ(sizeOf(CIMValue(Pegasus::CIMTYPE_STRING, true)), 0U) << "null";
}

TEST(InstanceSize, ReferencesCountWithTheirKeys) {
    const CIMObjectPath path("A.b=\"" + textOf(1000) + "\"");
    EXPECT_GE(sizeOf(CIMValue(path)), 2000U);
    Array<CIMObjectPath> paths;
    paths.append(path);
    paths.append(path);
    EXPECT_EQ(sizeOf(CIMValue(paths)), 2 * sizeOf(CIMValue(path)));
}

TEST(InstanceSize, AnInstanceIsItsPathAndItsValues) {
    Pegasus::CIMInstance instance(CIMName("A"));
    const std::size_t empty = sizeOf(instance);
    instance.addProperty(CIMProperty(CIMName("p"), CIMValue(textOf(1000))));
    const std::size_t withText = sizeOf(instance);
    EXPECT_GE(withText, empty + 2000);
    instance.addProperty(CIMProperty(CIMName("q"), CIMValue(Pegasus::CIMTYPE_STRING, false)));
    EXPECT_GT(sizeOf(instance), withText) << "null properties";
    const std::size_t withoutKeys = sizeOf(instance);
    instance.setPath(CIMObjectPath("A.b=\"" + textOf(1000) + "\""));
    EXPECT_GE(sizeOf(instance), withoutKeys + 2000);
}

}  // namespace
}  // namespace cimhost
