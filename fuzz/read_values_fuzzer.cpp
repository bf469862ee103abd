// Feeds arbitrary bytes to the readers of single values and of raw byte streams: the text
// forms of every item type, base64 and hex, decimals and big integers, dates, times and
// durations, the conversion of UTF-8 and UTF-16 to other code pages, documents handed over as
// bytes (byte order marks, UTF-16), and the facet checks of values. Any outcome
// but a COxException is a finding, and so is a value that doesn't survive its own text form.
#include <orvexxml/orvexxml.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "person.h"
#include "primitiveset.h"
#include "support/onewayforms.h"

using namespace OrvexXml;

namespace {

const CWhitespaceUtils::WhitespaceRule kRules[] = {CWhitespaceUtils::WhitespaceRule_preserve,
                                                   CWhitespaceUtils::WhitespaceRule_replace,
                                                   CWhitespaceUtils::WhitespaceRule_collapse};

// Base64 and hex text that was accepted gives bytes that encode and decode to themselves.
void BinaryRoundTrip(const std::string& text, bool bHex) {
    CBinaryData data;
    try {
        if (bHex)
            data.SetAsHexString(text.c_str());
        else
            data.SetAsBase64(text.c_str());
    } catch (const COxException&) {
        return;
    }
    CBinaryData again;
    if (bHex)
        again.SetAsHexString(data.GetAsHexString().c_str());
    else
        again.SetAsBase64(data.GetAsBase64().c_str());
    if (!(again == data)) std::abort();
}

// Format overrides of floats as generated code carries them; the longer ones overflow the
// fixed buffers and are cut.
const char* const kFloatFormats[] = {nullptr, "%.2f", "%.44e"};

// A value read from text writes a text that reads back to the same text.
void VariantRoundTrip(const std::string& text, ItemType eType, CWhitespaceUtils::WhitespaceRule eRule,
                      const char* pszFormat) {
    OxVariant value;
    try {
        value.FromString(text, eType, eRule);
    } catch (const COxException&) {
        return;
    }
    std::string strFirst = value.ToString(pszFormat);
    if (OrvexTest::IsUnreadableCharText(eType, strFirst) || OrvexTest::IsCutFloatText(eType, strFirst) ||
        (eType == ItemType_duration && OrvexTest::IsEmptyDurationText(strFirst)) ||
        (eType == ItemType_year && OrvexTest::IsUnreadableYear(value.GetYear())))
        return;
    OxVariant again;
    try {
        again.FromString(strFirst, eType, CWhitespaceUtils::WhitespaceRule_preserve);
    } catch (const COxException&) {
        std::abort();  // the library wrote a text it refuses to read
    }
    // A rounded float reads back as a neighbour that may print differently: for floats,
    // reading back is the test.
    if (!OrvexTest::IsRoundedFloatType(eType) && again.ToString(pszFormat) != strFirst) std::abort();
}

// A decimal or big integer read from text prints a text that reads back to the same value and
// the same text; a decimal also survives arithmetic that is exact for it, and its text with a
// fixed number of places reads back too.
void NumberRoundTrip(const std::string& text, uint8_t nSelector) {
    if (nSelector & 1) {
        CBigInteger value;
        try {
            value.Parse(text.c_str());
        } catch (const COxException&) {
            return;
        }
        const std::string strFirst = value.ToString();
        try {
            if (CBigInteger(strFirst.c_str()).ToString() != strFirst) std::abort();
        } catch (const COxException&) {
            std::abort();  // the library wrote a text it refuses to read
        }
        return;
    }
    CDecimal value;
    try {
        value = CDecimal(text.c_str());
    } catch (const COxException&) {
        return;
    }
    try {
        const std::string strFirst = value.ToString();
        const CDecimal again(strFirst.c_str());
        if (again.ToString() != strFirst || !(again == value)) std::abort();
        if (!((value + value) - value == value) || !(value * CDecimal(1) == value) || !(value / CDecimal(1) == value)) {
            std::abort();
        }
        const CDecimal fixed(value.ToString(nSelector / 2 % 40).c_str());
        (void)fixed;
    } catch (const COxException&) {
        std::abort();  // the library refused a text it wrote, or arithmetic on a value it read
    }
}

void ToCodePage(const std::string& text, unsigned int nCodePage) {
    SetLocalCharEncoding(nCodePage);
    Utf8ToLocal(text.data(), text.size());
    std::vector<char16_t> units(text.size() / 2);
    for (size_t i = 0; i < units.size(); ++i) {
        units[i] = static_cast<char16_t>(static_cast<unsigned char>(text[2 * i]) |
                                         static_cast<unsigned char>(text[2 * i + 1]) << 8);
    }
    std::string strLocal = Utf16ToLocal(units.data(), units.size());
    LocalToUtf16String(strLocal.data(), strLocal.size());
    SetLocalCharEncoding(ORVEXXML_CP_UTF8);
}

// A date, time or duration read from text writes a text that reads back to the same value
// and the same text. The selector picks the reader: dateTime, date, time or duration.
void DateRoundTrip(const std::string& text, uint8_t nSelector) {
    const int nReader = nSelector % 4;
    if (nReader == 3) {
        CDateTimeSpan span;
        try {
            span.ParseXSDDuration(text.c_str());
        } catch (const COxException&) {
            return;
        }
        const std::string strFirst = span.ToString();
        if (OrvexTest::IsEmptyDurationText(strFirst)) return;
        CDateTimeSpan again;
        try {
            again.ParseXSDDuration(strFirst.c_str());
        } catch (const COxException&) {
            std::abort();  // the library wrote a text it refuses to read
        }
        if (again.ToString() != strFirst || again.IsNegative() != span.IsNegative()) std::abort();
        return;
    }
    CDateTime value;
    try {
        if (nReader == 0) value.ParseXSDDateTime(text.c_str());
        if (nReader == 1) value.ParseXSDDate(text.c_str());
        if (nReader == 2) value.ParseXSDTime(text.c_str());
    } catch (const COxException&) {
        return;
    }
    const std::string strFirst = value.ToString();
    CDateTime again;
    try {
        if (nReader == 0) again.ParseXSDDateTime(strFirst.c_str());
        if (nReader == 1) again.ParseXSDDate(strFirst.c_str());
        if (nReader == 2) again.ParseXSDTime(strFirst.c_str());
    } catch (const COxException&) {
        std::abort();
    }
    if (again.ToString() != strFirst || again.GetType() != value.GetType() ||
        again.CompareTo(value) != CDateTime::dtc_equal) {
        std::abort();
    }
}

// The fields of a facet case, split at the byte 1: the value, the four bounds, the pattern, and
// the numbers (min length, max length, length, total digits, fraction digits, one byte each).
std::vector<std::string> SplitFields(const std::string& text) {
    std::vector<std::string> fields(1);
    for (char c : text) {
        if (c == '\x01')
            fields.emplace_back();
        else
            fields.back() += c;
    }
    fields.resize(7);
    return fields;
}

// A byte of the numbers field as a facet count: small, or -1 (no such facet) for a missing
// byte and for half of the values.
OxLong FacetCount(const std::string& numbers, size_t nIndex) {
    if (nIndex >= numbers.size()) return -1;
    const unsigned char b = static_cast<unsigned char>(numbers[nIndex]);
    return b & 0x80 ? -1 : static_cast<OxLong>(b % 40);
}

// A value of any kind read from text, checked against a facet set built from the input: bounds
// as texts (which may not read as the kind), small counts, and a pattern that may be hostile.
// The check may refuse, but only with a COxException, and it must end (a pattern's match is
// bounded). The same check again gives the same outcome.
void CheckFacets(const std::string& text, uint8_t nSelector) {
    const ItemType eType = static_cast<ItemType>(nSelector % 26 + 1);
    const std::vector<std::string> fields = SplitFields(text);
    OxVariant value;
    try {
        value.FromString(fields[0], eType, CWhitespaceUtils::WhitespaceRule_preserve);
    } catch (const COxException&) {
        return;
    }
    auto textOrNull = [](const std::string& strField) { return strField.empty() ? nullptr : strField.c_str(); };
    const std::string& numbers = fields[6];
    const CPrimitiveRestrictions restrictions(textOrNull(fields[5]), FacetCount(numbers, 0), FacetCount(numbers, 1),
                                              textOrNull(fields[1]), textOrNull(fields[2]), textOrNull(fields[3]),
                                              textOrNull(fields[4]), FacetCount(numbers, 2), FacetCount(numbers, 3),
                                              FacetCount(numbers, 4));
    std::string strOutcome[2];
    for (std::string& strResult : strOutcome) {
        try {
            ValidatePrimitive("v", value, eType, restrictions);
            strResult = "passed";
        } catch (const COxException& e) {
            strResult = e.GetFullMessage();
        }
    }
    if (strOutcome[0] != strOutcome[1]) std::abort();
}

template <class T>
void ReadBytes(std::string& bytes) {
    CSmartPtr<T> object = T::CreateInstance();
    try {
        object->FromXmlStream(reinterpret_cast<unsigned char*>(&bytes[0]), static_cast<OxULong>(bytes.size()),
                              CSerializationContext::GetDefaultContext());
    } catch (const COxException&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    if (nSize < 2) return 0;
    // The first two bytes pick what is read, the rest is the input.
    uint8_t nMode = pData[0];
    uint8_t nSelector = pData[1];
    std::string text(reinterpret_cast<const char*>(pData + 2), nSize - 2);
    try {
        switch (nMode % 8) {
            case 0:
                VariantRoundTrip(text, static_cast<ItemType>(nSelector % 29), kRules[(nSelector / 29) % 3],
                                 kFloatFormats[(nSelector / 87) % 3]);
                break;
            case 1:
                BinaryRoundTrip(text, nSelector & 1);
                break;
            case 2: {
                static const unsigned int kCodePages[] = {1252, 28591, 1250, 932, 20127};
                ToCodePage(text, kCodePages[nSelector % 5]);
                break;
            }
            case 3:
                ReadBytes<Samples::CPerson>(text);
                break;
            case 4:
                ReadBytes<Samples::CPrimitiveSet>(text);
                break;
            case 5:
                NumberRoundTrip(text, nSelector);
                break;
            case 6:
                DateRoundTrip(text, nSelector);
                break;
            case 7:
                CheckFacets(text, nSelector);
                break;
        }
    } catch (const COxException&) {
        SetLocalCharEncoding(ORVEXXML_CP_UTF8);
    }
    return 0;
}
