#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"

namespace OrvexXml {

// How much of the XML shape a JSON document keeps, for writing and reading alike.
enum JsonRoundTrip : int32_t {
    // Plain JSON: attributes and child elements look alike; no namespaces, no type information.
    JsonRoundTrip_None = 0,
    // Attributes are marked with "@", text beside attributes or children is "#text";
    // namespaces and xsi:type are dropped.
    JsonRoundTrip_Simple = 1,
    // As Simple, and namespace declarations, prefixes and xsi:type are written too.
    JsonRoundTrip_Full = 2
};

// The JSON settings of a CSerializationContext, which creates it on first use and owns it.
// Plain data, copyable.
class ORVEXXML_API CJsonContext {
public:
    CJsonContext();
    CJsonContext(const CJsonContext& other) = default;
    CJsonContext& operator=(const CJsonContext& other) = default;
    virtual ~CJsonContext();

    JsonRoundTrip GetSupportRoundtrip() const { return m_eSupportRoundtrip; }
    void SetSupportRoundtrip(JsonRoundTrip eMode) { m_eSupportRoundtrip = eMode; }

    // Reading only: the name of the root element for a document that has none. A null
    // pointer stores the empty string.
    std::string GetRootElementName() const { return m_strRootElementName; }
    void SetRootElementName(const char* pszName) { m_strRootElementName = pszName ? pszName : ""; }

    // Reading only: whether comments are skipped as white space. The setter carries the
    // getter's name, as the exported interface has it.
    bool GetAllowComments() const { return m_bAllowComments; }
    void GetAllowComments(bool bAllow) { m_bAllowComments = bAllow; }

private:
    JsonRoundTrip m_eSupportRoundtrip;
    std::string m_strRootElementName;
    bool m_bAllowComments;
};

}  // namespace OrvexXml
