// Generated class for the nillable element Note.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

namespace Samples {

class CNote : public OrvexXml::CXmlGeneratedClass, public OrvexXml::INillable {
public:
    CNote();
    CNote(const CNote& rhs);
    CNote& operator=(const CNote& rhs);
    virtual ~CNote();

    static OrvexXml::CSmartPtr<CNote> CreateInstance() { return new CNote(); }

    // Author: xs:string, optional
    const std::string& GetAuthor() const { return m_Author; }
    void SetAuthor(const std::string& value) {
        m_Author = value;
        m_bValidAuthor = true;
    }
    bool IsValidAuthor() const { return m_bValidAuthor; }
    void SetValidAuthor(bool bValid) { m_bValidAuthor = bValid; }
    // Body: xs:string, mandatory
    const std::string& GetBody() const { return m_Body; }
    void SetBody(const std::string& value) { m_Body = value; }

    // INillable
    bool IsNil() const override { return m_bNil; }
    void SetNil(bool bNil) override { m_bNil = bNil; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return ""; }

private:
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    bool m_bNil;
    std::string m_Author;
    bool m_bValidAuthor;
    std::string m_Body;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
