#include "benchdocument.h"

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "book.h"
#include "gadget.h"

using namespace OrvexXml;
using namespace OrvexXmlData;

namespace {

uint64_t NextState(uint64_t& nState) {
    nState ^= nState << 13;
    nState ^= nState >> 7;
    nState ^= nState << 17;
    return nState;
}

// Writes each child of the batch under its own element name, and reads every following
// element of the item class's name into a new child.
class CBenchChildrenInfo : public CElementInfo {
public:
    CBenchChildrenInfo(const CParentElementInfo& item, CBenchBatch::ItemFactory pfnNewItem)
        : CElementInfo(item.GetElementName().c_str(), item.GetElementNamespace().c_str(), 0),
          m_pfnNewItem(pfnNewItem) {}

protected:
    bool ElementToXml(const CSerializationContext& ctx, const CXmlGeneratedClass* pClass,
                      CXmlWriter* pWriter) const override {
        const CBenchBatch* pBatch = static_cast<const CBenchBatch*>(pClass);
        for (const CSmartPtr<CXmlGeneratedClass>& item : pBatch->m_vecItems)
            ToXml_Int(item.Get(), pWriter, false, GetElementNamespace().c_str(), ctx, false);
        return !pBatch->m_vecItems.empty();
    }
    bool ElementFromXml(const CSerializationContext& ctx, CXmlGeneratedClass* pClass, CXmlElement*,
                        CXmlElement** ppCurrent, const char*, XmlElementType) override {
        CBenchBatch* pBatch = static_cast<CBenchBatch*>(pClass);
        while (IsThisElement(ctx, *ppCurrent)) {
            CSmartPtr<CXmlGeneratedClass> item = m_pfnNewItem();
            FromXml_Int(item.Get(), *ppCurrent, (*ppCurrent)->GetFirstElement(), ctx, false);
            pBatch->m_vecItems.push_back(item);
            *ppCurrent = (*ppCurrent)->GetNextSiblingElement();
        }
        return true;
    }

private:
    CBenchBatch::ItemFactory m_pfnNewItem;
};

}  // namespace

// The batch element is in the item class's namespace.
struct SBenchBatchMetaData {
    SBenchBatchMetaData(const CParentElementInfo& item, CBenchBatch::ItemFactory pfnNewItem)
        : parent(XmlElementGroupType_Sequence, XmlElementType_Element, "Batch", item.GetElementNamespace().c_str(),
                 true, false, -1, ItemType_invalid, nullptr, false),
          children(item, pfnNewItem) {}

    CParentElementInfo parent;
    CBenchChildrenInfo children;
    CElementInfo* apElements[2] = {&children, nullptr};
    CAttributeInfo* apAttributes[1] = {nullptr};
};

namespace {

// One set of descriptions per item class, built by the first batch of that class; the item's
// own metadata is complete once one item has been constructed.
SBenchBatchMetaData* MetaDataFor(CBenchBatch::ItemFactory pfnNewItem) {
    static std::mutex s_mutex;
    static std::map<CBenchBatch::ItemFactory, std::unique_ptr<SBenchBatchMetaData>> s_mapMetaData;
    std::lock_guard<std::mutex> lock(s_mutex);
    std::unique_ptr<SBenchBatchMetaData>& pMetaData = s_mapMetaData[pfnNewItem];
    if (!pMetaData) {
        CSmartPtr<CXmlGeneratedClass> item = pfnNewItem();
        pMetaData.reset(new SBenchBatchMetaData(*item->GetParentElementInfo(), pfnNewItem));
    }
    return pMetaData.get();
}

}  // namespace

CBenchBatch::CBenchBatch(ItemFactory pfnNewItem) : m_pfnNewItem(pfnNewItem), m_pMetaData(MetaDataFor(pfnNewItem)) {
    SetElementName("Batch");
}

std::string CBenchBatch::GetNamespace() const { return m_pMetaData->parent.GetElementNamespace(); }

void CBenchBatch::ExchangeProperty(int nPropertyIndex, bool, OxVariant&) {
    throw COxInvalidParamException(FormatString("Unknown property index %d", nPropertyIndex));
}

CParentElementInfo* CBenchBatch::GetParentElementInfo() const { return &m_pMetaData->parent; }
CElementInfo** CBenchBatch::GetClassElementInfo() const { return m_pMetaData->apElements; }
CAttributeInfo** CBenchBatch::GetClassAttributeInfo() const { return m_pMetaData->apAttributes; }

CSmartPtr<Samples::CReadingLog> MakeReadingLog(size_t nMinBytes) {
    CSmartPtr<Samples::CReadingLog> log = Samples::CReadingLog::CreateInstance();
    log->SetStation("North Ridge & Upper Valley <station 7>");
    // Each round adds one item to every collection, about 200 bytes of indented XML.
    const size_t nRounds = nMinBytes / 200 + 1;
    uint64_t nState = 88172645463325252ULL;
    for (size_t i = 0; i < nRounds; ++i) {
        NextState(nState);
        log->GetSensor().Add("sensor-" + std::to_string(nState % 997));
        log->GetSequence().Add(static_cast<int64_t>(i) * 1000003);
        log->GetValue().Add(static_cast<double>(nState % 1000000) / 1000.0 - 250.0);
        log->GetLevel().Add(static_cast<int32_t>(nState % 200000) - 100000);
        log->GetValid().Add((nState & 3) != 0);
        log->GetNote().Add((nState % 5 == 0) ? "check & recalibrate" : "ok");
    }
    return log;
}

CSmartPtr<Samples::CPrimitiveSet> MakePrimitiveSet(uint64_t nSeed) {
    uint64_t nState = nSeed * 2654435761ULL + 88172645463325252ULL;
    CSmartPtr<Samples::CPrimitiveSet> set = Samples::CPrimitiveSet::CreateInstance();
    set->SetByteVal(static_cast<char>(NextState(nState) % 200 - 100));
    set->SetShortVal(static_cast<int16_t>(NextState(nState) % 60000 - 30000));
    set->SetIntVal(static_cast<int32_t>(NextState(nState) % 2000000000) - 1000000000);
    set->SetLongVal(static_cast<int64_t>(NextState(nState) >> 1) - (int64_t(1) << 61));
    set->SetUByteVal(static_cast<uint8_t>(NextState(nState)));
    set->SetUShortVal(static_cast<uint16_t>(NextState(nState)));
    set->SetUIntVal(static_cast<uint32_t>(NextState(nState)));
    set->SetULongVal(NextState(nState));
    set->SetFloatVal(static_cast<float>(NextState(nState) % 100000) / 7.0f);
    set->SetDoubleVal(static_cast<double>(NextState(nState) % 10000000) / 1000.0 - 5000.0);
    set->SetText(NextState(nState) % 3 == 0 ? "calibrated reading " + std::to_string(nState % 100000)
                                            : "ok " + std::to_string(nState % 1000));
    set->SetFlag((NextState(nState) & 1) != 0);
    return set;
}

CSmartPtr<Samples::CInvoiceLine> MakeInvoiceLine(uint64_t nSeed) {
    static const char* const s_apszCurrencies[] = {"EUR", "USD", "CHF", "GBP", "JPY", "SEK"};
    static const char* const s_apszLanguages[] = {"en", "de-CH", "fr", "ja", "pt-BR", "zh-Hant-TW", "sv"};
    uint64_t nState = nSeed * 2654435761ULL + 88172645463325252ULL;
    CSmartPtr<Samples::CInvoiceLine> line = Samples::CInvoiceLine::CreateInstance();
    line->SetId(static_cast<int32_t>(NextState(nState) % 2000000000) - 1000000000);
    // About one currency in five is a free text with quotes, ampersands, angle brackets and a
    // line break, all of which an attribute value must escape.
    if (NextState(nState) % 5 == 0)
        line->SetCurrency("store credit \"R&D\" <" + std::to_string(nState % 1000) + ">\nnet");
    else
        line->SetCurrency(s_apszCurrencies[NextState(nState) % 6]);
    line->SetPriority(static_cast<Samples::Priority>(NextState(nState) % 3));
    line->SetStatus(static_cast<Samples::OrderStatus>(NextState(nState) % 4));
    line->SetLang(s_apszLanguages[NextState(nState) % 7]);
    line->SetDescription(NextState(nState) % 3 == 0 ? "bolts & nuts <M8> " + std::to_string(nState % 100000)
                                                    : "item " + std::to_string(nState % 1000));
    line->SetQuantity(static_cast<int32_t>(NextState(nState) % 10000));
    return line;
}

namespace {

CSmartPtr<Samples::COrder> MakeOrder(uint64_t nSeed) {
    static const char* const s_apszCities[] = {"Basel", "Lyon", "Turku", "Porto", "Graz"};
    uint64_t nState = nSeed * 2654435761ULL + 88172645463325252ULL;
    CSmartPtr<Samples::COrder> order = Samples::COrder::CreateInstance();
    order->SetId("O-" + std::to_string(nSeed));
    order->GetCustomer()->SetName(NextState(nState) % 4 == 0 ? "Smith & Sons <wholesale>"
                                                             : "customer " + std::to_string(nState % 100000));
    if (NextState(nState) % 2) order->GetCustomer()->SetVip((nState & 4) != 0);
    if (NextState(nState) % 3 == 0) {
        CSmartPtr<Samples::CAddress> address = Samples::CAddress::CreateInstance();
        address->SetStreet(std::to_string(nState % 300) + " Long Street");
        address->SetCity(s_apszCities[NextState(nState) % 5]);
        order->GetCustomer()->SetAddress(address);
    }
    if (NextState(nState) % 2) {
        CSmartPtr<Samples::CAddress> shipTo = Samples::CAddress::CreateInstance();
        shipTo->SetStreet("Dock " + std::to_string(nState % 40));
        shipTo->SetCity(s_apszCities[NextState(nState) % 5]);
        shipTo->SetCountry("CH");
        order->SetShipTo(shipTo);
    }
    order->GetAudit()->SetAuditor("auditor-" + std::to_string(NextState(nState) % 50));
    if (nState % 3) order->GetAudit()->SetAuditedBy("desk " + std::to_string(nState % 7));
    order->GetAudit()->SetRevision(static_cast<int>(NextState(nState) % 20));
    const int nLines = 2 + static_cast<int>(NextState(nState) % 5);
    for (int i = 0; i < nLines; ++i) {
        CSmartPtr<Samples::CLine> line = Samples::CLine::CreateInstance();
        line->SetNumber(i + 1);
        if (NextState(nState) % 2) {
            CSmartPtr<Samples::CBook> book = Samples::CBook::CreateInstance();
            book->SetTitle("Collected notes, volume " + std::to_string(nState % 90));
            book->SetPrice(static_cast<double>(nState % 10000) / 100.0);
            book->SetIsbn("978-3-" + std::to_string(100000 + nState % 900000));
            line->SetProduct(book);
        } else {
            CSmartPtr<Samples::CGadget> gadget = Samples::CGadget::CreateInstance();
            gadget->SetTitle("gadget " + std::to_string(nState % 1000));
            gadget->SetPrice(static_cast<double>(nState % 100000) / 100.0);
            if (nState & 8) gadget->SetVoltage(nState & 16 ? 230 : 12);
            gadget->SetBrand(nState % 5 == 0 ? "R&D \"labs\"" : "Orvex");
            line->SetProduct(gadget);
        }
        line->SetQuantity(1 + static_cast<int>(NextState(nState) % 40));
        order->GetLine().Add(line);
    }
    if (NextState(nState) % 4) {
        CSmartPtr<Samples::CPayment> payment = Samples::CPayment::CreateInstance();
        if (nState % 2) {
            CSmartPtr<Samples::CCard> card = Samples::CCard::CreateInstance();
            card->SetHolder("holder " + std::to_string(nState % 1000));
            card->SetNumber("4000-" + std::to_string(1000 + nState % 9000));
            payment->SetCard(card);
        } else {
            CSmartPtr<Samples::CTransfer> transfer = Samples::CTransfer::CreateInstance();
            transfer->SetIban("CH93 0076 2011 6238 " + std::to_string(1000 + nState % 9000));
            if (nState & 2) transfer->SetReference("ref " + std::to_string(nSeed));
            payment->SetTransfer(transfer);
        }
        order->SetPayment(payment);
    }
    order->GetSignoff()->SetSignedBy("clerk " + std::to_string(NextState(nState) % 12));
    if (nState % 2) order->GetSignoff()->SetSignedOn("2026-11-" + std::to_string(10 + nState % 18));
    if (NextState(nState) % 8 == 0) {
        order->GetExtension().Add("note", "urn:orvex:samples:notes")->SetText("handle with care");
    }
    return order;
}

}  // namespace

CSmartPtr<Samples::CShop> MakeShop(size_t nMinBytes) {
    CSmartPtr<Samples::CShop> shop = Samples::CShop::CreateInstance();
    shop->SetName("Orvex & Co. <main store>");
    // An order is about 1.5 KB of indented text; add rounds until the text is long enough.
    uint64_t nSeed = 0;
    for (size_t nBytes = 0; nBytes < nMinBytes;) {
        const size_t nMore = (nMinBytes - nBytes) / 1500 + 1;
        for (size_t i = 0; i < nMore; ++i) shop->GetOrder().Add(MakeOrder(nSeed++));
        nBytes = shop->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext()).size();
    }
    return shop;
}
