// Generated class factory of the order book schema: the classes that class-valued members
// create by their id while a document is read.
#pragma once

#include <orvexxml/orvexxml.h>

namespace OrderBook {

class COrderBookFactory : public OrvexXmlData::CClassfactoryBase {
public:
    enum ClassId { ClassId_OrderBook = 1, ClassId_Order, ClassId_Party, ClassId_Address, ClassId_Line };

    // A new object of the class with the id; the element name is the one the object takes in
    // its parent, which reading sets from the document. Never null.
    static OrvexXml::CSmartPtr<OrvexXml::CXmlObjectBase> CreateClass(int nClassId, const char* pszElementName);
};

}  // namespace OrderBook
