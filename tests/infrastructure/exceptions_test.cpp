#include "orvexxml/infrastructure/exceptions.h"

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

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

// Held as an inner exception, every class keeps its own type (its clone is of that type) and
// outlives the original.
TEST(Exceptions, InnerExceptionOfEveryClassKeepsItsTypeAndOutlivesTheOriginal) {
    const std::unique_ptr<COxException> causes[] = {
        std::make_unique<COxException>("m", "/p"),
        std::make_unique<COxValidationException>("m", "/p"),
        std::make_unique<COxInvalidValueException>("m\nPath: /p"),
        std::make_unique<COxInvalidNamespaceException>("m", "/p"),
        std::make_unique<COxInvalidStateException>("m\nPath: /p"),
        std::make_unique<COxInvalidParamException>("m\nPath: /p"),
        std::make_unique<COxOverFlowException>("m\nPath: /p"),
    };
    for (const auto& spCause : causes) {
        const std::string strType = typeid(*spCause).name();
        SCOPED_TRACE(strType);
        std::unique_ptr<COxException> spOuter;
        {
            const std::unique_ptr<COxException> spCopy(new COxException("copy", *spCause));
            spOuter.reset(new COxException("outer", *spCopy->GetInnerException()));
        }
        const COxException* pInner = spOuter->GetInnerException();
        ASSERT_NE(pInner, nullptr);
        EXPECT_EQ(typeid(*pInner).name(), strType);
        EXPECT_EQ(pInner->GetMessage(), "m\nPath: /p");
        EXPECT_EQ(spOuter->GetFullMessage(), "outer\nm\nPath: /p");
    }
}

TEST(Exceptions, CopyAndAssignmentCloneTheInnerChain) {
    COxInvalidParamException root("root");
    COxInvalidStateException outer("outer", root);
    COxInvalidStateException copy(outer);
    ASSERT_NE(copy.GetInnerException(), nullptr);
    EXPECT_NE(copy.GetInnerException(), outer.GetInnerException());
    EXPECT_EQ(typeid(*copy.GetInnerException()), typeid(COxInvalidParamException));

    COxException assigned("other");
    assigned = outer;
    EXPECT_EQ(assigned.GetFullMessage(), "outer\nroot");
    EXPECT_NE(assigned.GetInnerException(), outer.GetInnerException());
    assigned = assigned;  // self-assignment keeps the chain
    EXPECT_EQ(assigned.GetFullMessage(), "outer\nroot");
    // Conversion from a plain exception keeps message, path and inner exception.
    COxInvalidNamespaceException converted(COxException("m", "/x", COxException("why")));
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
