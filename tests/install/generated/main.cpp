// Reads a greeting into the class generated from greeting.xsd, found by its element name,
// and writes it back.
#include <cstdio>

#include "schema.h"

using namespace OrvexXml;

int main() {
    CSmartPtr<CXmlGeneratedClass> root = Greetings::CreateRootElement("greeting", "urn:example:greetings");
    if (!root) return 1;
    root->FromXml("<greeting xmlns=\"urn:example:greetings\"><text>hello &amp; welcome</text></greeting>",
                  CSerializationContext::GetDefaultContext());
    std::fputs(root->ToXml(true, true, EOLType_LF, CSerializationContext::GetDefaultContext()).c_str(), stdout);
    return 0;
}
