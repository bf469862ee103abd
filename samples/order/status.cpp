// Generated enumeration Status of the order book.
#include "status.h"

#include <cstring>

using namespace OrvexXml;

namespace OrderBook {

static const char* const s_StatusText[] = {"open", "shipped", "cancelled"};

const char* Status_EnumToText(int nValue) {
    if (nValue < 0 || nValue > 2) {
        throw COxInvalidValueException(FormatString("The value %d is not a valid Status", nValue));
    }
    return s_StatusText[nValue];
}

int Status_TextToEnum(const char* pszText) {
    for (int i = 0; i < 3; ++i) {
        if (std::strcmp(pszText, s_StatusText[i]) == 0) return i;
    }
    throw COxInvalidValueException(FormatString("The value [%s] is not a valid Status", pszText));
}

}  // namespace OrderBook
