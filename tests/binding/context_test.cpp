#include <gtest/gtest.h>

#include <functional>

#include <orvexxml/orvexxml.h>

using namespace OrvexXml;

namespace {

std::string MessageOf(const std::function<void()>& fn) {
    try {
        fn();
    } catch (const COxException& e) {
        return e.GetFullMessage();
    }
    return "(no exception)";
}

TEST(SerializationContext, DefaultsAreThoseOfTheProcessWideContext) {
    const CSerializationContext& def = CSerializationContext::GetDefaultContext();
    EXPECT_EQ(def.GetDefaultNamespaceURI(), "");
    EXPECT_TRUE(def.GetWriteTypeAttribute());
    EXPECT_EQ(def.GetNamespaceAliases().GetNamespaceCount(), 0);
    EXPECT_TRUE(def.GetProcessingInstructions().empty());
    EXPECT_EQ(def.GetInLineSchema(), "");
    EXPECT_FALSE(def.GetIgnoreInvalidCollectionCounts());
    EXPECT_FALSE(def.GetIgnoreMissingChoice());
    EXPECT_FALSE(def.GetIgnoreMissingMandatoryElements());
    EXPECT_FALSE(def.GetIgnoreUnknownElements());
    EXPECT_FALSE(def.GetIgnoreUnknownAttributes());
    EXPECT_FALSE(def.GetIgnoreNamespaces());
    EXPECT_EQ(def.GetSchemaType(), SchemaType_XSD);
    EXPECT_FALSE(def.GetNoOptionalAttributeDefaultOutput());
    EXPECT_FALSE(def.GetWriteDefaultElementValues());
    EXPECT_TRUE(def.GetStripCDATA());
    EXPECT_EQ(def.GetIndentChars(), "\t");
}

TEST(SerializationContext, IgnoreSettingsThatExcludeEachOtherAreRefusedAndKeepTheirValues) {
    CSerializationContext ctx;
    ctx.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(MessageOf([&] { ctx.SetIgnoreUnknownElements(true); }),
              "The parser can only ignore additional elements, or ignore the fact that some required ones are "
              "missing, you can not ignore both\nSet IgnoreMissingMandatoryElements to false before setting "
              "IgnoreUnknownElements to true");
    EXPECT_FALSE(ctx.GetIgnoreUnknownElements());
    EXPECT_TRUE(ctx.GetIgnoreMissingMandatoryElements());

    ctx.SetIgnoreMissingMandatoryElements(false);
    ctx.SetIgnoreUnknownElements(true);
    EXPECT_TRUE(ctx.GetIgnoreUnknownElements());
    try {
        ctx.SetIgnoreMissingMandatoryElements(true);
        FAIL() << "no exception";
    } catch (const COxInvalidStateException& e) {
        EXPECT_EQ(e.GetMessage(),
                  "The parser can only ignore additional elements, or ignore the fact that some required ones are "
                  "missing, you can not ignore both\nSet IgnoreUnknownElements to false before setting "
                  "IgnoreMissingMandatoryElements to true");
    }
    EXPECT_FALSE(ctx.GetIgnoreMissingMandatoryElements());
    // Setting false is always allowed.
    ctx.SetIgnoreMissingMandatoryElements(false);
}

TEST(SerializationContext, IndentCharsAcceptOnlyBlanksAndTabs) {
    CSerializationContext ctx;
    ctx.SetIndentChars("  \t");
    EXPECT_EQ(ctx.GetIndentChars(), "  \t");
    try {
        ctx.SetIndentChars("x");
        FAIL() << "no exception";
    } catch (const COxInvalidParamException& e) {
        EXPECT_EQ(e.GetMessage(), "IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
    }
    EXPECT_EQ(ctx.GetIndentChars(), "  \t");
    ctx.SetIndentChars(nullptr);
    EXPECT_EQ(ctx.GetIndentChars(), "");
}

TEST(SerializationContext, NamespacesAreIgnoredForSchemasWithoutThem) {
    CSerializationContext ctx;
    ctx.SetSchemaType(SchemaType_DTD);
    EXPECT_TRUE(ctx.GetIgnoreNamespaces());
    ctx.SetSchemaType(SchemaType_XDR);
    EXPECT_FALSE(ctx.GetIgnoreNamespaces());
    ctx.SetIgnoreNamespaces(true);
    EXPECT_TRUE(ctx.GetIgnoreNamespaces());
}

TEST(SerializationContext, CopiesAreIndependent) {
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("a", "urn:a");
    ctx.GetProcessingInstructions().push_back("<?pi?>");
    CSerializationContext copy(ctx);
    copy.GetNamespaceAliases().Add("b", "urn:b");
    copy.GetProcessingInstructions().clear();
    EXPECT_EQ(ctx.GetNamespaceAliases().GetNamespaceCount(), 1);
    EXPECT_EQ(ctx.GetProcessingInstructions().size(), 1u);
    EXPECT_EQ(copy.GetNamespaceAliases().GetNamespaceCount(), 2);
}

}  // namespace
