#include "orvexxml/fastinfoset/fastinfosetbinarydata.h"

#include <cstring>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/textencoder.h"
#include "orvexxml/values/conversions.h"

namespace OrvexXml {

namespace {

enum Algorithm : OxULong {
    Algorithm_Hexadecimal = 1,
    Algorithm_Base64 = 2,
    Algorithm_Short = 3,
    Algorithm_Int = 4,
    Algorithm_Long = 5,
    Algorithm_Boolean = 6,
    Algorithm_Float = 7,
    Algorithm_Double = 8,
    Algorithm_Uuid = 9,
    Algorithm_Cdata = 10
};

const char* const pszUnknownAlgorithm = "Unknown byte encoding.";
const CWhitespaceUtils::WhitespaceRule eRule = CWhitespaceUtils::WhitespaceRule_collapse;

// The boolean octet: the high half counts the unused bits at the end, here 3 of the low 4,
// and the bit after the count is the value.
const unsigned char byBooleanTrue = 0x38;
const unsigned char byBooleanFalse = 0x30;

}  // namespace

CFastInfosetBinaryData::~CFastInfosetBinaryData() {}

template <typename ItemToText>
std::string CFastInfosetBinaryData::JoinItems(OxULong nSize, const char* pszWrongLength, ItemToText itemToText) const {
    OxULong nLength = GetLength();
    if (nLength % nSize != 0) throw COxException(pszWrongLength);
    const unsigned char* pData = GetData();
    std::string strResult;
    for (OxULong nPos = 0; nPos < nLength; nPos += nSize) {
        uint64_t qwBits = 0;
        for (OxULong n = 0; n < nSize; ++n) qwBits = (qwBits << 8) | pData[nPos + n];
        if (nPos) strResult += ' ';
        strResult += itemToText(pData + nPos, qwBits);
    }
    return strResult;
}

void CFastInfosetBinaryData::AppendBigEndian(uint64_t qwBits, OxULong nSize) {
    unsigned char abyOctets[8];
    for (OxULong n = 0; n < nSize; ++n) abyOctets[n] = static_cast<unsigned char>(qwBits >> (8 * (nSize - 1 - n)));
    Append(abyOctets, nSize);
}

std::string CFastInfosetBinaryData::GetAsString(OxULong dwAlgorithm) const {
    if (dwAlgorithm < Algorithm_Hexadecimal || dwAlgorithm > Algorithm_Cdata) throw COxException(pszUnknownAlgorithm);
    if (GetLength() == 0) return std::string();
    switch (dwAlgorithm) {
        case Algorithm_Hexadecimal:
            return GetAsHexString();
        case Algorithm_Base64:
            return GetAsBase64();
        case Algorithm_Short:
            return JoinItems(2, "Invalid value for SHORT byte encoding.", [](const unsigned char*, uint64_t qwBits) {
                return CConversions::i2ToString(static_cast<int16_t>(static_cast<uint16_t>(qwBits)));
            });
        case Algorithm_Int:
            return JoinItems(4, "Invalid value for INT byte encoding.", [](const unsigned char*, uint64_t qwBits) {
                return CConversions::i4ToString(static_cast<OxLong>(static_cast<uint32_t>(qwBits)));
            });
        case Algorithm_Long:
            return JoinItems(8, "Invalid value for LONG byte encoding.", [](const unsigned char*, uint64_t qwBits) {
                return CConversions::i8ToString(static_cast<int64_t>(qwBits));
            });
        case Algorithm_Float:
            return JoinItems(4, "Invalid value for FLOAT byte encoding.", [](const unsigned char*, uint64_t qwBits) {
                uint32_t dwBits = static_cast<uint32_t>(qwBits);
                float fValue;
                std::memcpy(&fValue, &dwBits, sizeof(fValue));
                return CConversions::r4ToString(fValue, std::string());
            });
        case Algorithm_Double:
            return JoinItems(8, "Invalid value for DOUBLE byte encoding.", [](const unsigned char*, uint64_t qwBits) {
                double dValue;
                std::memcpy(&dValue, &qwBits, sizeof(dValue));
                return CConversions::r8ToString(dValue, std::string());
            });
        case Algorithm_Uuid:
            // 16 octets do not fit the number, so each item is taken from its octets.
            return JoinItems(16, "Invalid value for UUID byte encoding.", [](const unsigned char* pItem, uint64_t) {
                return CBinaryData::GetAsHexString(pItem, 16);
            });
        case Algorithm_Cdata:
            throw COxException(pszUnknownAlgorithm);
        default:
            break;
    }
    // Boolean: the high half of the first octet counts the unused bits at the end; the values
    // start at bit 3 of the first octet and run on through all bits of the others.
    const unsigned char* pData = GetData();
    OxULong nLength = GetLength();
    unsigned nUnused = pData[0] >> 4;
    std::string strResult;
    for (OxULong nOctet = 0; nOctet < nLength; ++nOctet) {
        int nFirstBit = nOctet == 0 ? 3 : 7;
        int nLastBit = nOctet + 1 == nLength ? static_cast<int>(nUnused) : 0;
        for (int nBit = nFirstBit; nBit >= nLastBit; --nBit) {
            if (!strResult.empty()) strResult += ' ';
            strResult += CConversions::booleanToString(((pData[nOctet] >> nBit) & 1) != 0);
        }
    }
    return strResult;
}

void CFastInfosetBinaryData::SetAsEncodedString(OxULong dwAlgorithm, const char* pszValue) {
    if (dwAlgorithm < Algorithm_Hexadecimal || dwAlgorithm > Algorithm_Cdata) throw COxException(pszUnknownAlgorithm);
    Clear();
    std::string strValue = pszValue ? pszValue : "";
    switch (dwAlgorithm) {
        case Algorithm_Hexadecimal:
        case Algorithm_Uuid:
            SetAsHexString(strValue.c_str());
            break;
        case Algorithm_Base64:
            SetAsBase64(strValue.c_str());
            break;
        case Algorithm_Short:
            AppendBigEndian(static_cast<uint16_t>(CConversions::i2FromString(strValue, eRule)), 2);
            break;
        case Algorithm_Int:
            AppendBigEndian(static_cast<uint32_t>(CConversions::i4FromString(strValue, eRule)), 4);
            break;
        case Algorithm_Long:
            AppendBigEndian(static_cast<uint64_t>(CConversions::i8FromString(strValue, eRule)), 8);
            break;
        case Algorithm_Boolean:
            Append(CConversions::booleanFromString(strValue, eRule) ? byBooleanTrue : byBooleanFalse);
            break;
        case Algorithm_Float: {
            float fValue = CConversions::r4FromString(strValue, eRule);
            uint32_t dwBits;
            std::memcpy(&dwBits, &fValue, sizeof(dwBits));
            AppendBigEndian(dwBits, 4);
            break;
        }
        case Algorithm_Double: {
            double dValue = CConversions::r8FromString(strValue, eRule);
            uint64_t qwBits;
            std::memcpy(&qwBits, &dValue, sizeof(qwBits));
            AppendBigEndian(qwBits, 8);
            break;
        }
        default:
            CBinaryData::operator=(LocalToUtf8(strValue.c_str(), strValue.size()));
            break;
    }
}

}  // namespace OrvexXml
