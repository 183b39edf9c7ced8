// SPDX-License-Identifier: MIT
#include <algorithm>

#include <Pegasus/Common/OperationContext.h>

namespace Pegasus {

const String IdentityContainer::NAME("IdentityContainer");

OperationContext::OperationContext(const OperationContext& other) {
    containers_.reserve(other.containers_.size());
    for (const Owned& container : other.containers_) {
        containers_.emplace_back(container->clone());
    }
}

OperationContext& OperationContext::operator=(const OperationContext& other) {
    OperationContext copy(other);
    containers_.swap(copy.containers_);
    return *this;
}

std::vector<OperationContext::Owned>::const_iterator OperationContext::find(
    const String& containerName) const {
    return std::find_if(containers_.begin(), containers_.end(), [&](const Owned& container) {
        return container->getName() == containerName;
    });
}

std::vector<OperationContext::Owned>::const_iterator OperationContext::require(
    const String& containerName) const {
    const auto found = find(containerName);
    if (found == containers_.end()) {
        throw Exception("object not found");
    }
    return found;
}

void OperationContext::clear() {
    containers_.clear();
}

const OperationContext::Container& OperationContext::get(const String& containerName) const {
    return **require(containerName);
}

Boolean OperationContext::contains(const String& containerName) const {
    return find(containerName) != containers_.end();
}

void OperationContext::set(const Container& container) {
    const auto index = require(container.getName()) - containers_.begin();
    containers_[static_cast<std::size_t>(index)] = Owned(container.clone());
}

void OperationContext::insert(const Container& container) {
    if (contains(container.getName())) {
        throw Exception("object already exists.");
    }
    containers_.emplace_back(container.clone());
}

void OperationContext::remove(const String& containerName) {
    containers_.erase(require(containerName));
}

IdentityContainer::IdentityContainer(const OperationContext::Container& container) {
    const auto* const identity = dynamic_cast<const IdentityContainer*>(&container);
    if (identity == nullptr) {
        throw DynamicCastFailedException();
    }
    userName_ = identity->userName_;
}

String IdentityContainer::getName() const {
    return NAME;
}

OperationContext::Container* IdentityContainer::clone() const {
    return new IdentityContainer(*this);
}

void IdentityContainer::destroy() {
    delete this;
}

}  // namespace Pegasus
