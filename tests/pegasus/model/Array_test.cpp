// SPDX-License-Identifier: MIT
#include <memory>
#include <new>
#include <stdexcept>

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/String.h>

#include "tests/pegasus/model/recorded.h"

using modeltest::arrayOf;
using namespace Pegasus;

namespace {

using Numbers = Array<Uint32>;

/// The elements, concatenated.
std::string contents(const Numbers& numbers) {
    std::string result;
    for (Uint32 i = 0; i < numbers.size(); ++i) {
        result += std::to_string(numbers[i]);
    }
    return result;
}

TEST(Array, IsMadeAndAppendedTo) {
    {
        ROW("array-001");
        Numbers numbers;
        numbers.append(1);
        numbers.append(2);
        numbers.append(3);
        EXPECT_EQ(contents(numbers), "123");
    }
    {
        ROW("array-002");
        const Array<String> texts(3);
        EXPECT_EQ(texts.size(), 3U);
        EXPECT_EQ(texts[0], "");
    }
    {
        ROW("array-003");
        const Array<String> texts(2, "x");
        EXPECT_EQ(texts.size(), 2U);
        EXPECT_EQ(texts[0], "x");
        EXPECT_EQ(texts[1], "x");
    }
    {
        ROW("array-004");
        const Uint32 items[] = {7, 8};
        EXPECT_EQ(contents(Numbers(items, 2)), "78");
    }
    {
        ROW("array-005");
        EXPECT_EQ(Array<Uint16>(0).size(), 0U);
    }
    {
        ROW("array-024");
        const Uint32 items[] = {7, 8};
        Numbers numbers;
        numbers.append(items, 2);
        EXPECT_EQ(numbers.size(), 2U);
    }
    EXPECT_EQ(contents(Numbers(3)), "000");
    EXPECT_EQ(Numbers(nullptr, 0).size(), 0U);
    EXPECT_EQ(Numbers().getData(), nullptr);
}

TEST(Array, ChecksIndices) {
    Numbers numbers = arrayOf<Uint32>({1, 2, 3});
    const Numbers& constant = numbers;
    Numbers empty;
    {
        ROW("array-006");
        EXPECT_THROWS(numbers[3], IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("array-007");
        EXPECT_THROWS(constant[3], IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("array-008");
        EXPECT_THROWS(empty[0], IndexOutOfBoundsException, "index out of bounds");
    }
    {
        ROW("array-009");
        EXPECT_THROWS(numbers[0xFFFFFFFF], IndexOutOfBoundsException, "index out of bounds");
    }
    EXPECT_EQ(constant[2], 3U);
}

TEST(Array, Removes) {
    const auto removed = [](Numbers numbers, Uint32 index, Uint32 size) {
        numbers.remove(index, size);
        return contents(numbers);
    };
    {
        ROW("array-011");
        Numbers numbers = arrayOf<Uint32>({1, 2});
        numbers.remove(1);
        EXPECT_EQ(contents(numbers), "1");
    }
    {
        ROW("array-014");
        EXPECT_EQ(removed(arrayOf<Uint32>({1, 2, 3, 4}), 1, 2), "14");
    }
    {
        ROW("array-015");
        EXPECT_THROWS(removed(arrayOf<Uint32>({1, 2}), 1, 9), IndexOutOfBoundsException,
                      "index out of bounds");
    }
    {
        ROW("array-016");
        EXPECT_EQ(removed(arrayOf<Uint32>({1, 2}), 2, 0), "12");
    }
    {
        ROW("array-017");
        EXPECT_EQ(removed(arrayOf<Uint32>({1}), 9, 0), "1");
    }
    EXPECT_THROWS(removed(arrayOf<Uint32>({1, 2}), 1, 0xFFFFFFFF), IndexOutOfBoundsException,
                  "index out of bounds");
    EXPECT_EQ(removed(arrayOf<Uint32>({1, 2}), 0, 2), "");
}

TEST(Array, DoesNotRemoveAtTheEnd) {
    Numbers numbers = arrayOf<Uint32>({1, 2});
    EXPECT_THROWS(numbers.remove(2), IndexOutOfBoundsException, "index out of bounds");
    Numbers empty;
    EXPECT_THROWS(empty.remove(0), IndexOutOfBoundsException, "index out of bounds");
    EXPECT_EQ(contents(numbers), "12");
}

TEST(Array, Inserts) {
    Numbers numbers = arrayOf<Uint32>({1, 2});
    {
        ROW("array-018");
        numbers.insert(0, 9);
        EXPECT_EQ(contents(numbers), "912");
    }
    {
        ROW("array-019");
        Numbers one = arrayOf<Uint32>({1});
        one.insert(1, 9);
        EXPECT_EQ(contents(one), "19");
    }
    {
        ROW("array-020");
        EXPECT_THROWS(numbers.insert(4, 9), IndexOutOfBoundsException, "index out of bounds");
        EXPECT_EQ(contents(numbers), "912");
    }
    {
        ROW("array-021");
        Numbers one = arrayOf<Uint32>({1});
        one.prepend(9);
        EXPECT_EQ(contents(one), "91");
    }
    const Uint32 items[] = {7, 8};
    numbers.insert(1, items, 2);
    EXPECT_EQ(contents(numbers), "97812");
    numbers.prepend(items, 2);
    EXPECT_EQ(contents(numbers), "7897812");
    numbers.insert(3, items, 0);
    EXPECT_EQ(contents(numbers), "7897812");
    numbers.grow(2, 5);
    EXPECT_EQ(contents(numbers), "789781255");
}

TEST(Array, AcceptsItsOwnElements) {
    {
        ROW("array-023");
        Numbers numbers = arrayOf<Uint32>({1, 2});
        numbers.appendArray(numbers);
        EXPECT_EQ(contents(numbers), "1212");
    }
    {
        ROW("array-035");
        Numbers numbers = arrayOf<Uint32>({1});
        numbers = *&numbers;
        EXPECT_EQ(contents(numbers), "1");
    }
    {
        ROW("array-037");
        Array<String> texts(1, "x");
        for (int i = 0; i < 20; ++i) {
            texts.append(texts[0]);
        }
        EXPECT_EQ(texts.size(), 21U);
        EXPECT_EQ(texts[20], "x");
    }
    Array<String> texts = arrayOf<String>({"a", "b"});
    texts.insert(0, texts[1]);
    texts.prepend(texts.getData() + 1, 2);
    EXPECT_EQ(texts[0] + texts[1] + texts[2] + texts[3] + texts[4], "abbab");
}

TEST(Array, AcceptsMovedElements) {
    Array<String> texts;
    for (int i = 0; i < 9; ++i) {
        texts.append(String("x"));
    }
    EXPECT_EQ(texts.size(), 9U);
    EXPECT_EQ(texts[8], "x");
    const Array<String> copy = texts;
    texts.append(String("y"));
    EXPECT_EQ(copy.size(), 9U);
    EXPECT_EQ(texts[9], "y");
}

TEST(Array, AcceptsItsOwnElementWhenItGrows) {
    Array<String> texts(8, "x");
    texts.append(std::move(texts[0]));
    EXPECT_EQ(texts[8], "x");
}

TEST(Array, GrowsByPowersOfTwo) {
    {
        ROW("array-025");
        Numbers numbers(20);
        numbers.reserveCapacity(21);
        EXPECT_EQ(numbers.getCapacity(), 32U);
        numbers.clear();
        EXPECT_EQ(numbers.size(), 0U);
        EXPECT_EQ(numbers.getCapacity(), 32U);
    }
    {
        ROW("array-026");
        Numbers numbers;
        EXPECT_EQ(numbers.getCapacity(), 0U);
        std::string capacities;
        for (Uint32 i = 1; i <= 17; ++i) {
            numbers.append(i);
            if (i == 1 || i == 8 || i == 9 || i == 17) {
                capacities += " " + std::to_string(numbers.getCapacity());
            }
        }
        EXPECT_EQ(capacities, " 8 8 16 32");
    }
    {
        ROW("array-027");
        Numbers numbers;
        numbers.reserveCapacity(5);
        EXPECT_EQ(numbers.size(), 0U);
        EXPECT_EQ(numbers.getCapacity(), 8U);
    }
}

TEST(Array, RejectsMoreThanItsLimit) {
    EXPECT_EQ(Array<Uint8>::maximumCapacity, 0x3FFFFFFFU);
    Array<Uint8> bytes;
    EXPECT_THROW(bytes.reserveCapacity(0x40000000), std::bad_alloc);
    EXPECT_THROW(Array<Uint8>(0x40000001), std::bad_alloc);
    bytes.append(1);
    EXPECT_THROW(bytes.append(bytes.getData(), 0x3FFFFFFF), std::bad_alloc);
    EXPECT_THROW(bytes.append(bytes.getData(), 0xFFFFFFFF), std::bad_alloc);
    EXPECT_EQ(bytes.size(), 1U);
}

TEST(Array, ReachesItsLimit) {
    Array<Uint8> bytes;
    try {
        bytes.reserveCapacity(0x3FFFFFFF);
    } catch (const std::bad_alloc&) {
        GTEST_SKIP() << "no gigabyte of address space to be had";
    }
    EXPECT_EQ(bytes.getCapacity(), 0x40000000U);
}

TEST(Array, Swaps) {
    ROW("array-029");
    Numbers first = arrayOf<Uint32>({1});
    Numbers second = arrayOf<Uint32>({2, 3});
    first.swap(second);
    EXPECT_EQ(first.size(), 2U);
    EXPECT_EQ(second.size(), 1U);
}

TEST(Array, SharesItsElementsUntilACopyIsWritten) {
    {
        ROW("array-030");
        const Numbers first = arrayOf<Uint32>({1});
        Numbers second;
        second = first;
        EXPECT_EQ(first.getData(), second.getData());
    }
    {
        ROW("array-031");
        const Numbers first = arrayOf<Uint32>({1});
        Numbers second(first);
        second.append(2);
        EXPECT_EQ(first.size(), 1U);
        EXPECT_EQ(second.size(), 2U);
    }
    {
        ROW("array-032");
        const Numbers first = arrayOf<Uint32>({1});
        Numbers second(first);
        second[0] = 9;
        EXPECT_EQ(first[0], 1U);
        EXPECT_EQ(second[0], 9U);
    }
    {
        ROW("array-033");
        const Numbers first = arrayOf<Uint32>({1});
        Numbers second(first);
        EXPECT_EQ(second[0], 1U);
        EXPECT_NE(first.getData(), second.getData());
    }
    {
        ROW("array-034");
        Numbers first = arrayOf<Uint32>({1});
        Uint32& element = first[0];
        const Numbers second = first;
        element = 9;
        EXPECT_EQ(static_cast<const Numbers&>(first)[0], 9U);
        EXPECT_EQ(second[0], 9U);
    }
    {
        const Numbers first = arrayOf<Uint32>({1, 2, 3});
        Numbers second(first);
        second.remove(0);
        EXPECT_EQ(contents(first), "123");
        second = first;
        second.insert(1, 9);
        EXPECT_EQ(contents(first), "123");
        second = first;
        second.clear();
        EXPECT_EQ(contents(first), "123");
        EXPECT_EQ(second.getCapacity(), 0U);
    }
}

TEST(Array, OfHandlesSharesTheObjectsOfTheHandles) {
    ROW("array-036");
    CIMInstance instance("C");
    instance.addProperty(CIMProperty("p", Uint32(1)));
    Array<CIMInstance> first(1, instance);
    Array<CIMInstance> second(first);
    second[0].getProperty(0).setValue(Uint32(2));
    EXPECT_EQ(first[0].getProperty(0).getValue().toString(), "2");
}

/// Counts the existing objects, and throws when it is copied too often.
class Fragile {
public:
    static int living;
    static int copiesLeft;

    Fragile() { ++living; }
    Fragile(const Fragile& /*other*/) {
        if (copiesLeft == 0) {
            throw std::runtime_error("copied too often");
        }
        --copiesLeft;
        ++living;
    }
    Fragile& operator=(const Fragile&) = default;
    ~Fragile() { --living; }
};
int Fragile::living = 0;
int Fragile::copiesLeft = 0;

TEST(Array, IsUnchangedWhenAnElementCannotBeCopied) {
    {
        Fragile::copiesLeft = 3;
        Array<Fragile> array(3, Fragile());
        EXPECT_EQ(Fragile::living, 3);
        Array<Fragile> copy(array);
        Fragile::copiesLeft = 1;
        EXPECT_THROW(copy[0], std::runtime_error);
        EXPECT_EQ(copy.getData(), array.getData());
        Fragile::copiesLeft = 1;
        EXPECT_THROW(copy.append(Fragile()), std::runtime_error);
        EXPECT_EQ(copy.size(), 3U);
        Fragile::copiesLeft = 2;
        EXPECT_THROW(Array<Fragile>(3, Fragile()), std::runtime_error);
        EXPECT_THROW(Array<Fragile>(array.getData(), 3), std::runtime_error);
        EXPECT_EQ(Fragile::living, 3);
    }
    EXPECT_EQ(Fragile::living, 0);
}

TEST(Array, HoldsAnyTypeThatCanBeCopied) {
    struct Wide {
        char name = 'n';
        double number = 1.5;
    };
    Array<Wide> wide(3);
    wide.append(Wide{'x', 2.5});
    EXPECT_EQ(wide[0].number, 1.5);
    EXPECT_EQ(wide[3].name, 'x');
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(wide.getData()) % alignof(Wide), 0U);

    auto shared = std::make_shared<int>(1);
    {
        Array<std::shared_ptr<int>> pointers(5, shared);
        pointers.remove(1, 2);
        EXPECT_EQ(shared.use_count(), 4);
        pointers.clear();
        EXPECT_EQ(shared.use_count(), 1);
        pointers.append(shared);
        const Array<std::shared_ptr<int>> moved(std::move(pointers));
        EXPECT_EQ(shared.use_count(), 2);
    }
    EXPECT_EQ(shared.use_count(), 1);
}

}  // namespace
