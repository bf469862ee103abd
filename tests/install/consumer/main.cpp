// A user program against the installed library: a hand-written class in the shape of
// generated code, written as XML.
#include <orvexxml/orvexxml.h>

#include <cstdio>

using namespace OrvexXml;
using namespace OrvexXmlData;

class CGreeting : public CXmlGeneratedClass {
public:
    CGreeting() : m_strText("hello & welcome") { SetElementName("Greeting"); }
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() const override { return ""; }
    void ExchangeProperty(int, bool bRead, OxVariant& value) override {
        if (bRead) value.SetString(m_strText);
    }
    CParentElementInfo* GetParentElementInfo() const override { return &ms_parent; }
    CElementInfo** GetClassElementInfo() const override { return ms_elements; }
    CAttributeInfo** GetClassAttributeInfo() const override { return ms_attributes; }
    void ResetToDefaults() override { m_strText.clear(); }

protected:
    std::string GetTargetNamespace() const override { return ""; }

private:
    std::string m_strText;
    static CParentElementInfo ms_parent;
    static CElementInfo* ms_elements[2];
    static CAttributeInfo* ms_attributes[1];
};

CParentElementInfo CGreeting::ms_parent(XmlElementGroupType_Sequence, XmlElementType_Element, "Greeting", "", true,
                                        false, -1, ItemType_invalid, nullptr, false);
CElementInfo* CGreeting::ms_elements[2] = {
    new CElementInfoSeqPrimMnd("Text", "", 0, false, ItemType_string, nullptr,
                               CWhitespaceUtils::WhitespaceRule_preserve, CPrimitiveRestrictions(), nullptr),
    nullptr};
CAttributeInfo* CGreeting::ms_attributes[1] = {nullptr};

int main() {
    Register(16, 1);
    CSmartPtr<CGreeting> greeting = new CGreeting();
    std::fputs(greeting->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext()).c_str(), stdout);
    return 0;
}
