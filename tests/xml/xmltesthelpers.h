// Helpers shared by the tests of the parse tree and the expat reader.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/xml/xmldocument.h"

namespace OrvexXmlTest {

// Expects exactly an exception of this class (by default COxException, not a subclass) with
// exactly this message.
inline void ExpectOxError(const std::function<void()>& func, const std::string& strExpected,
                          const std::type_info& expectedType = typeid(OrvexXml::COxException)) {
    try {
        func();
        ADD_FAILURE() << "nothing was thrown; expected: " << strExpected;
    } catch (const OrvexXml::COxException& e) {
        EXPECT_EQ(expectedType, typeid(e)) << "message: " << e.GetMessage();
        EXPECT_EQ(strExpected, e.GetMessage());
    }
}

// A complete textual picture of a subtree: names, namespaces, attributes in order, text,
// children.
inline std::string Dump(const OrvexXml::CXmlElement* pElement) {
    if (!pElement) return "(null)";
    std::string strOut = "({" + pElement->GetNamespaceURI() + "}" + pElement->GetLocalName();
    for (const OrvexXml::CXmlAttribute* pAttribute : pElement->GetAttributes())
        strOut += " {" + pAttribute->GetNamespaceURI() + "}" + pAttribute->GetLocalName() + "=[" +
                  pAttribute->GetValue() + "]";
    strOut += " text=[" + pElement->GetText() + "]";
    for (const OrvexXml::CXmlElement* p = pElement->GetFirstElement(); p; p = p->GetNextSiblingElement())
        strOut += Dump(p);
    return strOut + ")";
}

// The children of an element, in order.
inline std::vector<OrvexXml::CXmlElement*> Children(const OrvexXml::CXmlElement* pElement) {
    std::vector<OrvexXml::CXmlElement*> result;
    for (OrvexXml::CXmlElement* p = pElement->GetFirstElement(); p; p = p->GetNextSiblingElement()) result.push_back(p);
    return result;
}

}  // namespace OrvexXmlTest
