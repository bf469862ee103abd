// Builds a few sample objects and prints them as XML.
#include <cstdio>

#include "amount.h"
#include "envelope.h"
#include "invoiceline.h"
#include "person.h"
#include "primitiveset.h"
#include "shape.h"

using namespace OrvexXml;

int main() {
    try {
        const CSerializationContext& ctx = CSerializationContext::GetDefaultContext();

        CSmartPtr<Samples::CPerson> person = Samples::CPerson::CreateInstance();
        person->SetName("Ada Lovelace");
        std::printf("%s\n", person->ToXml(true, true, EOLType_LF, ctx).c_str());

        CSmartPtr<Samples::CPrimitiveSet> set = Samples::CPrimitiveSet::CreateInstance();
        set->SetByteVal(-5);
        set->SetLongVal(9007199254740993LL);
        set->SetUByteVal(200);
        set->SetUShortVal(65535);
        set->SetULongVal(18446744073709551615ULL);
        set->SetFloatVal(3.14159274f);
        set->SetDoubleVal(2.71828);
        set->SetText("Fish & <chips>");
        set->SetFlag(false);
        CSerializationContext custom;
        custom.GetNamespaceAliases().Add("p", "urn:orvex:samples:primitives");
        custom.SetIndentChars("  ");
        std::printf("%s\n", set->ToXml(true, true, EOLType_LF, custom).c_str());

        CSmartPtr<Samples::CShape> shape = Samples::CShape::CreateInstance();
        shape->SetLabel("triangle");
        std::printf("%s\n", shape->ToXml(false, true, EOLType_LF, ctx).c_str());

        CSmartPtr<Samples::CAmount> amount = Samples::CAmount::CreateInstance();
        amount->SetValue(19.5);
        std::printf("%s\n", amount->ToXml(false, false, EOLType_LF, ctx).c_str());

        // Attributes: required, optional, enumerated and in the XML namespace.
        CSmartPtr<Samples::CInvoiceLine> line = Samples::CInvoiceLine::CreateInstance();
        line->SetId(7);
        line->SetStatus(Samples::OrderStatus_shipped);
        line->SetPriority(Samples::Priority_high);
        line->SetLang("en-GB");
        line->SetDescription("Bolts & nuts");
        line->SetQuantity(12);
        std::printf("%s\n", line->ToXml(false, true, EOLType_LF, ctx).c_str());

        // Open content read from a document and written again, with a schema location at the root.
        CSmartPtr<Samples::CEnvelope> envelope = Samples::CEnvelope::CreateInstance();
        envelope->FromXml(
            "<e:Envelope xmlns:e=\"urn:orvex:samples:envelope\" xmlns:t=\"urn:trace\" t:id=\"42\">"
            "<e:Header>order</e:Header><o:Order xmlns:o=\"urn:orders\" o:no=\"5\">"
            "<o:Line>Bolts</o:Line></o:Order></e:Envelope>",
            ctx);
        const char* pszXsi = "http://www.w3.org/2001/XMLSchema-instance";
        CSerializationContext located;
        located.GetNamespaceAliases().Add("e", "urn:orvex:samples:envelope");
        located.GetNamespaceAliases().Add("xsi", pszXsi);
        located.GetAdditionalRootAttributes()->Add("schemaLocation", "urn:orvex:samples:envelope envelope.xsd", pszXsi);
        std::printf("%s\n", envelope->ToXml(false, true, EOLType_LF, located).c_str());
    } catch (const COxException& e) {
        std::fprintf(stderr, "error: %s\n", e.GetFullMessage().c_str());
        return 1;
    }
    return 0;
}
