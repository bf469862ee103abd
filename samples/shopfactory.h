// Generated class factory of the shop schema: the classes that class-valued members create by
// their id while a document is read.
#pragma once

#include <orvexxml/orvexxml.h>

namespace Samples {

class CShopFactory : public OrvexXmlData::CClassfactoryBase {
public:
    enum ClassId {
        ClassId_Address = 1,
        ClassId_Customer,
        ClassId_Audit,
        ClassId_Line,
        ClassId_Payment,
        ClassId_Card,
        ClassId_Transfer,
        ClassId_Signoff,
        ClassId_Order
    };

    // A new object of the class with the id; the element name is the one the object takes in
    // its parent, which reading sets from the document. Never null.
    static OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> CreateClass(int nClassId, const char* pszElementName);
};

}  // namespace Samples
