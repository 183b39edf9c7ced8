// SPDX-License-Identifier: MIT
// Handles that many threads copy and destroy at once; ThreadSanitizer detects data races.
#include <atomic>
#include <thread>
#include <vector>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/Detail/ReferenceCount.h>
#include <gtest/gtest.h>

using namespace Pegasus;

namespace {

/// An object that counts its destruction.
struct Watched {
    explicit Watched(int& counter) : ends(counter) {}
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;
    ~Watched() { ++ends; }

    detail::ReferenceCount references;
    int& ends;
};

using Handle = detail::SharedRep<Watched>;

TEST(SharedRep, DeletesItsObjectWithTheLastHandle) {
    int ends = 0;
    Handle first(new Watched(ends));
    {
        Handle second(first);
        Handle third;
        third = second;
        second = Handle();
        EXPECT_TRUE(first->references.isShared());
        EXPECT_EQ(ends, 0);
    }
    EXPECT_FALSE(first->references.isShared());
    Handle moved(std::move(first));
    EXPECT_EQ(ends, 0);
    moved = *&moved;
    EXPECT_EQ(ends, 0);
    moved = Handle(new Watched(ends));
    EXPECT_EQ(ends, 1);
    moved = Handle();
    EXPECT_EQ(ends, 2);
}

TEST(SharedRep, CanBeCopiedWhenNull) {
    Handle none;
    Handle copy(none);
    none = copy;
    EXPECT_FALSE(copy);
    EXPECT_EQ(copy.get(), nullptr);
}

TEST(ReferenceCount, IsOneForACopiedObject) {
    detail::ReferenceCount count;
    count.retain();
    EXPECT_FALSE(detail::ReferenceCount(count).isShared());
    EXPECT_FALSE(count.release());
    EXPECT_TRUE(count.release());
}

TEST(ReferenceCount, CountsAcrossThreads) {
    constexpr int threadCount = 4;
    constexpr int rounds = 2000;
    CIMInstance instance("C");
    instance.addProperty(CIMProperty("p", String("v")));
    instance.setPath(CIMObjectPath(String("root/x:C.k=1")));
    const CIMParamValue parameter("q", instance.getPath());
    const Array<String> texts(3, "text");
    std::atomic<bool> start{false};
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&, i] {
            while (!start) {
                std::this_thread::yield();
            }
            for (int round = 0; round < rounds; ++round) {
                CIMInstance clone = CIMInstance(instance).clone();
                clone.getProperty(0).setValue(String("w"));
                CIMObjectPath path(instance.getPath());
                path.setHost("h");
                Array<String> mine(texts);
                mine[0].append("x");
                mine.append(mine[static_cast<Uint32>(i) % 3]);
                CIMParamValue copy;
                copy = parameter;
                EXPECT_EQ(mine[0], "textx");
                EXPECT_EQ(copy.getValue().getType(), CIMTYPE_REFERENCE);
            }
        });
    }
    start = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(texts[0], "text");
    EXPECT_EQ(instance.getPath().toString(), "root/x:C.k=1");
    EXPECT_EQ(instance.getProperty(0).getValue().toString(), "v");
}

}  // namespace
