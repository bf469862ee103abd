// What the writer may put out and how deep the walks may go: values with bytes that XML 1.0
// can't carry, checked against what our own reader makes of them, and the nesting limit of
// the write and read walks, on a thread stack of 1 MiB.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <typeinfo>

#include "binding/bindinghelpers.h"
#include "support/testclasses.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexTest;
using OrvexBindTest::Flat;
using OrvexBindTest::Innermost;
using OrvexBindTest::OnSmallStacks;

namespace {

// What our reader gets back from a record's document: the value through the record, the simple
// content through the tree (the record keeps none); "(refused)" when the reader refuses it.
std::string ReadBack(const std::string& strXml, bool bSimpleContent) {
    try {
        if (bSimpleContent) {
            CXmlDocument doc;
            doc.LoadXml(strXml.c_str());
            return doc.GetDocumentElement()->GetText();
        }
        CSmartPtr<CTestRecord> record = new CTestRecord();
        record->FromXml(strXml.c_str(), CSerializationContext::GetDefaultContext());
        return record->m_value.GetString();
    } catch (const COxException&) {
        return "(refused)";
    }
}

// Every byte below 0x80 inside an element's value and inside simple content: the checking
// writer refuses exactly the values that, written unchecked, our reader refuses or reads back
// as another value. CR is the one exception: it is legal XML, and the writer drops it on
// purpose (line ends inside the library are LF).
TEST(WrittenCharacters, CheckingRefusesExactlyWhatOurReaderCannotGetBack) {
    CSerializationContext checking;
    checking.SetCheckCharacters(true);
    for (int nByte = 0; nByte < 0x80; ++nByte) {
        SCOPED_TRACE(nByte);
        const std::string strValue = std::string("x") + static_cast<char>(nByte) + "y";
        for (bool bSimpleContent : {false, true}) {
            CSmartPtr<CTestRecord> record = new CTestRecord();
            record->m_value.SetString(bSimpleContent ? "v" : strValue);
            if (bSimpleContent) record->m_text.SetString(strValue);

            const std::string strUnchecked = Flat(record);
            const bool bCarried = ReadBack(strUnchecked, bSimpleContent) == strValue;
            try {
                std::string strChecked = Flat(record, checking);
                EXPECT_TRUE(bCarried || nByte == '\r') << strUnchecked;
                EXPECT_EQ(strUnchecked, strChecked);
            } catch (const COxException& e) {
                EXPECT_FALSE(bCarried || nByte == '\r') << strUnchecked;
                EXPECT_EQ(typeid(COxValidationException), typeid(e));
                const COxException& cause = Innermost(e);
                EXPECT_EQ(typeid(COxInvalidValueException), typeid(cause));
                EXPECT_EQ(bSimpleContent ? "/Record" : "/Record/Value", cause.GetPath());
                char szHex[8];
                std::snprintf(szHex, sizeof(szHex), "0x%02X", nByte);
                EXPECT_EQ(std::string("The value holds the byte ") + szHex +
                              " at offset 1, which XML 1.0 can't carry; remove it, or store the data as binary "
                              "(base64) instead of text.\nPath: " +
                              cause.GetPath(),
                          cause.GetMessage());
            }
        }
    }
}

// Unchecked, a null byte ends the value; checked, through a copy of the context, the caller
// sees the whole message.
TEST(WrittenCharacters, UncheckedStopsAtNullCheckedCopyRefusesWithTheWholeMessage) {
    CSmartPtr<CTestRecord> record = new CTestRecord();
    record->m_value.SetString(std::string("a\x01b\0c", 5));
    EXPECT_EQ(std::string("<Record><Value>a\x01b</Value></Record>"), Flat(record));
    CSerializationContext checking;
    checking.SetCheckCharacters(true);
    const CSerializationContext copy(checking);
    record->m_value.SetString(std::string("ab\0c", 4));
    EXPECT_EQ(
        "Failed to convert the element [Record] to XML\n"
        "The value holds the byte 0x00 at offset 2, which XML 1.0 can't carry; remove it, or store the data as "
        "binary (base64) instead of text.\nPath: /Record/Value",
        OrvexBindTest::RaisedBy([&] { Flat(record, copy); }).strMessage);
}

std::string NestPath(int32_t nLevels) {
    std::string strPath;
    for (int32_t i = 0; i < nLevels; ++i) strPath += "/Nest";
    return strPath;
}

std::string DepthMessage(int32_t nLimit) {
    return "The element is nested deeper than the limit of " + std::to_string(nLimit) +
           " levels; raise MaxDepth of the context if such a document is intended.";
}

// A tree exactly at the limit is written and read back; one level more is refused by the
// writer with the path of the first element too deep, and its document by the reader. At the
// default limit all of it runs on a stack of 1 MiB.
TEST(NestingDepth, TheLevelPastTheLimitIsRefusedInBothWalksOnASmallStack) {
    for (int32_t nLimit : {1, 2, 5, CSerializationContext::DefaultMaxDepth}) {
        SCOPED_TRACE(nLimit);
        CSerializationContext ctx;
        ctx.SetMaxDepth(nLimit);
        CSerializationContext roomy;
        roomy.SetMaxDepth(nLimit + 1);
        OnSmallStacks(1, [&] {
            CSmartPtr<CTestNest> atLimit = CTestNest::Chain(nLimit);
            const std::string strAtLimit = Flat(atLimit, ctx);
            CSmartPtr<CTestNest> read = new CTestNest();
            read->FromXml(strAtLimit.c_str(), ctx);
            EXPECT_EQ(nLimit, CTestNest::Levels(read));

            const std::string strRefused = DepthMessage(nLimit) + "\nPath: " + NestPath(nLimit + 1);
            CSmartPtr<CTestNest> pastLimit = CTestNest::Chain(nLimit + 1);
            try {
                Flat(pastLimit, ctx);
                ADD_FAILURE() << "a tree one level past the limit was written";
            } catch (const COxException& e) {
                EXPECT_EQ(typeid(COxValidationException), typeid(Innermost(e)));
                EXPECT_EQ(strRefused, Innermost(e).GetMessage());
            }
            const std::string strPastLimit = Flat(pastLimit, roomy);
            EXPECT_EQ(strRefused,
                      OrvexBindTest::RaisedBy([&] { read->FromXml(strPastLimit.c_str(), ctx); }).strMessage);

            // A tree loaded under a higher limit is still refused by the walk of the lower one.
            CXmlDocument doc(roomy);
            doc.LoadXml(strPastLimit.c_str());
            EXPECT_EQ(strRefused,
                      OrvexBindTest::RaisedBy([&] { read->FromXmlElement(doc.GetDocumentElement(), ctx); }).strMessage);
        });
    }
}

// Objects that hold their children directly, not in a collection, free without recursion
// too: a chain far deeper than any limit goes on a stack of 1 MiB, every object before the
// release of the root returns.
thread_local int t_nNestsFreed = 0;
struct CCountedNest : CTestNest {
    ~CCountedNest() override { ++t_nNestsFreed; }
};

TEST(NestingDepth, AChainOfObjectsFarPastTheLimitIsFreedOnASmallStack) {
    const int nLevels = 100000;
    OnSmallStacks(1, [&] {
        CSmartPtr<CTestNest> chain = new CCountedNest();
        CTestNest* pLast = chain;
        for (int i = 1; i < nLevels; ++i) pLast = static_cast<CTestNest*>((pLast->m_child = new CCountedNest()).Get());
        t_nNestsFreed = 0;
        chain = nullptr;
        EXPECT_EQ(nLevels, t_nNestsFreed);
    });
}

// The limit is part of what a context copy carries, and a limit below the root is refused.
TEST(NestingDepth, ContextSettingsAreCopiedAndALimitBelowOneIsRefused) {
    CSerializationContext ctx;
    ctx.SetMaxDepth(7);
    for (int32_t nBad : {0, -1})
        EXPECT_EQ("MaxDepth must be at least 1, the level of the root element",
                  OrvexBindTest::Thrown<COxInvalidParamException>([&] { ctx.SetMaxDepth(nBad); }));
    EXPECT_EQ(7, CSerializationContext(ctx).GetMaxDepth());
}

}  // namespace
