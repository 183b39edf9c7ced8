// SPDX-License-Identifier: MIT
// Information about a request besides its parameters.
#pragma once

#include <memory>
#include <vector>

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A set of containers, each identified by its name. Copies are independent. One thread at a time,
/// unless it is only read.
///
/// The code of a container belongs to the library that made it: a context must not outlive the
/// libraries that have inserted containers.
class OperationContext {
public:
    /// One piece of information about the request.
    class Container {
    public:
        virtual ~Container() = default;
        /// The name, which identifies the type of information.
        virtual String getName() const = 0;
        /// A new copy, which the caller owns and deletes by destroy().
        virtual Container* clone() const = 0;
        /// Deletes the container by the code of its own library.
        virtual void destroy() = 0;

    protected:
        Container() = default;
        Container(const Container&) = default;
        Container& operator=(const Container&) = default;
    };

    OperationContext() = default;
    OperationContext(const OperationContext& other);
    OperationContext& operator=(const OperationContext& other);
    virtual ~OperationContext() = default;

    /// Removes all containers.
    void clear();
    /// The container of that name. Throws an Exception if there is none.
    const Container& get(const String& containerName) const;
    Boolean contains(const String& containerName) const;
    /// Replaces the container of the same name by a copy. Throws an Exception if there is none.
    void set(const Container& container);
    /// Adds a copy. Throws an Exception if there is a container of that name.
    void insert(const Container& container);
    /// Removes the container of that name. Throws an Exception if there is none.
    void remove(const String& containerName);

private:
    struct Destroy {
        void operator()(Container* container) const { container->destroy(); }
    };
    using Owned = std::unique_ptr<Container, Destroy>;

    std::vector<Owned>::const_iterator find(const String& containerName) const;
    std::vector<Owned>::const_iterator require(const String& containerName) const;

    std::vector<Owned> containers_;
};

/// The user who makes the request; the name is empty if the server does not know it. A plain value.
class IdentityContainer : public virtual OperationContext::Container {
public:
    static const String NAME;

    /// Throws DynamicCastFailedException if the container is of another class.
    IdentityContainer(const OperationContext::Container& container);
    IdentityContainer(const String& userName) : userName_(userName) {}

    String getName() const override;
    OperationContext::Container* clone() const override;
    void destroy() override;

    String getUserName() const { return userName_; }

private:
    String userName_;
};

}  // namespace Pegasus
