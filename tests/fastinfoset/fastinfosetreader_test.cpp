#include "orvexxml/fastinfoset/fastinfosetreader.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "fastinfoset/fibuilder.h"
#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/fastinfoset/fastinfosetcontext.h"
#include "orvexxml/xml/xmldocument.h"
#include "xml/xmltesthelpers.h"

using namespace OrvexXml;
using OrvexFiTest::CFiBuilder;
using OrvexXmlTest::Dump;
using OrvexXmlTest::ExpectOxError;

namespace {

const char kEndOfFile[] = "Failed to parse FastInfoset. Unexpected End of File.";

std::string Read(const std::string& strOctets,
                 const CSerializationContext& ctx = CSerializationContext::GetDefaultContext()) {
    CXmlDocument doc(ctx);
    doc.LoadXmlStream(reinterpret_cast<unsigned char*>(const_cast<char*>(strOctets.data())),
                      static_cast<OxULong>(strOctets.size()));
    return Dump(doc.GetDocumentElement());
}

std::string Read(const CFiBuilder& fi) { return Read(fi.Str()); }

void ExpectRefused(const std::string& strOctets, const std::string& strMessage) {
    ExpectOxError([&] { Read(strOctets); }, strMessage);
}

// <a b="1">x</a> as the library's writer puts it.
CFiBuilder WorkedExample() {
    CFiBuilder fi;
    fi.Header().Octets({0x78, 0xF0, 0x3C}).IdLiteral("a");
    fi.AttributeLiteral("b").ValueLiteral("1", true).End().Chunk("x", true).EndTwo();
    return fi;
}

}  // namespace

// The example of the writer's octets, with and without each of the nine declarations in
// front, reads as the same tree. A declaration with no header behind it, and anything
// shorter than the header and one octet, is XML text for expat.
TEST(FastInfosetReader, FindsTheDocumentBehindEachDeclaration) {
    const std::string strTree = "({}a {}b=[1] text=[x])";
    EXPECT_EQ(strTree, Read(WorkedExample()));
    const char* const declarations[] = {
        "<?xml encoding='finf'?>",
        "<?xml encoding='finf' standalone='yes'?>",
        "<?xml encoding='finf' standalone='no'?>",
        "<?xml version='1.0' encoding='finf'?>",
        "<?xml version='1.0' encoding='finf' standalone='yes'?>",
        "<?xml version='1.0' encoding='finf' standalone='no'?>",
        "<?xml version='1.1' encoding='finf'?>",
        "<?xml version='1.1' encoding='finf' standalone='yes'?>",
        "<?xml version='1.1' encoding='finf' standalone='no'?>",
    };
    for (const char* pszDeclaration : declarations)
        EXPECT_EQ(strTree, Read(pszDeclaration + WorkedExample().Str())) << pszDeclaration;

    // The declaration of XML text with its own encoding: expat takes it, and refuses "finf".
    ExpectRefused(std::string(declarations[3]) + "<a/>", "unknown encoding at line 1");
    ExpectRefused(std::string("\xE0\x00\x00\x01", 4), "syntax error at line 1");
    EXPECT_EQ("({}r text=[])", Read("<r/>"));
}

// Names and values by index come back with their namespace and text; an index 0 value is
// empty; chunks with the add bit are found again, CR is dropped, and runs of chunks join.
TEST(FastInfosetReader, ResolvesIndexesAndJoinsText) {
    CFiBuilder fi;
    fi.Header().Octets({0x78, 0xCF}).IdLiteral("p").IdLiteral("urn:n").End();
    fi.Octets({0x3F}).IdIndex(2).IdIndex(2).IdLiteral("root");  // p:root, both by index
    fi.AttributeLiteral("at", "urn:n", "p").ValueLiteral("v1", true);
    fi.AttributeIndex(1).ValueIndex(1);
    fi.AttributeLiteral("e").ValueEmpty().End();
    fi.ElementIndex(false, 1).Chunk("ab", true).Chunk("c\r\nd").End();
    fi.ElementLiteral(false, "k").ChunkIndex(1).Octets({0xE2}).ValueLiteral("comment").Chunk("z").End();
    fi.Octets({0xE1}).IdLiteral("pi").ValueLiteral("data").EndTwo();
    CXmlDocument doc;
    std::string strOctets = fi.Str();
    doc.LoadXmlStream(reinterpret_cast<unsigned char*>(&strOctets[0]), static_cast<OxULong>(strOctets.size()));
    EXPECT_EQ("({urn:n}root {urn:n}at=[v1] {urn:n}at=[v1] {}e=[] text=[]({urn:n}root text=[abc\nd])({}k text=[abz]))",
              Dump(doc.GetDocumentElement()));
    EXPECT_EQ("urn:n", doc.LookupNamespaceFromAlias("p"));
    // A chunk without the add bit takes no index.
    ExpectRefused(CFiBuilder().Header().ElementLiteral(false, "a").Chunk("x").ChunkIndex(1).EndTwo().Str(),
                  "Failed to parse FastInfoset. Index [1] is not in the table of character chunks.");
}

// FF in content ends the element and its parent, FF after attributes the element alone;
// reading stops with the root, so what follows it is never looked at.
TEST(FastInfosetReader, TerminatorsEndOneOrTwoElementsAndTheRootEndsReading) {
    CFiBuilder fi;
    fi.Header().ElementLiteral(false, "a").ElementLiteral(false, "b").ElementLiteral(true, "c");
    fi.AttributeLiteral("x").ValueLiteral("1").EndTwo();  // ends c only
    fi.Chunk("t").EndTwo();                               // ends b and a
    EXPECT_EQ("({}a text=[]({}b text=[t]({}c {}x=[1] text=[])))", Read(fi));
    fi.Octets({0xE2, 0x80, 0x00, 0x01});  // a comment, an element and nothing of a terminator
    EXPECT_EQ("({}a text=[]({}b text=[t]({}c {}x=[1] text=[])))", Read(fi));
}

// The lengths and indexes in each of their forms: names of 1, 65 and 321 octets, chunks of
// each length form, and names, local names and chunks from tables long enough for the
// longer integer forms; the fourth form of the fourth bit from a table of 263200 chunks.
TEST(FastInfosetReader, ReadsEveryFormOfLengthsAndIndexes) {
    const uint32_t nNames = 8300;  // local names past the third form of the second bit
    CFiBuilder fi;
    fi.Header().ElementLiteral(false, "root");
    for (uint32_t n = 1; n <= nNames; ++n)
        fi.ElementLiteral(false, "e" + std::to_string(n)).Chunk("c" + std::to_string(n), true).End();
    const uint32_t indexes[] = {1, 16, 17, 32, 33, 64, 65, 1040, 1041, 2080, 2081, 8256, 8257, 8300};
    std::string strExpected = "({}root text=[";
    for (uint32_t n : indexes) {
        fi.ChunkIndex(n);
        strExpected += "c" + std::to_string(n);
    }
    for (size_t n : {1, 2, 3, 258, 259, 700}) fi.Chunk(std::string(n, 'q'));
    strExpected += std::string(1 + 2 + 3 + 258 + 259 + 700, 'q') + "]";
    for (uint32_t n = 1; n <= nNames; ++n)
        strExpected += "({}e" + std::to_string(n) + " text=[c" + std::to_string(n) + "])";
    for (uint32_t n : indexes) {
        fi.ElementIndex(false, n + 1).End();     // element names: root first
        fi.Octets({0x3C}).IdIndex(n + 1).End();  // a literal name with an indexed local name
        strExpected += "({}e" + std::to_string(n) + " text=[])({}e" + std::to_string(n) + " text=[])";
    }
    fi.ElementLiteral(false, std::string(65, 'L')).End().ElementLiteral(false, std::string(321, 'M')).End();
    strExpected += "({}" + std::string(65, 'L') + " text=[])({}" + std::string(321, 'M') + " text=[]))";
    EXPECT_EQ(strExpected, Read(fi.EndTwo()));

    CFiBuilder chunks;
    chunks.Header().ElementLiteral(false, "r");
    for (uint32_t n = 1; n < 263200; ++n) chunks.Chunk("c", true);
    chunks.Chunk("Z", true).ChunkIndex(263200).ChunkIndex(263199).EndTwo();
    EXPECT_EQ("({}r text=[" + std::string(263199, 'c') + "ZZc])", Read(chunks));
}

// Text by each encoding: the algorithms, the two built-in alphabets, alphabets of the
// document's initial vocabulary (one of 5 bits, one of 8), and UTF-16.
TEST(FastInfosetReader, DecodesAlgorithmsAlphabetsAndUtf16) {
    std::string strAlphabet20 = "abcdefghijklmnopqrst";  // 5 bits
    std::string strAlphabet200;
    for (int n = 0; n < 200; ++n) strAlphabet200 += static_cast<char>(n < 94 ? '!' + n : 'a');
    strAlphabet200[199] = '~';
    struct Case {
        bool bAlgorithm;
        uint32_t nIndex;
        std::string strOctets;
        std::string strText;
    } const cases[] = {
        {true, 1, "\x0A\xFF", "0AFF"},
        {true, 2, std::string("\x00\x01", 2), "AAE="},
        {true, 3, "\xFF\xFE", "-2"},
        {true, 4, std::string("\x00\x00\x01\x00\x00\x00\x00\x02", 8), "256 2"},
        {true, 5, std::string("\x00\x00\x00\x00\x00\x00\x00\x07", 8), "7"},
        {true, 6, "\x28", "true false"},
        {true, 7, std::string("\x3F\x80\x00\x00", 4), "1"},
        {true, 8, std::string("\x3F\xF0\x00\x00\x00\x00\x00\x00", 8), "1"},
        {true, 9, std::string(15, '\x11') + "\xAB", std::string(30, '1') + "AB"},
        {true, 10, "\xC3\xA9t\xC3\xA9", "\xC3\xA9t\xC3\xA9"},
        {false, 1, "\x1C\x5F", "1.5"},  // 1 . 5, F ends
        {false, 2, "\x20\xA0\xCF", "20-0T"},
        {false, 3, std::string("\x00\x44\x3F", 3), "abcd"},  // 5-bit positions 0 1 2 3, then padding bits
        {false, 3, std::string("\x00\x45\xFF", 3), "abc"},   // 0 1 2, then the value of all ones ends the string
        {false, 4, std::string("\x00\xC7", 2), "!~"},
    };
    CFiBuilder fi;
    // Initial vocabulary with two alphabets.
    fi.Header(0x20).Octets({0x08, 0x00, 0x01}).IdLiteral(strAlphabet20).IdLiteral(strAlphabet200);
    fi.ElementLiteral(false, "r");
    std::string strExpected = "({}r text=[]";
    for (const Case& c : cases) {
        fi.ElementLiteral(false, "v").ChunkEncoded(c.bAlgorithm, c.nIndex, c.strOctets).End();
        strExpected += "({}v text=[" + c.strText + "])";
    }
    fi.ElementLiteral(false, "u").OctetsBit7(0x84, std::string("\x00h\x00\xE9\xD8\x3D\xDE\x00", 8)).End();
    strExpected += "({}u text=[h\xC3\xA9\xF0\x9F\x98\x80])";
    fi.EndTwo();
    EXPECT_EQ(strExpected + ")", Read(fi));
}

// Every optional part of the preamble, a document type declaration with its processing
// instructions, and an entity reference inside the content are passed over; the entries of
// an initial vocabulary serve the indexes of the document.
TEST(FastInfosetReader, PassesOverThePreambleAndResolvesTheInitialVocabulary) {
    CFiBuilder fi;
    fi.Header(0x7F);
    fi.Octets({0x00}).IdLiteral("urn:id").IdLiteral("data");                      // additional data
    fi.Octets({0x13, 0xFF});                                                      // initial vocabulary flags
    fi.IdLiteral("urn:external");                                                 // external vocabulary
    fi.Octets({0x00}).IdLiteral("pfx");                                           // prefixes: 2
    fi.Octets({0x00}).IdLiteral("urn:v");                                         // namespaces: 2
    fi.Octets({0x01}).IdLiteral("doc").IdLiteral("item");                         // local names: 1, 2
    fi.Octets({0x00}).IdLiteral("n").Octets({0x00}).IdLiteral("urn:o");           // other names, URIs
    fi.Octets({0x00}).ValueLiteral("vv");                                         // attribute values: 1
    fi.Octets({0x00}).ValueLiteral("cc");                                         // character chunks: 1
    fi.Octets({0x00}).ValueLiteral("s");                                          // other strings
    fi.Octets({0x00, 0x03}).IntBit2(0, 2).IntBit2(0, 2).IntBit2(0, 1);            // element pfx:doc
    fi.Octets({0x00, 0x00}).IntBit2(0, 2);                                        // attribute item
    fi.Octets({0xC3}).IdLiteral("nota").IdLiteral("sys").IdLiteral("pub").End();  // notations
    fi.Octets({0xD1}).IdLiteral("ent").IdLiteral("s").IdLiteral("p").IdIndex(1);  // unparsed entities
    fi.End();                                                                     //
    fi.IdLiteral("UTF-8").Octets({0x01}).ValueLiteral("1.0");                     // encoding, standalone, version
    fi.Octets({0xC7}).IdLiteral("sys.dtd").IdLiteral("-//pub").Octets({0xE1});    // doctype
    fi.IdLiteral("t").ValueLiteral("d").End();                                    //
    fi.ElementIndex(true, 1).AttributeIndex(1).ValueIndex(1).End();               // pfx:doc item="vv"
    fi.Octets({0xCB}).IdLiteral("amp").IdIndex(1).IdIndex(1).ChunkIndex(1).EndTwo();
    EXPECT_EQ("({urn:v}doc {}item=[vv] text=[cc])", Read(fi));
}

// A context that uses its ready-made vocabulary lets the document start with indexes into it.
TEST(FastInfosetReader, ResolvesTheContextVocabulary) {
    CSerializationContext ctx;
    CFastInfosetContext& fiContext = ctx.GetFIContext();
    fiContext.GetVocabulary()->AddElement("g", "urn:g", "order");
    fiContext.GetVocabulary()->AddAttribute("", "", "id");
    fiContext.GetVocabulary()->AddAttributeValue("7");
    std::string strOctets = CFiBuilder().Header().ElementIndex(true, 1).AttributeIndex(1).ValueIndex(1).EndTwo().Str();
    ExpectOxError([&] { Read(strOctets, ctx); },
                  "Failed to parse FastInfoset. Index [1] is not in the table of element names.");
    fiContext.SetUseGeneratedVocabulary(true);
    EXPECT_EQ("({urn:g}order {}id=[7] text=[])", Read(strOctets, ctx));
    // The document's additions stay in the document.
    EXPECT_EQ(1u, fiContext.GetVocabulary()->GetElementNamesTable().size());
}

// Each refusal, with its message.
TEST(FastInfosetReader, RefusesMalformedDocuments) {
    const std::string strRoot = CFiBuilder().Header().ElementLiteral(false, "a").Str();
    struct Case {
        std::string strOctets;
        const char* pszMessage;
    } const cases[] = {
        {CFiBuilder().Header().Str(), kEndOfFile},
        {strRoot + "\xC0", "Failed to parse FastInfoset. Invalid Encoding of Element type."},
        {strRoot + "\xF1", "Failed to parse FastInfoset. Invalid Encoding of Element type."},
        {CFiBuilder().Header().Octets({0x3E}).IdLiteral("p").IdLiteral("a").Str(),
         "Failed to parse FastInfoset. Invalid QName type Prefix without Namespace."},
        {CFiBuilder().Header().ElementLiteral(false, "a b").Str(),
         "Failed to parse FastInfoset. Invalid Encoding of a name: not an XML name."},
        // Broken UTF-8 in a name or a text: a stray byte, an overlong form, a surrogate, past
        // U+10FFFF, a sequence cut short.
        {CFiBuilder().Header().ElementLiteral(false, "a\xFF").Str(),
         "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {CFiBuilder().Header().ElementLiteral(false, "a").Chunk("\xC0\xAF").Str(),
         "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {CFiBuilder().Header().ElementLiteral(false, "a").Chunk("x\xED\xA0\x80").Str(),
         "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {CFiBuilder().Header().ElementLiteral(false, "a").Chunk("\xF4\x90\x80\x80").Str(),
         "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {CFiBuilder().Header().ElementLiteral(false, "a").Chunk("abcdefgh\xE2\x82").Str(),
         "Failed to parse FastInfoset. Invalid UTF-8 string."},
        {CFiBuilder().Header().ElementLiteral(true, "a").AttributeLiteral("b", "urn:b", "1p").Str(),
         "Failed to parse FastInfoset. Invalid Encoding of a name: not an XML name."},
        {CFiBuilder().Header().Octets({0x3C, 0x50}).Str(),
         "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the second bit of an octet."},
        {CFiBuilder().Header().ElementLiteral(true, "a").AttributeLiteral("b").Octets({0x0A}).Str(),
         "Failed to parse FastInfoset. Invalid NonEmptyOctetString type  on the fifth bit of an octet."},
        {CFiBuilder().Header().Octets({0x38, 0xF0, 0x38}).Str(),
         "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the third bit of an octet."},
        {strRoot + "\xBC",
         "Failed to parse FastInfoset. Invalid Encoding of integers 1 To 2^20 type  on the fourth bit "
         "of an octet."},
        {CFiBuilder().Header().ElementLiteral(true, "a").AttributeLiteral("b").Octets({0xC0}).Str(),
         "Failed to parse FastInfoset. Invalid Encoding of integers 0 To 2^20 type  on the second bit of an octet."},
        {CFiBuilder().Header().ElementLiteral(true, "a").AttributeLiteral("b").ValueIndex(3).End().Str(),
         "Failed to parse FastInfoset. Index [3] is not in the table of attribute values."},
        {CFiBuilder().Header().ElementIndex(false, 1).Str(),
         "Failed to parse FastInfoset. Index [1] is not in the table of element names."},
        {CFiBuilder().Header().ElementLiteral(true, "a").AttributeIndex(5000).Str(),
         "Failed to parse FastInfoset. Index [5000] is not in the table of attribute names."},
        {CFiBuilder().Header().Octets({0x3D}).IdIndex(9).Str(),
         "Failed to parse FastInfoset. Index [9] is not in the table of namespaces."},
        {CFiBuilder().Header().ElementLiteral(false, "a").ChunkEncoded(true, 11, "x").Str(), "Unknown byte encoding."},
        {CFiBuilder().Header().ElementLiteral(false, "a").ChunkEncoded(true, 256, "x").Str(), "Unknown byte encoding."},
        {CFiBuilder().Header().ElementLiteral(false, "a").ChunkEncoded(true, 4, "xyz").Str(),
         "Invalid value for INT byte encoding."},
        {CFiBuilder().Header().ElementLiteral(false, "a").ChunkEncoded(false, 3, "x").Str(),
         "Failed to parse FastInfoset. Index [3] is not in the table of restricted alphabets."},
        {CFiBuilder().Header().ElementLiteral(false, "a").ChunkEncoded(false, 1, "\xF0").Str(),
         "Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Character position beyond the "
         "alphabet."},
        {CFiBuilder()
             .Header(0x20)
             .Octets({0x08, 0x00, 0x00})
             .IdLiteral("x")
             .ElementLiteral(false, "a")
             .ChunkEncoded(false, 3, "x")
             .Str(),
         "Failed to parse FastInfoset. Invalid Encoding of Restricted Alphabet. Alphabet must contain between 2 and "
         "2^20 characters."},
        {CFiBuilder().Header().ElementLiteral(false, "a").OctetsBit7(0x84, "abc").Str(),
         "Failed to parse FastInfoset. Invalid length of a UTF-16 string."},
        {CFiBuilder().Header().Octets({0xC4, 0x80}).Str(),
         "Failed to parse FastInfoset. Invalid Encoding of Document Type Declaration."},
        // A length of 4 GB, and of 2^32 + 320, in a buffer of a few octets.
        {CFiBuilder().Header().Octets({0x3C, 0x60}).Int32(0xFFFFFFFF).Str(), kEndOfFile},
        {CFiBuilder().Header().ElementLiteral(false, "a").Octets({0x83}).Int32(0xFFFFFFFF).Str(), kEndOfFile},
    };
    for (const Case& c : cases) ExpectRefused(c.strOctets, c.pszMessage);
}

// A document cut at any octet before the root's terminator fails with the end of the file;
// a cut inside the header leaves XML text for expat.
TEST(FastInfosetReader, RefusesEveryTruncation) {
    CFiBuilder fi;
    fi.Header().Octets({0x78, 0xCD}).IdLiteral("urn:d").End().Octets({0x3D}).IdIndex(2).IdLiteral("a");
    fi.AttributeLiteral("b", "urn:e", "e").ValueLiteral("some value", true).End();
    fi.ElementIndex(false, 1).ChunkEncoded(true, 4, "\x01\x02\x03\x04").Chunk("txt", true).End();
    fi.Octets({0xE2}).ValueLiteral("c").ChunkIndex(1).EndTwo();
    const std::string strFull = fi.Str();
    EXPECT_EQ("({urn:d}a {urn:e}b=[some value] text=[txt]({urn:d}a text=[16909060txt]))", Read(strFull));
    for (size_t n = 1; n < strFull.size(); ++n) {
        try {
            Read(strFull.substr(0, n));
            ADD_FAILURE() << "read with " << n << " octets";
        } catch (const COxException& e) {
            if (n > 4)
                EXPECT_EQ(kEndOfFile, e.GetMessage()) << n;
            else
                EXPECT_EQ(std::string::npos, e.GetMessage().find("FastInfoset")) << n;
        }
    }
}

// Nesting is limited by the context like XML text, without any recursion in the reader: a
// million levels are refused at the limit, and a hundred thousand allowed levels read.
TEST(FastInfosetReader, DeepNestingStopsAtTheLimitWithoutRecursion) {
    CFiBuilder deep;
    deep.Header().ElementLiteral(false, "a");
    deep.m_octets.resize(deep.m_octets.size() + 1000000, 0x00);  // element name index 1, a million times
    ExpectOxError([&] { Read(deep.Str()); },
                  "The element is nested deeper than the limit of 256 levels; raise MaxDepth of the context if such a "
                  "document is intended.\nPath: " +
                      [] {
                          std::string strPath;
                          for (int n = 0; n < 257; ++n) strPath += "/a";
                          return strPath;
                      }(),
                  typeid(COxValidationException));

    CSerializationContext ctx;
    ctx.SetMaxDepth(200000);
    CFiBuilder allowed;
    allowed.Header().ElementLiteral(false, "a");
    allowed.m_octets.resize(allowed.m_octets.size() + 99999, 0x00);
    allowed.m_octets.resize(allowed.m_octets.size() + 50000, 0xFF);
    CXmlDocument doc(ctx);
    doc.LoadXmlStream(allowed.m_octets.data(), static_cast<OxULong>(allowed.m_octets.size()));
    size_t nDepth = 0;
    for (const CXmlElement* p = doc.GetDocumentElement(); p; p = p->GetFirstElement()) ++nDepth;
    EXPECT_EQ(100000u, nDepth);
}

// A file is detected like a buffer; overlapped reading takes XML text only.
TEST(FastInfosetReader, LoadsFilesAndLeavesOverlappedReadingToXml) {
    const std::string strPath = ::testing::TempDir() + "fastinfosetreader_test.fi";
    const std::string strOctets = WorkedExample().Str();
    FILE* pFile = std::fopen(strPath.c_str(), "wb");
    ASSERT_NE(nullptr, pFile);
    std::fwrite(strOctets.data(), 1, strOctets.size(), pFile);
    std::fclose(pFile);
    CXmlDocument doc;
    doc.Load(strPath.c_str());
    EXPECT_EQ("({}a {}b=[1] text=[x])", Dump(doc.GetDocumentElement()));
    AsyncFromXmlFile(true);
    ExpectOxError([&] { doc.Load(strPath.c_str()); }, "not well-formed (invalid token) at line 1");
    AsyncFromXmlFile(false);
    std::remove(strPath.c_str());
}
