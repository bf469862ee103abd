// Generated class for the element Payment of an order: a choice between a Card and a Transfer.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "card.h"
#include "transfer.h"

namespace Samples {

class CPayment : public OrvexXml::CXmlGeneratedClass {
public:
    CPayment();
    virtual ~CPayment();

    static OrvexXml::CSmartPtr<CPayment> CreateInstance() { return new CPayment(); }

    // The element name of the member that is set, empty if none is.
    const std::string& GetChoiceSelectedElement() const { return m_strSelectedElement; }

    // Card: Card, one of the choice. The object takes the element name Card.
    OrvexXml::CSmartPtr<CCard> GetCard() const { return m_Card; }
    void SetCard(CCard* value);
    // Transfer: Transfer, one of the choice. The object takes the element name Transfer.
    OrvexXml::CSmartPtr<CTransfer> GetTransfer() const { return m_Transfer; }
    void SetTransfer(CTransfer* value);

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:orvex:samples:shop"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:orvex:samples:shop"; }

private:
    CPayment(const CPayment&) = delete;
    CPayment& operator=(const CPayment&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_strSelectedElement;
    OrvexXml::CSmartPtr<CCard> m_Card;
    OrvexXml::CSmartPtr<CTransfer> m_Transfer;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

}  // namespace Samples
