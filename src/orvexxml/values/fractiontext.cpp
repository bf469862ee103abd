#include "orvexxml/values/fractiontext.h"

#include "orvexxml/infrastructure/formatstring.h"

namespace OrvexXml {

void CFractionText::Append(std::string& strText, unsigned nMilli, unsigned nMicro, unsigned nNano) {
    const unsigned parts[3] = {nMilli, nMicro, nNano};
    int nLast = 2;
    while (nLast >= 0 && parts[nLast] == 0) --nLast;
    if (nLast < 0) return;
    strText += '.';
    for (int i = 0; i < nLast; ++i) strText += FormatString("%03u", parts[i]);
    std::string strLast = FormatString("%03u", parts[nLast]);
    strLast.erase(strLast.find_last_not_of('0') + 1);
    strText += strLast;
}

bool CFractionText::Read(const char*& pText, unsigned short& nMilli, unsigned short& nMicro, unsigned short& nNano) {
    unsigned short* const parts[3] = {&nMilli, &nMicro, &nNano};
    static const unsigned short kPlace[3] = {100, 10, 1};
    for (int i = 0; *pText >= '0' && *pText <= '9'; ++i, ++pText) {
        if (i == 9) return false;
        *parts[i / 3] = static_cast<unsigned short>(*parts[i / 3] + (*pText - '0') * kPlace[i % 3]);
    }
    return true;
}

}  // namespace OrvexXml
