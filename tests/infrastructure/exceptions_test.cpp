#include <gtest/gtest.h>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"

using namespace OrvexXml;

namespace {

TEST(Exceptions, PathIsStoredAndAppendedToTheMessage) {
    COxException e("Bad thing", "/order/item[2]/price");
    EXPECT_EQ(e.GetMessage(), "Bad thing\nPath: /order/item[2]/price");
    EXPECT_EQ(e.GetPath(), "/order/item[2]/price");
    EXPECT_EQ(e.GetInnerException(), nullptr);

    COxException noPath("Bad thing", std::string());
    EXPECT_EQ(noPath.GetMessage(), "Bad thing");
    EXPECT_EQ(noPath.GetPath(), "");
}

TEST(Exceptions, FullMessageReadsFromOutermostToFirstCause) {
    COxInvalidValueException cause("The value [x] can not be converted to a i4");
    COxValidationException middle("Failed to convert the element [b] to XML", "", cause);
    COxValidationException outer("Failed to convert the element [a] to XML", "/a", middle);
    EXPECT_EQ(outer.GetFullMessage(),
              "Failed to convert the element [a] to XML\nPath: /a\n"
              "Failed to convert the element [b] to XML\n"
              "The value [x] can not be converted to a i4");
}

TEST(Exceptions, InnerExceptionKeepsItsDynamicTypeAndOutlivesTheOriginal) {
    COxException* pOuter = nullptr;
    {
        COxInvalidNamespaceException inner("ns", "/p");
        pOuter = new COxException("outer", inner);
    }
    const COxException* pInner = pOuter->GetInnerException();
    ASSERT_NE(pInner, nullptr);
    EXPECT_NE(dynamic_cast<const COxInvalidNamespaceException*>(pInner), nullptr);
    EXPECT_EQ(pInner->GetMessage(), "ns\nPath: /p");
    delete pOuter;
}

TEST(Exceptions, CopyAndAssignmentCloneTheInnerChain) {
    COxInvalidParamException root("root");
    COxInvalidStateException outer("outer", root);
    COxInvalidStateException copy(outer);
    ASSERT_NE(copy.GetInnerException(), nullptr);
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
    EXPECT_NE(dynamic_cast<const COxInvalidParamException*>(copy.GetInnerException()), nullptr);

    COxException assigned("other");
    assigned = outer;
    EXPECT_EQ(assigned.GetFullMessage(), "outer\nroot");
    assigned = assigned;  // self-assignment keeps the chain
    EXPECT_EQ(assigned.GetFullMessage(), "outer\nroot");
}

TEST(Exceptions, EachClassCatchesAsItsBases) {
    try {
        throw COxInvalidValueException("v");
    } catch (const COxValidationException& e) {
        EXPECT_EQ(e.GetMessage(), "v");
    }
    try {
        throw COxOverFlowException("o");
    } catch (const COxException& e) {
        EXPECT_EQ(e.GetMessage(), "o");
    }
    // Conversion from a plain exception keeps message, path and inner exception.
    COxException plain("m", "/x", COxException("why"));
    COxInvalidNamespaceException converted(plain);
    EXPECT_EQ(converted.GetFullMessage(), "m\nPath: /x\nwhy");
    EXPECT_EQ(converted.GetPath(), "/x");
}

TEST(FormatString, HasNoLengthLimit) {
    std::string longText(100000, 'x');
    std::string result = FormatString("[%s] %d %X %.2f", longText.c_str(), -12, 0xBEEFu, 1.5);
    EXPECT_EQ(result.size(), longText.size() + 16);
    EXPECT_EQ(result.substr(longText.size() + 1), "] -12 BEEF 1.50");
}

}  // namespace
