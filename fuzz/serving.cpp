// SPDX-License-Identifier: MIT
// Fuzzes the forms of references: each line of the input is an object path as a client spells it, which
// parses or not. Two that mean the same object find the same instances, and an instance is found by whatever
// path means it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMConnection.h>
#include <Pegasus/Provider/ProviderExceptions.h>

#include "servers/serving/AssociationQuery.h"
#include "servers/serving/PathForms.h"
#include "servers/serving/ServedProvider.h"

namespace {

using namespace Pegasus;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Has one instance, and compares paths as the library does: as they are spelt.
class OneInstance : public CIMInstanceProvider {
public:
    explicit OneInstance(CIMObjectPath path) : path_(std::move(path)) {}

    void initialize(CIMOMHandle& /*cimom*/) override {}
    void terminate() override {}
    void getInstance(const OperationContext& /*context*/, const CIMObjectPath& ref,
                     Uint32 /*flags*/, const CIMPropertyList& /*propertyList*/,
                     ResponseHandler<CIMInstance>& handler) override {
        if (!(serving::withoutLocation(ref) == path_)) {
            throw BadReference("Invalid Reference");
        }
        handler.deliver(CIMInstance(path_.getClassName()));
        handler.complete();
    }
    void enumerateInstances(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                            Uint32 /*flags*/, const CIMPropertyList& /*propertyList*/,
                            ResponseHandler<CIMInstance>& /*handler*/) override {}
    void enumerateInstanceNames(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                                ResponseHandler<CIMObjectPath>& handler) override {
        handler.deliver(path_);
        handler.complete();
    }
    void modifyInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        const CIMInstance& /*instance*/, Uint32 /*flags*/,
                        const CIMPropertyList& /*propertyList*/,
                        ResponseHandler<void>& /*handler*/) override {}
    void createInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        const CIMInstance& /*instance*/,
                        ResponseHandler<CIMObjectPath>& /*handler*/) override {}
    void deleteInstance(const OperationContext& /*context*/, const CIMObjectPath& /*ref*/,
                        ResponseHandler<void>& /*handler*/) override {}

private:
    CIMObjectPath path_;
};

std::vector<CIMObjectPath> pathsIn(std::string_view text) {
    constexpr std::size_t mostPaths = 3;  // two links that share an end
    std::vector<CIMObjectPath> paths;
    paths.reserve(mostPaths);
    while (!text.empty() && paths.size() < mostPaths) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        try {
            paths.emplace_back(String(std::string(line).c_str()));
        } catch (const Exception&) {
            // No path.
        }
    }
    return paths;
}

CIMInstance linkBetween(const CIMObjectPath& left, const CIMObjectPath& right) {
    CIMInstance link(CIMName("T_Link"));
    link.addProperty(CIMProperty(CIMName("Left"), CIMValue(left)));
    link.addProperty(CIMProperty(CIMName("Right"), CIMValue(right)));
    return link;
}

void checkForms(const CIMObjectPath& path) {
    const CIMObjectPath canonical = serving::canonicalPath(path);
    require(serving::canonicalPath(canonical) == canonical);
    require(serving::canonicalPath(serving::withoutLocation(path)) == canonical);
    require(serving::hasPathKey(path) == serving::hasPathKey(canonical));

    Array<CIMParamValue> parameters;
    parameters.append(CIMParamValue("P", CIMValue(path), true));
    const auto completed =
        serving::withNamespaceInReferences(parameters, CIMNamespaceName("root/x"));
    CIMObjectPath reference;
    completed[0].getValue().get(reference);
    require(serving::canonicalPath(reference) == canonical);
    require(reference.getHost().size() != 0 || !reference.getNameSpace().isNull());
}

void checkInstance(const CIMObjectPath& stored, const CIMObjectPath& asked) {
    serving::ProviderLocks locks;
    serving::ServedProvider served(std::make_unique<OneInstance>(serving::withoutLocation(stored)),
                                   locks, nullptr);
    bool isFound = true;
    try {
        served.getInstance(OperationContext(), asked);
    } catch (const CIMException& refusal) {
        require(refusal.getCode() == CIM_ERR_NOT_FOUND);
        isFound = false;
    }
    require(isFound == (serving::canonicalPath(stored) == serving::canonicalPath(asked)));
}

void checkAssociations(const std::vector<CIMObjectPath>& paths) {
    Array<CIMInstance> links;
    for (std::size_t i = 0; i + 1 < paths.size(); ++i) {
        links.append(linkBetween(paths[i], paths[i + 1]));
    }
    for (const CIMObjectPath& path : paths) {
        serving::AssociationQuery query;
        query.object = path;
        const auto referring = serving::referringInstances(links, query);
        const auto associated = serving::associatedPaths(links, query);
        require(paths.size() < 2 || referring.size() > 0);
        require(associated.size() <= referring.size());
        query.object = serving::canonicalPath(path);
        require(serving::referringInstances(links, query).size() == referring.size());
        require(serving::associatedPaths(links, query).size() == associated.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto paths = pathsIn({reinterpret_cast<const char*>(data), size});
    for (const CIMObjectPath& path : paths) {
        checkForms(path);
        checkInstance(paths[0], path);
    }
    checkAssociations(paths);
    return 0;
}
