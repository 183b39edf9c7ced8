// SPDX-License-Identifier: MIT
// MOF files are read as written, and each error says where it is and what is at fault.
#include "servers/cimhost/mof/MofReader.h"

#include <map>
#include <stdexcept>
#include <string>

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMProperty.h>
#include <gtest/gtest.h>

namespace cimhost {
namespace {

using Pegasus::Array;
using Pegasus::CIMInstance;
using Pegasus::CIMName;
using Pegasus::CIMObjectPath;
using Pegasus::CIMValue;
using Pegasus::String;

const char* const declarations = R"mof(
Qualifier Abstract : boolean = false, Scope(class, association), Flavor(Restricted);
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);
Qualifier Description : string = NULL, Scope(any), Flavor(Translatable);
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
Qualifier In : boolean = true, Scope(parameter);
Qualifier Out : boolean = false, Scope(parameter);
Qualifier Override : string = NULL, Scope(property, reference, method), Flavor(Restricted);
Qualifier Values : string[] = NULL, Scope(property);
Qualifier MaxLen : uint32 = 7, Scope(property);
)mof";

class MofReaderTest : public testing::Test {
protected:
    /// Reads the files; "main.mof" is the outermost.
    void read(const std::string& mainFile, std::map<std::string, std::string> files = {}) {
        files["main.mof"] = mainFile;
        MofReader reader(schema_, repository_, [files](const std::string& path) {
            const auto found = files.find(path);
            if (found == files.end()) {
                throw std::runtime_error("No such file or directory");
            }
            return found->second;
        });
        reader.readFile("main.mof", nameSpace_);
    }

    /// Reads after the declarations above, which stand on a line of their own.
    void readDeclared(const std::string& text) {
        std::string head = declarations;
        for (char& character : head) {
            if (character == '\n') {
                character = ' ';
            }
        }
        read(head + "\n" + text);
    }

    /// The error message of reading the text; line numbers count the declarations as line 1.
    std::string errorOf(const std::string& text) {
        try {
            readDeclared(text);
        } catch (const MofError& error) {
            return error.what();
        }
        return "no error";
    }

    Schema::ClassPointer find(const char* name) const {
        return schema_.findClass(nameSpace_, CIMName(name));
    }

    CIMValue valueOf(const char* path, const char* property) const {
        const CIMInstance instance =
            repository_.getInstance(nameSpace_, CIMObjectPath(String(path)));
        return instance.getProperty(instance.findProperty(CIMName(property))).getValue();
    }

    Pegasus::CIMNamespaceName nameSpace_{"root/test"};
    Schema schema_;
    Repository repository_{schema_};
};

TEST_F(MofReaderTest, ReadsAClassWithItsSuperclass) {
    readDeclared(R"mof(
        [Abstract, Description("the " "base")]
        class T_Base { [Key] string Id; uint16 Size = 3; };
        class T_Derived : T_Base { [Override("Size"), Values {"a", "b"}] uint16 Size; string More[]; };
    )mof");

    const auto derived = find("t_derived");
    ASSERT_NE(derived, nullptr);
    EXPECT_EQ(derived->superclass, CIMName("T_Base"));
    ASSERT_EQ(derived->properties.size(), 3U);
    EXPECT_TRUE(derived->findProperty(CIMName("id"))->isKey());
    EXPECT_TRUE(derived->findProperty(CIMName("Id"))->propagated);
    const wire::PropertyDefinition* const size = derived->findProperty(CIMName("Size"));
    EXPECT_FALSE(size->propagated);
    EXPECT_EQ(size->classOrigin, CIMName("T_Base"));
    EXPECT_EQ(size->defaultValue, CIMValue(Pegasus::Uint16(3)));
    Array<String> values;
    values.append("a");
    values.append("b");
    EXPECT_EQ(findQualifier(size->qualifiers, CIMName("Values"))->value, CIMValue(values));
    EXPECT_TRUE(derived->findProperty(CIMName("More"))->isArray);
    EXPECT_FALSE(wire::isQualified(derived->qualifiers, CIMName("Abstract")))
        << "restricted to T_Base";
    EXPECT_EQ(findQualifier(derived->qualifiers, CIMName("Description"))->value,
              CIMValue(String("the base")));
}

TEST_F(MofReaderTest, ReadsMethodsWithTheirParameters) {
    readDeclared(R"mof(
        class T_Element { [Key] string Id; };
        class T_Service {
            uint32 Run([In] T_Element REF Element, [In] uint16 Codes[],
                       [In(false), Out] datetime Finished);
            boolean Stop();
        };
    )mof");

    const wire::MethodDefinition* const run = find("T_Service")->findMethod(CIMName("RUN"));
    ASSERT_NE(run, nullptr);
    EXPECT_EQ(run->returnType, Pegasus::CIMTYPE_UINT32);
    ASSERT_EQ(run->parameters.size(), 3U);
    EXPECT_EQ(run->parameters[0].type, Pegasus::CIMTYPE_REFERENCE);
    EXPECT_EQ(run->parameters[0].referenceClass, CIMName("T_Element"));
    EXPECT_TRUE(run->parameters[1].isArray);
    EXPECT_TRUE(run->parameters[1].isIn());
    EXPECT_FALSE(run->parameters[1].isOut());
    EXPECT_FALSE(run->parameters[2].isIn());
    EXPECT_TRUE(run->parameters[2].isOut());
    EXPECT_TRUE(find("T_Service")->findMethod(CIMName("Stop"))->parameters.empty());
}

TEST_F(MofReaderTest, ReadsEveryKindOfLiteral) {
    readDeclared(R"mof(
        class T_All {
            [Key] string Id; boolean B; uint8 U8; sint8 S8; uint64 U64; sint64 S64; uint16 Hex;
            uint16 Octal; uint16 Binary; real32 R; real64 Exponent; real64 Whole; char16 C;
            datetime When; string Nothing; string Empty[]; sint32 List[]; string Escapes;
        };
        instance of T_All {
            Id = "x"; B = TRUE; U8 = 255; S8 = -128; U64 = 18446744073709551615;
            S64 = -9223372036854775808; Hex = 0x2A; Octal = 052; Binary = 101010b; R = 1.5;
            Exponent = -2.5E-3; Whole = 4; C = 'c'; When = "20020308070100.000000-240";
            Nothing = NULL; Empty = {}; List = {1, -2, +3};
            Escapes = "tab\t quote\" backslash\\ \x41\xe9 bell\b";
        };
    )mof");

    const char* const path = "T_All.Id=\"x\"";
    EXPECT_EQ(valueOf(path, "B"), CIMValue(Pegasus::Boolean(true)));
    EXPECT_EQ(valueOf(path, "U8"), CIMValue(Pegasus::Uint8(255)));
    EXPECT_EQ(valueOf(path, "S8"), CIMValue(Pegasus::Sint8(-128)));
    EXPECT_EQ(valueOf(path, "U64"), CIMValue(~Pegasus::Uint64(0)));
    EXPECT_EQ(valueOf(path, "S64"),
              CIMValue(static_cast<Pegasus::Sint64>(Pegasus::Uint64(1) << 63)));
    EXPECT_EQ(valueOf(path, "Hex"), CIMValue(Pegasus::Uint16(42)));
    EXPECT_EQ(valueOf(path, "Octal"), CIMValue(Pegasus::Uint16(42)));
    EXPECT_EQ(valueOf(path, "Binary"), CIMValue(Pegasus::Uint16(42)));
    EXPECT_EQ(valueOf(path, "R"), CIMValue(Pegasus::Real32(1.5F)));
    EXPECT_EQ(valueOf(path, "Exponent"), CIMValue(Pegasus::Real64(-2.5E-3)));
    EXPECT_EQ(valueOf(path, "Whole"), CIMValue(Pegasus::Real64(4)));
    EXPECT_EQ(valueOf(path, "C"), CIMValue(Pegasus::Char16('c')));
    EXPECT_EQ(valueOf(path, "When"),
              CIMValue(Pegasus::CIMDateTime(String("20020308070100.000000-240"))));
    EXPECT_TRUE(valueOf(path, "Nothing").isNull());
    EXPECT_FALSE(valueOf(path, "Empty").isNull());
    EXPECT_EQ(valueOf(path, "Empty").getArraySize(), 0U);
    Array<Pegasus::Sint32> list;
    list.append(1);
    list.append(-2);
    list.append(3);
    EXPECT_EQ(valueOf(path, "List"), CIMValue(list));
    EXPECT_EQ(valueOf(path, "Escapes"),
              CIMValue(String("tab\t quote\" backslash\\ A\xC3\xA9 bell\b")));
}

TEST_F(MofReaderTest, AssociationInstancesReferByPathAndByAlias) {
    readDeclared(R"mof(
        class T_Item { [Key] string Id; };
        [Association] class T_Link { [Key] T_Item REF Left; [Key] T_Item REF Right; };
        instance of T_Item as $One { Id = "one"; };
        instance of T_Item { Id = "two"; };
        instance of T_Link { Left = $One; Right = "T_Item.Id=\"two\""; };
    )mof");

    const auto links = repository_.enumerateInstances(nameSpace_, CIMName("T_Link"));
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].getPath().toString(),
              String(R"(T_Link.Left="T_Item.Id=\"one\"",Right="T_Item.Id=\"two\"")"));
}

TEST_F(MofReaderTest, CommentsAndKeywordsInAnyCaseAreRead) {
    readDeclared(
        "/* a\n comment */ CLASS T_A { // another\n [KEY] String Id; };\n"
        "INSTANCE OF T_A { Id = \"1\"; };");
    EXPECT_EQ(repository_.enumerateInstances(nameSpace_, CIMName("T_A")).size(), 1U);
}

TEST_F(MofReaderTest, AByteOrderMarkIsSkipped) {
    read(
        "\xEF\xBB\xBF"
        "class T_A { string Id; };");
    EXPECT_NE(find("T_A"), nullptr);
}

TEST_F(MofReaderTest, TheNamespacePragmaHoldsInWhatTheFileIncludesAndNotBehindIt) {
    read("#pragma include (\"folder/inner.mof\")\nclass T_Outer { string Id; };",
         {{"folder/inner.mof",
           "#pragma namespace (\"root/other\")\n#pragma include (\"deeper.mof\")"},
          {"folder/deeper.mof", "#pragma locale (\"en_US\")\nclass T_Inner { string Id; };"}});
    EXPECT_NE(find("T_Outer"), nullptr);
    EXPECT_EQ(find("T_Inner"), nullptr);
    EXPECT_NE(schema_.findClass(Pegasus::CIMNamespaceName("root/other"), CIMName("T_Inner")),
              nullptr);
}

TEST_F(MofReaderTest, ErrorsSayWhereTheyAre) {
    EXPECT_EQ(errorOf("class T_A {\n    string Id\n};"),
              "main.mof:4:1: expected ';' instead of '}'");
    EXPECT_EQ(errorOf("  \xC3\xA9t\xC3\xA9 T_A {};"),
              "main.mof:2:3: expected a pragma, a qualifier declaration, a class or an instance "
              "instead of '\xC3\xA9t\xC3\xA9'");
    EXPECT_EQ(errorOf("class T_A { string \xC3\xA9, };"),
              "main.mof:2:21: expected ';' instead of ','")
        << "columns count characters";
}

TEST_F(MofReaderTest, ErrorsOfTheGrammarNameWhatIsAtFault) {
    EXPECT_EQ(errorOf("class"),
              "main.mof:2:6: expected the name of a class instead of the end of the file");
    EXPECT_EQ(errorOf("class 7"), "main.mof:2:7: expected the name of a class instead of 7");
    EXPECT_EQ(errorOf("#include"), "main.mof:2:1: '#' is not followed by 'pragma'");
    EXPECT_EQ(errorOf("$ x"), "main.mof:2:2: '$' is not followed by the name of an alias");
    EXPECT_EQ(errorOf("/* no end"), "main.mof:2:1: the comment does not end");
    EXPECT_EQ(errorOf("class T_A { string Id = \"no end\n\"; };"),
              "main.mof:2:25: the string does not end on its line");
    EXPECT_EQ(errorOf("class T_A { string Id = \"\\q\"; };"),
              "main.mof:2:26: unknown escape in a string or character literal");
    EXPECT_EQ(errorOf("class T_A { string Id = \"\\xD800\"; };"),
              "main.mof:2:32: an escape \\x takes one to four hexadecimal digits of a character");
    EXPECT_EQ(errorOf("class T_A { char16 C = 'ab'; };"),
              "main.mof:2:24: the character literal does not end after one character");
    EXPECT_EQ(errorOf("class T_A { char16 C = ''; };"),
              "main.mof:2:25: a character literal holds one ASCII character or an escape");
    EXPECT_EQ(errorOf("class T_A { uint8 N = 09; };"),
              "main.mof:2:23: '09' is not a number of at most 64 bits");
    EXPECT_EQ(errorOf("class T_A { uint64 N = 18446744073709551616; };"),
              "main.mof:2:24: '18446744073709551616' is not a number of at most 64 bits");
    EXPECT_EQ(errorOf("class T_A { real32 N = 1.; };"),
              "main.mof:2:24: '1.' is not a number of at most 64 bits");
    EXPECT_EQ(errorOf("class T_A \x01"),
              "main.mof:2:11: there is a character that MOF does not use here");
    EXPECT_EQ(errorOf("class T_A { string Id[0]; };"),
              "main.mof:2:23: expected the size of an array instead of 0");
    EXPECT_EQ(errorOf("instance T_A"), "main.mof:2:10: expected 'of' instead of 'T_A'");
    EXPECT_EQ(errorOf("#pragma include (7)"), "main.mof:2:18: expected a string instead of 7");
    EXPECT_EQ(errorOf("Qualifier X : string, Flavor(Restricted);"),
              "main.mof:2:23: expected 'Scope' instead of 'Flavor'");
    EXPECT_EQ(errorOf("Qualifier X : string, Scope(any), Scope(any);"),
              "main.mof:2:35: expected 'Flavor' instead of 'Scope'");
    EXPECT_EQ(errorOf("Qualifier X : string, Scope(any), Flavor(Sweet);"),
              "main.mof:2:42: expected a flavor instead of 'Sweet'");
    EXPECT_EQ(errorOf("[Key : Sweet] class T_A {};"),
              "main.mof:2:8: expected a flavor instead of 'Sweet'");
    EXPECT_EQ(errorOf("class T_A { string Id = ; };"),
              "main.mof:2:25: expected a value instead of ';'");
}

TEST_F(MofReaderTest, ErrorsInClassesNameWhatIsAtFault) {
    EXPECT_EQ(errorOf("class T_A : T_Nope {};"), "main.mof:2:7: unknown superclass T_Nope");
    EXPECT_EQ(errorOf("class T_B {};\nclass T_B {};"),
              "main.mof:3:7: there is already a class T_B");
    EXPECT_EQ(errorOf("class T_C { string X; string x; };"), "main.mof:2:7: T_C.x: declared twice");
    EXPECT_EQ(errorOf("class T_C { void X(); };"),
              "main.mof:2:13: void is no type, and 'REF' does not follow it");
    EXPECT_EQ(errorOf("class T_C { uint32 X(uint8 a, uint8 A); };"),
              "main.mof:2:7: T_C.A: a parameter is declared twice");
    EXPECT_EQ(errorOf("class T_C { T_B REF X; };"),
              "main.mof:2:7: T_C.X: only an association may have a reference property");
    EXPECT_EQ(errorOf("class T_C { T_B REF X(); };"),
              "main.mof:2:13: a method cannot return a reference");
    EXPECT_EQ(errorOf("[Association] class T_C { T_Nope REF X; };"),
              "main.mof:2:21: unknown reference class T_Nope");
    EXPECT_EQ(errorOf("[Association] class T_C { T_B REF X[]; };"),
              "main.mof:2:21: T_C.X: a property cannot be an array of references");
    EXPECT_EQ(errorOf("class T_D { uint16 X; };\nclass T_E : T_D { uint32 X; };"),
              "main.mof:3:7: T_E.X: its type is not that of the superclass");
    EXPECT_EQ(errorOf("class T_F { uint16 X(); };\nclass T_G : T_F { uint32 X(); };"),
              "main.mof:3:7: T_G.X: its return type is not that of the superclass");
    EXPECT_EQ(
        errorOf("class T_H { [Key] string X; };\nclass T_I : T_H { [Key(false)] string X; };"),
        "main.mof:3:7: T_I.X: a qualifier of the superclass must not be overridden");
}

TEST_F(MofReaderTest, ErrorsInQualifiersNameWhatIsAtFault) {
    EXPECT_EQ(errorOf("[Nope] class T_A {};"), "main.mof:2:2: the qualifier Nope is not declared");
    EXPECT_EQ(errorOf("[Abstract, abstract] class T_A {};"),
              "main.mof:2:12: the qualifier Abstract stands here twice");
    EXPECT_EQ(errorOf("class T_A { [Key] uint32 Run(); };"),
              "main.mof:2:19: the qualifier Key is not declared for the scope method");
    EXPECT_EQ(errorOf("[Key] class T_A {};"),
              "main.mof:2:13: the qualifier Key is not declared for the scope class");
    EXPECT_EQ(errorOf("class T_A { [Values(\"x\")] string X; };"),
              "main.mof:2:21: a list in braces is needed here");
    EXPECT_EQ(errorOf("class T_A { [MaxLen(-1)] string X; };"),
              "main.mof:2:21: -1 is out of the range of uint32");
    EXPECT_EQ(errorOf("Qualifier Key : string, Scope(any);"),
              "main.mof:2:11: there is already a qualifier Key of another type");
    EXPECT_EQ(errorOf("Qualifier X : text, Scope(any);"), "main.mof:2:15: there is no type text");
}

TEST_F(MofReaderTest, AQualifierWithoutValueIsTrueOrTheDefault) {
    readDeclared("class T_A { [Key, MaxLen] string Id; };");
    const wire::PropertyDefinition* const id = find("T_A")->findProperty(CIMName("Id"));
    EXPECT_TRUE(id->isKey());
    EXPECT_EQ(findQualifier(id->qualifiers, CIMName("MaxLen"))->value,
              CIMValue(Pegasus::Uint32(7)));
}

TEST_F(MofReaderTest, ErrorsInInstancesNameWhatIsAtFault) {
    ASSERT_EQ(
        errorOf("class T_A { [Key] string Id; uint8 N; datetime D; boolean B; string L[]; };\n"
                "[Association] class T_R { [Key] T_A REF A; };"),
        "no error");
    EXPECT_EQ(errorOf("instance of T_Nope {};"), "main.mof:2:13: unknown class T_Nope");
    EXPECT_EQ(errorOf("instance of T_A { Nope = 1; };"),
              "main.mof:2:19: class T_A has no property Nope");
    EXPECT_EQ(errorOf("instance of T_A { Id = \"1\"; id = \"2\"; };"),
              "main.mof:2:29: the property id stands here twice");
    EXPECT_EQ(errorOf("instance of T_A { N = 1; };"), "main.mof:2:13: the key Id has no value");
    EXPECT_EQ(errorOf("instance of T_A { Id = 5; };"),
              "main.mof:2:24: this is no value of type string");
    EXPECT_EQ(errorOf("instance of T_A { N = 256; };"),
              "main.mof:2:23: 256 is out of the range of uint8");
    EXPECT_EQ(errorOf("instance of T_A { D = \"yesterday\"; };"),
              "main.mof:2:23: \"yesterday\" is no date, time or interval");
    EXPECT_EQ(errorOf("instance of T_A { B = 1; };"),
              "main.mof:2:23: this is no value of type boolean");
    EXPECT_EQ(errorOf("instance of T_A { L = \"x\"; };"),
              "main.mof:2:23: a list in braces is needed here");
    EXPECT_EQ(errorOf("instance of T_A { Id = {\"x\"}; };"),
              "main.mof:2:24: a single value is needed here, not a list");
    EXPECT_EQ(errorOf("instance of T_A { Id = \"\xFF\"; };"),
              "main.mof:2:24: the text is not valid UTF-8");
    EXPECT_EQ(errorOf("instance of T_R { A = \"no path\"; };"),
              "main.mof:2:23: \"no path\" is no object path");
    EXPECT_EQ(errorOf("instance of T_R { A = $Nobody; };"),
              "main.mof:2:23: no instance before this one has the alias $Nobody");
    EXPECT_EQ(
        errorOf("instance of T_A as $X { Id = \"1\"; };\ninstance of T_A as $X { Id = \"2\"; };"),
        "main.mof:3:20: there is already an instance with the alias $X");
    EXPECT_EQ(errorOf("instance of T_A { Id = \"1\"; };"), "main.mof:2:13: T_A.Id=\"1\"")
        << "the instance of the line before is there";
}

TEST_F(MofReaderTest, AFileThatCannotBeReadIsNamedWithTheReason) {
    EXPECT_EQ(errorOf("#pragma include (\"gone.mof\")"),
              "main.mof:2:18: cannot read gone.mof: No such file or directory");
    EXPECT_THROW(MofReader(schema_, repository_).readFile("/nonexistent/x.mof", nameSpace_),
                 MofError);
}

TEST_F(MofReaderTest, IncludesAreLimitedInDepth) {
    std::map<std::string, std::string> files;
    for (unsigned depth = 1; depth < MofReader::maximumDepth; ++depth) {
        files["f" + std::to_string(depth)] =
            "#pragma include (\"f" + std::to_string(depth + 1) + "\")";
    }
    files["f" + std::to_string(MofReader::maximumDepth)] = "";
    const std::string atTheLimit = "#pragma include (\"f2\")";
    EXPECT_NO_THROW(read(atTheLimit, files));
    try {
        read("#pragma include (\"f1\")", files);
        FAIL() << "one include deeper than allowed";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "f15:1:18: includes are nested too deeply");
    }
}

TEST_F(MofReaderTest, AFileThatIncludesItselfEndsWithAnError) {
    try {
        read("#pragma include (\"main.mof\")");
        FAIL() << "an endless include";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "main.mof:1:18: includes are nested too deeply");
    }
}

TEST_F(MofReaderTest, FilesAreLimitedInNumber) {
    std::string many;
    for (unsigned file = 1; file < MofReader::maximumFiles; ++file) {
        many += "#pragma include (\"empty.mof\")\n";
    }
    EXPECT_NO_THROW(read(many, {{"empty.mof", ""}}));
    try {
        read(many + "#pragma include (\"empty.mof\")\n", {{"empty.mof", ""}});
        FAIL() << "one file more than allowed";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "main.mof:256:18: there are more than 256 files to read");
    }
}

TEST_F(MofReaderTest, FilesAreLimitedInSize) {
    std::string text(MofReader::maximumFileSize, ' ');
    EXPECT_NO_THROW(read(text));
    try {
        read(text + ' ');
        FAIL() << "one byte more than allowed";
    } catch (const MofError& error) {
        EXPECT_STREQ(error.what(), "main.mof:1:1: the file is larger than 4 MiB");
    }
}

}  // namespace
}  // namespace cimhost
