#include <gtest/gtest.h>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/xml/namespacealiasmap.h"

using namespace OrvexXml;

namespace {

TEST(NamespaceAliasMap, ANamespaceHasOneAliasAndAnAliasMayServeSeveral) {
    CNamespaceAliasMap map;
    map.Add("a", "urn:x");
    map.Add("b", "urn:x");
    EXPECT_EQ(map.GetNamespaceCount(), 1);
    EXPECT_EQ(map.GetAliasFromNamespace("urn:x"), "b");
    EXPECT_FALSE(map.DoesAliasExist("a"));

    map.Add("a", "urn:z");
    map.Add("a", "urn:y");
    EXPECT_EQ(map.GetNamespaceFromAlias("a"), "urn:y");  // the smaller URI of the two
    EXPECT_TRUE(map.DoesNamespaceExist("urn:z"));
}

TEST(NamespaceAliasMap, PositionsFollowUriOrderNotInsertion) {
    CNamespaceAliasMap map;
    map.Add("c", "urn:c");
    map.Add("a", "urn:a");
    map.Add("b", "urn:b");
    ASSERT_EQ(map.GetNamespaceCount(), 3);
    EXPECT_EQ(map.GetNamespaceAt(0), "urn:a");
    EXPECT_EQ(map.GetNamespaceAt(1), "urn:b");
    EXPECT_EQ(map.GetNamespaceAt(2), "urn:c");
    map.RemoveNamespace("urn:b");
    map.RemoveNamespace("urn:unknown");
    EXPECT_EQ(map.GetNamespaceAt(1), "urn:c");
}

TEST(NamespaceAliasMap, EmptyMapAndUnknownLookups) {
    CNamespaceAliasMap map;
    EXPECT_EQ(map.GetNamespaceCount(), 0);
    EXPECT_FALSE(map.DoesAliasExist("a"));
    EXPECT_EQ(map.GetAliasFromNamespace("urn:none"), "");
    EXPECT_EQ(map.GetNamespaceCount(), 0);  // asking does not add an entry
    try {
        map.GetNamespaceFromAlias("q");
        FAIL() << "no exception";
    } catch (const COxException& e) {
        EXPECT_EQ(e.GetMessage(), "Namespace alias [q] not found");
    }
}

}  // namespace
