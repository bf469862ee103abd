// The shop samples: an order whose members hold child objects of every kind (a mandatory and an
// optional class, two model groups, a collection of classes, an abstract class chosen by
// xsi:type, a choice of classes, open content), read and written through the class members.
#include "shop.h"

#include <typeinfo>

#include "bindinghelpers.h"
#include "book.h"
#include "gadget.h"

using namespace OrvexXml;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

const char* const kShopNs = "urn:orvex:samples:shop";

CSmartPtr<CLine> NewLine(int nNumber, CProduct* pProduct, int nQuantity) {
    CSmartPtr<CLine> line = CLine::CreateInstance();
    line->SetNumber(nNumber);
    line->SetProduct(pProduct);
    line->SetQuantity(nQuantity);
    return line;
}

// An order with every optional member set, texts that need escapes, and both derived products.
CSmartPtr<COrder> FullOrder() {
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->SetId("A-1");
    order->GetCustomer()->SetName("Smith & Sons");
    order->GetCustomer()->SetVip(true);
    CSmartPtr<CAddress> home = CAddress::CreateInstance();
    home->SetStreet("1 Main St");
    home->SetCity("Basel");
    order->GetCustomer()->SetAddress(home);
    CSmartPtr<CAddress> dock = CAddress::CreateInstance();
    dock->SetStreet("Dock <4>");
    dock->SetCity("Lyon");
    dock->SetCountry("FR");
    order->SetShipTo(dock);
    order->GetAudit()->SetAuditor("ann");
    order->GetAudit()->SetAuditedBy("desk 2");
    order->GetAudit()->SetRevision(3);
    CSmartPtr<CBook> book = CBook::CreateInstance();
    book->SetTitle("Notes");
    book->SetPrice(12.5);
    book->SetIsbn("978-3-16");
    order->GetLine().Add(NewLine(1, book, 2));
    CSmartPtr<CGadget> gadget = CGadget::CreateInstance();
    gadget->SetTitle("Lamp");
    gadget->SetPrice(40);
    gadget->SetVoltage(230);
    gadget->SetBrand("R&D \"labs\"");
    order->GetLine().Add(NewLine(2, gadget, 1));
    CSmartPtr<CCard> card = CCard::CreateInstance();
    card->SetHolder("A. Smith");
    card->SetNumber("4000-1234");
    CSmartPtr<CPayment> payment = CPayment::CreateInstance();
    payment->SetCard(card);
    order->SetPayment(payment);
    order->GetSignoff()->SetSignedBy("clerk");
    order->GetSignoff()->SetSignedOn("2026-11-24");
    order->GetExtension().Add("note", "urn:orvex:samples:notes")->SetText("fragile");
    return order;
}

// An order with nothing optional: an empty audit, a transfer, no address, no extension.
CSmartPtr<COrder> LeanOrder(const char* pszId) {
    CSmartPtr<COrder> order = COrder::CreateInstance();
    order->SetId(pszId);
    order->GetCustomer()->SetName("Bo");
    CSmartPtr<CGadget> gadget = CGadget::CreateInstance();
    gadget->SetTitle("Fan");
    gadget->SetBrand("Orvex");
    order->GetLine().Add(NewLine(1, gadget, 7));
    CSmartPtr<CTransfer> transfer = CTransfer::CreateInstance();
    transfer->SetIban("CH93 0076");
    CSmartPtr<CPayment> payment = CPayment::CreateInstance();
    payment->SetTransfer(transfer);
    order->SetPayment(payment);
    order->GetSignoff()->SetSignedBy("clerk");
    return order;
}

CSerializationContext WithAlias() {
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("shop", kShopNs);
    return ctx;
}

CSerializationContext WithDefaultNamespace() {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(kShopNs);
    return ctx;
}

template <class T>
std::string Text(const CSmartPtr<T>& object, bool bFormatted, const CSerializationContext& ctx) {
    return object->ToXml(true, bFormatted, EOLType_LF, ctx);
}

TEST(Shop, EverySampleReadsBackIntoTheSameText) {
    CSmartPtr<CShop> shop = CShop::CreateInstance();
    shop->SetName("Orvex & Co");
    shop->GetOrder().Add(FullOrder());
    shop->GetOrder().Add(LeanOrder("B-2"));
    struct Row {
        const char* pszCase;
        CSmartPtr<CXmlGeneratedClass> object;
        CSerializationContext ctx;
        const char* pszTypeAttribute;  // how the xsi:type of a product comes out
    } rows[] = {
        {"order, writer's prefixes", FullOrder().Get(), CSerializationContext(), ":type=\"AA:Book\""},
        {"order, caller's prefix", FullOrder().Get(), WithAlias(), ":type=\"shop:Book\""},
        {"order, default namespace", FullOrder().Get(), WithDefaultNamespace(), ":type=\"Book\""},
        {"lean order", LeanOrder("B-2").Get(), WithAlias(), ":type=\"shop:Gadget\""},
        {"shop of orders", shop.Get(), WithDefaultNamespace(), ":type=\"Gadget\""},
    };
    for (const Row& row : rows) {
        for (bool bFormatted : {true, false}) {
            SCOPED_TRACE(std::string(row.pszCase) + (bFormatted ? ", formatted" : ", flat"));
            const std::string strFirst = row.object->ToXml(true, bFormatted, EOLType_LF, row.ctx);
            EXPECT_NE(strFirst.find(row.pszTypeAttribute), std::string::npos) << strFirst;
            CSmartPtr<CXmlGeneratedClass> again = typeid(*row.object) == typeid(CShop)
                                                      ? CSmartPtr<CXmlGeneratedClass>(CShop::CreateInstance().Get())
                                                      : CSmartPtr<CXmlGeneratedClass>(COrder::CreateInstance().Get());
            again->FromXml(strFirst.c_str(), row.ctx);
            EXPECT_EQ(again->ToXml(true, bFormatted, EOLType_LF, row.ctx), strFirst);
        }
    }
}

// The start of an order up to its lines, in the shop's namespace as the default one, with
// the XML Schema instance namespace and a second prefix s for the shop.
const std::string kStart =
    "<Order xmlns='urn:orvex:samples:shop' xmlns:s='urn:orvex:samples:shop' xmlns:o='urn:other' "
    "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' id='7' auditor='zed'>";
const std::string kHead = kStart + "<Customer><Name>N</Name></Customer>";
const std::string kSignoff = "<SignedBy>S</SignedBy></Order>";

std::string WithProduct(const std::string& strTypeAttribute) {
    return kHead + "<Line number='1'><Product " + strTypeAttribute +
           "><Title>T</Title><Price>2</Price><Isbn>I</Isbn></Product><Quantity>1</Quantity></Line>" + kSignoff;
}

TEST(Shop, ProductClassFollowsXsiTypeWithOrWithoutPrefix) {
    for (const char* pszType : {"xsi:type='s:Book'", "xsi:type='Book'"}) {
        SCOPED_TRACE(pszType);
        CSmartPtr<COrder> order = COrder::CreateInstance();
        order->FromXml(WithProduct(pszType).c_str(), DefaultCtx());
        CSmartPtr<CProduct> product = order->GetLine().Item(0)->GetProduct();
        const CBook* pBook = dynamic_cast<const CBook*>(product.Get());
        ASSERT_NE(pBook, nullptr);
        EXPECT_EQ(pBook->GetIsbn(), "I");
        EXPECT_EQ(pBook->GetTitle(), "T");
        // The empty audit group still took its attribute from the order's start tag.
        EXPECT_EQ(order->GetAudit()->GetAuditor(), "zed");
        EXPECT_FALSE(order->GetAudit()->IsValidAuditedBy());
    }
}

TEST(Shop, BadInputNamesTheCauseAndWhere) {
    const std::string kLine =
        "<Line number='1'><Product xsi:type='Book'><Title>T</Title><Price>2</Price><Isbn>I</Isbn>"
        "</Product><Quantity>1</Quantity></Line>";
    const std::string kNoSubstitute =
        "Failed to find a suitable substitution element for [Product].\nPath: /Order/Line";
    struct Row {
        const char* pszCase;
        std::string strXml;
        std::string strMessage;
        std::string strPath;
    } rows[] = {
        {"type the factory doesn't know", WithProduct("xsi:type='Toaster'"), kNoSubstitute, "/Order/Line"},
        {"type of another family", WithProduct("xsi:type='Card'"), kNoSubstitute, "/Order/Line"},
        {"type's prefix names another namespace", WithProduct("xsi:type='o:Book'"), kNoSubstitute, "/Order/Line"},
        {"abstract product without a type", WithProduct(""), kNoSubstitute, "/Order/Line"},
        {"no customer", kStart + kLine + kSignoff,
         "Failed to find the required child element [Customer].\nPath: /Order", "/Order"},
        {"no sign-off content", kHead + kLine + "</Order>",
         "Failed to find the required child element [Signoff].\nPath: /Order", "/Order"},
        {"sign-off after foreign content", kHead + kLine + "<o:x/>" + kSignoff,
         "Failed to find the required child element [Signoff].\nPath: /Order", "/Order"},
        {"no line", kHead + kSignoff,
         "Failed to process the element.\nPath: /Order\nThe Minimum number of [Line] elements allowed in this "
         "collection is 1",
         "/Order"},
        {"line without its number", kHead + "<Line><Product/></Line>" + kSignoff,
         "Failed to process the element.\nPath: /Order/Line\nFailed to find the required Attribute [number].",
         "/Order/Line"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszCase);
        CSmartPtr<COrder> order = COrder::CreateInstance();
        Raised raised = RaisedBy([&] { order->FromXml(row.strXml.c_str(), DefaultCtx()); });
        EXPECT_EQ(raised.strMessage, row.strMessage);
        EXPECT_EQ(raised.strPath, row.strPath);
    }
}

TEST(Shop, MisuseOfClassMembersIsRefusedAndChangesNothing) {
    CSmartPtr<CPayment> payment = CPayment::CreateInstance();
    CSmartPtr<CCard> card = CCard::CreateInstance();
    payment->SetCard(card);
    EXPECT_EQ(Thrown<COxInvalidStateException>([&] { payment->SetTransfer(CTransfer::CreateInstance()); }),
              "The Property [Card] is already set. Only one element within this class bay be set at a time");
    EXPECT_EQ(payment->GetChoiceSelectedElement(), "Card");
    EXPECT_EQ(payment->GetTransfer().Get(), nullptr);

    CSmartPtr<CLine> line = CLine::CreateInstance();
    EXPECT_EQ(Thrown<COxInvalidParamException>([&] { line->SetProduct(nullptr); }),
              "The Property [Product] is mandatory, it may node be NULL");
    // A line written without its product names the member that is missing.
    CSmartPtr<COrder> order = LeanOrder("C-3");
    order->GetLine().Add(line);
    EXPECT_EQ(Thrown([&] { Flat(order.Get()); }),
              "Failed to convert the element [Order] to XML\nFailed to convert the element [Line] to XML\n"
              "The Property [Product] is mandatory, it may not be NULL");
    // An order with no line breaks its lower limit on writing.
    EXPECT_EQ(Thrown<COxValidationException>([] { Flat(COrder::CreateInstance().Get()); }),
              "Failed to convert the element [Order] to XML\nThe Minimum number of [Line] elements allowed in this "
              "collection is 1");
}

TEST(Shop, ReadingReplacesWhatTheOrderHeldAndLeavesHeldObjectsAlone) {
    CSmartPtr<COrder> order = FullOrder();
    CSmartPtr<CCustomer> oldCustomer = order->GetCustomer();
    CSmartPtr<CLine> oldLine = order->GetLine().Item(0);
    const std::string strLean = LeanOrder("D-4")->ToXml(true, true, EOLType_LF, DefaultCtx());
    order->FromXml(strLean.c_str(), DefaultCtx());
    EXPECT_EQ(order->ToXml(true, true, EOLType_LF, DefaultCtx()), strLean);
    // The objects the application still holds keep what they had.
    EXPECT_EQ(oldCustomer->GetName(), "Smith & Sons");
    EXPECT_EQ(oldCustomer->GetAddress()->GetCity(), "Basel");
    EXPECT_EQ(oldLine->GetQuantity(), 2);
    EXPECT_EQ(order->GetLine().GetCount(), 1);
    EXPECT_EQ(order->GetShipTo().Get(), nullptr);
    EXPECT_EQ(order->GetExtension().GetCount(), 0);
}

// Refuses the second line that goes into a collection it listens to.
class CSecondLineRefused : public IEventSink {
public:
    void OnEvent(CXmlObjectBase*, MsgType type, void*) override {
        if (type == MsgType_CollectionAdd && ++m_nAdds == 2) throw COxInvalidStateException("second line refused");
    }
    int m_nAdds = 0;
};

TEST(Shop, LineRefusedByAListenerEndsTheReadAndKeepsTheLinesBefore) {
    CSmartPtr<COrder> source = FullOrder();
    const std::string strXml = source->ToXml(true, false, EOLType_LF, DefaultCtx());
    CSmartPtr<COrder> order = COrder::CreateInstance();
    CSecondLineRefused listener;
    order->GetLine().AddEventListener(&listener);
    Raised raised = RaisedBy([&] { order->FromXml(strXml.c_str(), DefaultCtx()); });
    order->GetLine().RemoveEventListener(&listener);
    EXPECT_EQ(raised.strMessage, "Failed to process the element.\nPath: /AA:Order\nsecond line refused");
    ASSERT_EQ(order->GetLine().GetCount(), 1);
    EXPECT_EQ(order->GetLine().Item(0)->GetNumber(), 1);
}

}  // namespace
