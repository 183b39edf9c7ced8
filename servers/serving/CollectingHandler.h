// SPDX-License-Identifier: MIT
// Response handlers that keep an answer until it is whole.
#pragma once

#include <Pegasus/Provider/ResponseHandler.h>

namespace serving {

/// Keeps what a provider delivers, in order. Used by one request on one thread.
template <class Object>
class CollectingHandler : public Pegasus::ResponseHandler<Object> {
public:
    void processing() override {}
    void deliver(const Object& object) override { objects_.append(object); }
    void deliver(const Pegasus::Array<Object>& objects) override { objects_.appendArray(objects); }
    void complete() override { completed_ = true; }

    /// What was delivered; nothing where the provider never completed the answer.
    Pegasus::Array<Object> answer() const {
        return completed_ ? objects_ : Pegasus::Array<Object>();
    }

private:
    Pegasus::Array<Object> objects_;
    bool completed_ = false;
};

/// For requests whose answer carries nothing.
template <>
class CollectingHandler<void> : public Pegasus::ResponseHandler<void> {
public:
    void processing() override {}
    void complete() override {}
};

}  // namespace serving
