// Generated class for the element Envelope: a message whose parts the schema leaves open. Its
// attributes are any attributes outside the target namespace (xs:anyAttribute ##other); after a
// fixed Header come an optional Signature from one of two signature namespaces, a run of Stamp
// elements of any namespace, and a Body of any elements outside the target namespace.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CEnvelope : public OrvexXml::CXmlGeneratedClass {
public:
    CEnvelope();
    virtual ~CEnvelope();

    static OrvexXml::CSmartPtr<CEnvelope> CreateInstance() { return new CEnvelope(); }

    // AnyAttribute: xs:anyAttribute namespace="##other"
    OrvexXml::CAttributeCol& GetAnyAttribute() { return *m_AnyAttribute; }
    // Header: xs:string, mandatory
    const std::string& GetHeader() const { return m_Header; }
    void SetHeader(const std::string& value) { m_Header = value; }
    // Signature: xs:any namespace="urn:orvex:sig urn:orvex:sig2", optional
    OrvexXml::CSmartPtr<OrvexXml::CElement> GetSignature() const { return m_Signature; }
    void SetSignature(OrvexXml::CElement* value) { m_Signature = value; }
    // Stamp: untyped element, namespace="##any", 0 to unbounded
    OrvexXml::CElementCol& GetStamp() { return *m_Stamp; }
    // Body: xs:any namespace="##other", 0 to unbounded
    OrvexXml::CElementCol& GetBody() { return *m_Body; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:envelope"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:envelope"; }

private:
    CEnvelope(const CEnvelope&) = delete;
    CEnvelope& operator=(const CEnvelope&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    OrvexXml::CSmartPtr<OrvexXml::CAttributeCol> m_AnyAttribute;
    std::string m_Header;
    OrvexXml::CSmartPtr<OrvexXml::CElement> m_Signature;
    OrvexXml::CSmartPtr<OrvexXml::CElementCol> m_Stamp;
    OrvexXml::CSmartPtr<OrvexXml::CElementCol> m_Body;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
