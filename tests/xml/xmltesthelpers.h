// Helpers shared by the tests of the parse tree and the expat reader.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/xml/xmldocument.h"

namespace OrvexXmlTest {

// Expects exactly a COxException (not a subclass) with exactly this message.
inline void ExpectOxError(const std::function<void()>& func, const std::string& strExpected) {
    try {
        func();
        ADD_FAILURE() << "nothing was thrown; expected: " << strExpected;
    } catch (const OrvexXml::COxException& e) {
        EXPECT_EQ(typeid(OrvexXml::COxException), typeid(e)) << "message: " << e.GetMessage();
        EXPECT_EQ(strExpected, e.GetMessage());
    }
}

// The message of the COxException that func throws; a failure if it throws none.
inline std::string OxErrorOf(const std::function<void()>& func) {
    try {
        func();
    } catch (const OrvexXml::COxException& e) {
        return e.GetMessage();
    }
    ADD_FAILURE() << "nothing was thrown";
    return std::string();
}

// A complete textual picture of a subtree: names, namespaces, attributes in order, text,
// children. Iterative, so it serves deep trees too.
inline std::string Dump(const OrvexXml::CXmlElement* pRoot) {
    std::string strOut;
    if (!pRoot) return "(null)";
    std::vector<std::pair<const OrvexXml::CXmlElement*, bool>> stack;
    stack.push_back({pRoot, false});
    while (!stack.empty()) {
        auto [pElement, bClosing] = stack.back();
        stack.pop_back();
        if (bClosing) {
            strOut += ")";
            continue;
        }
        strOut += "({" + pElement->GetNamespaceURI() + "}" + pElement->GetLocalName();
        for (const OrvexXml::CXmlAttribute* pAttribute : pElement->GetAttributes())
            strOut += " {" + pAttribute->GetNamespaceURI() + "}" + pAttribute->GetLocalName() + "=[" +
                      pAttribute->GetValue() + "]";
        strOut += " text=[" + pElement->GetText() + "]";
        stack.push_back({pElement, true});
        std::vector<const OrvexXml::CXmlElement*> children;
        for (const OrvexXml::CXmlElement* p = pElement->GetFirstElement(); p; p = p->GetNextSiblingElement())
            children.push_back(p);
        for (auto it = children.rbegin(); it != children.rend(); ++it) stack.push_back({*it, false});
    }
    return strOut;
}

// The children of an element, in order.
inline std::vector<OrvexXml::CXmlElement*> Children(const OrvexXml::CXmlElement* pElement) {
    std::vector<OrvexXml::CXmlElement*> result;
    for (OrvexXml::CXmlElement* p = pElement->GetFirstElement(); p; p = p->GetNextSiblingElement()) result.push_back(p);
    return result;
}

}  // namespace OrvexXmlTest
