// Generated class factory of the shop schema.
#include "shopfactory.h"

#include "address.h"
#include "audit.h"
#include "customer.h"
#include "line.h"
#include "order.h"
#include "payment.h"
#include "signoff.h"

using namespace OrvexXml;

namespace Samples {

CSmartPtr<CXmlObjectBase> CShopFactory::CreateClass(int nClassId, const char* pszElementName) {
    switch (nClassId) {
        case ClassId_Address:
            return new CAddress();
        case ClassId_Customer:
            return new CCustomer();
        case ClassId_Audit:
            return new CAudit();
        case ClassId_Line:
            return new CLine();
        case ClassId_Payment:
            return new CPayment();
        case ClassId_Card:
            return new CCard();
        case ClassId_Transfer:
            return new CTransfer();
        case ClassId_Signoff:
            return new CSignoff();
        case ClassId_Order:
            return new COrder();
        default:
            throw COxInvalidParamException(FormatString("Unknown class id %d for the element [%s]", nClassId,
                                                        pszElementName ? pszElementName : ""));
    }
}

}  // namespace Samples
