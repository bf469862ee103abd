// Generated class for the element Selection: a choice between repeating elements, each of
// which needs at least one item when chosen.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "orderstatus.h"

namespace Samples {

class CSelection : public OrvexXml::CXmlGeneratedClass {
public:
    CSelection();
    virtual ~CSelection();

    static OrvexXml::CSmartPtr<CSelection> CreateInstance() { return new CSelection(); }

    // The element name of the member that is set, empty if none is.
    const std::string& GetChoiceSelectedElement() const { return m_strSelectedElement; }

    // Number: xs:long, 1 to unbounded
    OrvexXml::Ci8Col& GetNumber() { return *m_Number; }
    // Word: xs:string, 1 to 4
    OrvexXml::CstringCol& GetWord() { return *m_Word; }
    // Status: OrderStatus, 2 to unbounded
    COrderStatusCol& GetStatus() { return *m_Status; }

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
    // Keeps the selection in step with the counts of the collections.
    void OnEvent(OrvexXml::CXmlObjectBase* pSource, OrvexXml::IEventSink::MsgType type, void* pData) override;

private:
    CSelection(const CSelection&) = delete;
    CSelection& operator=(const CSelection&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_strSelectedElement;
    OrvexXml::CSmartPtr<OrvexXml::Ci8Col> m_Number;
    OrvexXml::CSmartPtr<OrvexXml::CstringCol> m_Word;
    OrvexXml::CSmartPtr<COrderStatusCol> m_Status;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
