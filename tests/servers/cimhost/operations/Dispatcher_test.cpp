// SPDX-License-Identifier: MIT
// Operations reach the provider or the repository, and answer as OpenPegasus was seen to answer.
#include "servers/cimhost/operations/Dispatcher.h"

#include <set>
#include <string>
#include <utility>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "servers/cimhost/mof/MofReader.h"
#include "servers/cimhost/operations/HostConnection.h"
#include "tests/servers/cimhost/operations/ScriptedProvider.h"

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMNamespaceName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMParamValue;
using Pegasus::CIMProperty;
using Pegasus::CIMPropertyList;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint16;
using Pegasus::Uint32;

const char* const schemaText = R"mof(
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
Qualifier Description : string = NULL, Scope(any);

[Description("a base")] class T_Base { [Key] string Id; string Text; };
class T_Stored : T_Base { uint16 Number = 7; };
class T_Served : T_Base {
    uint16 Number;
    uint32 Run(uint16 N, uint16 List[], boolean Flag, datetime When, T_Base REF Element, string Text);
};
class T_ServedToo : T_Base { };
class T_Nowhere : T_Base { uint32 DoIt(); };
[Association] class T_Link { [Key] T_Base REF Left; [Key] T_Base REF Right; string Label; };
[Association] class T_ServedLink { [Key] T_Served REF Server; [Key] T_Stored REF Client; };
[Association] class T_SubLink : T_Link { };

instance of T_Stored as $One { Id = "one"; Text = "first"; };
instance of T_Stored as $Two { Id = "two"; Number = 2; };
instance of T_Base as $Base { Id = "base"; };
instance of T_Link { Left = $One; Right = $Two; Label = "1-2"; };
instance of T_SubLink { Left = $Base; Right = $One; Label = "b-1"; };
instance of T_Link { Left = $One; Right = "T_Stored.Id=\"gone\""; };
)mof";

const char* const one = "T_Stored.Id=\"one\"";
const char* const served = "T_Served.Id=\"s\"";

std::string utf8(const String& text) {
    return static_cast<const char*>(text.getCString());
}

CIMObjectPath path(const char* text) {
    return CIMObjectPath(String(text));
}

/// "STATUS TEXT" of the CIMException that the action throws.
template <class Action>
std::string refusal(Action action) {
    try {
        action();
    } catch (const CIMException& refusal) {
        return std::to_string(refusal.getCode()) + " " + utf8(refusal.getMessage());
    }
    return "no exception";
}

std::set<std::string> texts(const Array<CIMObjectPath>& paths) {
    std::set<std::string> result;
    for (Uint32 index = 0; index < paths.size(); ++index) {
        result.insert(utf8(paths[index].toString()));
    }
    return result;
}

std::set<std::string> pathsOf(const Array<CIMInstance>& instances) {
    std::set<std::string> result;
    for (Uint32 index = 0; index < instances.size(); ++index) {
        result.insert(utf8(instances[index].getPath().toString()));
    }
    return result;
}

CIMPropertyList properties(const std::vector<const char*>& names) {
    Array<CIMName> list;
    for (const char* const name : names) {
        list.append(CIMName(name));
    }
    return CIMPropertyList(list);
}

/// A path with two keys that are references.
CIMObjectPath linkPath(const char* className, const char* left, const char* leftPath,
                       const char* right, const char* rightPath) {
    Array<Pegasus::CIMKeyBinding> keys;
    keys.append(Pegasus::CIMKeyBinding(CIMName(left), CIMValue(path(leftPath))));
    keys.append(Pegasus::CIMKeyBinding(CIMName(right), CIMValue(path(rightPath))));
    return CIMObjectPath(String(), CIMNamespaceName(), CIMName(className), keys);
}

class DispatcherTest : public testing::Test {
protected:
    DispatcherTest() {
        MofReader reader(schema_, repository_,
                         [](const std::string&) { return std::string(schemaText); });
        reader.readFile("test.mof", nameSpace_);
        routes_.add(nameSpace_, "T_Served", ProviderRoutes::Methods::served, provider_);
        routes_.add(nameSpace_, "T_ServedToo", ProviderRoutes::Methods::none, provider_);
        routes_.add(nameSpace_, "T_ServedLink", ProviderRoutes::Methods::none, provider_);

        CIMInstance instance("T_Served");
        instance.addProperty(CIMProperty(CIMName("Id"), CIMValue(String("s"))));
        instance.addProperty(CIMProperty(CIMName("Text"), CIMValue(String("served"))));
        instance.setPath(path(served));
        script_.instances["T_Served"].push_back(instance);
    }

    /// Gives the provider an association instance as the library makes them: string keys that hold
    /// path text.
    void serveLink(const char* server, const char* client) {
        CIMInstance link("T_ServedLink");
        link.addProperty(
            CIMProperty(CIMName("Server"), CIMValue(path(server)), 0, CIMName("T_Served")));
        link.addProperty(
            CIMProperty(CIMName("Client"), CIMValue(path(client)), 0, CIMName("T_Stored")));
        Array<Pegasus::CIMKeyBinding> keys;
        keys.append(Pegasus::CIMKeyBinding(CIMName("Server"), CIMValue(String(server))));
        keys.append(Pegasus::CIMKeyBinding(CIMName("Client"), CIMValue(String(client))));
        link.setPath(CIMObjectPath(String(), CIMNamespaceName(), CIMName("T_ServedLink"), keys));
        script_.instances["T_ServedLink"].push_back(link);
    }

    /// Invokes T_Served.Run with one parameter and returns what reached the provider.
    CIMParamValue parameterSeen(const char* name, const CIMValue& value, bool isTyped = false) {
        CIMParamValue seen;
        script_.method = [&](auto&, const String&, const auto& in, auto&, auto&) { seen = in[0]; };
        Array<CIMParamValue> parameters;
        parameters.append(CIMParamValue(name, value, isTyped));
        dispatcher_.invokeMethod(nameSpace_, path(served), "Run", parameters);
        return seen;
    }

    const CIMNamespaceName nameSpace_{"root/test"};
    Schema schema_;
    Repository repository_{schema_};
    ProviderRoutes routes_;
    Dispatcher dispatcher_{schema_, repository_, routes_, String("box")};
    ScriptedProvider::Script script_;
    serving::ProviderLocks locks_;
    serving::ServedProvider provider_{std::make_unique<ScriptedProvider>(script_), locks_,
                                      std::make_shared<HostConnection>(dispatcher_)};
};

TEST_F(DispatcherTest, UnknownNamespacesAndClassesAreNamed) {
    const CIMNamespaceName nowhere("root/nowhere");
    const CIMObjectPath unknown = path("T_Nope.Id=\"x\"");
    EXPECT_EQ(refusal([&] { dispatcher_.getInstance(nowhere, unknown, {}); }), "3 root/nowhere");
    EXPECT_EQ(refusal([&] { dispatcher_.getInstance(nameSpace_, unknown, {}); }), "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateInstances(nameSpace_, "T_Nope", true, {}); }),
              "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateInstanceNames(nameSpace_, "T_Nope"); }),
              "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.createInstance(nameSpace_, CIMInstance("T_Nope")); }),
              "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.deleteInstance(nameSpace_, unknown); }), "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.getClass(nameSpace_, "T_Nope", {}); }), "6 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.getClass(nowhere, "T_Base", {}); }), "3 root/nowhere");
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateClassNames(nowhere, CIMName(), true); }),
              "3 root/nowhere");
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateClassNames(nameSpace_, "T_Nope", true); }),
              "5 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.invokeMethod(nameSpace_, unknown, "Run", {}); }),
              "6 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.invokeMethod(nowhere, unknown, "Run", {}); }),
              "3 root/nowhere");
    EXPECT_EQ(refusal([&] { dispatcher_.associatorNames(nameSpace_, unknown, {}); }), "4 T_Nope");
    EXPECT_EQ(refusal([&] { dispatcher_.referenceNames(nowhere, unknown, {}); }), "3 root/nowhere");
}

TEST_F(DispatcherTest, AProvidersInstanceComesFromTheProviderWithHostAndNamespaceInItsPath) {
    const CIMInstance instance =
        dispatcher_.getInstance(nameSpace_, path("//elsewhere/root/x:t_served.Id=\"s\""), {});
    EXPECT_EQ(instance.getProperty(instance.findProperty(CIMName("Text"))).getValue(),
              CIMValue(String("served")));
    ASSERT_EQ(script_.pathsSeen.size(), 1U);
    EXPECT_EQ(script_.pathsSeen[0], "//box/root/test:t_served.Id=\"s\"");
}

TEST_F(DispatcherTest, AMissingInstanceIsNotFound) {
    EXPECT_EQ(
        refusal([&] { dispatcher_.getInstance(nameSpace_, path("T_Stored.Id=\"missing\""), {}); }),
        "6 T_Stored.Id=\"missing\"");
    EXPECT_EQ(refusal([&] { dispatcher_.getInstance(nameSpace_, path("T_Base.Id=\"one\""), {}); }),
              "6 T_Base.Id=\"one\"")
        << "an instance of a subclass is not found under the superclass' name";
}

TEST_F(DispatcherTest, EnumeratingASuperclassAsksEverySource) {
    const std::set<std::string> all = {"T_Base.Id=\"base\"", "T_Stored.Id=\"two\"", one, served};
    EXPECT_EQ(texts(dispatcher_.enumerateInstanceNames(nameSpace_, "T_Base")), all);
    EXPECT_EQ(pathsOf(dispatcher_.enumerateInstances(nameSpace_, "T_Base", true, {})), all);
}

TEST_F(DispatcherTest, OneSourcesErrorFailsTheEnumeration) {
    script_.enumerationErrors["T_ServedToo"] = Pegasus::CIM_ERR_ACCESS_DENIED;
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateInstanceNames(nameSpace_, "T_Base"); }),
              "2 scripted");
}

TEST_F(DispatcherTest, NotSupportedIsDroppedWhereAnotherSourceAnswers) {
    script_.enumerationErrors["T_ServedToo"] = Pegasus::CIM_ERR_NOT_SUPPORTED;
    EXPECT_EQ(dispatcher_.enumerateInstanceNames(nameSpace_, "T_Base").size(), 4U);
    EXPECT_EQ(refusal([&] { dispatcher_.enumerateInstanceNames(nameSpace_, "T_ServedToo"); }),
              "7 scripted")
        << "there is no other source";
}

TEST_F(DispatcherTest, ThePropertyListIsAppliedToProviderInstancesToo) {
    ElementOptions options;
    options.propertyList = properties({"text", "Unknown"});
    for (const char* const name : {served, one}) {
        const CIMInstance instance = dispatcher_.getInstance(nameSpace_, path(name), options);
        ASSERT_EQ(instance.getPropertyCount(), 1U) << name;
        EXPECT_EQ(instance.getProperty(0).getName(), CIMName("Text"));
    }
    options.propertyList = properties({});
    EXPECT_EQ(dispatcher_.getInstance(nameSpace_, path(served), options).getPropertyCount(), 0U);
}

TEST_F(DispatcherTest, LocalOnlyTakesNothingAway) {
    ElementOptions options;
    options.localOnly = true;
    EXPECT_EQ(dispatcher_.getInstance(nameSpace_, path(served), options).getPropertyCount(), 2U);
    EXPECT_EQ(dispatcher_.getInstance(nameSpace_, path(one), options).getPropertyCount(), 3U);
}

TEST_F(DispatcherTest, WithoutDeepInheritanceOnlyPropertiesOfTheClassAskedForRemain) {
    script_.instances["T_Served"][0].addProperty(
        CIMProperty(CIMName("Number"), CIMValue(Uint16(3))));
    const auto shallow = dispatcher_.enumerateInstances(nameSpace_, "T_Base", false, {});
    ASSERT_EQ(shallow.size(), 4U);
    for (Uint32 index = 0; index < shallow.size(); ++index) {
        EXPECT_EQ(shallow[index].getPropertyCount(), 2U);
        EXPECT_EQ(shallow[index].findProperty(CIMName("Number")), PEG_NOT_FOUND);
    }
    ElementOptions options;
    options.propertyList = properties({"Number", "Id"});
    const auto listed = dispatcher_.enumerateInstances(nameSpace_, "T_Base", false, options);
    for (Uint32 index = 0; index < listed.size(); ++index) {
        EXPECT_EQ(listed[index].getPropertyCount(), 1U);
    }
}

TEST_F(DispatcherTest, ClassOriginsAreLeftOutUnlessAskedFor) {
    const CIMInstance bare = dispatcher_.getInstance(nameSpace_, path(one), {});
    EXPECT_TRUE(bare.getProperty(0).getClassOrigin().isNull());
    ElementOptions options;
    options.includeClassOrigin = true;
    const CIMInstance instance = dispatcher_.getInstance(nameSpace_, path(one), options);
    EXPECT_EQ(instance.getProperty(instance.findProperty(CIMName("Id"))).getClassOrigin(),
              CIMName("T_Base"));
}

TEST_F(DispatcherTest, ChangesReachTheRepository) {
    CIMInstance instance("T_Stored");
    instance.addProperty(CIMProperty(CIMName("Id"), CIMValue(String("new"))));
    EXPECT_EQ(dispatcher_.createInstance(nameSpace_, instance).toString(),
              String("T_Stored.Id=\"new\""));
    EXPECT_EQ(refusal([&] { dispatcher_.createInstance(nameSpace_, instance); }),
              "11 T_Stored.Id=\"new\"");

    CIMInstance changes("T_Stored");
    changes.setPath(path("T_Stored.Id=\"new\""));
    changes.addProperty(CIMProperty(CIMName("Number"), CIMValue(Uint16(9))));
    dispatcher_.modifyInstance(nameSpace_, changes, CIMPropertyList());
    EXPECT_EQ(dispatcher_.getProperty(nameSpace_, changes.getPath(), "number"),
              CIMValue(Uint16(9)));
    EXPECT_EQ(refusal([&] { dispatcher_.getProperty(nameSpace_, changes.getPath(), "Nope"); }),
              "12 Nope");

    dispatcher_.deleteInstance(nameSpace_, changes.getPath());
    EXPECT_EQ(refusal([&] { dispatcher_.deleteInstance(nameSpace_, changes.getPath()); }),
              "6 T_Stored.Id=\"new\"");
}

TEST_F(DispatcherTest, ChangesOfAProvidersClassReachTheProvider) {
    CIMInstance instance("T_Served");
    EXPECT_EQ(refusal([&] { dispatcher_.createInstance(nameSpace_, instance); }), "7 create");
    instance.setPath(path(served));
    EXPECT_EQ(refusal([&] { dispatcher_.modifyInstance(nameSpace_, instance, {}); }), "7 modify");
    EXPECT_EQ(refusal([&] { dispatcher_.deleteInstance(nameSpace_, path(served)); }), "7 delete");
    EXPECT_EQ(script_.pathsSeen, (std::vector<std::string>{"//box/root/test:T_Served",
                                                           "//box/root/test:T_Served.Id=\"s\"",
                                                           "//box/root/test:T_Served.Id=\"s\""}));
}

TEST_F(DispatcherTest, ClassesAreShownAsAskedFor) {
    ElementOptions everything;
    everything.includeQualifiers = true;
    everything.includeClassOrigin = true;
    const wire::ClassDefinition whole = dispatcher_.getClass(nameSpace_, "t_stored", everything);
    EXPECT_EQ(whole.name, CIMName("T_Stored"));
    EXPECT_EQ(whole.properties.size(), 3U);
    EXPECT_EQ(whole.qualifiers.size(), 1U);
    EXPECT_EQ(whole.findProperty("Id")->classOrigin, CIMName("T_Base"));
    EXPECT_TRUE(whole.findProperty("Id")->isKey());

    ElementOptions localOnly;
    localOnly.localOnly = true;
    const wire::ClassDefinition bare = dispatcher_.getClass(nameSpace_, "T_Stored", localOnly);
    ASSERT_EQ(bare.properties.size(), 1U);
    EXPECT_EQ(bare.properties[0].name, CIMName("Number"));
    EXPECT_TRUE(bare.properties[0].classOrigin.isNull());
    EXPECT_TRUE(bare.qualifiers.empty());

    ElementOptions listed;
    listed.propertyList = properties({"Text"});
    EXPECT_EQ(dispatcher_.getClass(nameSpace_, "T_Stored", listed).properties.size(), 1U);
}

TEST_F(DispatcherTest, SubclassesAreEnumerated) {
    EXPECT_EQ(dispatcher_.enumerateClassNames(nameSpace_, "T_Base", false).size(), 4U);
    EXPECT_EQ(dispatcher_.enumerateClassNames(nameSpace_, CIMName(), false).size(), 3U);
    EXPECT_EQ(dispatcher_.enumerateClassNames(nameSpace_, CIMName(), true).size(), 8U);
    const auto classes = dispatcher_.enumerateClasses(nameSpace_, "T_Link", true, {});
    ASSERT_EQ(classes.size(), 1U);
    EXPECT_EQ(classes[0].name, CIMName("T_SubLink"));
}

TEST_F(DispatcherTest, AssociatorsComeFromRepositoryAndProvider) {
    serveLink(served, one);
    EXPECT_EQ(texts(dispatcher_.associatorNames(nameSpace_, path(one), {})),
              (std::set<std::string>{
                  "//box/root/test:T_Stored.Id=\"two\"", "//box/root/test:T_Base.Id=\"base\"",
                  "//box/root/test:T_Stored.Id=\"gone\"", "//box/root/test:T_Served.Id=\"s\""}));
    EXPECT_EQ(pathsOf(dispatcher_.associators(nameSpace_, path(one), {}, {})),
              (std::set<std::string>{"//box/root/test:T_Stored.Id=\"two\"",
                                     "//box/root/test:T_Base.Id=\"base\"",
                                     "//box/root/test:T_Served.Id=\"s\""}))
        << "what has gone is left out";
    EXPECT_EQ(texts(dispatcher_.associatorNames(nameSpace_,
                                                path("//host/root/test:T_Served.Id=\"s\""), {})),
              std::set<std::string>{"//box/root/test:T_Stored.Id=\"one\""});
}

TEST_F(DispatcherTest, AssociatorsAreFiltered) {
    const auto found = [&](const char* assocClass, const char* resultClass, const char* role,
                           const char* resultRole) {
        AssociationFilter filter;
        filter.assocClass = *assocClass == '\0' ? CIMName() : CIMName(assocClass);
        filter.resultClass = *resultClass == '\0' ? CIMName() : CIMName(resultClass);
        filter.role = role;
        filter.resultRole = resultRole;
        return dispatcher_.associatorNames(nameSpace_, path(one), filter).size();
    };
    EXPECT_EQ(found("T_Link", "", "", ""), 3U) << "subclasses of the association count";
    EXPECT_EQ(found("T_SubLink", "", "", ""), 1U);
    EXPECT_EQ(found("", "T_Stored", "", ""), 2U);
    EXPECT_EQ(found("", "T_Base", "", ""), 3U) << "subclasses of the result class count";
    EXPECT_EQ(found("", "", "left", ""), 2U) << "roles are compared without case";
    EXPECT_EQ(found("", "", "Right", "Left"), 1U);
    EXPECT_EQ(found("", "", "Bogus", ""), 0U);
    EXPECT_EQ(found("", "", "", "Bogus"), 0U);
    EXPECT_EQ(refusal([&] { found("T_Nope", "", "", ""); }), "4 T_Nope");
    EXPECT_EQ(refusal([&] { found("", "T_Nope", "", ""); }), "5 T_Nope")
        << "another status than for the association, as OpenPegasus has it";
}

TEST_F(DispatcherTest, ReferencesComeFromRepositoryAndProvider) {
    serveLink(served, one);
    EXPECT_EQ(dispatcher_.referenceNames(nameSpace_, path(one), {}).size(), 4U);
    AssociationFilter filter;
    filter.resultClass = CIMName("T_ServedLink");
    const auto links = dispatcher_.references(nameSpace_, path(one), filter, {});
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].getPath().getHost(), String("box"));
    EXPECT_EQ(links[0].getPath().getNameSpace(), nameSpace_);
    EXPECT_EQ(links[0].getPropertyCount(), 2U);
    filter.role = "Server";
    EXPECT_EQ(dispatcher_.references(nameSpace_, path(one), filter, {}).size(), 0U);
}

TEST_F(DispatcherTest, AProviderIsNotAskedAboutObjectsThatCannotStandInItsAssociation) {
    dispatcher_.referenceNames(nameSpace_, path("T_Base.Id=\"base\""), {});
    EXPECT_TRUE(script_.pathsSeen.empty());
}

TEST_F(DispatcherTest, AClassIsAssociatedWithTheClassesThatItsAssociationsDeclare) {
    EXPECT_EQ(texts(dispatcher_.associatorNames(nameSpace_, path("T_Stored"), {})),
              (std::set<std::string>{"//box/root/test:T_Base", "//box/root/test:T_Served"}));
    EXPECT_EQ(texts(dispatcher_.referenceNames(nameSpace_, path("T_Stored"), {})),
              (std::set<std::string>{"//box/root/test:T_Link", "//box/root/test:T_SubLink",
                                     "//box/root/test:T_ServedLink"}));
    EXPECT_EQ(refusal([&] { dispatcher_.associators(nameSpace_, path("T_Stored"), {}, {}); }),
              "7 only the names of what is associated with a class are offered");
    EXPECT_EQ(refusal([&] { dispatcher_.references(nameSpace_, path("T_Stored"), {}, {}); }),
              "7 only the names of what is associated with a class are offered");
}

TEST_F(DispatcherTest, AnAssociationInstanceIsFoundHoweverItsKeysAreSpelt) {
    serveLink(served, one);
    EXPECT_NO_THROW(dispatcher_.getInstance(
        nameSpace_,
        linkPath("T_ServedLink", "Server", "//h/root/test:T_Served.Id=\"s\"", "Client", one), {}));
    EXPECT_NO_THROW(dispatcher_.getInstance(
        nameSpace_,
        linkPath("T_Link", "Left", "//localhost/root/test:T_Stored.Id=\"one\"", "Right",
                 "//localhost/root/test:T_Stored.Id=\"two\""),
        {}));
}

TEST_F(DispatcherTest, AMethodAnswersWithValueAndOutParameters) {
    script_.method = [](auto&, const String& method, const auto&, auto& out, auto& handler) {
        out.append(CIMParamValue("Echo", CIMValue(method), true));
        handler.deliver(CIMValue(Uint32(5)));
    };
    const wire::MethodResult result = dispatcher_.invokeMethod(nameSpace_, path(served), "rUN", {});
    EXPECT_EQ(result.returnValue, CIMValue(Uint32(5)));
    ASSERT_EQ(result.outParameters.size(), 1U);
    EXPECT_EQ(result.outParameters[0].getValue(), CIMValue(String("rUN")));
}

TEST_F(DispatcherTest, AnUndeclaredMethodReachesTheProvider) {
    script_.method = [](auto&, const String&, const auto&, auto&, auto&) {};
    const wire::MethodResult result =
        dispatcher_.invokeMethod(nameSpace_, path(served), "Nope", {});
    EXPECT_FALSE(result.returnValue.has_value());
    EXPECT_EQ(script_.pathsSeen.size(), 1U);
}

TEST_F(DispatcherTest, AMethodWithoutProviderIsNotAvailable) {
    EXPECT_EQ(refusal([&] {
                  dispatcher_.invokeMethod(nameSpace_, path("T_Nowhere.Id=\"x\""), "DoIt", {});
              }),
              "16 DoIt");
    EXPECT_EQ(refusal([&] {
                  dispatcher_.invokeMethod(nameSpace_, path("T_ServedToo.Id=\"x\""), "DoIt", {});
              }),
              "16 DoIt")
        << "a provider of instances only";
}

TEST_F(DispatcherTest, UntypedParametersGetTheirDeclaredType) {
    const CIMParamValue number = parameterSeen("n", CIMValue(String("0x10")));
    EXPECT_EQ(number.getValue(), CIMValue(Uint16(16)));
    EXPECT_TRUE(number.isTyped());
    EXPECT_EQ(number.getParameterName(), String("n")) << "the client's spelling stays";
    EXPECT_EQ(parameterSeen("Flag", CIMValue(String("true"))).getValue(),
              CIMValue(Pegasus::Boolean(true)));
    EXPECT_EQ(
        parameterSeen("When", CIMValue(String("00000001020304.000005:000"))).getValue().getType(),
        Pegasus::CIMTYPE_DATETIME);
    Array<String> strings;
    strings.append("1");
    strings.append("2");
    Array<Uint16> numbers;
    numbers.append(1);
    numbers.append(2);
    EXPECT_EQ(parameterSeen("List", CIMValue(strings)).getValue(), CIMValue(numbers));
    const CIMValue null =
        parameterSeen("List", CIMValue(Pegasus::CIMTYPE_STRING, false)).getValue();
    EXPECT_TRUE(null.isNull());
    EXPECT_TRUE(null.isArray());
    EXPECT_EQ(null.getType(), Pegasus::CIMTYPE_UINT16);
}

TEST_F(DispatcherTest, ReferenceParametersGetTheNamespaceOfTheRequest) {
    const CIMParamValue bare = parameterSeen("Element", CIMValue(path(one)));
    EXPECT_EQ(bare.getValue(), CIMValue(path("root/test:T_Stored.Id=\"one\"")));
    EXPECT_TRUE(bare.isTyped());
    const CIMValue full(path("//h/root/x:T_Stored.Id=\"one\""));
    EXPECT_EQ(parameterSeen("Element", full, true).getValue(), full);
}

TEST_F(DispatcherTest, AnUnknownUntypedParameterStaysUntyped) {
    const CIMParamValue seen = parameterSeen("Nope", CIMValue(String("x")));
    EXPECT_FALSE(seen.isTyped());
    EXPECT_EQ(seen.getValue(), CIMValue(String("x")));
}

TEST_F(DispatcherTest, ATypedParameterIsTakenAsItIs) {
    EXPECT_EQ(parameterSeen("N", CIMValue(String("x")), true).getValue(), CIMValue(String("x")));
}

TEST_F(DispatcherTest, ParametersThatDoNotFitTheirDeclarationAreRefused) {
    const auto given = [&](const char* name, const CIMValue& value) {
        return refusal([&] { parameterSeen(name, value); });
    };
    Array<String> list;
    list.append("x");
    EXPECT_EQ(given("N", CIMValue(String("seven"))), "4 Malformed uint16 value");
    EXPECT_EQ(given("N", CIMValue(String("70000"))), "4 Malformed uint16 value");
    EXPECT_EQ(given("List", CIMValue(list)), "4 Malformed uint16 value");
    EXPECT_EQ(given("When", CIMValue(String("now"))), "4 Malformed datetime value");
    EXPECT_EQ(given("Element", CIMValue(String("no path"))), "4 Malformed reference value");
    EXPECT_EQ(given("Element", CIMValue(String("word"))), "4 Malformed reference value");
    EXPECT_EQ(given("Element", CIMValue(String(one))), "4 Malformed reference value")
        << "a path as text";
    EXPECT_EQ(given("List", CIMValue(String("1"))), "13 List") << "a single value for an array";
    EXPECT_EQ(given("N", CIMValue(list)), "13 N") << "an array for a single value";
    EXPECT_EQ(given("N", CIMValue(path(one))), "13 N") << "a reference for a number";
}

TEST_F(DispatcherTest, CallsBackAreAnsweredFromRepositoryAndProvider) {
    script_.method = [this](Pegasus::CIMOMHandle& handle, const String&, const auto&, auto& out,
                            auto& handler) {
        const Pegasus::OperationContext context;
        const auto names = handle.enumerateInstanceNames(context, nameSpace_, "T_Base");
        out.append(CIMParamValue("Names", CIMValue(Uint32(names.size())), true));
        for (const char* const name : {one, served}) {
            const CIMInstance found = handle.getInstance(context, nameSpace_, path(name), false,
                                                         false, false, CIMPropertyList());
            out.append(CIMParamValue(
                "Text", found.getProperty(found.findProperty(CIMName("Text"))).getValue(), true));
        }
        handler.deliver(CIMValue(Uint32(0)));
    };
    const wire::MethodResult result = dispatcher_.invokeMethod(nameSpace_, path(served), "Run", {});
    ASSERT_EQ(result.outParameters.size(), 3U);
    EXPECT_EQ(result.outParameters[0].getValue(), CIMValue(Uint32(4)));
    EXPECT_EQ(result.outParameters[1].getValue(), CIMValue(String("first")));
    EXPECT_EQ(result.outParameters[2].getValue(), CIMValue(String("served")));
}

}  // namespace
}  // namespace cimhost
