#include "orvexxml/values/validatevalue.h"

#include <atomic>
#include <cstring>

#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/infrastructure/localencoding.h"
#include "orvexxml/infrastructure/textencoder.h"
#include "orvexxml/values/biginteger.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/datetime.h"
#include "orvexxml/values/datetimespan.h"
#include "orvexxml/values/decimal.h"
#include "orvexxml/values/itemtypeinfo.h"
#include "orvexxml/values/itemtypetraits.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/patterncache.h"
#include "orvexxml/values/primitiverestrictions.h"

namespace OrvexXml {

namespace {

const CWhitespaceUtils::WhitespaceRule kBoundRule = CWhitespaceUtils::WhitespaceRule_collapse;

[[noreturn]] void Refuse(const char* pszName, const std::string& strValue) {
    throw COxException(std::string("Invalid Value for ") + pszName + " [" + strValue + "].");
}

// The refusal of the sized integers up to 32 bits, the date parts and the floats: the number,
// without a full stop.
[[noreturn]] void RefuseNumber(const char* pszName, const std::string& strNumber) {
    throw COxException(std::string("Invalid Value for ") + pszName + " [" + strNumber + "]");
}

}  // namespace

// Reads the bounds of a facet set as values of a kind, and files each in the set for the
// checks that follow. A bound that its kind can't read throws each time and is not filed; a
// set checked as another kind than the one filed reads the bound afresh.
class CFacetBounds {
public:
    enum Bound { MinInclusive = 0, MaxInclusive, MinExclusive, MaxExclusive };

    template <ItemType eType>
    static typename CItemTypeTraits<eType>::ValueType Read(const CPrimitiveRestrictions& restrictions, Bound eBound,
                                                           const std::string& strText) {
        typedef CItemTypeTraits<eType> Traits;
        std::atomic<OxVariant*>& slot = restrictions.m_apBounds[eBound];
        OxVariant* pFiled = slot.load(std::memory_order_acquire);
        if (pFiled != nullptr && pFiled->GetTypeAsEnum() == eType) {
            if constexpr (Traits::Storage == CItemTypeInfo::Storage_owned) {
                return *Traits::Slot(*pFiled);
            } else {
                return Traits::Slot(*pFiled);
            }
        }
        typename Traits::ValueType bound = Traits::FromText(strText, kBoundRule);
        if (pFiled == nullptr) {
            OxVariant* pNew = new OxVariant;
            Traits::Store(*pNew, bound);
            OxVariant* pExpected = nullptr;
            if (!slot.compare_exchange_strong(pExpected, pNew, std::memory_order_acq_rel)) delete pNew;
        }
        return bound;
    }
};

namespace {

// The four bounds, each read with the kind's conversion when its turn comes (and then kept).
// Less is the kind's order; for the floats a bound passes only when its comparison holds,
// which a NaN never lets happen.
template <ItemType eType, class Value, class RefuseFn>
void CheckBounds(const Value& value, const CPrimitiveRestrictions& restrictions, RefuseFn refuse) {
    auto bound = [&](CFacetBounds::Bound eBound, const std::string& strText) {
        return CFacetBounds::Read<eType>(restrictions, eBound, strText);
    };
    if (!restrictions.GetMinInclusive().empty()) {
        if (!(value >= bound(CFacetBounds::MinInclusive, restrictions.GetMinInclusive()))) refuse();
    }
    if (!restrictions.GetMaxInclusive().empty()) {
        if (!(value <= bound(CFacetBounds::MaxInclusive, restrictions.GetMaxInclusive()))) refuse();
    }
    if (!restrictions.GetMinExclusive().empty()) {
        if (!(value > bound(CFacetBounds::MinExclusive, restrictions.GetMinExclusive()))) refuse();
    }
    if (!restrictions.GetMaxExclusive().empty()) {
        if (!(value < bound(CFacetBounds::MaxExclusive, restrictions.GetMaxExclusive()))) refuse();
    }
}

// A sized integer: the bounds, then the length of its text against the total digits.
template <ItemType eType, class Value>
void CheckInteger(const char* pszName, Value value, const CPrimitiveRestrictions& restrictions, bool bFullStop) {
    typedef CItemTypeTraits<eType> Traits;
    auto refuse = [&]() {
        const std::string strText = Traits::ToText(value, nullptr);
        if (bFullStop) Refuse(pszName, strText);
        RefuseNumber(pszName, strText);
    };
    CheckBounds<eType>(value, restrictions, refuse);
    if (restrictions.GetTotalDigits() >= 0 &&
        Traits::ToText(value, nullptr).size() > static_cast<size_t>(restrictions.GetTotalDigits())) {
        refuse();
    }
}

template <ItemType eType, class Value>
void CheckFloat(const char* pszName, Value value, const CPrimitiveRestrictions& restrictions) {
    CheckBounds<eType>(value, restrictions,
                       [&]() { RefuseNumber(pszName, FormatString("%f", static_cast<double>(value))); });
}

// The bounds of the partially ordered kinds: an indeterminate comparison passes all four.
template <class Value, class ReadFn, class RefuseFn>
void CheckPartialBounds(const Value& value, const CPrimitiveRestrictions& restrictions, ReadFn read, RefuseFn refuse) {
    if (!restrictions.GetMinInclusive().empty()) {
        if (value.CompareTo(read(CFacetBounds::MinInclusive, restrictions.GetMinInclusive())) ==
            CDateTime::dtc_lessThan)
            refuse();
    }
    if (!restrictions.GetMaxInclusive().empty()) {
        if (value.CompareTo(read(CFacetBounds::MaxInclusive, restrictions.GetMaxInclusive())) ==
            CDateTime::dtc_greaterThan)
            refuse();
    }
    if (!restrictions.GetMinExclusive().empty()) {
        const CDateTime::DTCompareResult eResult =
            value.CompareTo(read(CFacetBounds::MinExclusive, restrictions.GetMinExclusive()));
        if (eResult != CDateTime::dtc_greaterThan && eResult != CDateTime::dtc_indeterminate) refuse();
    }
    if (!restrictions.GetMaxExclusive().empty()) {
        const CDateTime::DTCompareResult eResult =
            value.CompareTo(read(CFacetBounds::MaxExclusive, restrictions.GetMaxExclusive()));
        if (eResult != CDateTime::dtc_lessThan && eResult != CDateTime::dtc_indeterminate) refuse();
    }
}

// Byte counts of binary data and strings.
template <class RefuseFn>
void CheckLength(size_t nLength, const CPrimitiveRestrictions& restrictions, RefuseFn refuse) {
    if (restrictions.GetMinLength() >= 0 && nLength < static_cast<size_t>(restrictions.GetMinLength())) refuse();
    if (restrictions.GetMaxLength() >= 0 && nLength > static_cast<size_t>(restrictions.GetMaxLength())) refuse();
    if (restrictions.GetLength() >= 0 && nLength != static_cast<size_t>(restrictions.GetLength())) refuse();
}

// Local text as UTF-8, up to its first null byte.
std::string ToUtf8(const std::string& strLocal) {
    const CBinaryData utf8 = LocalToUtf8(strLocal.c_str());
    const char* pData = reinterpret_cast<const char*>(utf8.GetData());
    if (pData == nullptr) return std::string();
    return std::string(pData, strnlen(pData, utf8.GetLength()));
}

// Replaces every occurrence of strFrom, from the start to the end.
void ReplaceAll(std::string& strText, const char* pszFrom, const char* pszTo) {
    const size_t nFrom = std::strlen(pszFrom);
    const size_t nTo = std::strlen(pszTo);
    for (size_t nPos = strText.find(pszFrom); nPos != std::string::npos; nPos = strText.find(pszFrom, nPos + nTo)) {
        strText.replace(nPos, nFrom, pszTo);
    }
}

}  // namespace

void ValidateValue(const char* pszName, char value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_i1>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, int16_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_i2>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, int32_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_i4>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, int64_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_i8>(pszName, value, restrictions, true);
}

void ValidateValue(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_ui1>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, uint16_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_ui2>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, uint32_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_ui4>(pszName, value, restrictions, false);
}

void ValidateValue(const char* pszName, uint64_t value, const CPrimitiveRestrictions& restrictions) {
    CheckInteger<ItemType_ui8>(pszName, value, restrictions, true);
}

void ValidateValue(const char* pszName, float value, const CPrimitiveRestrictions& restrictions) {
    CheckFloat<ItemType_r4>(pszName, value, restrictions);
}

void ValidateValue(const char* pszName, double value, const CPrimitiveRestrictions& restrictions) {
    CheckFloat<ItemType_r8>(pszName, value, restrictions);
}

static bool MatchesPatternText(const std::string& strPattern, const std::string& strValue);

void ValidateValue(const char* pszName, const std::string& value, const CPrimitiveRestrictions& restrictions) {
    CheckLength(value.size(), restrictions, [&]() { Refuse(pszName, value); });
    if (restrictions.GetPattern().empty()) return;
    bool bMatches = false;
    try {
        bMatches = IsLocalEncodingUtf8() ? MatchesPatternText(restrictions.GetPattern(), value)
                                         : MatchesPatternText(ToUtf8(restrictions.GetPattern()), value);
    } catch (const COxException& e) {
        throw COxException(e.GetFullMessage() + "\nInvalid Value for " + pszName + " [" + value + "].");
    }
    if (!bMatches) Refuse(pszName, value);
}

void ValidateValue(const char* pszName, const char* value, const CPrimitiveRestrictions& restrictions) {
    ValidateValue(pszName, std::string(value == nullptr ? "" : value), restrictions);
}

void ValidateValue(const char*, bool, const CPrimitiveRestrictions&) {}

void ValidateValue(const char* pszName, const CDecimal& value, const CPrimitiveRestrictions& restrictions) {
    auto refuse = [&]() { Refuse(pszName, value.ToString()); };
    CheckBounds<ItemType_decimal>(value, restrictions, refuse);
    if (restrictions.GetTotalDigits() < 0 && restrictions.GetFractionDigits() < 0) return;
    // The digits of the whole part without a leading 0, and the places of a fraction that
    // has no trailing zeros.
    const CBigInteger integer = value.GetIntegerPart();
    const size_t nIntegerDigits = integer == CBigInteger(0) ? 0 : integer.GetAbs().ToString().size();
    const size_t nFractionDigits =
        value.GetFractionPart() == CBigInteger(0) ? 0 : static_cast<size_t>(value.GetFractionDivider());
    if (restrictions.GetTotalDigits() >= 0 &&
        nIntegerDigits + nFractionDigits > static_cast<size_t>(restrictions.GetTotalDigits())) {
        refuse();
    }
    if (restrictions.GetFractionDigits() >= 0 &&
        nFractionDigits > static_cast<size_t>(restrictions.GetFractionDigits())) {
        refuse();
    }
}

void ValidateValue(const char* pszName, const CBigInteger& value, const CPrimitiveRestrictions& restrictions) {
    auto refuse = [&]() { Refuse(pszName, value.ToString()); };
    CheckBounds<ItemType_integer>(value, restrictions, refuse);
    if (restrictions.GetTotalDigits() >= 0 &&
        value.ToString().size() > static_cast<size_t>(restrictions.GetTotalDigits())) {
        refuse();
    }
}

void ValidateValue(const char* pszName, const CDateTimeSpan& value, const CPrimitiveRestrictions& restrictions) {
    CheckPartialBounds(
        value, restrictions,
        [&](CFacetBounds::Bound eBound, const std::string& strBound) {
            return CFacetBounds::Read<ItemType_duration>(restrictions, eBound, strBound);
        },
        [&]() { Refuse(pszName, value.ToString()); });
}

void ValidateValue(const char* pszName, const CDateTime& value, const CPrimitiveRestrictions& restrictions) {
    // A bound is a text of the value's own kind, read by that kind's parser; those of the five
    // kinds of the variant are filed.
    auto read = [&](CFacetBounds::Bound eBound, const std::string& strBound) {
        switch (value.GetType()) {
            case CDateTime::dt_dateTime:
                return CFacetBounds::Read<ItemType_datetime>(restrictions, eBound, strBound);
            case CDateTime::dt_date:
                return CFacetBounds::Read<ItemType_date>(restrictions, eBound, strBound);
            case CDateTime::dt_time:
                return CFacetBounds::Read<ItemType_time>(restrictions, eBound, strBound);
            case CDateTime::dt_gYearMonth:
                return CFacetBounds::Read<ItemType_yearMonth>(restrictions, eBound, strBound);
            case CDateTime::dt_gMonthDay:
                return CFacetBounds::Read<ItemType_monthDay>(restrictions, eBound, strBound);
            default:
                break;
        }
        const std::string strProcessed = CWhitespaceUtils::ApplyRule(kBoundRule, strBound);
        CDateTime bound(value.GetType());
        if (value.GetType() == CDateTime::dt_dateTime) {
            bound.ParseXSDDateTime(strProcessed.c_str());
        } else if (value.GetType() == CDateTime::dt_time) {
            bound.ParseXSDTime(strProcessed.c_str());
        } else {
            bound.ParseXSDDate(strProcessed.c_str());
        }
        return bound;
    };
    CheckPartialBounds(value, restrictions, read, [&]() { Refuse(pszName, value.ToString()); });
}

void ValidateYear(const char* pszName, uint16_t value, const CPrimitiveRestrictions& restrictions) {
    CheckBounds<ItemType_year>(value, restrictions, [&]() { RefuseNumber(pszName, std::to_string(value)); });
}

void ValidateMonth(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions) {
    CheckBounds<ItemType_month>(value, restrictions, [&]() { RefuseNumber(pszName, std::to_string(value)); });
}

void ValidateDay(const char* pszName, uint8_t value, const CPrimitiveRestrictions& restrictions) {
    CheckBounds<ItemType_day>(value, restrictions, [&]() { RefuseNumber(pszName, std::to_string(value)); });
}

void ValidateHexBinary(const char* pszName, const CBinaryData& value, const CPrimitiveRestrictions& restrictions) {
    CheckLength(value.GetLength(), restrictions, [&]() { Refuse(pszName, value.GetAsHexString()); });
}

void ValidateBase64Binary(const char* pszName, const CBinaryData& value, const CPrimitiveRestrictions& restrictions) {
    CheckLength(value.GetLength(), restrictions, [&]() { Refuse(pszName, value.GetAsBase64()); });
}

void ValidatePrimitive(const char* pszName, const OxVariant& value, ItemType eType,
                       const CPrimitiveRestrictions& restrictions) {
    CItemTypeInfo::PfnValidate pfnValidate = CItemTypeInfo::Get(eType).m_pfnValidate;
    if (pfnValidate == nullptr) {
        throw COxInvalidValueException("Unknown type [" + value.GetType() + "].");
    }
    pfnValidate(pszName, value, restrictions);
}

namespace {

// The pattern of the PCRE dialect that an XML Schema pattern stands for, anchored at both ends.
std::string TranslatePattern(const std::string& strSchemaPattern) {
    std::string strPattern = strSchemaPattern;
    // An escaped backslash is shielded from the substitutions by a byte that a pattern
    // doesn't hold, and comes back at the end.
    ReplaceAll(strPattern, "\\\\", "\x01");
    ReplaceAll(strPattern, "\\i", "([^\\W\\d]|:)");
    ReplaceAll(strPattern, "\\I", "([\\W\\d])");
    ReplaceAll(strPattern, "\\c", "(\\w|\\.|-|:)");
    ReplaceAll(strPattern, "\\C", "([^\\w\\.\\-\\:])");
    ReplaceAll(strPattern, "\\p{IsBasicLatin}", "[\\000-\\177]");
    ReplaceAll(strPattern, "\\p{IsLatin-1Supplement}", "[\\200-\\377]");
    ReplaceAll(strPattern, "\\p{IsLatinExtended-A}", "[\\400-\\577]");
    ReplaceAll(strPattern, "\\p{IsLatinExtended-B}", "[\\600-\\1117]");
    ReplaceAll(strPattern, "\x01", "\\\\");
    return "^(" + strPattern + ")$";
}

}  // namespace

// MatchesPattern without copies of its arguments: a facet check runs for every value
// written, and a pattern or a value longer than a short string would be allocated twice.
static bool MatchesPatternText(const std::string& strPattern, const std::string& strValue) {
    // The pattern is UTF-8 already and ends at its first null byte; the value is local text,
    // taken as it is when that is UTF-8.
    const size_t nPatternLength = std::strlen(strPattern.c_str());
    if (nPatternLength != strPattern.size()) return MatchesPatternText(strPattern.substr(0, nPatternLength), strValue);
    if (IsLocalEncodingUtf8()) {
        return CPatternCache::MatchesWhole(strPattern, &TranslatePattern, strValue.c_str(),
                                           std::strlen(strValue.c_str()));
    }
    const std::string strValueUtf8 = ToUtf8(strValue);
    return CPatternCache::MatchesWhole(strPattern, &TranslatePattern, strValueUtf8.data(), strValueUtf8.size());
}

bool MatchesPattern(std::string strPattern, std::string strValue) { return MatchesPatternText(strPattern, strValue); }

}  // namespace OrvexXml
