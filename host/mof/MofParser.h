// SPDX-License-Identifier: MIT
// The grammar of MOF: a parser by recursive descent that adds what it reads to schema and
// repository.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/mof/MofError.h"
#include "host/mof/MofLexer.h"
#include "host/mof/MofValue.h"
#include "host/repository/Repository.h"
#include "host/schema/Schema.h"

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

/// Parses one file.
class MofParser {
public:
    /// `text` must outlive the parser.
    MofParser(std::string_view text, const std::string& file, MofCompilation& compilation,
              const Pegasus::CIMNamespaceName& nameSpace);

    /// Reads to the end of the file. Throws MofError.
    void parse();

private:
    enum class Element { Class, Association, Property, Reference, Method, Parameter };

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
    void parseScopes(QualifierDeclaration& declaration);
    void parseFlavorList(QualifierDeclaration& declaration);
    bool parseFlavor(QualifierFlavor& flavor);
    Qualifiers parseQualifierList();
    Qualifier parseQualifier();
    void parseClass(Qualifiers qualifiers);
    void parseFeature(ClassDefinition& definition);
    void parseMethod(ClassDefinition& definition, MethodDefinition method);
    ParameterDefinition parseParameter();
    void parseInstance();
    void parseInstanceProperty(const ClassDefinition& definition, Pegasus::CIMInstance& instance);
    MofValue parseValue();
    MofLiteral parseLiteral();
    bool parseArray(Pegasus::Uint32& size);
    Pegasus::CIMName parseTypeOrReference(Pegasus::CIMType& type);

    void checkScopes(const Qualifiers& qualifiers, Element element, const MofPosition& position);

    MofLexer lexer_;
    MofToken current_;
    MofCompilation& compilation_;
    Pegasus::CIMNamespaceName nameSpace_;
};

}  // namespace cimhost
