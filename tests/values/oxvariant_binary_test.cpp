#include <gtest/gtest.h>

#include <string>

#include "expectthrow.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/conversions.h"
#include "orvexxml/values/oxvariant.h"

using OrvexXml::CBinaryData;
using OrvexXml::CConversions;
using OrvexXml::COxException;
using OrvexXml::CWhitespaceUtils;
using OrvexXml::OxVariant;

namespace {

const CWhitespaceUtils::WhitespaceRule NONE = CWhitespaceUtils::WhitespaceRule_none;
const CWhitespaceUtils::WhitespaceRule REPLACE = CWhitespaceUtils::WhitespaceRule_replace;
const CWhitespaceUtils::WhitespaceRule COLLAPSE = CWhitespaceUtils::WhitespaceRule_collapse;

CBinaryData FromHex(const char* pszHex) {
    CBinaryData data;
    data.SetAsHexString(pszHex);
    return data;
}

// --- setters and getters -------------------------------------------------------------------

TEST(OxVariantBinary, SettersStoreTypeAndValue) {
    OxVariant v;
    v.SetHexBinary(FromHex("00FF"));
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, v.GetTypeAsEnum());
    EXPECT_EQ("hexBinary", v.GetType());
    EXPECT_TRUE(v.GetHexBinary() == FromHex("00FF"));

    v.SetBase64Binary(CBinaryData("abc"));
    EXPECT_EQ(OrvexXml::ItemType_base64Binary, v.GetTypeAsEnum());
    EXPECT_EQ("base64Binary", v.GetType());
    EXPECT_TRUE(v.GetBase64Binary() == CBinaryData("abc"));

    // The empty value is a value like any other.
    v.SetHexBinary(CBinaryData());
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(0u, v.GetHexBinary().GetLength());
}

TEST(OxVariantBinary, VariantKeepsItsOwnValue) {
    CBinaryData source("abc");
    OxVariant v;
    v.SetHexBinary(source);
    source[0] = 'X';
    source.Append('d');
    EXPECT_TRUE(v.GetHexBinary() == CBinaryData("abc"));

    // What a getter gives is the caller's to change.
    CBinaryData got = v.GetHexBinary();
    got[1] = 'Y';
    EXPECT_TRUE(v.GetHexBinary() == CBinaryData("abc"));

    // Setting the value the variant already holds.
    v.SetHexBinary(*v.m_pBinaryData);
    EXPECT_TRUE(v.GetHexBinary() == CBinaryData("abc"));
}

TEST(OxVariantBinary, CopiesAreIndependent) {
    OxVariant v;
    v.SetBase64Binary(CBinaryData("abc"));
    OxVariant copy(v);
    OxVariant assigned;
    assigned.SetI4(5);
    assigned = v;
    EXPECT_EQ(OrvexXml::ItemType_base64Binary, copy.GetTypeAsEnum());
    EXPECT_EQ(OrvexXml::ItemType_base64Binary, assigned.GetTypeAsEnum());
    ASSERT_NE(v.m_pBinaryData, copy.m_pBinaryData);
    ASSERT_NE(v.m_pBinaryData, assigned.m_pBinaryData);

    (*copy.m_pBinaryData)[0] = 'X';
    assigned.m_pBinaryData->Append('!');
    EXPECT_TRUE(v.GetBase64Binary() == CBinaryData("abc"));
    EXPECT_TRUE(copy.GetBase64Binary() == CBinaryData("Xbc"));
    EXPECT_TRUE(assigned.GetBase64Binary() == CBinaryData("abc!"));
}

TEST(OxVariantBinary, NilKeepsTheTypeAndHoldsNoValue) {
    OxVariant v;
    v.SetHexBinary(CBinaryData("abc"));
    v.SetNil();
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, v.GetTypeAsEnum());
    EXPECT_TRUE(v.IsNil());
    EXPECT_EQ(nullptr, v.m_pBinaryData);

    // Copied over a variant whose inline bytes were not zero: the pointer is still null.
    OxVariant target;
    target.SetI8(-1);
    target = v;
    EXPECT_TRUE(target.IsNil());
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, target.GetTypeAsEnum());
    EXPECT_EQ(nullptr, target.m_pBinaryData);
}

TEST(OxVariantBinary, OtherSettersReplaceTheValue) {
    OxVariant v;
    v.SetBase64Binary(CBinaryData("abc"));
    v.SetString("text");
    EXPECT_EQ(OrvexXml::ItemType_string, v.GetTypeAsEnum());
    EXPECT_EQ("text", v.GetString());
    v.SetHexBinary(CBinaryData("x"));
    v.Clear();
    EXPECT_EQ(OrvexXml::ItemType_invalid, v.GetTypeAsEnum());
    EXPECT_EQ(nullptr, v.m_pBinaryData);
}

// --- text ----------------------------------------------------------------------------------

TEST(OxVariantBinaryText, ToStringWritesHexOrBase64) {
    OxVariant v;
    v.SetHexBinary(FromHex("00ff1a"));
    EXPECT_EQ("00FF1A", v.ToString(nullptr));
    // The format override is for other kinds.
    EXPECT_EQ("00FF1A", v.ToString("%.2f"));
    v.SetBase64Binary(FromHex("00ff1a"));
    EXPECT_EQ("AP8a", v.ToString(nullptr));
    v.SetBase64Binary(CBinaryData("f"));
    EXPECT_EQ("Zg==", v.ToString(nullptr));
    v.SetHexBinary(CBinaryData());
    EXPECT_EQ("", v.ToString(nullptr));
    v.SetBase64Binary(CBinaryData());
    EXPECT_EQ("", v.ToString(nullptr));
}

TEST(OxVariantBinaryText, FromStringAppliesTheRuleThenDecodes) {
    OxVariant v;
    v.FromString(" 0a0B\r\n", OrvexXml::ItemType_hexBinary, COLLAPSE);
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, v.GetTypeAsEnum());
    EXPECT_TRUE(v.GetHexBinary() == FromHex("0A0B"));
    EXPECT_EQ("0A0B", v.ToString(nullptr));

    v.FromString("Zm9v\r\nYmFy", OrvexXml::ItemType_base64Binary, NONE);
    EXPECT_EQ(OrvexXml::ItemType_base64Binary, v.GetTypeAsEnum());
    EXPECT_TRUE(v.GetBase64Binary() == CBinaryData("foobar"));
    EXPECT_EQ("Zm9vYmFy", v.ToString(nullptr));

    v.FromString("", OrvexXml::ItemType_hexBinary, NONE);
    EXPECT_EQ(OrvexXml::ItemType_hexBinary, v.GetTypeAsEnum());
    EXPECT_EQ(0u, v.GetHexBinary().GetLength());
}

TEST(OxVariantBinaryText, FromStringReplacesNil) {
    OxVariant v;
    v.SetHexBinary(CBinaryData("a"));
    v.SetNil();
    v.FromString("Zg==", OrvexXml::ItemType_base64Binary, NONE);
    EXPECT_FALSE(v.IsNil());
    EXPECT_TRUE(v.GetBase64Binary() == CBinaryData("f"));
}

TEST(OxVariantBinaryText, RefusedHexKeepsFormerContent) {
    OxVariant v;
    v.SetString("keep");
    EXPECT_OX_THROW(v.FromString("ABC", OrvexXml::ItemType_hexBinary, NONE), COxException,
                    "Invalid length in hex string");
    EXPECT_OX_THROW(v.FromString("0G", OrvexXml::ItemType_hexBinary, NONE), COxException,
                    "Invalid char in hex string [G]");
    EXPECT_EQ(OrvexXml::ItemType_string, v.GetTypeAsEnum());
    EXPECT_EQ("keep", v.GetString());
}

TEST(OxVariantBinaryText, InvalidBase64GivesAnEmptyValueWithoutError) {
    OxVariant v;
    v.SetString("replaced");
    v.FromString("Zm9v*", OrvexXml::ItemType_base64Binary, NONE);
    EXPECT_EQ(OrvexXml::ItemType_base64Binary, v.GetTypeAsEnum());
    EXPECT_FALSE(v.IsNil());
    EXPECT_EQ(0u, v.GetBase64Binary().GetLength());
}

// --- CConversions --------------------------------------------------------------------------

TEST(ConversionsBinary, ToStringForms) {
    EXPECT_EQ("00FF", CConversions::hexBinaryToString(FromHex("00ff")));
    EXPECT_EQ("AP8=", CConversions::base64BinaryToString(FromHex("00ff")));
    EXPECT_EQ("", CConversions::hexBinaryToString(CBinaryData()));
    EXPECT_EQ("", CConversions::base64BinaryToString(CBinaryData()));
}

TEST(ConversionsBinary, HexIsReadAfterTheWhitespaceRule) {
    EXPECT_TRUE(CConversions::hexBinaryFromString(" CAFE ", COLLAPSE) == FromHex("CAFE"));
    // Inner blanks stay under collapse and make the length odd.
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A 0B", COLLAPSE), COxException, "Invalid length in hex string");
    // Replace turns the tab into a blank before the characters are tested.
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A\t0", REPLACE), COxException,
                    "Invalid char in hex string [ ]");
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A0B\n", NONE), COxException, "Invalid length in hex string");
    EXPECT_OX_THROW(CConversions::hexBinaryFromString("0A", static_cast<CWhitespaceUtils::WhitespaceRule>(9)),
                    COxException, "Unknown WhitespaceRule");
}

TEST(ConversionsBinary, Base64IsReadAfterTheWhitespaceRule) {
    EXPECT_TRUE(CConversions::base64BinaryFromString("\tZm9v YmFy\n", COLLAPSE) == CBinaryData("foobar"));
    EXPECT_TRUE(CConversions::base64BinaryFromString("Zm9v YmFy", NONE) == CBinaryData("foobar"));
    EXPECT_EQ(0u, CConversions::base64BinaryFromString("Zm9v-YmFy", NONE).GetLength());
    EXPECT_EQ(0u, CConversions::base64BinaryFromString("", COLLAPSE).GetLength());
}

}  // namespace
