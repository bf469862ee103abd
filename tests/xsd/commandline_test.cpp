// orvex-xsd as a program: its exit codes and messages on bad command lines and bad schema
// sets, an output directory that is written whole or not at all, output that is the same
// bytes on every run, and the order book schema compiled into exactly the shape of the hand
// binding in samples/order.
#include <dirent.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string ReadFile(const std::string& strFile) {
    std::ifstream in(strFile, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> ListDirectory(const std::string& strDir) {
    std::vector<std::string> vecNames;
    if (DIR* pDir = opendir(strDir.c_str())) {
        while (dirent* pEntry = readdir(pDir)) {
            const std::string strName = pEntry->d_name;
            if (strName != "." && strName != "..") vecNames.push_back(strName);
        }
        closedir(pDir);
    }
    std::sort(vecNames.begin(), vecNames.end());
    return vecNames;
}

// The lines of a source that are not comments.
std::string WithoutComments(const std::string& strText) {
    std::istringstream in(strText);
    std::string strLine, strResult;
    while (std::getline(in, strLine)) {
        const size_t nFirst = strLine.find_first_not_of(' ');
        if (nFirst != std::string::npos && strLine.compare(nFirst, 2, "//") == 0) continue;
        strResult += strLine + "\n";
    }
    return strResult;
}

const char* const kMalformed =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:element name=\"a\" type=\"xs:string\">\n"
    "</xs:schema>\n";
const char* const kMissingImport =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:a\" xmlns:b=\"urn:b\">\n"
    "  <xs:import namespace=\"urn:b\" schemaLocation=\"nowhere.xsd\"/>\n"
    "  <xs:element name=\"a\" type=\"b:T\"/>\n"
    "</xs:schema>\n";
const char* const kRemoteImport =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:a\" xmlns:b=\"urn:b\">\n"
    "  <xs:import namespace=\"urn:b\" schemaLocation=\"http://example.org/schemas/b.xsd\"/>\n"
    "  <xs:element name=\"a\" type=\"b:T\"/>\n"
    "</xs:schema>\n";
const char* const kImported =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:b\">\n"
    "  <xs:complexType name=\"T\"><xs:sequence><xs:element name=\"v\" type=\"xs:int\"/></xs:sequence>"
    "</xs:complexType>\n"
    "</xs:schema>\n";
const char* const kUnresolvedType =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:complexType name=\"T\">\n"
    "    <xs:sequence><xs:element name=\"v\" type=\"Nope\"/></xs:sequence>\n"
    "  </xs:complexType>\n"
    "</xs:schema>\n";
const char* const kCatalog =
    "<catalog xmlns=\"urn:oasis:names:tc:entity:xmlns:xml:catalog\">\n"
    "  <rewriteSystem systemIdStartString=\"http://example.org/schemas/\" rewritePrefix=\"lib/\"/>\n"
    "</catalog>\n";
const char* const kNotACatalog = "<catalogue/>\n";
const char* const kDerived =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:complexType name=\"B\"><xs:choice><xs:element name=\"a\" type=\"xs:int\"/></xs:choice>"
    "</xs:complexType>\n"
    "  <xs:complexType name=\"D\"><xs:complexContent><xs:extension base=\"B\">\n"
    "    <xs:sequence><xs:element name=\"b\" type=\"xs:int\"/></xs:sequence>\n"
    "  </xs:extension></xs:complexContent></xs:complexType>\n"
    "</xs:schema>\n";
const char* const kRestricted =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:complexType name=\"B\"><xs:sequence><xs:element name=\"a\" type=\"xs:int\" nillable=\"true\"/>"
    "</xs:sequence></xs:complexType>\n"
    "  <xs:complexType name=\"R\"><xs:complexContent><xs:restriction base=\"B\">\n"
    "    <xs:sequence><xs:element name=\"a\" type=\"xs:int\" nillable=\"true\"/></xs:sequence>\n"
    "  </xs:restriction></xs:complexContent></xs:complexType>\n"
    "</xs:schema>\n";
const char* const kSharedNillable =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:element name=\"P\"><xs:complexType><xs:sequence>\n"
    "    <xs:element name=\"home\" type=\"A\" nillable=\"true\"/><xs:element name=\"work\" type=\"A\"/>\n"
    "  </xs:sequence></xs:complexType></xs:element>\n"
    "  <xs:complexType name=\"A\"><xs:sequence><xs:element name=\"s\" type=\"xs:string\"/></xs:sequence>"
    "</xs:complexType>\n"
    "</xs:schema>\n";
const char* const kList =
    "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
    "  <xs:element name=\"w\">\n"
    "    <xs:complexType><xs:sequence><xs:element name=\"sizes\" type=\"Sizes\"/></xs:sequence></xs:complexType>\n"
    "  </xs:element>\n"
    "  <xs:simpleType name=\"Sizes\"><xs:list itemType=\"xs:int\"/></xs:simpleType>\n"
    "</xs:schema>\n";

class OrvexXsdProgram : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvex_xsd_XXXXXX";
        ASSERT_NE(mkdtemp(szTemplate), nullptr);
        m_strDir = szTemplate;
        ASSERT_EQ(std::system(("mkdir '" + m_strDir + "/lib'").c_str()), 0);
        Write("bad.xsd", kMalformed);
        Write("missing.xsd", kMissingImport);
        Write("remote.xsd", kRemoteImport);
        Write("lib/b.xsd", kImported);
        Write("unresolved.xsd", kUnresolvedType);
        Write("catalog.xml", kCatalog);
        Write("notcatalog.xml", kNotACatalog);
        Write("derived.xsd", kDerived);
        Write("list.xsd", kList);
        Write("restricted.xsd", kRestricted);
        Write("nillable.xsd", kSharedNillable);
        Write("version.xsd", "<?xml version=\"1..0\"?>\n<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\"/>\n");
    }
    void TearDown() override { EXPECT_EQ(std::system(("rm -rf '" + m_strDir + "'").c_str()), 0); }

    void Write(const std::string& strName, const std::string& strText) {
        std::ofstream(m_strDir + "/" + strName, std::ios::binary) << strText;
    }

    // Runs orvex-xsd in the scratch directory; its exit code, with what it wrote in m_strOut
    // and m_strErr.
    int Run(const std::string& strArgs) {
        const std::string strCommand =
            "cd '" + m_strDir + "' && '" + ORVEX_XSD_PATH + "' " + strArgs + " > stdout.txt 2> stderr.txt";
        const int nStatus = std::system(strCommand.c_str());
        m_strOut = ReadFile(m_strDir + "/stdout.txt");
        m_strErr = ReadFile(m_strDir + "/stderr.txt");
        std::remove((m_strDir + "/stdout.txt").c_str());
        std::remove((m_strDir + "/stderr.txt").c_str());
        return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
    }

    std::string m_strDir;
    std::string m_strOut;
    std::string m_strErr;
};

TEST_F(OrvexXsdProgram, RefusesWithItsExitCodeAndOneMessageAndWritesNothing) {
    const std::vector<std::string> vecBefore = ListDirectory(m_strDir);
    const struct {
        const char* pszArgs;
        int nExit;
        const char* pszMessage;
    } cases[] = {
        {"", 2, "orvex-xsd: no schema file given\nTry 'orvex-xsd --help'.\n"},
        {"bad.xsd", 2, "orvex-xsd: no output directory given (-o DIR)\nTry 'orvex-xsd --help'.\n"},
        {"-o out --bogus bad.xsd", 2, "orvex-xsd: unknown option --bogus\nTry 'orvex-xsd --help'.\n"},
        {"bad.xsd -o", 2, "orvex-xsd: option -o needs a value\nTry 'orvex-xsd --help'.\n"},
        {"-o out -o out2 bad.xsd", 2, "orvex-xsd: the output directory is given twice\nTry 'orvex-xsd --help'.\n"},
        {"-o out --namespace class bad.xsd", 2,
         "orvex-xsd: --namespace class is not a C++ namespace name\nTry 'orvex-xsd --help'.\n"},
        {"-o out --namespace A::2B bad.xsd", 2,
         "orvex-xsd: --namespace A::2B is not a C++ namespace name\nTry 'orvex-xsd --help'.\n"},
        {"-o out nofile.xsd", 1, "nofile.xsd: schema file not found\n"},
        {"-o out bad.xsd", 1, "bad.xsd:3:3: expected end of tag 'xs:element'\n"},
        // Refused by Xerces' DOM parser with an exception of its own (found by fuzzing).
        {"-o out version.xsd", 1,
         "version.xsd: the document can't be read: implementation does not support the requested type of object or "
         "operation\n"},
        {"-o out missing.xsd", 1, "missing.xsd:2:62: schema document nowhere.xsd not found\n"},
        {"-o out remote.xsd", 1,
         "remote.xsd:2:83: refusing to fetch http://example.org/schemas/b.xsd: no local copy found (map it with "
         "--catalog or name its directory with -I)\n"},
        {"-o out -I nowhere remote.xsd", 1,
         "remote.xsd:2:83: refusing to fetch http://example.org/schemas/b.xsd: no local copy found (map it with "
         "--catalog or name its directory with -I)\n"},
        {"-o out unresolved.xsd", 1, "unresolved.xsd:3:52: type ':Nope' not found\n"},
        {"-o out --catalog none.xml remote.xsd", 1, "none.xml: catalog file not found\n"},
        {"-o out --catalog notcatalog.xml remote.xsd", 1,
         "notcatalog.xml: not an XML catalog (the document element must be catalog in the namespace "
         "urn:oasis:names:tc:entity:xmlns:xml:catalog)\n"},
        {"-o out derived.xsd", 1, "derived.xsd:3:70: extension of the choice of B by elements is not supported yet\n"},
        {"-o out --strict list.xsd", 1,
         "list.xsd:3:73: the list type of sizes is bound as xs:string: its items are not checked\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszArgs);
        EXPECT_EQ(Run(c.pszArgs), c.nExit);
        EXPECT_EQ(m_strErr, c.pszMessage);
        EXPECT_EQ(m_strOut, "");
        // No output directory, and nothing left of a temporary one.
        EXPECT_EQ(ListDirectory(m_strDir), vecBefore);
    }
}

TEST_F(OrvexXsdProgram, FindsImportsOnlyWhereItIsToldAndWarnsOfWhatItCantBind) {
    const struct {
        const char* pszArgs;
        const char* pszWarnings;
        std::vector<std::string> vecFiles;
    } cases[] = {
        {"-o out --catalog catalog.xml remote.xsd",
         "",
         {"a.cpp", "a.h", "afactory.cpp", "afactory.h", "schema.cpp", "schema.h"}},
        {"-o out -I lib remote.xsd", "", {"a.cpp", "a.h", "afactory.cpp", "afactory.h", "schema.cpp", "schema.h"}},
        {"-o out list.xsd",
         "list.xsd:3:73: warning: the list type of sizes is bound as xs:string: its items are not "
         "checked\n",
         {"schema.cpp", "schema.h", "schemafactory.cpp", "schemafactory.h", "w.cpp", "w.h"}},
        {"-o out restricted.xsd",
         "restricted.xsd:2:93: warning: nillable element a is bound as its value: xsi:nil is accepted on reading but "
         "leaves no value to write back\n"
         "restricted.xsd:3:72: warning: the restriction R of B is bound with the members of B: what it narrows is not "
         "checked\n",
         {"b.cpp", "b.h", "r.cpp", "r.h", "schema.cpp", "schema.h", "schemafactory.cpp", "schemafactory.h"}},
        {"-o out nillable.xsd",
         "nillable.xsd:3:89: warning: element work is not nillable, but its class CA is an INillable because a "
         "nillable element shares it: xsi:nil is accepted on work too\n",
         {"a.cpp", "a.h", "p.cpp", "p.h", "schema.cpp", "schema.h", "schemafactory.cpp", "schemafactory.h"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pszArgs);
        EXPECT_EQ(Run(c.pszArgs), 0);
        EXPECT_EQ(m_strErr, c.pszWarnings);
        EXPECT_EQ(ListDirectory(m_strDir + "/out"), c.vecFiles);
        ASSERT_EQ(std::system(("rm -rf '" + m_strDir + "/out'").c_str()), 0);
    }
}

TEST_F(OrvexXsdProgram, ReplacesTheOutputDirectoryWholeOnlyWhenItSucceeds) {
    ASSERT_EQ(std::system(("mkdir '" + m_strDir + "/out' && touch '" + m_strDir + "/out/stale.h'").c_str()), 0);
    EXPECT_EQ(Run("-o out bad.xsd"), 1);
    EXPECT_EQ(ListDirectory(m_strDir + "/out"), std::vector<std::string>{"stale.h"});
    EXPECT_EQ(Run("-o out -I lib remote.xsd"), 0);
    EXPECT_EQ(ListDirectory(m_strDir + "/out"),
              (std::vector<std::string>{"a.cpp", "a.h", "afactory.cpp", "afactory.h", "schema.cpp", "schema.h"}));
    for (const std::string& strName : ListDirectory(m_strDir)) EXPECT_EQ(strName.find("out."), std::string::npos);
}

TEST_F(OrvexXsdProgram, WritesTheSameBytesOnEveryRun) {
    const std::string strSchema = std::string(ORVEXXML_SOURCE_DIR) + "/bench/order/order.xsd";
    ASSERT_EQ(Run("-o one '" + strSchema + "'"), 0);
    ASSERT_EQ(Run("-o two '" + strSchema + "'"), 0);
    const std::vector<std::string> vecFiles = ListDirectory(m_strDir + "/one");
    EXPECT_EQ(vecFiles, ListDirectory(m_strDir + "/two"));
    for (const std::string& strFile : vecFiles)
        EXPECT_EQ(ReadFile(m_strDir + "/one/" + strFile), ReadFile(m_strDir + "/two/" + strFile)) << strFile;
}

TEST_F(OrvexXsdProgram, CompilesTheOrderBookIntoTheShapeOfItsHandBinding) {
    // samples/order holds the order book bound by hand exactly as generated code; only the
    // comments, written for readers of the samples, differ.
    const std::string strSamples = std::string(ORVEXXML_SOURCE_DIR) + "/samples/order";
    ASSERT_EQ(Run("--namespace OrderBook -o out '" + std::string(ORVEXXML_SOURCE_DIR) + "/bench/order/order.xsd'"), 0);
    EXPECT_EQ(m_strErr, "");
    std::vector<std::string> vecExpected = ListDirectory(strSamples);
    vecExpected.push_back("schema.cpp");
    vecExpected.push_back("schema.h");
    std::sort(vecExpected.begin(), vecExpected.end());
    EXPECT_EQ(ListDirectory(m_strDir + "/out"), vecExpected);
    for (const std::string& strFile : ListDirectory(strSamples)) {
        EXPECT_EQ(WithoutComments(ReadFile(m_strDir + "/out/" + strFile)),
                  WithoutComments(ReadFile(strSamples + "/" + strFile)))
            << strFile;
    }
}

TEST_F(OrvexXsdProgram, WritesTheSchemasDocumentationAsComments) {
    // The texts of xs:documentation without their markup, each line trimmed, several of them
    // apart by an empty line; xs:appinfo is not documentation. A line ending in a backslash
    // mustn't continue its comment onto the code below.
    ASSERT_EQ(Run("-o out '" + std::string(ORVEXXML_SOURCE_DIR) + "/tests/xsd/contentmodels.xsd'"), 0);
    const std::string strNote = ReadFile(m_strDir + "/out/note.h");
    EXPECT_NE(strNote.find("\n// A note: its text is the value.\n//\n// A path such as C:\\notes\\.\nclass CNote "),
              std::string::npos)
        << strNote;
    EXPECT_EQ(strNote.find("appinfo"), std::string::npos);
    const std::string strPrice = ReadFile(m_strDir + "/out/price.h");
    EXPECT_NE(
        strPrice.find("    // @currency: xs:string, required\n    // The ISO 4217 code.\n    //\n    // Der Code.\n"
                      "    const std::string& GetCurrency() const"),
        std::string::npos)
        << strPrice;
}

TEST_F(OrvexXsdProgram, AnswersHelpAndVersion) {
    EXPECT_EQ(Run("--version"), 0);
    EXPECT_EQ(m_strOut, "orvex-xsd 16.1.0\n");
    EXPECT_EQ(Run("--help"), 0);
    EXPECT_EQ(m_strOut.compare(0, 41, "Usage: orvex-xsd [options] -o DIR SCHEMA."), 0) << m_strOut;
    EXPECT_EQ(m_strErr, "");
}

}  // namespace
