// Generated class for the complex type Order of the order book, and the collection of
// orders: a numbered, dated order with its customer, an optional address to ship to, its
// status, an optional note, one or more lines, the total and whether it is paid.
#pragma once

#include <orvexxml/orvexxml.h>

#include <cstdint>
#include <string>

#include "address.h"
#include "line.h"
#include "party.h"
#include "status.h"

namespace OrderBook {

class COrder : public OrvexXml::CXmlGeneratedClass {
public:
    COrder();
    virtual ~COrder();

    static OrvexXml::CSmartPtr<COrder> CreateInstance() { return new COrder(); }

    // @id: xs:unsignedInt, required
    uint32_t GetId() const { return m_Id; }
    void SetId(uint32_t value) { m_Id = value; }
    // @placed: xs:date, required
    const OrvexXml::CDateTime& GetPlaced() const { return m_Placed; }
    void SetPlaced(const OrvexXml::CDateTime& value) { m_Placed = value; }
    // customer: Party, mandatory; present after construction. The object takes the element
    // name customer.
    OrvexXml::CSmartPtr<CParty> GetCustomer() const { return m_Customer; }
    void SetCustomer(CParty* value);
    // shipTo: Address, optional. The object takes the element name shipTo.
    OrvexXml::CSmartPtr<CAddress> GetShipTo() const { return m_ShipTo; }
    void SetShipTo(CAddress* value);
    // status: Status, mandatory
    Status GetStatus() const { return m_Status; }
    void SetStatus(Status value) { m_Status = value; }
    // note: xs:string, optional
    const std::string& GetNote() const { return m_Note; }
    void SetNote(const std::string& value);
    bool IsValidNote() const { return m_bValidNote; }
    void SetValidNote(bool bValid) { m_bValidNote = bValid; }
    // line: Line, 1 to unbounded
    CLineCol& GetLine() { return *m_Line; }
    const CLineCol& GetLine() const { return *m_Line; }
    // total: xs:decimal, mandatory
    const OrvexXml::CDecimal& GetTotal() const { return m_Total; }
    void SetTotal(const OrvexXml::CDecimal& value) { m_Total = value; }
    // paid: xs:boolean, mandatory
    bool GetPaid() const { return m_Paid; }
    void SetPaid(bool value) { m_Paid = value; }

    // CXmlGeneratedClass
    OrvexXml::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return "urn:example:orders"; }
    void ExchangeProperty(int nPropertyIndex, bool bRead, OrvexXml::OxVariant& value) override;
    OrvexXmlData::CParentElementInfo* GetParentElementInfo() const override;
    OrvexXmlData::CElementInfo** GetClassElementInfo() const override;
    OrvexXmlData::CAttributeInfo** GetClassAttributeInfo() const override;
    void ResetToDefaults() override;

protected:
    std::string GetTargetNamespace() const override { return "urn:example:orders"; }

private:
    COrder(const COrder&) = delete;
    COrder& operator=(const COrder&) = delete;
    static void BuildMetaData(OrvexXmlData::CMetaDataBuilder& builder);

    uint32_t m_Id;
    OrvexXml::CDateTime m_Placed;
    OrvexXml::CSmartPtr<CParty> m_Customer;
    OrvexXml::CSmartPtr<CAddress> m_ShipTo;
    Status m_Status;
    std::string m_Note;
    bool m_bValidNote;
    OrvexXml::CSmartPtr<CLineCol> m_Line;
    OrvexXml::CDecimal m_Total;
    bool m_Paid;

    static OrvexXmlData::CMetaDataHolder ms_metaData;
};

// A repeating element of type Order.
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

}  // namespace OrderBook
