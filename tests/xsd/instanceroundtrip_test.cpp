// Random valid documents of the order book schema, of the content models and of SAML 2.0
// through the classes orvex-xsd generates from them: they must come back valid and unchanged.
#include "support/instanceroundtrip.h"

#include <cstdlib>
#include <fstream>

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

// The SAML set as the xsd tests compile it: one schema that imports the protocol and metadata
// schemas (which import the assertion schema), and a catalog that maps the W3C locations of
// XML Signature, XML Encryption and xml.xsd to the installed copies, so that xmllint reads
// nothing from the network. The generator finds the same copies through -I.
class SamlRoundTrip : public testing::Test {
protected:
    void SetUp() override {
        const std::string strTooling = ORVEXXML_XMLTOOLING_SCHEMA_DIR, strSaml = ORVEXXML_SAML_SCHEMA_DIR;
        const std::string strDir = SchemaDir();
        ASSERT_EQ(std::system(("mkdir -p '" + strDir + "'").c_str()), 0);
        std::ofstream(strDir + "/catalog.xml")
            << "<catalog xmlns=\"urn:oasis:names:tc:entity:xmlns:xml:catalog\">\n"
            << "  <uri name=\"http://www.w3.org/TR/2002/REC-xmldsig-core-20020212/xmldsig-core-schema.xsd\" "
               "uri=\"file://"
            << strTooling << "/xmldsig-core-schema.xsd\"/>\n"
            << "  <uri name=\"http://www.w3.org/TR/2002/REC-xmlenc-core-20021210/xenc-schema.xsd\" uri=\"file://"
            << strTooling << "/xenc-schema.xsd\"/>\n"
            << "  <uri name=\"http://www.w3.org/2001/xml.xsd\" uri=\"file://" << strTooling << "/xml.xsd\"/>\n"
            << "</catalog>\n";
        std::ofstream(strDir + "/saml.xsd")
            << "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" targetNamespace=\"urn:orvex:test:saml\">\n"
            << "  <xs:import namespace=\"urn:oasis:names:tc:SAML:2.0:protocol\" schemaLocation=\"file://" << strSaml
            << "/saml-schema-protocol-2.0.xsd\"/>\n"
            << "  <xs:import namespace=\"urn:oasis:names:tc:SAML:2.0:metadata\" schemaLocation=\"file://" << strSaml
            << "/saml-schema-metadata-2.0.xsd\"/>\n"
            << "</xs:schema>\n";
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
