// SPDX-License-Identifier: MIT
// The interface through which a provider delivers its answer to the server.
#pragma once

#include <Pegasus/Common/Array.h>

namespace Pegasus {
inline namespace provider_interface {

/// Receives the answer of one request: processing(), then any number of deliver(), then complete().
///
/// A handler belongs to one request and is called on its thread only. The answer is valid when
/// complete() has been called; if the provider throws instead, the delivered objects are discarded.
template <class Object>
class ResponseHandler {
public:
    ResponseHandler() = default;
    ResponseHandler(const ResponseHandler&) = delete;
    ResponseHandler& operator=(const ResponseHandler&) = delete;
    virtual ~ResponseHandler() = default;

    /// The provider has begun to work on the request.
    virtual void processing() = 0;
    /// Adds one object to the answer.
    virtual void deliver(const Object& object) = 0;
    /// Adds the objects to the answer, in order.
    virtual void deliver(const Array<Object>& objects) = 0;
    /// The answer is complete.
    virtual void complete() = 0;
};

/// The handler of requests without results: processing(), then complete().
template <>
class ResponseHandler<void> {
public:
    ResponseHandler() = default;
    ResponseHandler(const ResponseHandler&) = delete;
    ResponseHandler& operator=(const ResponseHandler&) = delete;
    virtual ~ResponseHandler() = default;

    /// The provider has begun to work on the request.
    virtual void processing() = 0;
    /// The request is done.
    virtual void complete() = 0;
};

}  // namespace provider_interface
}  // namespace Pegasus
