#include <gtest/gtest.h>

#include <orvexxml/orvexxml.h>

#include "person.h"

using namespace OrvexXml;

namespace {

// Each test runs under one local code page and puts the default back afterwards.
class ReadingUnderCodePage : public ::testing::Test {
protected:
    void TearDown() override {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
        ASCIIOnly(false);
    }
    std::string ReadName(const char* pszXml) {
        CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
        person->FromXml(pszXml, CSerializationContext::GetDefaultContext());
        return person->GetName();
    }
};

const char* const kUtf8Doc = "<Person><Name>caf\xC3\xA9 \xE2\x82\xAC \xCE\xA9</Name></Person>";

TEST_F(ReadingUnderCodePage, Utf8KeepsEveryCharacter) { EXPECT_EQ(ReadName(kUtf8Doc), "caf\xC3\xA9 \xE2\x82\xAC \xCE\xA9"); }

TEST_F(ReadingUnderCodePage, Windows1252GivesSingleBytesAndDefaultCharacters) {
    SetLocalCharEncoding(1252);
    EXPECT_EQ(ReadName(kUtf8Doc), "caf\xE9 \x80 ?");
}

TEST_F(ReadingUnderCodePage, Latin1LacksTheEuroSign) {
    SetLocalCharEncoding(28591);
    EXPECT_EQ(ReadName(kUtf8Doc), "caf\xE9 ? ?");
    // A document in Latin-1 arrives as the same single bytes.
    EXPECT_EQ(ReadName("<?xml version='1.0' encoding='ISO-8859-1'?><Person><Name>\xE9t\xE9</Name></Person>"),
              "\xE9t\xE9");
}

TEST_F(ReadingUnderCodePage, WideInputUnderACodePage) {
    SetLocalCharEncoding(1252);
    CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
    person->FromXml(L"<Person><Name>\u00fcber \u20ac \U0001F600</Name></Person>",
                    CSerializationContext::GetDefaultContext());
    EXPECT_EQ(person->GetName(), "\xFC" "ber \x80 ?");
}

TEST_F(ReadingUnderCodePage, AsciiOnlyLeavesUtf8BytesAsTheyAre) {
    SetLocalCharEncoding(1252);
    ASCIIOnly(true);
    EXPECT_EQ(ReadName(kUtf8Doc), "caf\xC3\xA9 \xE2\x82\xAC \xCE\xA9");
}

}  // namespace
