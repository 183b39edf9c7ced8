// SPDX-License-Identifier: MIT
// Fuzzes the MOF reader: whatever the text, it is read or refused with its place, and what was read can
// be enumerated.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>

#include <Pegasus/Common/CIMName.h>

#include "servers/cimhost/mof/MofReader.h"

namespace {

using namespace cimhost;

// What the class definitions expect to be declared, so that their seeds are read to the end.
const char* const declarations = R"mof(
Qualifier Abstract : boolean = false, Scope(class, association, indication), Flavor(Restricted);
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);
Qualifier Description : string = NULL, Scope(any), Flavor(Translatable);
Qualifier In : boolean = true, Scope(parameter), Flavor(DisableOverride);
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
Qualifier Out : boolean = false, Scope(parameter), Flavor(DisableOverride);
Qualifier Override : string = NULL, Scope(property, reference, method), Flavor(Restricted);
Qualifier ValueMap : string[] = NULL, Scope(property, method, parameter);
Qualifier Values : string[] = NULL, Scope(property, method, parameter), Flavor(Translatable);
Qualifier Version : string = NULL, Scope(class, association, indication), Flavor(Restricted);
Qualifier Write : boolean = false, Scope(property);
)mof";

const Pegasus::CIMNamespaceName nameSpace("root/fuzz");

/// Read once: the declarations take longer than most inputs.
Schema declaredQualifiers() {
    Schema schema;
    Repository repository(schema);
    MofReader(schema, repository, [](const std::string& /*path*/) -> std::string {
        return declarations;
    }).readFile("declarations", nameSpace);
    return schema;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    static const Schema declared = declaredQualifiers();
    Schema schema = declared;
    Repository repository(schema);
    MofReader reader(schema, repository, [&](const std::string& path) -> std::string {
        if (path == "input") {  // which may include itself, too
            return input;
        }
        throw std::runtime_error("there is no such file");
    });
    try {
        reader.readFile("input", nameSpace);
    } catch (const MofError& error) {
        // FILE:LINE:COLUMN: TEXT
        if (std::strncmp(error.what(), "input:", 6) != 0) {
            std::abort();
        }
    }
    for (const auto& name : schema.subclasses(nameSpace, Pegasus::CIMName(), true)) {
        repository.enumerateInstances(nameSpace, name);
    }
    return 0;
}
