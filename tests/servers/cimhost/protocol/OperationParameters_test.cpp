// SPDX-License-Identifier: MIT
#include "servers/cimhost/protocol/OperationParameters.h"

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "wire/cimxml/StringConversion.h"
#include "wire/cimxml/XmlError.h"

using namespace cimhost;

namespace {

/// A request with the parameters given.
class ParametersOf {
public:
    explicit ParametersOf(const std::string& parameters)
        : document_("<?xml version=\"1.0\"?><R>" + parameters + "</R>") {
        for (const wire::XmlElement element : document_.root()) {
            request_.intrinsicParameters.push_back({*element.attribute("NAME"), element});
        }
    }
    const wire::CimRequest& request() const { return request_; }

private:
    wire::XmlDocument document_;
    wire::CimRequest request_;
};

}  // namespace

TEST(OperationParameters, absentOnesHaveDefaults) {
    const ParametersOf none("");
    const OperationParameters parameters(none.request(), {"P"});
    EXPECT_TRUE(parameters.optionalClassName("P").isNull());
    EXPECT_EQ(parameters.optionalText("P").size(), 0U);
    EXPECT_TRUE(parameters.boolean("P", true));
    EXPECT_FALSE(parameters.boolean("P", false));
    EXPECT_TRUE(parameters.propertyList("P").isNull());
}

TEST(OperationParameters, nullOnesAreAsAbsentOnes) {
    const ParametersOf null("<IPARAMVALUE NAME=\"P\"/>");
    const OperationParameters parameters(null.request(), {"P"});
    EXPECT_TRUE(parameters.optionalClassName("P").isNull());
    EXPECT_TRUE(parameters.boolean("P", true));
    EXPECT_TRUE(parameters.propertyList("P").isNull());
    try {
        parameters.className("P");
        FAIL();
    } catch (const Pegasus::CIMException& error) {
        EXPECT_EQ(error.getCode(), Pegasus::CIM_ERR_INVALID_PARAMETER);
        EXPECT_EQ(wire::toUtf8(error.getMessage()), "parameter \"P\" is missing");
    }
}

TEST(OperationParameters, anEmptyListIsNotNull) {
    const ParametersOf empty("<IPARAMVALUE NAME=\"P\"><VALUE.ARRAY/></IPARAMVALUE>");
    const Pegasus::CIMPropertyList list =
        OperationParameters(empty.request(), {"P"}).propertyList("P");
    EXPECT_FALSE(list.isNull());
    EXPECT_EQ(list.size(), 0U);
}

TEST(OperationParameters, aListHas256NamesAndNoMore) {
    const auto listOf = [](int names) {
        std::string list = "<IPARAMVALUE NAME=\"P\"><VALUE.ARRAY>";
        for (int i = 0; i < names; ++i) {
            list += "<VALUE>p" + std::to_string(i) + "</VALUE>";
        }
        const ParametersOf given(list + "</VALUE.ARRAY></IPARAMVALUE>");
        return OperationParameters(given.request(), {"P"}).propertyList("P").size();
    };
    EXPECT_EQ(listOf(256), 256U);
    try {
        listOf(257);
        ADD_FAILURE() << "taken";
    } catch (const wire::XmlError& error) {
        EXPECT_STREQ(error.what(), "element \"VALUE.ARRAY\": there are more than 256 names inside");
    }
}

TEST(OperationParameters, tellsNamesOfClassesFromThoseOfInstances) {
    const ParametersOf given(
        "<IPARAMVALUE NAME=\"C\"><CLASSNAME NAME=\"A\"/></IPARAMVALUE>"
        "<IPARAMVALUE NAME=\"I\"><INSTANCENAME CLASSNAME=\"A\"/></IPARAMVALUE>");
    const OperationParameters parameters(given.request(), {"C", "I"});
    EXPECT_TRUE(parameters.isClassName("C"));
    EXPECT_FALSE(parameters.isClassName("I"));
    EXPECT_EQ(wire::toUtf8(parameters.objectName("C").toString()), "A");
    EXPECT_EQ(wire::toUtf8(parameters.objectName("I").toString()), "A");
}
