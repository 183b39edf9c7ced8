// SPDX-License-Identifier: MIT
// A response handler that records how a provider calls it.
// One thread.
#pragma once

#include <string>
#include <vector>

#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Provider/ResponseHandler.h>

/// Records the calls in order, "deliver N" for an array of N objects, and all objects.
template <class Object>
class RecordingHandler : public Pegasus::ResponseHandler<Object> {
public:
    void processing() override { calls.emplace_back("processing"); }
    void deliver(const Object& object) override {
        calls.emplace_back("deliver");
        objects.append(object);
    }
    void deliver(const Pegasus::Array<Object>& array) override {
        calls.emplace_back("deliver " + std::to_string(array.size()));
        objects.appendArray(array);
    }
    void complete() override { calls.emplace_back("complete"); }

    std::vector<std::string> calls;
    Pegasus::Array<Object> objects;
};

template <>
class RecordingHandler<void> : public Pegasus::ResponseHandler<void> {
public:
    void processing() override { calls.emplace_back("processing"); }
    void complete() override { calls.emplace_back("complete"); }

    std::vector<std::string> calls;
};
