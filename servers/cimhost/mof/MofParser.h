// SPDX-License-Identifier: MIT
// The grammar of MOF: a parser by recursive descent that adds what it reads to schema and
// repository.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include "servers/cimhost/mof/MofError.h"
#include "servers/cimhost/mof/MofLexer.h"
#include "servers/cimhost/mof/MofValue.h"
#include "servers/cimhost/repository/Repository.h"
#include "servers/cimhost/schema/Schema.h"

namespace cimhost {

/// What the files of one compilation share.
struct MofCompilation {
    Schema& schema;
    Repository& repository;
    /// Reads an included file into the namespace.
    std::function<void(const std::string& file, const MofPosition& position,
                       const Pegasus::CIMNamespaceName& nameSpace)>
        include;
    /// The instances with an alias so far.
    std::map<std::string, Pegasus::CIMObjectPath> aliases;
};

/// Parses one file. One thread at a time; schema and repository must not be in use yet.
class MofParser {
public:
    /// `text` must outlive the parser.
    MofParser(std::string_view text, const std::string& file, MofCompilation& compilation,
              const Pegasus::CIMNamespaceName& nameSpace);

    /// Reads to the end of the file. Throws MofError.
    void parse();

private:
    enum class Element { classDeclaration, association, property, reference, method, parameter };

    // Tokens.
    MofToken take();
    bool takeIfPunctuation(char character);
    bool takeIfKeyword(std::string_view keyword);
    void expectPunctuation(char character);
    MofToken expectIdentifier(const char* what);
    Pegasus::CIMName expectName(const char* what);
    [[noreturn]] void fail(const char* expected) const;

    // Productions, in the order of the grammar.
    void parsePragma();
    void parseQualifierDeclaration();
    void parseScopes(wire::QualifierDeclaration& declaration);
    void parseFlavorList(wire::QualifierDeclaration& declaration);
    bool parseFlavor(wire::QualifierFlavor& flavor);
    wire::Qualifiers parseQualifierList();
    wire::Qualifier parseQualifier();
    void parseClass(wire::Qualifiers qualifiers);
    void parseFeature(wire::ClassDefinition& definition);
    void parseMethod(wire::ClassDefinition& definition, wire::MethodDefinition method);
    wire::ParameterDefinition parseParameter();
    void parseInstance();
    void parseInstanceProperty(const wire::ClassDefinition& definition,
                               Pegasus::CIMInstance& instance);
    MofValue parseValue();
    MofLiteral parseLiteral();
    bool parseArray(Pegasus::Uint32& size);
    Pegasus::CIMName parseTypeOrReference(Pegasus::CIMType& type);

    void checkScopes(const wire::Qualifiers& qualifiers, Element element,
                     const MofPosition& position);

    MofLexer lexer_;
    MofToken current_;
    MofCompilation& compilation_;
    Pegasus::CIMNamespaceName nameSpace_;
};

}  // namespace cimhost
