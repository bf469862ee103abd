// The SAML 2.0 schema set as the xsd tests compile it, written into a directory of a test's
// own: one schema that imports the protocol and metadata schemas (which import the assertion
// schema), and a catalog that maps the W3C locations of XML Signature, XML Encryption and
// xml.xsd to the installed copies, so that xmllint reads nothing from the network.
#pragma once

#include <fstream>
#include <string>

#ifdef ORVEXXML_SAML_SCHEMA_DIR

// Writes catalog.xml and saml.xsd into strDir, which exists.
inline void WriteSamlSchemaSet(const std::string& strDir) {
    const std::string strTooling = ORVEXXML_XMLTOOLING_SCHEMA_DIR, strSaml = ORVEXXML_SAML_SCHEMA_DIR;
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

#endif
