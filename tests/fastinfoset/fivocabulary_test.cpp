#include "orvexxml/fastinfoset/fivocabulary.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "orvexxml/binding/serializationcontext.h"
#include "orvexxml/fastinfoset/fastinfosetcontext.h"

using namespace OrvexXml;

namespace {

std::vector<std::string> Strings(const CFIStringTable& table) {
    return std::vector<std::string>(table.begin(), table.end());
}

// A qualified name entry as "prefix,namespace,local" indexes.
std::vector<std::string> QNames(const CFIQNameTable& table) {
    std::vector<std::string> result;
    for (const CFIVocabulary::CQNameParts& parts : table)
        result.push_back(std::to_string(parts.m_dwPrefixIndex) + "," + std::to_string(parts.m_dwNamespaceIndex) + "," +
                         std::to_string(parts.m_dwLocalNameIndex));
    return result;
}

// Kind and index of each ItemType, 0 to 28, as "KI KI ...".
std::string Encodings(const CFastInfosetContext& fi) {
    std::string strResult;
    for (uint32_t n = 0; n < CFastInfosetContext::EncodingCount; ++n) {
        if (n) strResult += ' ';
        strResult += std::to_string(fi.GetEncoding(n).eKind) + std::to_string(fi.GetEncoding(n).dwIndex);
    }
    return strResult;
}

const char* const XmlNs = "http://www.w3.org/XML/1998/namespace";

}  // namespace

// Names share their prefix, namespace and local name entries between elements and attributes;
// a name that is known adds nothing, and a second prefix makes a second entry.
TEST(FIVocabulary, QualifiedNamesShareTheirPartsAndEnterOnce) {
    CFIVocabulary vocabulary;
    EXPECT_EQ(std::vector<std::string>({"xml"}), Strings(vocabulary.GetPrefixNamesTable()));
    EXPECT_EQ(std::vector<std::string>({XmlNs}), Strings(vocabulary.GetNamespaceNamesTable()));
    EXPECT_EQ(0u, vocabulary.GetLocalNamesTable().size());

    vocabulary.AddElement("", "", "a");
    vocabulary.AddElement("p", "u", "a");
    vocabulary.AddElement("p", "u", "a");
    vocabulary.AddElement("q", "u", "a");
    vocabulary.AddAttribute("p", "u", "a");
    vocabulary.AddAttribute("xml", XmlNs, "lang");

    EXPECT_EQ(std::vector<std::string>({"0,0,1", "2,2,1", "3,2,1"}), QNames(vocabulary.GetElementNamesTable()));
    EXPECT_EQ(std::vector<std::string>({"2,2,1", "1,1,2"}), QNames(vocabulary.GetAttributeNamesTable()));
    EXPECT_EQ(std::vector<std::string>({"xml", "p", "q"}), Strings(vocabulary.GetPrefixNamesTable()));
    EXPECT_EQ(std::vector<std::string>({XmlNs, "u"}), Strings(vocabulary.GetNamespaceNamesTable()));
    EXPECT_EQ(std::vector<std::string>({"a", "lang"}), Strings(vocabulary.GetLocalNamesTable()));
    EXPECT_EQ(0u, vocabulary.GetAttributeValuesTable().size());
    EXPECT_EQ(0u, vocabulary.GetCharacterChunksTable().size());

    vocabulary.AddElementValue("v");
    vocabulary.AddAttributeValue("w");
    EXPECT_EQ(std::vector<std::string>({"v"}), Strings(vocabulary.GetCharacterChunksTable()));
    EXPECT_EQ(std::vector<std::string>({"w"}), Strings(vocabulary.GetAttributeValuesTable()));

    // The maps in their order, with the 0x01 separators of the name keys.
    testing::internal::CaptureStdout();
    vocabulary.Dump();
    EXPECT_EQ(
        "\n** Dumping FI Tables **\n\nAttr Names\na\x01u\x01p, 1\nlang\x01http://www.w3.org/XML/1998/namespace\x01xml, "
        "2\n"
        "\nAttr Values\nw, 1\n"
        "\nCharacter Chunks\nv, 1\n"
        "\nElement Names\na\x01\x01, 1\na\x01u\x01p, 2\na\x01u\x01q, 3\n"
        "\nLocal Names\na, 1\nlang, 2\n"
        "\nNamespace Names\nhttp://www.w3.org/XML/1998/namespace, 1\nu, 2\n"
        "\nPrefix Names\np, 2\nq, 3\nxml, 1\n",
        testing::internal::GetCapturedStdout());
}

// The 1048577th value is dropped from map and table alike, and a name made of it takes the
// last index that exists, never one past the table.
TEST(FIVocabulary, AdditionsPastTheLargestIndexAreDropped) {
    CFIVocabulary vocabulary;
    for (uint32_t n = 0; n < CFIVocabulary::MaxTableEntries + 1; ++n) vocabulary.AddLocalName(std::to_string(n));
    ASSERT_EQ(CFIVocabulary::MaxTableEntries, vocabulary.GetLocalNamesTable().size());
    EXPECT_EQ(std::to_string(CFIVocabulary::MaxTableEntries - 1), *(vocabulary.GetLocalNamesTable().end() - 1));

    vocabulary.AddElement("", "", "new");
    ASSERT_EQ(1u, vocabulary.GetElementNamesTable().size());
    EXPECT_EQ(CFIVocabulary::MaxTableEntries, vocabulary.GetElementNamesTable()[0].m_dwLocalNameIndex);
    testing::internal::CaptureStdout();
    vocabulary.Dump();
    std::string strDump = testing::internal::GetCapturedStdout();
    EXPECT_EQ(std::string::npos, strDump.find("\n1048576, ")) << "the dropped value has no index";
    EXPECT_NE(std::string::npos, strDump.find("\n1048575, 1048576\n"));
}

// Defaults, the suggested encodings over a setting of the caller, and a copied context that
// owns its vocabulary.
TEST(FastInfosetContext, DefaultsSuggestedValuesAndCopies) {
    CSerializationContext ctx;
    const CSerializationContext& constCtx = ctx;
    CFastInfosetContext& fi = constCtx.GetFIContext();
    EXPECT_EQ(&fi, &ctx.GetFIContext());
    EXPECT_EQ(0, fi.GetDefaultStringEncoding());
    EXPECT_EQ(6u, fi.GetAttributeMaxAddLength());
    EXPECT_EQ(6u, fi.GetElementMaxAddLength());
    EXPECT_FALSE(fi.GetUseGeneratedVocabulary());
    EXPECT_EQ("", fi.GetExternalVocabularyURI());
    for (char c : Encodings(fi)) EXPECT_TRUE(c == '0' || c == ' ') << Encodings(fi);

    fi.SetEncoding(ItemType_string, {CFastInfosetContext::EncodingKind_RestrictedAlphabet, 1});
    fi.SetEncoding(ItemType_duration, {CFastInfosetContext::EncodingKind_Algorithm, 9});
    fi.SetSuggestedValues();
    const std::string strSuggested =
        "00 21 22 23 23 24 25 23 24 25 25 27 28 00 12 12 12 12 12 12 12 12 00 11 26 11 11 00 00";
    EXPECT_EQ(strSuggested, Encodings(fi)) << "the string type keeps the caller's alphabet, duration goes back to text";

    fi.GetVocabulary()->AddElement("", "", "a");
    fi.SetUseGeneratedVocabulary(true);
    fi.SetExternalVocabularyURI("urn:v");
    CSerializationContext copy(ctx);
    CSerializationContext assigned;
    assigned.GetFIContext().GetVocabulary()->AddElement("", "", "other");
    assigned = ctx;
    fi.GetVocabulary()->AddElement("", "", "b");
    for (const CSerializationContext* pCtx : {&copy, &assigned}) {
        CFastInfosetContext& other = pCtx->GetFIContext();
        EXPECT_NE(&fi, &other);
        EXPECT_TRUE(other.GetUseGeneratedVocabulary());
        EXPECT_EQ("urn:v", other.GetExternalVocabularyURI());
        EXPECT_EQ(strSuggested, Encodings(other));
        EXPECT_EQ(std::vector<std::string>({"a"}), Strings(other.GetVocabulary()->GetLocalNamesTable()));
    }
    EXPECT_EQ(2u, fi.GetVocabulary()->GetElementNamesTable().size());
}
