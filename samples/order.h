// Generated class for the element Order of the shop, and the collection of orders. An order
// holds every kind of class-valued member: a mandatory Customer, an optional ShipTo, the model
// group Audit (its attribute auditor stands on the order's start tag), one or more Line, an
// optional Payment that is a choice of objects, the model group Signoff, which must be there,
// and any elements outside the shop's namespace as Extension.
#pragma once

#include <orvexxml/orvexxml.h>

#include <string>

#include "address.h"
#include "audit.h"
#include "customer.h"
#include "line.h"
#include "payment.h"
#include "signoff.h"

namespace Samples {

class COrder : public OrvexXml::CXmlGeneratedClass {
public:
    COrder();
    virtual ~COrder();

    static OrvexXml::CSmartPtr<COrder> CreateInstance() { return new COrder(); }

    // @id: xs:string, required
    const std::string& GetId() const { return m_Id; }
    void SetId(const std::string& value) { m_Id = value; }
    // Customer: Customer, mandatory; present after construction
    OrvexXml::CSmartPtr<CCustomer> GetCustomer() const { return m_Customer; }
    void SetCustomer(CCustomer* value);
    // ShipTo: Address, optional. The object takes the element name ShipTo.
    OrvexXml::CSmartPtr<CAddress> GetShipTo() const { return m_ShipTo; }
    void SetShipTo(CAddress* value);
    // Audit: model group, mandatory; present after construction
    OrvexXml::CSmartPtr<CAudit> GetAudit() const { return m_Audit; }
    void SetAudit(CAudit* value);
    // Line: Line, 1 to unbounded
    CLineCol& GetLine() { return *m_Line; }
    // Payment: Payment, optional
    OrvexXml::CSmartPtr<CPayment> GetPayment() const { return m_Payment; }
    void SetPayment(CPayment* value);
    // Signoff: model group, mandatory and not empty; present after construction
    OrvexXml::CSmartPtr<CSignoff> GetSignoff() const { return m_Signoff; }
    void SetSignoff(CSignoff* value);
    // Extension: xs:any namespace="##other", 0 to unbounded
    OrvexXml::CElementCol& GetExtension() { return *m_Extension; }

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
    COrder(const COrder&) = delete;
    COrder& operator=(const COrder&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    std::string m_Id;
    OrvexXml::CSmartPtr<CCustomer> m_Customer;
    OrvexXml::CSmartPtr<CAddress> m_ShipTo;
    OrvexXml::CSmartPtr<CAudit> m_Audit;
    OrvexXml::CSmartPtr<CLineCol> m_Line;
    OrvexXml::CSmartPtr<CPayment> m_Payment;
    OrvexXml::CSmartPtr<CSignoff> m_Signoff;
    OrvexXml::CSmartPtr<OrvexXml::CElementCol> m_Extension;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

// A repeating element Order.
class COrderCol : public OrvexXml::CXmlCollection, public OrvexXml::CInstanceMonitor {
public:
    COrderCol(const char* pszElementName, const char* pszNamespace, int nMinOccurs, int nMaxOccurs);

    // The order takes the element name of the collection.
    void Add(COrder* pOrder) { AddAt(GetCount(), pOrder); }
    void AddAt(int nIndex, COrder* pOrder);
    OrvexXml::CSmartPtr<COrder> Item(int nIndex) const;

    OrvexXml::COxIterator<COrder> begin() const { return OrvexXml::COxIterator<COrder>(m_pHead); }
    OrvexXml::COxIterator<COrder> end() const { return OrvexXml::COxIterator<COrder>(nullptr); }

protected:
    ~COrderCol() override;
    void ToXml_Int(OrvexXml::CXmlWriter* pWriter, bool bRoot, const char* pszNamespace,
                   const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) const override;
    OrvexXml::CXmlElement* FromXml_Int(OrvexXml::CXmlElement* pParent, OrvexXml::CXmlElement* pCurrent,
                                       const OrvexXml::CSerializationContext& ctx, bool bOptionalChoice) override;
};

}  // namespace Samples
