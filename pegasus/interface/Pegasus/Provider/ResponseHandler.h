// SPDX-License-Identifier: MIT
// Through a response handler a provider hands its answer to the server.
#pragma once

#include <Pegasus/Common/Array.h>

namespace Pegasus {
inline namespace provider_interface {

/// Takes the answer of one request: processing(), then any number of deliver(), then complete().
///
/// A handler belongs to its request and is called on the thread of that request alone. What was
/// delivered counts only once complete() was called; an exception instead of it drops the answer.
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
    /// Adds the objects, in order, to the answer.
    virtual void deliver(const Array<Object>& objects) = 0;
    /// The answer is whole.
    virtual void complete() = 0;
};

/// The handler of requests whose answer carries nothing.
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
