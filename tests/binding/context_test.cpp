#include "bindinghelpers.h"

using namespace OrvexXml;
using namespace OrvexBindTest;

namespace {

TEST(SerializationContext, RefusedSettingsKeepTheirOldValues) {
    const std::string kBoth =
        "The parser can only ignore additional elements, or ignore the fact that some required ones are missing, "
        "you can not ignore both\n";
    CSerializationContext ctx;
    ctx.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(Thrown<COxInvalidStateException>([&] { ctx.SetIgnoreUnknownElements(true); }),
              kBoth + "Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    EXPECT_FALSE(ctx.GetIgnoreUnknownElements());
    EXPECT_TRUE(ctx.GetIgnoreMissingMandatoryElements());

    ctx.SetIgnoreMissingMandatoryElements(false);
    ctx.SetIgnoreUnknownElements(true);
    EXPECT_EQ(Thrown<COxInvalidStateException>([&] { ctx.SetIgnoreMissingMandatoryElements(true); }),
              kBoth + "Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    EXPECT_FALSE(ctx.GetIgnoreMissingMandatoryElements());
    EXPECT_TRUE(ctx.GetIgnoreUnknownElements());
    EXPECT_NO_THROW(ctx.SetIgnoreMissingMandatoryElements(false));  // clearing is always allowed

    ctx.SetIndentChars("  \t");
    EXPECT_EQ(Thrown<COxInvalidParamException>([&] { ctx.SetIndentChars("x"); }),
              "IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
    EXPECT_EQ(ctx.GetIndentChars(), "  \t");
    ctx.SetIndentChars(nullptr);
    EXPECT_EQ(ctx.GetIndentChars(), "");
}

TEST(SerializationContext, DefaultsAndNamespacesIgnoredForSchemasWithoutThem) {
    // The defaults that no writing or reading test shows.
    const CSerializationContext& def = DefaultCtx();
    EXPECT_EQ(def.GetSchemaType(), SchemaType_XSD);
    EXPECT_FALSE(def.GetIgnoreNamespaces());
    EXPECT_FALSE(def.GetNoOptionalAttributeDefaultOutput());
    EXPECT_TRUE(def.GetStripCDATA());
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
