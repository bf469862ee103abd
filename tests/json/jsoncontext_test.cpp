#include <gtest/gtest.h>

#include "orvexxml/binding/serializationcontext.h"

using namespace OrvexXml;

// The JSON settings come into being through a const context, and a copied or assigned
// context owns settings of its own: a change on one never shows on the other.
TEST(JsonContext, DefaultsCreatedThroughConstContextAndCopiedWithTheContext) {
    CSerializationContext ctx;
    const CSerializationContext& constCtx = ctx;
    CJsonContext& json = constCtx.GetJsonContext();
    EXPECT_EQ(&json, &ctx.GetJsonContext());
    EXPECT_EQ(JsonRoundTrip_Full, json.GetSupportRoundtrip());
    EXPECT_EQ("", json.GetRootElementName());
    EXPECT_TRUE(json.GetAllowComments());

    json.SetSupportRoundtrip(JsonRoundTrip_Simple);
    json.SetRootElementName("Root");
    json.GetAllowComments(false);
    CSerializationContext copy(ctx);
    CSerializationContext assigned;
    assigned.GetJsonContext().SetRootElementName("Other");
    assigned = ctx;
    CSerializationContext unused;
    CSerializationContext cleared;
    cleared.GetJsonContext();
    cleared = unused;  // the source never created its settings
    json.SetSupportRoundtrip(JsonRoundTrip_None);
    json.SetRootElementName(nullptr);

    for (const CSerializationContext* pCtx : {&copy, &assigned}) {
        EXPECT_EQ(JsonRoundTrip_Simple, pCtx->GetJsonContext().GetSupportRoundtrip());
        EXPECT_EQ("Root", pCtx->GetJsonContext().GetRootElementName());
        EXPECT_FALSE(pCtx->GetJsonContext().GetAllowComments());
        EXPECT_NE(&json, &pCtx->GetJsonContext());
    }
    EXPECT_EQ(JsonRoundTrip_Full, cleared.GetJsonContext().GetSupportRoundtrip());
    EXPECT_EQ(JsonRoundTrip_None, json.GetSupportRoundtrip());
    EXPECT_EQ("", json.GetRootElementName());
}
