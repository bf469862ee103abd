// Builds a few sample objects and prints them as XML.
#include <cstdio>

#include "amount.h"
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
    } catch (const COxException& e) {
        std::fprintf(stderr, "error: %s\n", e.GetFullMessage().c_str());
        return 1;
    }
    return 0;
}
