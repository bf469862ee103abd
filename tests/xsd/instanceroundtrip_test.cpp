// Random valid documents of the order book schema, of the content models and of SAML 2.0
// through the classes orvex-xsd generates from them: they must come back valid and unchanged.
#include "support/instanceroundtrip.h"

#include <cstdlib>
#include <fstream>

#include "support/samlschemas.h"

using namespace OrvexXml;
using InstanceRoundTrip::CheckSet;
using InstanceRoundTrip::CSchemaSet;

// The document elements of the two sets, declared in each set's schema.h.
namespace XsdOrderBook {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}
namespace XsdModels {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}
#ifdef ORVEXXML_SAML_SCHEMA_DIR
namespace XsdSaml {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}
#endif

namespace {

const std::string kSourceDir = ORVEXXML_SOURCE_DIR;

TEST(GeneratedRoundTrip, RandomOrderBooksComeBackValidAndEqual) {
    CheckSet({"order",
              kSourceDir + "/bench/order/order.xsd",
              &XsdOrderBook::CreateRootElement,
              {{"orderBook", "urn:example:orders"}},
              300,
              "",
              ""},
             11);
}

TEST(GeneratedRoundTrip, RandomContentModelsComeBackValidAndEqual) {
    CheckSet({"models",
              kSourceDir + "/tests/xsd/contentmodels.xsd",
              &XsdModels::CreateRootElement,
              {{"Shape", ""},
               {"Picks", ""},
               {"Price", ""},
               {"Note", ""},
               {"Box", ""},
               {"Config", ""},
               {"Schedule", ""},
               {"Journal", ""},
               {"Votes", ""},
               {"Envelope", ""},
               {"Tree", ""}},
              40,
              "",
              ""},
             5);
}

#ifdef ORVEXXML_SAML_SCHEMA_DIR

// The SAML set and its catalog (support/samlschemas.h); the generator finds the same copies
// of the imported schemas through -I.
class SamlRoundTrip : public testing::Test {
protected:
    void SetUp() override {
        const std::string strDir = SchemaDir();
        ASSERT_EQ(std::system(("mkdir -p '" + strDir + "'").c_str()), 0);
        WriteSamlSchemaSet(strDir);
    }
    void TearDown() override { EXPECT_EQ(std::system(("rm -rf '" + SchemaDir() + "'").c_str()), 0); }
    // One per test: ctest runs the tests of the suite at the same time.
    static std::string SchemaDir() {
        return testing::TempDir() + "instanceroundtrip_samlschema_" +
               testing::UnitTest::GetInstance()->current_test_info()->name();
    }

    static CSchemaSet Set(const char* pszLabel, int nDocuments, bool bDerivations) {
        const char* const pszAssertion = "urn:oasis:names:tc:SAML:2.0:assertion";
        const char* const pszProtocol = "urn:oasis:names:tc:SAML:2.0:protocol";
        const char* const pszMetadata = "urn:oasis:names:tc:SAML:2.0:metadata";
        return {pszLabel,
                SchemaDir() + "/saml.xsd",
                &XsdSaml::CreateRootElement,
                {{"Assertion", pszAssertion},
                 {"Response", pszProtocol},
                 {"AuthnRequest", pszProtocol},
                 {"LogoutRequest", pszProtocol},
                 {"AttributeQuery", pszProtocol},
                 {"EntityDescriptor", pszMetadata},
                 {"EntitiesDescriptor", pszMetadata}},
                nDocuments,
                std::string("-I '") + ORVEXXML_XMLTOOLING_SCHEMA_DIR + "'" + (bDerivations ? " --derivations" : ""),
                SchemaDir() + "/catalog.xml"};
    }
};

TEST_F(SamlRoundTrip, RandomDocumentsComeBackValidAndEqual) { CheckSet(Set("saml", 50, false), 7); }

TEST_F(SamlRoundTrip, RandomDocumentsWithDerivedTypesComeBackValidAndEqual) {
    CheckSet(Set("samlderived", 50, true), 13);
}

#endif

}  // namespace
