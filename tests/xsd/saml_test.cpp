// The SAML 2.0 assertion, protocol and metadata schemas, with their XML Signature and XML
// Encryption imports, compiled by orvex-xsd (tests/CMakeLists.txt). Documents read and write
// back with the same canonical form (xmllint --c14n), and xmllint finds the output valid
// against the installed schemas, its imports mapped to local files by a catalog.
#include <gtest/gtest.h>
#include <orvexxml/orvexxml.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#ifdef ORVEXXML_SAML_SCHEMA_DIR

#include "support/samlschemas.h"
#include "xsd_saml/attributetype.h"
#include "xsd_saml/conditions.h"
#include "xsd_saml/conditionschoice.h"
#include "xsd_saml/proxyrestrictiontype.h"

using namespace OrvexXml;

namespace XsdSaml {
CSmartPtr<CXmlGeneratedClass> CreateRootElement(const char* name, const char* ns);
}

namespace {

const char kAssertion[] = "urn:oasis:names:tc:SAML:2.0:assertion";

// The prefixes of the documents below, declared on the document element by the writer.
const CSerializationContext& Ctx() {
    static const CSerializationContext ctx = [] {
        CSerializationContext c;
        c.GetNamespaceAliases().Add("saml", kAssertion);
        c.GetNamespaceAliases().Add("samlp", "urn:oasis:names:tc:SAML:2.0:protocol");
        c.GetNamespaceAliases().Add("md", "urn:oasis:names:tc:SAML:2.0:metadata");
        c.GetNamespaceAliases().Add("xs", "http://www.w3.org/2001/XMLSchema");
        c.GetNamespaceAliases().Add("xsi", "http://www.w3.org/2001/XMLSchema-instance");
        return c;
    }();
    return ctx;
}

std::string Declarations() {
    return " xmlns:md=\"urn:oasis:names:tc:SAML:2.0:metadata\" xmlns:saml=\"urn:oasis:names:tc:SAML:2.0:assertion\""
           " xmlns:samlp=\"urn:oasis:names:tc:SAML:2.0:protocol\" xmlns:xs=\"http://www.w3.org/2001/XMLSchema\""
           " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";
}

// What a command prints on its standard output, and whether it succeeded.
bool RunCommand(const std::string& strCommand, std::string& strOutput) {
    strOutput.clear();
    FILE* pPipe = popen(strCommand.c_str(), "r");
    if (!pPipe) return false;
    char szBuffer[4096];
    size_t nRead;
    while ((nRead = std::fread(szBuffer, 1, sizeof szBuffer, pPipe)) > 0) strOutput.append(szBuffer, nRead);
    return pclose(pPipe) == 0;
}

class SamlDocuments : public testing::Test {
protected:
    void SetUp() override {
        m_strDir = testing::TempDir() + "saml_" + testing::UnitTest::GetInstance()->current_test_info()->name();
        ASSERT_EQ(std::system(("mkdir -p '" + m_strDir + "'").c_str()), 0);
        WriteSamlSchemaSet(m_strDir);
    }
    void TearDown() override { EXPECT_EQ(std::system(("rm -rf '" + m_strDir + "'").c_str()), 0); }

    std::string Write(const std::string& strName, const std::string& strXml) const {
        const std::string strFile = m_strDir + "/" + strName;
        std::ofstream(strFile, std::ios::binary) << strXml;
        return strFile;
    }
    bool Valid(const std::string& strFile) const {
        std::string strOutput;
        return RunCommand("XML_CATALOG_FILES='" + m_strDir + "/catalog.xml' xmllint --nonet --noout --schema '" +
                              m_strDir + "/saml.xsd' '" + strFile + "' 2>&1",
                          strOutput);
    }
    std::string Canonical(const std::string& strFile) const {
        std::string strOutput;
        EXPECT_TRUE(RunCommand("xmllint --nonet --c14n '" + strFile + "'", strOutput)) << strFile;
        return strOutput;
    }

    std::string m_strDir;
};

const char* const kAssertionBody =
    "<saml:Issuer>https://idp.example.org</saml:Issuer>"
    "<saml:Subject><saml:NameID Format=\"urn:oasis:names:tc:SAML:1.1:nameid-format:emailAddress\">"
    "alice@example.org</saml:NameID><saml:SubjectConfirmation Method=\"urn:oasis:names:tc:SAML:2.0:cm:bearer\">"
    "<saml:SubjectConfirmationData NotOnOrAfter=\"2026-11-24T08:05:00Z\" Recipient=\"https://sp.example.org/acs\"/>"
    "</saml:SubjectConfirmation></saml:Subject>"
    "<saml:Conditions NotBefore=\"2026-11-24T07:55:00Z\" NotOnOrAfter=\"2026-11-24T08:05:00Z\">"
    "<saml:AudienceRestriction><saml:Audience>https://sp.example.org</saml:Audience></saml:AudienceRestriction>"
    "<saml:Condition xsi:type=\"saml:ProxyRestrictionType\" Count=\"2\">"
    "<saml:Audience>https://other.example.org</saml:Audience></saml:Condition><saml:OneTimeUse/></saml:Conditions>"
    "<saml:AuthnStatement AuthnInstant=\"2026-11-24T07:59:00Z\" SessionIndex=\"s1\"><saml:AuthnContext>"
    "<saml:AuthnContextClassRef>urn:oasis:names:tc:SAML:2.0:ac:classes:PasswordProtectedTransport"
    "</saml:AuthnContextClassRef></saml:AuthnContext></saml:AuthnStatement>"
    "<saml:AttributeStatement><saml:Attribute Name=\"mail\" "
    "NameFormat=\"urn:oasis:names:tc:SAML:2.0:attrname-format:basic\">"
    "<saml:AttributeValue xsi:type=\"xs:string\">alice@example.org</saml:AttributeValue></saml:Attribute>"
    "<saml:Attribute Name=\"age\"><saml:AttributeValue xsi:type=\"xs:integer\">42</saml:AttributeValue>"
    "<saml:AttributeValue xsi:nil=\"true\"/></saml:Attribute></saml:AttributeStatement>";

std::string Assertion() {
    return "<saml:Assertion" + Declarations() + " ID=\"_a1\" IssueInstant=\"2026-11-24T08:00:00Z\" Version=\"2.0\">" +
           kAssertionBody + "</saml:Assertion>";
}

TEST_F(SamlDocuments, ReadAndWriteBackWithTheSameCanonicalFormAndStayValid) {
    const struct {
        const char* pszRoot;
        const char* pszNamespace;
        std::string strDocument;
    } documents[] = {
        {"Assertion", kAssertion, Assertion()},
        {"Response", "urn:oasis:names:tc:SAML:2.0:protocol",
         "<samlp:Response" + Declarations() +
             " ID=\"_r1\" InResponseTo=\"_q1\" IssueInstant=\"2026-11-24T08:00:01Z\" Version=\"2.0\">"
             "<saml:Issuer>https://idp.example.org</saml:Issuer><samlp:Status>"
             "<samlp:StatusCode Value=\"urn:oasis:names:tc:SAML:2.0:status:Success\"/></samlp:Status>" +
             "<saml:Assertion ID=\"_a1\" IssueInstant=\"2026-11-24T08:00:00Z\" Version=\"2.0\">" + kAssertionBody +
             "</saml:Assertion></samlp:Response>"},
        {"EntityDescriptor", "urn:oasis:names:tc:SAML:2.0:metadata",
         "<md:EntityDescriptor" + Declarations() +
             " entityID=\"https://sp.example.org\"><md:SPSSODescriptor AuthnRequestsSigned=\"true\" "
             "protocolSupportEnumeration=\"urn:oasis:names:tc:SAML:2.0:protocol\">"
             "<md:SingleLogoutService Binding=\"urn:oasis:names:tc:SAML:2.0:bindings:HTTP-Redirect\" "
             "Location=\"https://sp.example.org/slo\"/>"
             "<md:NameIDFormat>urn:oasis:names:tc:SAML:2.0:nameid-format:transient</md:NameIDFormat>"
             "<md:AssertionConsumerService Binding=\"urn:oasis:names:tc:SAML:2.0:bindings:HTTP-POST\" "
             "Location=\"https://sp.example.org/acs\" index=\"0\" isDefault=\"true\"/></md:SPSSODescriptor>"
             "<md:RoleDescriptor xsi:type=\"md:AttributeAuthorityDescriptorType\" "
             "protocolSupportEnumeration=\"urn:oasis:names:tc:SAML:2.0:protocol\">"
             "<md:AttributeService Binding=\"urn:oasis:names:tc:SAML:2.0:bindings:SOAP\" "
             "Location=\"https://sp.example.org/aa\"/></md:RoleDescriptor>"
             "<md:ContactPerson contactType=\"technical\"><md:EmailAddress>mailto:ops@example.org</md:EmailAddress>"
             "</md:ContactPerson></md:EntityDescriptor>"},
    };
    for (const auto& d : documents) {
        SCOPED_TRACE(d.pszRoot);
        const std::string strIn = Write("in.xml", d.strDocument);
        ASSERT_TRUE(Valid(strIn));
        CSmartPtr<CXmlGeneratedClass> root = XsdSaml::CreateRootElement(d.pszRoot, d.pszNamespace);
        ASSERT_TRUE(root);
        std::string strXml;
        try {
            root->FromXml(d.strDocument.c_str(), Ctx());
            strXml = root->ToXml(false, false, EOLType_LF, Ctx());
        } catch (const COxException& e) {
            ADD_FAILURE() << e.GetFullMessage();
        }
        const std::string strOut = Write("out.xml", strXml);
        EXPECT_TRUE(Valid(strOut));
        EXPECT_EQ(Canonical(strOut), Canonical(strIn));
    }
}

TEST_F(SamlDocuments, AConditionNamedByXsiTypeReadsIntoItsClass) {
    CSmartPtr<CXmlGeneratedClass> root = XsdSaml::CreateRootElement("Conditions", kAssertion);
    ASSERT_TRUE(root);
    root->FromXml(("<saml:Conditions" + Declarations() +
                   "><saml:Condition xsi:type=\"saml:ProxyRestrictionType\" Count=\"2\"/>"
                   "<saml:Condition xsi:type=\"saml:OneTimeUseType\"/></saml:Conditions>")
                      .c_str(),
                  Ctx());
    const XsdSaml::CConditions* pConditions = dynamic_cast<XsdSaml::CConditions*>(root.Get());
    ASSERT_NE(pConditions, nullptr);
    ASSERT_EQ(pConditions->GetConditionsChoice().GetCount(), 2);
    const auto* pProxy = dynamic_cast<const XsdSaml::CProxyRestrictionType*>(
        pConditions->GetConditionsChoice().Item(0)->GetCondition().Get());
    ASSERT_NE(pProxy, nullptr);
    EXPECT_EQ(pProxy->GetCount().ToString(), "2");
    // A type that is no condition names no class.
    EXPECT_THROW(root->FromXml(("<saml:Conditions" + Declarations() +
                                "><saml:Condition xsi:type=\"saml:SubjectType\"/></saml:Conditions>")
                                   .c_str(),
                               Ctx()),
                 COxException);
}

}  // namespace

#else

TEST(SamlDocuments, NeedTheInstalledSchemas) {
    GTEST_SKIP() << "opensaml-schemas and xmltooling-schemas are not installed";
}

#endif
