// The orvex program, run as a user runs it: exit statuses and messages, files that appear
// whole or not at all, compression by content, and documents of the machine that the project
// didn't write, read back as infosets by an independent reader (tests/orvex/infoset.py).
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "support/zlibcheck.h"

using namespace OrvexTest;

namespace {

const std::string kOrvex = ORVEX_PATH;
const std::string kInfoset = std::string(ORVEXXML_SOURCE_DIR) + "/tests/orvex/infoset.py";

// Documents of packages the dependency script installs (xmlstarlet, docbook5-xml,
// opensaml-schemas, xmltooling-schemas): namespaces, default namespaces, prefixes, mixed
// content, non-ASCII text, comments and processing instructions.
const char* const kMachineDocuments[] = {
    "/usr/share/doc/xmlstarlet/examples/xml/S0.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/books.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/c14n.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/disclaimer.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/document.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/foo.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/structure.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/tab-obj.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/table.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/unicode.xml",
    "/usr/share/doc/xmlstarlet/examples/xml/xmlstarlet-xsa.xml",
    "/usr/share/xml/opensaml/saml20-catalog.xml",
    "/usr/share/xml/opensaml/saml-schema-assertion-2.0.xsd",
    "/usr/share/xml/opensaml/cs-sstc-schema-protocol-1.1.xsd",
    "/usr/share/xml/opensaml/saml-schema-authn-context-ppt-2.0.xsd",
    "/usr/share/xml/xmltooling/catalog.xml",
    "/usr/share/xml/docbook/schema/catalog-docbook5.xml",
    "/usr/share/xml/docbook/schema/schematron/5.0/docbook.sch",
    "/usr/share/xml/docbook/schema/xsd/5.0/xlink.xsd",
};

std::string ReadFile(const std::string& strPath) {
    std::ifstream in(strPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteFile(const std::string& strPath, const std::string& strData) {
    std::ofstream(strPath, std::ios::binary).write(strData.data(), static_cast<std::streamsize>(strData.size()));
}

bool Exists(const std::string& strPath) {
    struct stat info;
    return ::stat(strPath.c_str(), &info) == 0;
}

struct Result {
    int nStatus;
    std::string strOut;
    std::string strErr;
};

class Orvex : public ::testing::Test {
protected:
    void SetUp() override {
        char szTemplate[] = "/tmp/orvex-test-XXXXXX";
        m_strDir = mkdtemp(szTemplate);
        m_strDir += "/";
        ::mkdir(Path("work").c_str(), 0777);
    }
    void TearDown() override { EXPECT_EQ(0, std::system(("rm -rf '" + m_strDir + "'").c_str())); }
    std::string Path(const std::string& strName) const { return m_strDir + strName; }

    // Runs orvex with the arguments (a shell text) and standard input from strStdin.
    Result Run(const std::string& strArgs, const std::string& strStdin = "/dev/null") const {
        const std::string strCommand = "'" + kOrvex + "' " + strArgs + " < '" + strStdin + "' > '" + Path("stdout") +
                                       "' 2> '" + Path("stderr") + "'";
        const int nRaw = std::system(strCommand.c_str());
        return {WIFEXITED(nRaw) ? WEXITSTATUS(nRaw) : -1, ReadFile(Path("stdout")), ReadFile(Path("stderr"))};
    }

    // The output of a shell command.
    static std::string Shell(const std::string& strCommand) {
        std::string strOutput;
        FILE* pPipe = popen(strCommand.c_str(), "r");
        char szBuffer[4096];
        size_t nRead;
        while ((nRead = fread(szBuffer, 1, sizeof(szBuffer), pPipe)) > 0) strOutput.append(szBuffer, nRead);
        pclose(pPipe);
        return strOutput;
    }

    // The files in the work folder.
    std::string ListWork() const { return Shell("ls -A '" + Path("work") + "'"); }

    std::string m_strDir;
};

TEST_F(Orvex, UsageAndFileErrorsGiveOneLineAndStatus2) {
    WriteFile(Path("a.xml"), "<a/>");
    const std::string a = "'" + Path("a.xml") + "'";
    const struct {
        std::string strArgs;
        std::string strErr;
    } rows[] = {
        {"", "orvex: no command given (see orvex --help)\n"},
        {"frob", "orvex: unknown command 'frob' (see orvex --help)\n"},
        {"--frob", "orvex: unknown option '--frob' (see orvex --help)\n"},
        {"convert --to xml", "orvex: no input given for convert (see orvex --help)\n"},
        {"convert " + a, "orvex: convert needs --to xml, json or fi (see orvex --help)\n"},
        {"convert " + a + " --to yaml", "orvex: unknown form 'yaml' for --to: xml, json or fi (see orvex --help)\n"},
        {"convert " + a + " --to xml --json-mode all",
         "orvex: unknown mode 'all' for --json-mode: none, simple or full (see orvex --help)\n"},
        {"convert " + a + " --to xml --encoding latin1",
         "orvex: unknown encoding 'latin1': utf-8 or utf-16 (see orvex --help)\n"},
        {"convert " + a + " --to xml --gzip --zlib",
         "orvex: --gzip and --zlib exclude each other (see orvex --help)\n"},
        {"convert " + a + " --to xml -o", "orvex: option '-o' needs a value (see orvex --help)\n"},
        {"convert " + a + " --to xml --compact=yes", "orvex: option '--compact' takes no value (see orvex --help)\n"},
        {"convert " + a + " --to xml --bogus", "orvex: unknown option '--bogus' (see orvex --help)\n"},
        {"convert " + a + " " + a + " --to xml",
         "orvex: more than one input: '" + Path("a.xml") + "' and '" + Path("a.xml") + "' (see orvex --help)\n"},
        {"info " + a + " --gzip", "orvex: option '--gzip' is not one of the command info (see orvex --help)\n"},
        {"format " + a + " --to json", "orvex: option '--to' is not one of the command format (see orvex --help)\n"},
        {"convert " + a + " --to fi --encoding utf-16",
         "orvex: --to fi writes its text in UTF-8; --encoding utf-16 is for xml and json (see orvex --help)\n"},
        {"info '" + Path("missing.xml") + "'", "orvex: " + Path("missing.xml") + ": No such file or directory\n"},
        {"info '" + Path("work") + "'", "orvex: " + Path("work") + ": Is a directory\n"},
        {"convert " + a + " --to xml -o '" + Path("work") + "'", "orvex: " + Path("work") + ": Is a directory\n"},
        {"convert " + a + " --to xml -o '" + Path("none/out.xml") + "'",
         "orvex: " + Path("none/out.xml") + ": No such file or directory\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.strArgs);
        const Result result = Run(row.strArgs);
        EXPECT_EQ(2, result.nStatus);
        EXPECT_EQ(row.strErr, result.strErr);
        EXPECT_EQ("", result.strOut);
    }
    EXPECT_EQ("", ListWork());
    // A file the user may not read; root reads anything, so only an ordinary user sees it.
    if (::geteuid() != 0) {
        WriteFile(Path("secret.xml"), "<a/>");
        ::chmod(Path("secret.xml").c_str(), 0);
        const Result result = Run("info '" + Path("secret.xml") + "'");
        EXPECT_EQ(2, result.nStatus);
        EXPECT_EQ("orvex: " + Path("secret.xml") + ": Permission denied\n", result.strErr);
    }
    // Help and version go to standard output with status 0.
    const Result help = Run("--help");
    EXPECT_EQ(0, help.nStatus);
    EXPECT_EQ(0u, help.strOut.find("Usage: orvex convert IN"));
    EXPECT_NE(std::string::npos, help.strOut.find("--allow-mixed"));
    const Result version = Run("--version");
    EXPECT_EQ(0, version.nStatus);
    EXPECT_EQ(0u, version.strOut.find("orvex 16.1 (liborvexxml 16.1, zlib "));
}

// A bad document ends with status 1 and one line that names the file and, from the parser,
// the line; the target of -o is left as it was, and no temporary file stays behind.
TEST_F(Orvex, BadDocumentsLeaveTheTargetAsItWas) {
    WriteFile(Path("bad.xml"), "<a>\n<b>x</a>");
    WriteFile(Path("mixed.xml"), "<p>Hello <b>w</b> again</p>");
    WriteFile(Path("data.json"), " {\"a\": {\n\"b\": [1, }}");
    WriteFile(Path("bomb.gz"), GZipOfZeros(10ull << 30));
    WriteFile(Path("damaged.gz"), DeflateAs("<a>" + std::string(1000, 'x') + "</a>", kGZipOnly, 1).substr(0, 20));
    WriteFile(Path("work/out.xml"), "previous");
    const std::string kOut = " -o '" + Path("work/out.xml") + "'";
    const struct {
        const char* pszFile;
        int nStatus;
        std::string strErr;
    } rows[] = {
        {"bad.xml", 1, "bad.xml: mismatched tag at line 2"},
        {"mixed.xml", 1,
         "mixed.xml: mixed content at /p would be reordered (text after child elements); "
         "--allow-mixed accepts that"},
        {"data.json", 1,
         "data.json: Expected Value '{', '[', '\"', '0-9', '-', 'true', 'false' or 'null', found '}' at line 2, "
         "position 10.; Path: $.a"},
        {"bomb.gz", 1,
         "bomb.gz: Compressed data expand more than 500 times past 64 MiB; refused as a decompression bomb"},
        {"damaged.gz", 1, "damaged.gz: not well-formed (invalid token) at line 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pszFile);
        const std::string strIn = "'" + Path(row.pszFile) + "'";
        for (const std::string& strArgs : {"convert " + strIn + " --to xml" + kOut, "format " + strIn + kOut}) {
            const Result result = Run(strArgs);
            EXPECT_EQ(row.nStatus, result.nStatus);
            EXPECT_EQ("orvex: " + m_strDir + row.strErr + "\n", result.strErr);
            EXPECT_EQ("", result.strOut);
        }
        EXPECT_EQ("out.xml\n", ListWork());
        EXPECT_EQ("previous", ReadFile(Path("work/out.xml")));
    }
    // A success replaces the target whole.
    EXPECT_EQ(0, Run("format '" + Path("mixed.xml") + "' --allow-mixed" + kOut).nStatus);
    EXPECT_EQ("out.xml\n", ListWork());
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<p>\n\t<b>w</b>\nHello  again</p>\n",
              ReadFile(Path("work/out.xml")));
}

// What the library leaves open, as the tool settles it: mixed content written with the text
// after the children, and a default namespace kept as the default in XML and as "@xmlns" in
// full JSON, where the other modes drop namespaces.
TEST_F(Orvex, MixedContentAndDefaultNamespace) {
    WriteFile(Path("mixed.xml"), "<p>Hello <b>w</b> again</p>");
    WriteFile(Path("ns.xml"), "<r xmlns=\"urn:a\" xmlns:c=\"urn:c\" x=\"1\"><b c:y=\"2\">t</b><c:d>q</c:d></r>");
    WriteFile(Path("nons.xml"), "<a><b xmlns=\"urn:x\"><c/></b><d/></a>");
    WriteFile(Path("twice.xml"), "<a xmlns:p=\"urn:1\"><p:b xmlns:p=\"urn:2\"/><p:c/></a>");
    const struct {
        std::string strArgs;
        std::string strOut;
    } rows[] = {
        {"convert mixed.xml --to xml --compact --allow-mixed",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<p><b>w</b>Hello  again</p>"},
        {"convert ns.xml --to xml --compact",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<r xmlns=\"urn:a\" xmlns:c=\"urn:c\" x=\"1\"><b c:y=\"2\">t</b><c:d>q</c:d></r>"},
        {"convert ns.xml --to json --compact",
         "{\"r\": {\"@xmlns\": \"urn:a\",\"@xmlns:c\": \"urn:c\",\"@x\": \"1\",\"b\": {\"@c:y\": \"2\",\"#text\": "
         "\"t\"},\"c:d\": \"q\",\"#text\": \"\"}}\n"},
        {"convert ns.xml --to json --compact --json-mode simple",
         "{\"r\": {\"@x\": \"1\",\"b\": {\"@y\": \"2\",\"#text\": \"t\"},\"d\": \"q\",\"#text\": \"\"}}\n"},
        // An element in no namespace under a default namespace: the writer can't undeclare a
        // default namespace, so that namespace gets a prefix; so does a prefix bound twice.
        {"convert nons.xml --to xml --compact",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a xmlns:ns1=\"urn:x\"><ns1:b><ns1:c/></ns1:b><d/></a>"},
        {"convert nons.xml --to json --compact",
         "{\"a\": {\"@xmlns:ns1\": \"urn:x\",\"ns1:b\": {\"ns1:c\": \"\",\"#text\": \"\"},\"d\": \"\",\"#text\": "
         "\"\"}}\n"},
        {"convert twice.xml --to xml --compact",
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a xmlns:ns1=\"urn:1\" xmlns:p=\"urn:2\"><p:b/><ns1:c/></a>"},
        {"convert ns.xml --to json --compact --json-mode none",
         "{\"r\": {\"x\": \"1\",\"b\": {\"y\": \"2\",\"\": \"t\"},\"d\": \"q\",\"\": \"\"}}\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.strArgs);
        const std::string strCommand = "cd '" + m_strDir + "' && '" + kOrvex + "' " + row.strArgs;
        EXPECT_EQ(row.strOut, Shell(strCommand));
    }
}

// Compression is read from the content, on files and on standard input; output compressed
// by the tool is exactly the uncompressed output inside gzip or zlib, and format keeps it.
TEST_F(Orvex, CompressionByContentInAndOut) {
    std::string strDoc = "<log>";
    for (int i = 0; i < 200; ++i) strDoc += "<e n=\"" + std::to_string(i) + "\">ok</e>";
    strDoc += "</log>";
    WriteFile(Path("log.xml"), strDoc);
    const std::string strIn = "'" + Path("log.xml") + "'";
    const Result plain = Run("convert " + strIn + " --to xml");
    ASSERT_EQ(0, plain.nStatus);
    const Result plainJson = Run("convert " + strIn + " --to json --compact");
    ASSERT_EQ(0, plainJson.nStatus);

    ASSERT_EQ(0, Run("convert " + strIn + " --to xml --gzip -o '" + Path("log.xml.gz") + "'").nStatus);
    ASSERT_EQ(0, Run("convert " + strIn + " --to json --compact --zlib -o '" + Path("log.json.z") + "'").nStatus);
    EXPECT_EQ(plain.strOut, Shell("gzip -dc '" + Path("log.xml.gz") + "'"));
    std::string strInflated;
    ASSERT_TRUE(InflateExactly(ReadFile(Path("log.json.z")), kZLibOnly, strInflated));
    EXPECT_EQ(plainJson.strOut, strInflated);

    // Read back from a file, from standard input, and by format, which keeps the gzip.
    EXPECT_EQ(plain.strOut, Run("convert '" + Path("log.xml.gz") + "' --to xml").strOut);
    EXPECT_EQ(plain.strOut, Run("convert - --to xml", Path("log.xml.gz")).strOut);
    ASSERT_EQ(0, Run("format - -o '" + Path("again.gz") + "'", Path("log.xml.gz")).nStatus);
    ASSERT_TRUE(InflateExactly(ReadFile(Path("again.gz")), kGZipOnly, strInflated));
    EXPECT_EQ(plain.strOut, strInflated);

    const Result info = Run("info -", Path("log.xml.gz"));
    EXPECT_EQ(0, info.nStatus);
    EXPECT_EQ("form: xml\ncompression: gzip\nsize: " + std::to_string(ReadFile(Path("log.xml.gz")).size()) +
                  "\nuncompressed size: " + std::to_string(plain.strOut.size()) +
                  "\nelements: 201\nattributes: 200\ndepth: 2\n",
              info.strOut);
}

// Documents of the machine, written again as XML compact (exactly the same infoset), indented,
// in UTF-16 and by format (the same up to whitespace in mixed content), and as JSON in each
// mode (strict JSON); info counts what an independent reader counts.
TEST_F(Orvex, MachineDocumentsKeepTheirInfoset) {
    std::vector<std::string> vecFiles;
    for (const char* pszFile : kMachineDocuments) {
        if (Exists(pszFile)) vecFiles.push_back(pszFile);
    }
    if (vecFiles.size() < 12) GTEST_SKIP() << "tools/deps.sh installs the packages whose documents this test reads";

    std::string strManifest;
    std::string strJsonFiles;
    std::string strCountFiles;
    std::string strInfo;
    for (size_t i = 0; i < vecFiles.size(); ++i) {
        const std::string& strFile = vecFiles[i];
        SCOPED_TRACE(strFile);
        const std::string strBase = Path("out" + std::to_string(i));
        const struct {
            const char* pszArgs;
            const char* pszSuffix;
            const char* pszMode;
        } runs[] = {
            {"convert IN --to xml --compact --allow-mixed", ".compact.xml", "exact"},
            {"convert IN --to xml --allow-mixed", ".indent.xml", "loose"},
            {"convert IN --to xml --encoding utf-16 --gzip --allow-mixed", ".utf16.xml.gz", ""},
            {"format IN --allow-mixed", ".format.xml", "loose"},
            {"convert IN --to json --allow-mixed", ".full.json", nullptr},
            {"convert IN --to json --json-mode simple --compact --allow-mixed", ".simple.json", nullptr},
            {"convert IN --to json --json-mode none --encoding utf-8 --allow-mixed", ".none.json", nullptr},
        };
        for (const auto& run : runs) {
            std::string strArgs = run.pszArgs;
            strArgs.replace(strArgs.find("IN"), 2, "'" + strFile + "'");
            const std::string strOut = strBase + run.pszSuffix;
            const Result result = Run(strArgs + " -o '" + strOut + "'");
            ASSERT_EQ(0, result.nStatus) << strArgs << ": " << result.strErr;
            if (!run.pszMode) {
                strJsonFiles += " '" + strOut + "'";
            } else if (*run.pszMode) {
                strManifest += std::string(run.pszMode) + " " + strFile + " " + strOut + "\n";
            } else {  // compressed UTF-16: inflated by the gzip program, then compared
                ASSERT_EQ(0, std::system(("gzip -dc '" + strOut + "' > '" + strBase + ".utf16.xml'").c_str()));
                EXPECT_EQ("\xFF\xFE", ReadFile(strBase + ".utf16.xml").substr(0, 2));
                strManifest += "loose " + strFile + " " + strBase + ".utf16.xml\n";
            }
        }
        strCountFiles += " '" + strFile + "'";
        const Result info = Run("info '" + strFile + "'");
        ASSERT_EQ(0, info.nStatus);
        std::istringstream lines(info.strOut);
        std::string strLine, strCounts;
        while (std::getline(lines, strLine)) {
            for (const char* pszKey : {"elements: ", "attributes: ", "depth: "}) {
                if (strLine.compare(0, std::strlen(pszKey), pszKey) == 0)
                    strCounts += " " + strLine.substr(std::strlen(pszKey));
            }
        }
        strInfo += strFile + ":" + strCounts + "\n";
    }
    WriteFile(Path("manifest"), strManifest);
    EXPECT_EQ("", Shell("python3 '" + kInfoset + "' compare '" + Path("manifest") + "' 2>&1"));
    EXPECT_EQ("", Shell("python3 '" + kInfoset + "' json" + strJsonFiles + " 2>&1"));
    EXPECT_EQ(Shell("python3 '" + kInfoset + "' count" + strCountFiles + " 2>&1"), strInfo);
}

// A large input shows a progress line on a terminal (script gives the program one) and
// nothing on a file or a pipe; the line is cleared before the result appears.
TEST_F(Orvex, ProgressOnATerminalOnly) {
    WriteFile(Path("big.xml"), "<a>" + std::string(51u * 1000 * 1000, 'x') + "</a>");
    const Result quiet = Run("info '" + Path("big.xml") + "'");
    EXPECT_EQ(0, quiet.nStatus);
    EXPECT_EQ("", quiet.strErr);
    const std::string kInfo =
        "form: xml\ncompression: none\nsize: 51000007\nuncompressed size: 51000007\n"
        "elements: 1\nattributes: 0\ndepth: 1\n";
    EXPECT_EQ(kInfo, quiet.strOut);
    if (std::system("script --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "no script program for a terminal";
    const std::string strTerminal =
        Shell("script -qec \"'" + kOrvex + "' info '" + Path("big.xml") + "'\" /dev/null 2>&1");
    EXPECT_NE(std::string::npos, strTerminal.find("orvex: reading " + Path("big.xml") + ": 51 of 51 MB (100%)"));
    EXPECT_NE(std::string::npos, strTerminal.find("orvex: parsing..."));
    // The terminal turns each line end into CR LF.
    std::string strExpected = kInfo;
    for (size_t n = 0; (n = strExpected.find('\n', n)) != std::string::npos; n += 2) strExpected.replace(n, 1, "\r\n");
    EXPECT_EQ("\r\033[K" + strExpected, strTerminal.substr(strTerminal.rfind("\r\033[K")));
    // Compressed data don't go to a terminal.
    WriteFile(Path("a.xml"), "<a/>");
    EXPECT_EQ(
        "orvex: compressed data not written to a terminal; use -o or a redirection\r\n2\r\n",
        Shell("script -qec \"'" + kOrvex + "' convert '" + Path("a.xml") + "' --to xml --gzip; echo \\$?\" /dev/null"));
}

// The documents of the machine that are installed; the tests that read them skip without them.
std::vector<std::string> MachineDocuments() {
    std::vector<std::string> vecFiles;
    for (const char* pszFile : kMachineDocuments) {
        if (Exists(pszFile)) vecFiles.push_back(pszFile);
    }
    return vecFiles;
}

// XML to full JSON and back is the same infoset, through each encoding and compression of the
// JSON; format keeps JSON as JSON in its encoding. A JSON syntax error names line and path.
TEST_F(Orvex, XmlToFullJsonAndBackKeepsTheInfoset) {
    std::vector<std::string> vecFiles = MachineDocuments();
    if (vecFiles.size() < 12) GTEST_SKIP() << "tools/deps.sh installs the packages whose documents this test reads";
    WriteFile(Path("ns.xml"),
              "<r xmlns=\"urn:a\" xmlns:c=\"urn:c\" x=\"1\"><b c:y=\"2\">t\u00e9\U0001F600</b><c:d>q</c:d><e/></r>");
    vecFiles.push_back(Path("ns.xml"));
    const char* const kToJson[] = {"--compact", "--encoding utf-16", "--gzip --encoding utf-16", "--zlib"};
    std::string strManifest;
    for (size_t i = 0; i < vecFiles.size(); ++i) {
        SCOPED_TRACE(vecFiles[i]);
        const std::string strJson = Path("doc" + std::to_string(i) + ".json");
        const std::string strBack = Path("doc" + std::to_string(i) + ".xml");
        const std::string strFormatted = Path("doc" + std::to_string(i) + ".format.json");
        const std::string strOptions = kToJson[i % 4];
        Result result =
            Run("convert '" + vecFiles[i] + "' --to json --allow-mixed " + strOptions + " -o '" + strJson + "'");
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        result = Run("format '" + strJson + "' --allow-mixed -o '" + strFormatted + "'");
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        // The same bytes as the tool writes from the XML in that encoding, indented.
        const std::string strDirect = Path("direct.json");
        const std::string strIndented = strOptions.find("utf-16") != std::string::npos ? "--encoding utf-16" : "";
        ASSERT_EQ(
            0, Run("convert '" + vecFiles[i] + "' --to json --allow-mixed " + strIndented + " -o '" + strDirect + "'")
                   .nStatus);
        std::string strFormattedText = ReadFile(strFormatted);
        if (strOptions.find("--gzip") != std::string::npos || strOptions.find("--zlib") != std::string::npos) {
            const std::string strStored = strFormattedText;
            ASSERT_TRUE(InflateExactly(strStored, strOptions.find("gzip") != std::string::npos ? kGZipOnly : kZLibOnly,
                                       strFormattedText));
        }
        EXPECT_EQ(ReadFile(strDirect), strFormattedText);
        result = Run("convert - --to xml --compact --allow-mixed -o '" + strBack + "'", strJson);
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        strManifest += "exact " + vecFiles[i] + " " + strBack + "\n";
    }
    WriteFile(Path("manifest"), strManifest);
    EXPECT_EQ("", Shell("python3 '" + kInfoset + "' compare '" + Path("manifest") + "' 2>&1"));
}

#ifdef ORVEXXML_FI_CLASSPATH
const bool kHasFastInfosetReader = true;
#define ORVEXXML_JAVA_COMMAND std::string("'") + ORVEXXML_JAVA + "' -cp '" + ORVEXXML_FI_CLASSPATH + "' FiToXml"
#else
const bool kHasFastInfosetReader = false;
#define ORVEXXML_JAVA_COMMAND std::string()
#endif

// XML to Fast Infoset, plain and through gzip and zlib, read by the reference implementation
// as the same events as the compact XML the tool writes of the same document (which is the
// original's infoset). info names the form by its first octets; Fast Infoset goes to no
// terminal.
TEST_F(Orvex, XmlToFastInfosetReadsAsTheSameDocument) {
    std::vector<std::string> vecFiles = MachineDocuments();
    if (vecFiles.size() < 12) GTEST_SKIP() << "tools/deps.sh installs the packages whose documents this test reads";
    if (!kHasFastInfosetReader) GTEST_SKIP() << "java or the reference Fast Infoset library is missing";
    WriteFile(
        Path("ns.xml"),
        "<r xmlns=\"urn:a\" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:t=\"urn:t\" "
        "xsi:type=\"t:T\"><b xmlns:c=\"urn:c\" c:y=\"2\" xml:lang=\"en\">t\u00e9</b><c:d xmlns:c=\"urn:c\">q</c:d>"
        "<e xmlns=\"\"/></r>");
    vecFiles.push_back(Path("ns.xml"));
    std::string strInfoset;
    std::string strEvents;
    for (size_t i = 0; i < vecFiles.size(); ++i) {
        SCOPED_TRACE(vecFiles[i]);
        const std::string strBase = Path("doc" + std::to_string(i));
        const char* const kCompression[] = {"", "--gzip", "--zlib"};
        const std::string strCompression = kCompression[i % 3];
        Result result = Run("convert '" + vecFiles[i] + "' --to xml --compact --allow-mixed -o '" + strBase + ".xml'");
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        result = Run("convert - --to fi --allow-mixed " + strCompression + " -o '" + strBase + ".fi'", vecFiles[i]);
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        std::string strFi = ReadFile(strBase + ".fi");
        const std::string strStored = strFi;
        if (!strCompression.empty()) {
            ASSERT_TRUE(InflateExactly(strStored, i % 3 == 1 ? kGZipOnly : kZLibOnly, strFi));
        }
        ASSERT_EQ(std::string("\xE0\x00\x00\x01", 4), strFi.substr(0, 4));
        WriteFile(strBase + ".plain.fi", strFi);
        // And back: the Fast Infoset document, compressed or not, converts to the same infoset.
        result = Run("convert '" + strBase + ".fi' --to xml --compact --allow-mixed -o '" + strBase + ".back.xml'");
        ASSERT_EQ(0, result.nStatus) << result.strErr;
        strInfoset += "exact " + vecFiles[i] + " " + strBase + ".xml\n";
        strInfoset += "exact " + vecFiles[i] + " " + strBase + ".back.xml\n";
        strEvents += vecFiles[i] + " " + strBase + ".plain.fi " + strBase + ".xml\n";
        // info tells the form and compression before it reads the tree.
        const std::string strHead = Run("info '" + strBase + ".fi'").strOut;
        EXPECT_EQ(std::string("form: fi\ncompression: ") +
                      (strCompression.empty() ? "none" : strCompression.substr(2)) + "\nsize: " +
                      std::to_string(strStored.size()) + "\nuncompressed size: " + std::to_string(strFi.size()) + "\n",
                  strHead.substr(0, strHead.find("elements: ")));
    }
    WriteFile(Path("infoset"), strInfoset);
    EXPECT_EQ("", Shell("python3 '" + kInfoset + "' compare '" + Path("infoset") + "' 2>&1"));
    // Behind an XML declaration that names the encoding finf it is Fast Infoset as well.
    const std::string strDeclared = "<?xml version='1.0' encoding='finf'?>" + ReadFile(Path("doc0.plain.fi"));
    WriteFile(Path("declared.fi"), strDeclared);
    const std::string strHead = Run("info '" + Path("declared.fi") + "'").strOut;
    EXPECT_EQ("form: fi\ncompression: none\nsize: " + std::to_string(strDeclared.size()) +
                  "\nuncompressed size: " + std::to_string(strDeclared.size()) + "\n",
              strHead.substr(0, strHead.find("elements: ")));
    WriteFile(Path("events"), strEvents);
    EXPECT_EQ("", Shell(ORVEXXML_JAVA_COMMAND + " compare '" + Path("events") + "' 2>&1"));
    if (std::system("script --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "no script program for a terminal";
    EXPECT_EQ("orvex: Fast Infoset not written to a terminal; use -o or a redirection\r\n2\r\n",
              Shell("script -qec \"'" + kOrvex + "' convert '" + Path("ns.xml") + "' --to fi; echo \\$?\" /dev/null"));
}

}  // namespace
