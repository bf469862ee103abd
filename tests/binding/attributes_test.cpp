// Attributes of generated classes: the text they give, reading them back, their refusals, and
// the caller's table of namespace prefixes.
#include <functional>
#include <map>
#include <string>
#include <typeindex>
#include <vector>

#include "bindinghelpers.h"
#include "invoiceline.h"
#include "remittance.h"

using namespace OrvexXml;
using namespace OrvexXmlData;
using namespace OrvexBindTest;
using namespace Samples;

namespace {

const std::string kXml = "http://www.w3.org/XML/1998/namespace";
const std::string kXsi = "http://www.w3.org/2001/XMLSchema-instance";
const std::string kRem = "urn:orvex:samples:remittance";

// A class with a required integer attribute "code" and an optional enumerated "level", whose
// property access can be made to fail.
class CGauge : public CXmlGeneratedClass {
public:
    CGauge() : m_bFailGet(false), m_bFailSet(false) { SetElementName("Gauge"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    std::string GetTargetNamespace() const override { return ""; }
    void ExchangeProperty(int nIndex, bool bRead, OxVariant& value) override {
        if (bRead && m_bFailGet) throw COxException("getter refused");
        if (!bRead && m_bFailSet) throw COxException("setter refused");
        if (bRead)
            value = m_values[nIndex];
        else
            m_values[nIndex] = value;
    }
    CParentElementInfo* GetParentElementInfo() const override {
        static CParentElementInfo s_parent(XmlElementGroupType_Sequence, XmlElementType_Element, "Gauge", "", true,
                                           false, -1, ItemType_invalid, nullptr, false);
        return &s_parent;
    }
    CElementInfo** GetClassElementInfo() const override {
        static CElementInfo* s_table[1] = {nullptr};
        return s_table;
    }
    CAttributeInfo** GetClassAttributeInfo() const override {
        static CAttributeInfoPrimitive s_code("code", "", 0, false, ItemType_i4, nullptr,
                                              CWhitespaceUtils::WhitespaceRule_collapse, CPrimitiveRestrictions(),
                                              nullptr);
        static CAttributeInfoEnum s_level("level", "", 1, true, &Priority_EnumToText, &Priority_TextToEnum, nullptr);
        static CAttributeInfo* s_table[3] = {&s_code, &s_level, nullptr};
        return s_table;
    }
    void ResetToDefaults() override { m_values.clear(); }

    std::map<int, OxVariant> m_values;
    bool m_bFailGet;
    bool m_bFailSet;
};

CSmartPtr<CInvoiceLine> Line() {
    CSmartPtr<CInvoiceLine> line = CInvoiceLine::CreateInstance();
    line->SetId(7);
    line->SetStatus(OrderStatus_shipped);
    line->SetDescription("Bolts & nuts");
    line->SetQuantity(12);
    return line;
}

CSmartPtr<CRemittance> Remittance() {
    CSmartPtr<CRemittance> remittance = CRemittance::CreateInstance();
    remittance->SetReference("R-17");
    remittance->SetPayer("ACME");
    return remittance;
}

const std::string kLineContent = "<Description>Bolts &amp; nuts</Description><Quantity>12</Quantity></InvoiceLine>";

// The written text of each sample, and the same text again after reading it into a fresh object.
TEST(AttributeMetadata, WrittenInTableOrderWithPrefixesAndDefaultsAndReadBackUnchanged) {
    struct Row {
        const char* pszCase;
        std::function<CSmartPtr<CXmlGeneratedClass>(bool bFilled)> make;
        std::function<void(CSerializationContext&)> configure;
        std::string strExpected;
    };
    auto line = [](std::function<void(CInvoiceLine&)> fill) {
        return [fill](bool bFilled) -> CSmartPtr<CXmlGeneratedClass> {
            if (!bFilled) return CInvoiceLine::CreateInstance();
            CSmartPtr<CInvoiceLine> p = Line();
            fill(*p);
            return p;
        };
    };
    auto remittance = [](std::function<void(CRemittance&)> fill) {
        return [fill](bool bFilled) -> CSmartPtr<CXmlGeneratedClass> {
            if (!bFilled) return CRemittance::CreateInstance();
            CSmartPtr<CRemittance> p = Remittance();
            fill(*p);
            return p;
        };
    };
    auto full = [](CInvoiceLine& l) {
        l.SetLang("de-CH");
        l.SetPriority(Priority_high);
        l.SetCurrency("USD");
    };
    auto none = [](CSerializationContext&) {};
    auto noDefaults = [](CSerializationContext& ctx) { ctx.SetNoOptionalAttributeDefaultOutput(true); };
    const Row rows[] = {
        {"all set", line(full), none,
         "<InvoiceLine id=\"7\" currency=\"USD\" priority=\"high\" status=\"shipped\" xml:lang=\"de-CH\">" +
             kLineContent},
        {"optional unset", line([](CInvoiceLine&) {}), none,
         "<InvoiceLine id=\"7\" status=\"shipped\">" + kLineContent},
        {"default written", line([](CInvoiceLine& l) { l.SetCurrency("EUR"); }), none,
         "<InvoiceLine id=\"7\" currency=\"EUR\" status=\"shipped\">" + kLineContent},
        {"default suppressed", line([](CInvoiceLine& l) { l.SetCurrency("EUR"); }), noDefaults,
         "<InvoiceLine id=\"7\" status=\"shipped\">" + kLineContent},
        {"other value kept", line([](CInvoiceLine& l) { l.SetCurrency("EURO"); }), noDefaults,
         "<InvoiceLine id=\"7\" currency=\"EURO\" status=\"shipped\">" + kLineContent},
        // The XML namespace is never declared, whatever the caller registers; a URI that only
        // begins like it is an ordinary one.
        {"caller aliases", line([](CInvoiceLine& l) { l.SetLang("fr"); }),
         [](CSerializationContext& ctx) {
             ctx.GetNamespaceAliases().Add("x2", (kXml + "-2").c_str());
             ctx.GetNamespaceAliases().Add("xml", kXml.c_str());
             ctx.GetNamespaceAliases().Add("xsi", kXsi.c_str());
         },
         "<InvoiceLine xmlns:xsi=\"" + kXsi + "\" xmlns:x2=\"" + kXml +
             "-2\" id=\"7\" status=\"shipped\" xml:lang=\"fr\">" + kLineContent},
        {"qualified, caller's prefix", remittance([](CRemittance& r) { r.SetUrgency(Priority_high); }),
         [](CSerializationContext& ctx) { ctx.GetNamespaceAliases().Add("rm", kRem.c_str()); },
         "<rm:Remittance xmlns:rm=\"" + kRem +
             "\" rm:reference=\"R-17\" rm:urgency=\"high\"><rm:Payer>ACME</rm:Payer></rm:Remittance>"},
        {"qualified, generated prefix", remittance([](CRemittance& r) { r.SetUrgency(Priority_normal); }), none,
         "<AA:Remittance xmlns:AA=\"" + kRem +
             "\" AA:reference=\"R-17\" AA:urgency=\"normal\"><AA:Payer>ACME</AA:Payer></AA:Remittance>"},
        // Unprefixed attributes are in no namespace, so the default namespace needs a prefix.
        {"qualified, default namespace", remittance([](CRemittance& r) { r.SetUrgency(Priority_normal); }),
         [](CSerializationContext& ctx) {
             ctx.SetDefaultNamespaceURI(kRem.c_str());
             ctx.SetNoOptionalAttributeDefaultOutput(true);
         },
         "<Remittance xmlns=\"" + kRem + "\" xmlns:AA=\"" + kRem +
             "\" AA:reference=\"R-17\"><Payer>ACME</Payer></Remittance>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszCase);
        CSerializationContext ctx;
        row.configure(ctx);
        std::string strText = Flat(row.make(true), ctx);
        EXPECT_EQ(strText, row.strExpected);
        CSmartPtr<CXmlGeneratedClass> copy = row.make(false);
        copy->FromXml(strText.c_str(), ctx);
        EXPECT_EQ(Flat(copy, ctx), strText);
    }
}

// What a call raised: the exact class, the full message and the path.
struct Failure {
    std::type_index type = typeid(void);
    std::string strMessage = "(no exception)";
    std::string strPath;
};

Failure FailureOf(const std::function<void()>& fn) {
    Failure f;
    try {
        fn();
    } catch (const COxException& e) {
        f.type = typeid(e);
        f.strMessage = e.GetFullMessage();
        f.strPath = e.GetPath();
    }
    return f;
}

TEST(AttributeMetadata, RefusalsCarryTheirClassMessageAndPath) {
    const std::string kBody = "><Description>d</Description><Quantity>1</Quantity></InvoiceLine>";
    auto readLine = [](std::string strXml, CSerializationContext ctx = CSerializationContext()) {
        return [strXml, ctx] { CInvoiceLine::CreateInstance()->FromXml(strXml.c_str(), ctx); };
    };
    auto writeGauge = [](std::function<void(CGauge&)> set) {
        return [set] {
            CSmartPtr<CGauge> gauge = new CGauge();
            set(*gauge);
            Flat(gauge);
        };
    };
    auto readGauge = [] {
        return [] {
            CSmartPtr<CGauge> gauge = new CGauge();
            gauge->m_bFailSet = true;
            gauge->FromXml("<Gauge code=\" 5 \" level=\"low\"/>", DefaultCtx());
        };
    };
    const std::string kProcess = "Failed to process the element.\nPath: /InvoiceLine\n";
    const std::string kWrite = "Failed to convert the element [Gauge] to XML\nFailed to convert attributes to XML\n";
    struct Row {
        const char* pszCase;
        std::function<void()> fn;
        std::type_index type;
        std::string strMessage;
        std::string strPath;
    };
    const Row rows[] = {
        {"required primitive absent", readLine("<InvoiceLine status=\"shipped\"" + kBody),
         typeid(COxValidationException), kProcess + "Failed to find the required Attribute [id].", "/InvoiceLine"},
        {"required enum absent", readLine("<InvoiceLine id=\"1\"" + kBody), typeid(COxValidationException),
         kProcess + "Failed to find the required Attribute [status].", "/InvoiceLine"},
        {"text not an int", readLine("<InvoiceLine id=\"seven\" status=\"shipped\"" + kBody),
         typeid(COxValidationException), kProcess + "The value [seven] can not be converted to a i4", "/InvoiceLine"},
        {"text not a member", readLine("<InvoiceLine id=\"1\" status=\"lost\"" + kBody), typeid(COxValidationException),
         kProcess + "The value [lost] is not a valid OrderStatus", "/InvoiceLine"},
        {"unknown attribute", readLine("<InvoiceLine id=\"1\" status=\"shipped\" extra=\"\"" + kBody),
         typeid(COxException), "Unexpected Attribute found.\nPath: /InvoiceLine/@extra", "/InvoiceLine/@extra"},
        {"unknown attribute tolerated",
         readLine("<InvoiceLine id=\"1\" status=\"shipped\" extra=\"\"" + kBody, Ignoring(kAttributes)), typeid(void),
         "(no exception)", ""},
        // The setter's own path is stamped, so the reading walk passes it on as its base class.
        {"setter fails", readGauge(), typeid(COxException),
         "Failed to set the property value [ 5 ].\nPath: /Gauge/@code\nsetter refused", "/Gauge/@code"},
        {"getter fails", writeGauge([](CGauge& g) { g.m_bFailGet = true; }), typeid(COxValidationException),
         kWrite + "Failed to get the property value for [code].\ngetter refused", ""},
        {"required value unset", writeGauge([](CGauge&) {}), typeid(COxValidationException),
         kWrite + "Invalid Type 0 to convert to string", ""},
        {"enum number not a member", writeGauge([](CGauge& g) {
             g.m_values[0].SetI4(1);
             g.m_values[1].SetI4(9);
         }),
         typeid(COxValidationException), kWrite + "The value 9 is not a valid Priority", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pszCase);
        Failure f = FailureOf(row.fn);
        EXPECT_EQ(f.strMessage, row.strMessage);
        EXPECT_EQ(f.strPath, row.strPath);
        EXPECT_EQ(f.type, row.type) << f.type.name();
    }
    // The reading that the failing setter refused works, whitespace collapsed, once it accepts.
    CSmartPtr<CGauge> gauge = new CGauge();
    gauge->FromXml("<Gauge code=\" 5 \" level=\"low\"/>", DefaultCtx());
    EXPECT_EQ(Flat(gauge), "<Gauge code=\"5\" level=\"low\"/>");
}

// IgnoreNamespaces lets an enumeration match by local name; a primitive still needs its
// namespace. An absent optional attribute is left as ResetToDefaults left it.
TEST(AttributeMetadata, NamespaceToleranceAndAbsentOptionalsWhenReading) {
    CSerializationContext ignoring = Ignoring(0);
    ignoring.SetIgnoreNamespaces(true);
    CSmartPtr<CRemittance> remittance = Remittance();
    remittance->SetUrgency(Priority_low);
    remittance->FromXml(("<r:Remittance xmlns:r=\"" + kRem +
                         "\" r:reference=\"Q\" urgency=\"high\"><r:Payer>P</r:Payer></r:Remittance>")
                            .c_str(),
                        ignoring);
    EXPECT_EQ(remittance->GetReference(), "Q");
    EXPECT_TRUE(remittance->IsValidUrgency());
    EXPECT_EQ(remittance->GetUrgency(), Priority_high);

    const std::string strUnqualified =
        "<r:Remittance xmlns:r=\"" + kRem + "\" reference=\"Q\"><r:Payer>P</r:Payer></r:Remittance>";
    EXPECT_EQ(Thrown([&] { remittance->FromXml(strUnqualified.c_str(), ignoring); }),
              "Unexpected Attribute found.\nPath: /r:Remittance/@reference");
    ignoring.SetIgnoreUnknownAttributes(true);
    EXPECT_EQ(
        Thrown<COxValidationException>([&] { remittance->FromXml(strUnqualified.c_str(), ignoring); }),
        "Failed to process the element.\nPath: /r:Remittance\nFailed to find the required Attribute [reference].");

    // Read into an object whose optionals were all set: the absent ones come back unset, and
    // the default is not filled in.
    CSmartPtr<CInvoiceLine> line = Line();
    line->SetCurrency("USD");
    line->SetPriority(Priority_high);
    line->SetLang("en");
    line->FromXml("<InvoiceLine id=\"3\" status=\"pending\"><Description/><Quantity>1</Quantity></InvoiceLine>",
                  DefaultCtx());
    EXPECT_FALSE(line->IsValidCurrency());
    EXPECT_FALSE(line->IsValidPriority());
    EXPECT_FALSE(line->IsValidLang());
    EXPECT_EQ(line->GetId(), 3);
    EXPECT_EQ(line->GetStatus(), OrderStatus_pending);
}

TEST(NamespaceAliasMap, EntriesKeyedByUriInByteOrder) {
    CNamespaceAliasMap map;
    EXPECT_EQ(map.GetNamespaceCount(), 0);
    EXPECT_FALSE(map.DoesAliasExist("a"));
    Failure missing = FailureOf([&] { map.GetNamespaceFromAlias("a"); });
    EXPECT_EQ(missing.type, std::type_index(typeid(COxException)));
    EXPECT_EQ(missing.strMessage, "Namespace alias [a] not found");

    // The same alias for two URIs; a second alias for one URI replaces the first.
    map.Add("a", "urn:y");
    map.Add("a", "urn:x");
    map.Add("c", "urn:z");
    map.Add("b", "urn:z");
    map.Add("m", "urn:Z");
    EXPECT_EQ(map.GetNamespaceFromAlias("a"), "urn:x");
    EXPECT_FALSE(map.DoesAliasExist("c"));
    EXPECT_EQ(map.GetAliasFromNamespace("urn:z"), "b");

    // Order by byte comparison, as std::map<std::string> gives it, not by order of Add.
    std::map<std::string, std::string> oracle = {{"urn:y", "a"}, {"urn:x", "a"}, {"urn:z", "b"}, {"urn:Z", "m"}};
    ASSERT_EQ(map.GetNamespaceCount(), static_cast<int>(oracle.size()));
    int i = 0;
    for (const auto& entry : oracle) {
        EXPECT_EQ(map.GetNamespaceAt(i), entry.first);
        EXPECT_EQ(map.GetAliasFromNamespace(entry.first.c_str()), entry.second);
        ++i;
    }
    EXPECT_EQ(map.GetNamespaceAt(i), "");
    EXPECT_EQ(map.GetNamespaceAt(-1), "");

    // Asking for an unknown namespace answers empty and leaves no entry behind, so that the
    // next root element declares nothing for it.
    CNamespaceAliasMap copy = map;
    EXPECT_EQ(copy.GetAliasFromNamespace("urn:unknown"), "");
    EXPECT_FALSE(copy.DoesNamespaceExist("urn:unknown"));
    copy.RemoveNamespace("urn:unknown");
    copy.RemoveNamespace("urn:x");
    EXPECT_EQ(copy.GetNamespaceCount(), 3);
    EXPECT_EQ(copy.GetNamespaceFromAlias("a"), "urn:y");
    EXPECT_EQ(map.GetNamespaceFromAlias("a"), "urn:x");  // the copy is independent
}

}  // namespace
