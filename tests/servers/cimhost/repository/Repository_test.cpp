// SPDX-License-Identifier: MIT
// The repository keeps instances as OpenPegasus' repository was seen to keep them.
#include "servers/cimhost/repository/Repository.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include "servers/cimhost/repository/InstanceForms.h"

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMException;
using Pegasus::CIMInstance;
using Pegasus::CIMKeyBinding;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMProperty;
using Pegasus::CIMPropertyList;
using Pegasus::CIMValue;
using Pegasus::String;
using Pegasus::Uint16;
using Pegasus::Uint32;

wire::Qualifier flag(const char* name) {
    return wire::Qualifier{CIMName(name), CIMValue(Pegasus::Boolean(true)), {}, false};
}

wire::PropertyDefinition property(const char* name, Pegasus::CIMType type, bool isKey = false) {
    wire::PropertyDefinition definition;
    definition.name = CIMName(name);
    definition.type = type;
    definition.defaultValue = CIMValue(type, false);
    if (isKey) {
        definition.qualifiers.push_back(flag("Key"));
    }
    return definition;
}

CIMObjectPath path(const char* text) {
    return CIMObjectPath(String(text));
}

/// A path with one numeric key of that text.
CIMObjectPath numberPath(const char* text) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(CIMName("a"), String(text), CIMKeyBinding::NUMERIC));
    return CIMObjectPath(String(), Pegasus::CIMNamespaceName(), CIMName("C"), keys);
}

template <class Action>
std::string refusal(Action action) {
    try {
        action();
    } catch (const CIMException& refusal) {
        return std::to_string(refusal.getCode()) + " " +
               static_cast<const char*>(refusal.getMessage().getCString());
    }
    return "no exception";
}

class RepositoryTest : public testing::Test {
protected:
    RepositoryTest() {
        schema_.addNamespace(nameSpace_);
        wire::ClassDefinition thing;
        thing.name = CIMName("T_Thing");
        thing.properties = {property("Id", Pegasus::CIMTYPE_UINT32, true),
                            property("Name", Pegasus::CIMTYPE_STRING, true),
                            property("Size", Pegasus::CIMTYPE_UINT16),
                            property("Note", Pegasus::CIMTYPE_STRING)};
        thing.properties[2].defaultValue = CIMValue(Uint16(4));
        schema_.addClass(nameSpace_, thing);
        wire::ClassDefinition abstract;
        abstract.name = CIMName("T_Abstract");
        abstract.qualifiers = {flag("Abstract")};
        schema_.addClass(nameSpace_, abstract);
    }

    static CIMInstance thing(Uint32 id, const char* name) {
        CIMInstance instance("t_thing");
        instance.addProperty(CIMProperty(CIMName("note"), CIMValue(String("a note"))));
        instance.addProperty(CIMProperty(CIMName("id"), CIMValue(id)));
        instance.addProperty(CIMProperty(CIMName("Name"), CIMValue(String(name))));
        return instance;
    }

    CIMValue value(const char* thingPath, const char* name) const {
        const CIMInstance instance = repository_.getInstance(nameSpace_, path(thingPath));
        return instance.getProperty(instance.findProperty(CIMName(name))).getValue();
    }

    const Pegasus::CIMNamespaceName nameSpace_{"root/test"};
    Schema schema_;
    Repository repository_{schema_};
};

TEST_F(RepositoryTest, ANewInstanceGetsTheDefaultsOfItsClass) {
    EXPECT_EQ(repository_.createInstance(nameSpace_, thing(42, "a")).toString(),
              String("T_Thing.Id=42,Name=\"a\""));
    const CIMInstance stored =
        repository_.getInstance(nameSpace_, path("T_Thing.Id=42,Name=\"a\""));
    ASSERT_EQ(stored.getPropertyCount(), 4U);
    EXPECT_EQ(stored.getProperty(0).getName().getString(), String("Size"))
        << "what was not given comes first";
    EXPECT_EQ(stored.getProperty(0).getValue(), CIMValue(Uint16(4)));
    EXPECT_TRUE(stored.getProperty(0).getPropagated());
    EXPECT_EQ(stored.getProperty(1).getName().getString(), String("Note")) << "the class' spelling";
    EXPECT_FALSE(stored.getProperty(1).getPropagated());
    EXPECT_EQ(stored.getProperty(1).getClassOrigin(), CIMName("T_Thing"));
}

TEST_F(RepositoryTest, KeysAreComparedByTypeAndValue) {
    repository_.createInstance(nameSpace_, thing(42, "a"));
    const auto found = [&](const char* text) {
        return refusal([&] { repository_.getInstance(nameSpace_, path(text)); }) == "no exception";
    };
    EXPECT_TRUE(found("T_THING.NAME=\"a\",ID=42")) << "names in any case, keys in any order";
    EXPECT_TRUE(found("T_Thing.Id=0x2a,Name=\"a\"")) << "numbers by value";
    EXPECT_TRUE(found("//host/root/other:T_Thing.Id=42,Name=\"a\""))
        << "wherever it is said to lie";
    EXPECT_FALSE(found("T_Thing.Id=\"42\",Name=\"a\"")) << "a string is no number";
    EXPECT_FALSE(found("T_Thing.Id=42,Name=\"A\"")) << "strings with case";
    EXPECT_FALSE(found("T_Thing.Id=42")) << "a key is missing";
    EXPECT_FALSE(found("T_Thing.Id=42,Name=\"a\",Size=4")) << "a key too many";
    EXPECT_FALSE(found("T_Thing")) << "no keys";
}

TEST_F(RepositoryTest, IdentitiesOfDifferentKeysDiffer) {
    EXPECT_NE(instanceIdentity(path("C.a=\"x\",b=\"y\"")),
              instanceIdentity(path("C.a=\"x\nbs1:y\"")));
    EXPECT_NE(instanceIdentity(path("C.a=TRUE")), instanceIdentity(path("C.a=\"TRUE\"")));
    EXPECT_EQ(instanceIdentity(path("C.a=TRUE")), instanceIdentity(path("c.A=true")));
    EXPECT_EQ(instanceIdentity(path("L.r=\"C.k=\\\"v\\\"\"")),
              instanceIdentity(path("L.r=\"//h/root/x:c.K=\\\"v\\\"\"")));
    EXPECT_NE(instanceIdentity(path("L.r=\"C.k=\\\"v\\\"\"")),
              instanceIdentity(path("L.r=\"C.k=\\\"V\\\"\"")));
    EXPECT_EQ(instanceIdentity(numberPath("-0")), instanceIdentity(path("C.a=0")));
    EXPECT_NE(instanceIdentity(numberPath("no number")), instanceIdentity(path("C.a=0")));
    EXPECT_NE(instanceIdentity(numberPath("99999999999999999999")),
              instanceIdentity(numberPath("99999999999999999998")))
        << "beyond 64 bits the text counts";
}

TEST_F(RepositoryTest, WhatDoesNotFitTheClassIsRefused) {
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, CIMInstance("T_Nope")); }),
              "5 T_Nope");
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, CIMInstance("T_Abstract")); }),
              "4 the class T_Abstract is abstract");
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, CIMInstance("T_Thing")); }),
              "4 the key Id has no value");
    CIMInstance extra = thing(1, "x");
    extra.addProperty(CIMProperty(CIMName("Nope"), CIMValue(String("x"))));
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, extra); }),
              "1 no such property: Nope");
    CIMInstance mistyped = thing(1, "x");
    mistyped.addProperty(CIMProperty(CIMName("Size"), CIMValue(String("x"))));
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, mistyped); }),
              "1 type mismatch");
    EXPECT_EQ(repository_.enumerateInstances(nameSpace_, "T_Thing").size(), 0U);
}

TEST_F(RepositoryTest, TheSameKeysAreThereOnlyOnce) {
    repository_.createInstance(nameSpace_, thing(1, "a"));
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, thing(1, "a")); }),
              "11 T_Thing.Id=1,Name=\"a\"");
    EXPECT_EQ(repository_.enumerateInstanceNames(nameSpace_, "T_Thing").size(), 1U);
}

TEST_F(RepositoryTest, GivenPropertiesAreChangedTheOthersStay) {
    repository_.createInstance(nameSpace_, thing(1, "a"));
    const char* const name = "T_Thing.Id=1,Name=\"a\"";
    CIMInstance changes("T_Thing");
    changes.addProperty(CIMProperty(CIMName("size"), CIMValue(Uint16(9))));
    changes.addProperty(CIMProperty(CIMName("Note"), CIMValue(Pegasus::CIMTYPE_STRING, false)));
    repository_.modifyInstance(nameSpace_, path(name), changes, CIMPropertyList());
    EXPECT_EQ(value(name, "Size"), CIMValue(Uint16(9)));
    EXPECT_TRUE(value(name, "Note").isNull());
    EXPECT_EQ(value(name, "Id"), CIMValue(Uint32(1)));
}

TEST_F(RepositoryTest, OnlyPropertiesOfTheListAreChanged) {
    repository_.createInstance(nameSpace_, thing(1, "a"));
    const char* const name = "T_Thing.Id=1,Name=\"a\"";
    CIMInstance changes("T_Thing");
    changes.addProperty(CIMProperty(CIMName("Size"), CIMValue(Uint16(9))));
    changes.addProperty(CIMProperty(CIMName("Note"), CIMValue(String("changed"))));
    Array<CIMName> list;
    list.append("SIZE");
    repository_.modifyInstance(nameSpace_, path(name), changes, CIMPropertyList(list));
    EXPECT_EQ(value(name, "Size"), CIMValue(Uint16(9)));
    EXPECT_EQ(value(name, "Note"), CIMValue(String("a note")));
}

TEST_F(RepositoryTest, ARefusedChangeChangesNothing) {
    repository_.createInstance(nameSpace_, thing(1, "a"));
    const char* const name = "T_Thing.Id=1,Name=\"a\"";
    const auto change = [&](const CIMProperty& bad) {
        CIMInstance changes("T_Thing");
        changes.addProperty(CIMProperty(CIMName("Size"), CIMValue(Uint16(9))));
        changes.addProperty(bad);
        return refusal([&] {
            repository_.modifyInstance(nameSpace_, path(name), changes, CIMPropertyList());
        });
    };
    EXPECT_EQ(change(CIMProperty(CIMName("Nope"), CIMValue(Uint16(1)))), "12 Nope");
    EXPECT_EQ(change(CIMProperty(CIMName("Note"), CIMValue(Uint16(1)))), "1 type mismatch");
    EXPECT_EQ(change(CIMProperty(CIMName("Id"), CIMValue(Uint32(2)))),
              "7 the key Id of an instance cannot be changed");
    EXPECT_EQ(value(name, "Size"), CIMValue(Uint16(4)));
    EXPECT_EQ(change(CIMProperty(CIMName("Id"), CIMValue(Uint32(1)))), "no exception")
        << "the same key as before";
}

TEST_F(RepositoryTest, WhatIsHandedOutIsTheCallersOwn) {
    CIMInstance given = thing(1, "a");
    repository_.createInstance(nameSpace_, given);
    const char* const name = "T_Thing.Id=1,Name=\"a\"";
    given.getProperty(0).setValue(CIMValue(String("changed outside")));
    CIMInstance fetched = repository_.getInstance(nameSpace_, path(name));
    fetched.getProperty(fetched.findProperty(CIMName("Note")))
        .setValue(CIMValue(String("changed outside")));
    CIMInstance listed = repository_.enumerateInstances(nameSpace_, "T_Thing")[0];
    listed.getProperty(listed.findProperty(CIMName("Note")))
        .setValue(CIMValue(String("changed outside")));
    EXPECT_EQ(value(name, "Note"), CIMValue(String("a note")));
}

TEST_F(RepositoryTest, ADeletedInstanceIsGoneAndMakesRoom) {
    repository_.createInstance(nameSpace_, thing(1, "a"));
    repository_.createInstance(nameSpace_, thing(2, "b"));
    repository_.deleteInstance(nameSpace_, path("T_Thing.Id=1,Name=\"a\""));
    EXPECT_EQ(
        refusal([&] { repository_.deleteInstance(nameSpace_, path("T_Thing.Id=1,Name=\"a\"")); }),
        "6 T_Thing.Id=1,Name=\"a\"");
    const auto left = repository_.enumerateInstanceNames(nameSpace_, "T_Thing");
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].toString(), String("T_Thing.Id=2,Name=\"b\""));
    repository_.createInstance(nameSpace_, thing(1, "a"));
}

TEST_F(RepositoryTest, InstancesAreLimitedInNumber) {
    for (Uint32 id = 0; id < Repository::maximumInstances; ++id) {
        repository_.createInstance(nameSpace_, thing(id, "a"));
    }
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, thing(1000000, "a")); }),
              "27 the repository holds as many instances as it may");
    repository_.deleteInstance(nameSpace_, path("T_Thing.Id=7,Name=\"a\""));
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, thing(1000000, "a")); }),
              "no exception");
}

TEST_F(RepositoryTest, KeysAndPathsAreLimitedInLength) {
    const auto created = [&](std::size_t length, char character) {
        const std::string name(length, character);
        return refusal([&] { repository_.createInstance(nameSpace_, thing(1, name.c_str())); });
    };
    EXPECT_EQ(created(4096, 'x'), "no exception");
    EXPECT_EQ(created(4097, 'x'), "27 the key Name is longer than 4096 characters");
    EXPECT_EQ(created(4096, '"'), "27 the path of the instance is longer than 8192 characters");
}

TEST_F(RepositoryTest, InstancesAreLimitedInSize) {
    constexpr Uint32 many = 15;
    const auto noteOf = [](std::size_t bytes) {
        return CIMProperty(CIMName("Note"), CIMValue(String(std::string(bytes / 2, 'x').c_str())));
    };
    const auto large = [&](Uint32 id, std::size_t bytes) {
        CIMInstance instance = thing(id, "a");
        instance.removeProperty(instance.findProperty(CIMName("note")));
        instance.addProperty(noteOf(bytes));
        return instance;
    };
    const auto modified = [&](std::size_t bytes) {
        CIMInstance changes("T_Thing");
        changes.addProperty(noteOf(bytes));
        return refusal([&] {
            repository_.modifyInstance(nameSpace_, path("T_Thing.Id=1,Name=\"a\""), changes,
                                       CIMPropertyList());
        });
    };
    const std::string full = "27 the instances of the repository would take more than 32 MiB";
    constexpr std::size_t share = Repository::maximumBytes / (many + 1);
    for (Uint32 id = 0; id < many; ++id) {
        repository_.createInstance(nameSpace_, large(id, share));
    }
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, large(many, share)); }), full);
    EXPECT_EQ(modified(2 * share), full);
    EXPECT_EQ(value("T_Thing.Id=1,Name=\"a\"", "Note"), noteOf(share).getValue()) << "as it was";
    EXPECT_EQ(modified(2), "no exception");
    EXPECT_EQ(refusal([&] { repository_.createInstance(nameSpace_, large(many, share)); }),
              "no exception");
    EXPECT_EQ(modified(share), full);
    repository_.deleteInstance(nameSpace_, path("T_Thing.Id=0,Name=\"a\""));
    EXPECT_EQ(modified(share), "no exception");
}

TEST_F(RepositoryTest, WhatIsNotThereCannotBeChanged) {
    const CIMObjectPath name = path("T_Thing.Id=1,Name=\"a\"");
    CIMInstance changes("T_Thing");
    changes.addProperty(CIMProperty(CIMName("Nope"), CIMValue(Uint16(9))));
    EXPECT_EQ(
        refusal([&] { repository_.modifyInstance(nameSpace_, name, changes, CIMPropertyList()); }),
        "6 T_Thing.Id=1,Name=\"a\"");
}

TEST_F(RepositoryTest, NobodySeesAnInstanceHalfChanged) {
    const auto noteOf = [](Uint16 size) { return String(std::to_string(size).c_str()); };
    CIMInstance changes("T_Thing");
    changes.addProperty(CIMProperty(CIMName("Size"), CIMValue(Uint16(0))));
    changes.addProperty(CIMProperty(CIMName("Note"), CIMValue(noteOf(0))));
    const CIMObjectPath name = repository_.createInstance(nameSpace_, thing(1, "a"));
    repository_.modifyInstance(nameSpace_, name, changes, CIMPropertyList());
    std::atomic<bool> done{false};
    std::thread changing([&] {
        for (Uint16 size = 1; size < 20'000; ++size) {
            changes.getProperty(0).setValue(CIMValue(size));
            changes.getProperty(1).setValue(CIMValue(noteOf(size)));
            repository_.modifyInstance(nameSpace_, name, changes, CIMPropertyList());
        }
        done = true;
    });
    const auto requireWhole = [&](const CIMInstance& seen) {
        Uint16 size = 0;
        String note;
        seen.getProperty(seen.findProperty(CIMName("Size"))).getValue().get(size);
        seen.getProperty(seen.findProperty(CIMName("Note"))).getValue().get(note);
        ASSERT_EQ(note, noteOf(size));
    };
    while (!done && !HasFailure()) {
        requireWhole(repository_.getInstance(nameSpace_, name));
        requireWhole(repository_.enumerateInstances(nameSpace_, "T_Thing")[0]);
    }
    changing.join();
}

TEST_F(RepositoryTest, ThreadsMayReadAndChangeAtOnce) {
    std::vector<std::thread> threads;
    for (Uint32 number = 0; number < 4; ++number) {
        threads.emplace_back([this, number] {
            for (int round = 0; round < 200; ++round) {
                const CIMObjectPath name =
                    repository_.createInstance(nameSpace_, thing(number, "a"));
                CIMInstance changes("T_Thing");
                changes.addProperty(CIMProperty(CIMName("Size"), CIMValue(Uint16(9))));
                repository_.modifyInstance(nameSpace_, name, changes, CIMPropertyList());
                const auto all = repository_.enumerateInstances(nameSpace_, "T_Thing");
                for (Uint32 index = 0; index < all.size(); ++index) {
                    EXPECT_EQ(all[index].getPropertyCount(), 4U);
                }
                repository_.deleteInstance(nameSpace_, name);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(repository_.enumerateInstances(nameSpace_, "T_Thing").size(), 0U);
}

}  // namespace
}  // namespace cimhost
