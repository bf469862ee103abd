// Generated class factory of the order book schema.
#include "orderbookfactory.h"

#include "address.h"
#include "line.h"
#include "order.h"
#include "orderbook.h"
#include "party.h"

using namespace OrvexXml;

namespace OrderBook {

CSmartPtr<CXmlObjectBase> COrderBookFactory::CreateClass(int nClassId, const char* pszElementName) {
    switch (nClassId) {
        case ClassId_OrderBook:
            return new COrderBook();
        case ClassId_Order:
            return new COrder();
        case ClassId_Party:
            return new CParty();
        case ClassId_Address:
            return new CAddress();
        case ClassId_Line:
            return new CLine();
        default:
            throw COxInvalidParamException(FormatString("Unknown class id %d for the element [%s]", nClassId,
                                                        pszElementName ? pszElementName : ""));
    }
}

}  // namespace OrderBook
