// SPDX-License-Identifier: MIT
// What a server tells its providers about a request besides its parameters.
#pragma once

#include <memory>
#include <vector>

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace Pegasus {

/// A set of containers, each found by its name. Copies are independent. One context may be read by
/// several threads, or used by one.
///
/// The containers' code belongs to the library that made them: a context must not outlive the
/// library that filled it.
class OperationContext {
public:
    /// One piece of information about the request.
    class Container {
    public:
        virtual ~Container() = default;
        virtual String getName() const = 0;
        /// A copy, which its owner gets rid of with destroy().
        virtual Container* clone() const = 0;
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

    void clear();
    /// The container of that name; throws an Exception if there is none.
    const Container& get(const String& containerName) const;
    Boolean contains(const String& containerName) const;
    /// Replaces the container of the same name by a copy; throws an Exception if there is none.
    void set(const Container& container);
    /// Adds a copy; throws an Exception if there is one of that name.
    void insert(const Container& container);
    /// Throws an Exception if there is none of that name.
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

/// The user on whose behalf the request is made; an empty name where the server knows none.
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
