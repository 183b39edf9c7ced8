// SPDX-License-Identifier: MIT
#include "servers/cimhost/mof/MofParser.h"

#include <limits>
#include <utility>

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/Exception.h>

#include "wire/cimxml/StringConversion.h"

namespace cimhost {

namespace {

using Pegasus::CIMName;

/// What the schema or the repository refuses becomes an error at the place of the declaration.
template <class Action>
void at(const MofPosition& position, Action action) {
    try {
        action();
    } catch (const Pegasus::Exception& refusal) {
        throw MofError(position, wire::toUtf8(refusal.getMessage()));
    }
}

}  // namespace

MofParser::MofParser(std::string_view text, const std::string& file, MofCompilation& compilation,
                     const Pegasus::CIMNamespaceName& nameSpace)
    : lexer_(text, file), compilation_(compilation), nameSpace_(nameSpace) {
    current_ = lexer_.next();
}

MofToken MofParser::take() {
    MofToken token = std::move(current_);
    current_ = lexer_.next();
    return token;
}

bool MofParser::takeIfPunctuation(char character) {
    const bool matches = current_.isPunctuation(character);
    if (matches) {
        take();
    }
    return matches;
}

bool MofParser::takeIfKeyword(std::string_view keyword) {
    const bool matches = current_.isKeyword(keyword);
    if (matches) {
        take();
    }
    return matches;
}

void MofParser::fail(const char* expected) const {
    throw MofError(current_.position,
                   std::string("expected ") + expected + " instead of " + current_.description());
}

void MofParser::expectPunctuation(char character) {
    if (!takeIfPunctuation(character)) {
        const char quoted[] = {'\'', character, '\'', '\0'};
        fail(quoted);
    }
}

MofToken MofParser::expectIdentifier(const char* what) {
    if (current_.kind != MofToken::Kind::identifier) {
        fail(what);
    }
    return take();
}

CIMName MofParser::expectName(const char* what) {
    const MofToken token = expectIdentifier(what);
    CIMName name;
    at(token.position, [&] { name = CIMName(toString(token.text, token.position)); });
    return name;
}

void MofParser::parse() {
    while (current_.kind != MofToken::Kind::end) {
        if (current_.kind == MofToken::Kind::pragma) {
            parsePragma();
        } else if (current_.isKeyword("qualifier")) {
            parseQualifierDeclaration();
        } else {
            wire::Qualifiers qualifiers = parseQualifierList();
            if (takeIfKeyword("class")) {
                parseClass(std::move(qualifiers));
            } else if (takeIfKeyword("instance")) {
                parseInstance();
            } else {
                fail("a pragma, a qualifier declaration, a class or an instance");
            }
        }
    }
}

void MofParser::parsePragma() {
    take();
    const MofToken name = expectIdentifier("the name of a pragma");
    expectPunctuation('(');
    if (current_.kind != MofToken::Kind::text) {
        fail("a string");
    }
    const MofToken argument = take();
    expectPunctuation(')');
    if (name.isKeyword("namespace")) {
        at(argument.position, [&] {
            nameSpace_ = Pegasus::CIMNamespaceName(toString(argument.text, argument.position));
        });
        compilation_.schema.addNamespace(nameSpace_);
    } else if (name.isKeyword("include")) {
        compilation_.include(argument.text, argument.position, nameSpace_);
    }
}

void MofParser::parseQualifierDeclaration() {
    take();
    const MofPosition position = current_.position;
    wire::QualifierDeclaration declaration;
    declaration.name = expectName("the name of a qualifier");
    expectPunctuation(':');
    Pegasus::CIMType type = Pegasus::CIMTYPE_STRING;
    const MofToken typeToken = expectIdentifier("a type");
    if (!parseTypeName(typeToken.text, type)) {
        throw MofError(typeToken.position, "there is no type " + typeToken.text);
    }
    Pegasus::Uint32 arraySize = 0;
    const bool isArray = parseArray(arraySize);
    declaration.defaultValue = Pegasus::CIMValue(type, isArray);
    if (takeIfPunctuation('=')) {
        declaration.defaultValue = toCimValue(parseValue(), type, isArray);
    }
    expectPunctuation(',');
    parseScopes(declaration);
    if (takeIfPunctuation(',')) {
        parseFlavorList(declaration);
    }
    expectPunctuation(';');
    at(position, [&] { compilation_.schema.addQualifier(nameSpace_, declaration); });
}

void MofParser::parseScopes(wire::QualifierDeclaration& declaration) {
    if (!takeIfKeyword("scope")) {
        fail("'Scope'");
    }
    expectPunctuation('(');
    do {
        declaration.scopes.push_back(expectName("a scope"));
    } while (takeIfPunctuation(','));
    expectPunctuation(')');
}

void MofParser::parseFlavorList(wire::QualifierDeclaration& declaration) {
    if (!takeIfKeyword("flavor")) {
        fail("'Flavor'");
    }
    expectPunctuation('(');
    do {
        if (!parseFlavor(declaration.flavor)) {
            fail("a flavor");
        }
    } while (takeIfPunctuation(','));
    expectPunctuation(')');
}

bool MofParser::parseFlavor(wire::QualifierFlavor& flavor) {
    if (takeIfKeyword("enableoverride")) {
        flavor.overridable = true;
    } else if (takeIfKeyword("disableoverride")) {
        flavor.overridable = false;
    } else if (takeIfKeyword("tosubclass")) {
        flavor.toSubclass = true;
    } else if (takeIfKeyword("restricted")) {
        flavor.toSubclass = false;
    } else if (takeIfKeyword("translatable")) {
        flavor.translatable = true;
    } else {
        return false;
    }
    return true;
}

wire::Qualifiers MofParser::parseQualifierList() {
    wire::Qualifiers qualifiers;
    if (!takeIfPunctuation('[')) {
        return qualifiers;
    }
    do {
        const MofPosition position = current_.position;
        wire::Qualifier qualifier = parseQualifier();
        if (findQualifier(qualifiers, qualifier.name) != nullptr) {
            throw MofError(position, "the qualifier " + wire::toUtf8(qualifier.name.getString()) +
                                         " stands here twice");
        }
        qualifiers.push_back(std::move(qualifier));
    } while (takeIfPunctuation(','));
    expectPunctuation(']');
    return qualifiers;
}

wire::Qualifier MofParser::parseQualifier() {
    const MofPosition position = current_.position;
    wire::Qualifier qualifier;
    qualifier.name = expectName("the name of a qualifier");
    const wire::QualifierDeclaration* declaration = nullptr;
    at(position,
       [&] { declaration = compilation_.schema.findQualifier(nameSpace_, qualifier.name); });
    if (declaration == nullptr) {
        throw MofError(position, "the qualifier " + wire::toUtf8(qualifier.name.getString()) +
                                     " is not declared");
    }
    qualifier.name = declaration->name;
    qualifier.flavor = declaration->flavor;
    const Pegasus::CIMType type = declaration->defaultValue.getType();
    const bool isArray = declaration->defaultValue.isArray();
    if (takeIfPunctuation('(')) {
        qualifier.value = toCimValue(parseValue(), type, isArray);
        expectPunctuation(')');
    } else if (current_.isPunctuation('{')) {
        qualifier.value = toCimValue(parseValue(), type, isArray);
    } else if (type == Pegasus::CIMTYPE_BOOLEAN && !isArray) {
        qualifier.value = Pegasus::CIMValue(Pegasus::Boolean(true));
    } else {
        qualifier.value = declaration->defaultValue;
    }
    if (takeIfPunctuation(':')) {
        if (!parseFlavor(qualifier.flavor)) {
            fail("a flavor");
        }
        while (parseFlavor(qualifier.flavor)) {
        }
    }
    return qualifier;
}

void MofParser::checkScopes(const wire::Qualifiers& qualifiers, Element element,
                            const MofPosition& position) {
    static constexpr const char* scopes[] = {"class",     "association", "property",
                                             "reference", "method",      "parameter"};
    const char* const scope = scopes[static_cast<int>(element)];
    for (const wire::Qualifier& qualifier : qualifiers) {
        const wire::QualifierDeclaration* const declaration =
            compilation_.schema.findQualifier(nameSpace_, qualifier.name);
        bool allowed = false;
        for (const CIMName& name : declaration->scopes) {
            allowed = allowed || name.equal(CIMName("any")) || name.equal(CIMName(scope));
        }
        if (!allowed) {
            throw MofError(position, "the qualifier " + wire::toUtf8(qualifier.name.getString()) +
                                         " is not declared for the scope " + scope);
        }
    }
}

void MofParser::parseClass(wire::Qualifiers qualifiers) {
    const MofPosition position = current_.position;
    wire::ClassDefinition definition;
    definition.name = expectName("the name of a class");
    definition.qualifiers = std::move(qualifiers);
    checkScopes(definition.qualifiers,
                definition.isAssociation() ? Element::association : Element::classDeclaration,
                position);
    if (takeIfPunctuation(':')) {
        definition.superclass = expectName("the name of the superclass");
    }
    expectPunctuation('{');
    while (!takeIfPunctuation('}')) {
        parseFeature(definition);
    }
    expectPunctuation(';');
    at(position, [&] { compilation_.schema.addClass(nameSpace_, definition); });
}

CIMName MofParser::parseTypeOrReference(Pegasus::CIMType& type) {
    const MofPosition position = current_.position;
    if (current_.kind == MofToken::Kind::identifier && parseTypeName(current_.text, type)) {
        take();
        return CIMName();
    }
    CIMName referenceClass = expectName("a type or a class");
    if (!takeIfKeyword("ref")) {
        throw MofError(position, wire::toUtf8(referenceClass.getString()) +
                                     " is no type, and 'REF' does not follow it");
    }
    type = Pegasus::CIMTYPE_REFERENCE;
    return referenceClass;
}

void MofParser::parseFeature(wire::ClassDefinition& definition) {
    wire::Qualifiers qualifiers = parseQualifierList();
    Pegasus::CIMType type = Pegasus::CIMTYPE_STRING;
    const MofPosition position = current_.position;
    const CIMName referenceClass = parseTypeOrReference(type);
    const CIMName name = expectName("the name of a property or method");
    if (takeIfPunctuation('(')) {
        if (!referenceClass.isNull()) {
            throw MofError(position, "a method cannot return a reference");
        }
        checkScopes(qualifiers, Element::method, position);
        wire::MethodDefinition method;
        method.name = name;
        method.returnType = type;
        method.qualifiers = std::move(qualifiers);
        parseMethod(definition, std::move(method));
        return;
    }
    checkScopes(qualifiers, referenceClass.isNull() ? Element::property : Element::reference,
                position);
    wire::PropertyDefinition property;
    property.name = name;
    property.type = type;
    property.referenceClass = referenceClass;
    property.qualifiers = std::move(qualifiers);
    property.isArray = parseArray(property.arraySize);
    property.defaultValue = Pegasus::CIMValue(type, property.isArray);
    if (takeIfPunctuation('=')) {
        property.defaultValue = toCimValue(parseValue(), type, property.isArray);
    }
    expectPunctuation(';');
    definition.properties.push_back(std::move(property));
}

void MofParser::parseMethod(wire::ClassDefinition& definition, wire::MethodDefinition method) {
    if (!takeIfPunctuation(')')) {
        do {
            method.parameters.push_back(parseParameter());
        } while (takeIfPunctuation(','));
        expectPunctuation(')');
    }
    expectPunctuation(';');
    definition.methods.push_back(std::move(method));
}

wire::ParameterDefinition MofParser::parseParameter() {
    wire::ParameterDefinition parameter;
    parameter.qualifiers = parseQualifierList();
    checkScopes(parameter.qualifiers, Element::parameter, current_.position);
    parameter.referenceClass = parseTypeOrReference(parameter.type);
    parameter.name = expectName("the name of a parameter");
    parameter.isArray = parseArray(parameter.arraySize);
    return parameter;
}

bool MofParser::parseArray(Pegasus::Uint32& size) {
    if (!takeIfPunctuation('[')) {
        return false;
    }
    if (current_.kind == MofToken::Kind::integer) {
        if (current_.negative || current_.magnitude == 0 ||
            current_.magnitude > std::numeric_limits<Pegasus::Uint32>::max()) {
            fail("the size of an array");
        }
        size = static_cast<Pegasus::Uint32>(take().magnitude);
    }
    expectPunctuation(']');
    return true;
}

void MofParser::parseInstance() {
    if (!takeIfKeyword("of")) {
        fail("'of'");
    }
    const MofPosition position = current_.position;
    const CIMName className = expectName("the name of a class");
    Schema::ClassPointer definition;
    at(position, [&] { definition = compilation_.schema.findClass(nameSpace_, className); });
    if (definition == nullptr) {
        throw MofError(position, "unknown class " + wire::toUtf8(className.getString()));
    }
    std::string alias;
    if (takeIfKeyword("as")) {
        if (current_.kind != MofToken::Kind::alias) {
            fail("an alias");
        }
        const MofToken token = take();
        alias = token.text;
        if (compilation_.aliases.count(alias) != 0) {
            throw MofError(token.position, "there is already an instance with the alias $" + alias);
        }
    }
    expectPunctuation('{');
    Pegasus::CIMInstance instance(definition->name);
    while (!takeIfPunctuation('}')) {
        parseInstanceProperty(*definition, instance);
    }
    expectPunctuation(';');
    Pegasus::CIMObjectPath path;
    at(position, [&] { path = compilation_.repository.createInstance(nameSpace_, instance); });
    if (!alias.empty()) {
        compilation_.aliases.emplace(alias, path);
    }
}

void MofParser::parseInstanceProperty(const wire::ClassDefinition& definition,
                                      Pegasus::CIMInstance& instance) {
    parseQualifierList();
    const MofPosition position = current_.position;
    const CIMName name = expectName("the name of a property");
    const wire::PropertyDefinition* const property = definition.findProperty(name);
    if (property == nullptr) {
        throw MofError(position, "class " + wire::toUtf8(definition.name.getString()) +
                                     " has no property " + wire::toUtf8(name.getString()));
    }
    if (instance.findProperty(name) != PEG_NOT_FOUND) {
        throw MofError(position,
                       "the property " + wire::toUtf8(name.getString()) + " stands here twice");
    }
    expectPunctuation('=');
    const Pegasus::CIMValue value = toCimValue(parseValue(), property->type, property->isArray);
    expectPunctuation(';');
    instance.addProperty(Pegasus::CIMProperty(property->name, value, 0, property->referenceClass));
}

MofValue MofParser::parseValue() {
    MofValue value;
    value.position = current_.position;
    if (!takeIfPunctuation('{')) {
        value.literals.push_back(parseLiteral());
        return value;
    }
    value.isList = true;
    if (takeIfPunctuation('}')) {
        return value;
    }
    do {
        value.literals.push_back(parseLiteral());
    } while (takeIfPunctuation(','));
    expectPunctuation('}');
    return value;
}

MofLiteral MofParser::parseLiteral() {
    MofLiteral literal;
    literal.position = current_.position;
    literal.text = current_.text;
    literal.magnitude = current_.magnitude;
    literal.negative = current_.negative;
    switch (current_.kind) {
        case MofToken::Kind::text:
            literal.kind = MofLiteral::Kind::text;
            take();
            while (current_.kind == MofToken::Kind::text) {
                literal.text += take().text;
            }
            return literal;
        case MofToken::Kind::integer:
            literal.kind = MofLiteral::Kind::integer;
            break;
        case MofToken::Kind::real:
            literal.kind = MofLiteral::Kind::real;
            break;
        case MofToken::Kind::character:
            literal.kind = MofLiteral::Kind::character;
            break;
        case MofToken::Kind::alias: {
            const auto found = compilation_.aliases.find(current_.text);
            if (found == compilation_.aliases.end()) {
                throw MofError(current_.position,
                               "no instance before this one has the alias $" + current_.text);
            }
            literal.kind = MofLiteral::Kind::reference;
            literal.path = found->second;
            break;
        }
        default:
            if (current_.isKeyword("null")) {
                literal.kind = MofLiteral::Kind::null;
            } else if (current_.isKeyword("true") || current_.isKeyword("false")) {
                literal.kind = MofLiteral::Kind::boolean;
                literal.magnitude = current_.isKeyword("true") ? 1 : 0;
            } else {
                fail("a value");
            }
    }
    take();
    return literal;
}

}  // namespace cimhost
