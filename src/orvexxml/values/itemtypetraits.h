#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/conversions.h"
#include "orvexxml/values/itemtypeinfo.h"
#include "orvexxml/values/oxvariant.h"
#include "orvexxml/values/validatevalue.h"

namespace OrvexXml {

// The typed side of one value kind: its C++ value type, where an OxVariant keeps it, and its
// conversions to and from text. The variant's descriptor rows (CItemTypeInfo) and the
// primitive collections are both built from these, so a kind's conversions are named once.
//
// Storage is Storage_inline or Storage_owned. Slot gives the variant's union member: the value
// itself for an inline kind, the pointer to the heap copy for an owned one. Store replaces the
// variant's content through the kind's setter. ToText takes the format override (null or empty
// for the default); only the float kinds use it. FromText applies the whitespace rule and
// refuses a text that doesn't fit with the conversion's COxInvalidValueException; kinds whose
// text is not read yet have HasFromText false and no FromText. Validate checks a value
// against the facets of the kind (HasValidate false: the kind has no check, or not yet).
// CollectionName is the class name under which instances of the kind's collection are
// counted.
template <ItemType eType>
struct CItemTypeTraits;

// The sized integers, floats, char and boolean differ only in their member, setter and
// conversions; this spells one of them out.
#define ORVEXXML_INLINE_TRAITS(kind, type, member, setter, collection, validated)                           \
    template <>                                                                                             \
    struct CItemTypeTraits<ItemType_##kind> {                                                               \
        typedef type ValueType;                                                                             \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_inline;                    \
        static constexpr bool HasFromText = true;                                                           \
        static constexpr bool HasValidate = validated;                                                      \
        static void Validate(const char* pszName, type value, const CPrimitiveRestrictions& restrictions) { \
            ValidateValue(pszName, value, restrictions);                                                    \
        }                                                                                                   \
        static constexpr const char* CollectionName = collection;                                           \
        static type& Slot(OxVariant& v) { return v.member; }                                                \
        static const type& Slot(const OxVariant& v) { return v.member; }                                    \
        static void Store(OxVariant& v, type value) { v.setter(value); }                                    \
        static std::string ToText(type value, const char*) { return CConversions::kind##ToString(value); }  \
        static type FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {              \
            return CConversions::kind##FromString(text, rule);                                              \
        }                                                                                                   \
    }

ORVEXXML_INLINE_TRAITS(i1, char, m_cValue, SetI1, "Ci1Col", true);
ORVEXXML_INLINE_TRAITS(i2, int16_t, m_sValue, SetI2, "Ci2Col", true);
ORVEXXML_INLINE_TRAITS(i4, OxLong, m_lValue, SetI4, "Ci4Col", true);
ORVEXXML_INLINE_TRAITS(i8, int64_t, m_llValue, SetI8, "Ci8Col", true);
ORVEXXML_INLINE_TRAITS(ui1, uint8_t, m_ucValue, SetUI1, "Cui1Col", true);
ORVEXXML_INLINE_TRAITS(ui2, uint16_t, m_usValue, SetUI2, "Cui2Col", true);
ORVEXXML_INLINE_TRAITS(ui4, OxULong, m_ulValue, SetUI4, "Cui4Col", true);
ORVEXXML_INLINE_TRAITS(ui8, uint64_t, m_ullValue, SetUI8, "Cui8Col", true);
ORVEXXML_INLINE_TRAITS(char, char, m_cValue, SetChar, nullptr, false);  // no collection, no check
ORVEXXML_INLINE_TRAITS(boolean, bool, m_bValue, SetBoolean, "CbooleanCol", true);

#undef ORVEXXML_INLINE_TRAITS

// The float kinds take the format override.
#define ORVEXXML_FLOAT_TRAITS(kind, type, member, setter, collection)                            \
    template <>                                                                                  \
    struct CItemTypeTraits<ItemType_##kind> {                                                    \
        typedef type ValueType;                                                                  \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_inline;         \
        static constexpr bool HasFromText = true;                                                \
        static constexpr bool HasValidate = true;                                                \
        static constexpr const char* CollectionName = collection;                                \
        static void Validate(const char* pszName, type value, const CPrimitiveRestrictions& r) { \
            ValidateValue(pszName, value, r);                                                    \
        }                                                                                        \
        static type& Slot(OxVariant& v) { return v.member; }                                     \
        static const type& Slot(const OxVariant& v) { return v.member; }                         \
        static void Store(OxVariant& v, type value) { v.setter(value); }                         \
        static std::string ToText(type value, const char* pszFormat) {                           \
            return CConversions::kind##ToString(value, pszFormat);                               \
        }                                                                                        \
        static type FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {   \
            return CConversions::kind##FromString(text, rule);                                   \
        }                                                                                        \
    }

ORVEXXML_FLOAT_TRAITS(r4, float, m_fValue, SetR4, "Cr4Col");
ORVEXXML_FLOAT_TRAITS(r8, double, m_dValue, SetR8, "Cr8Col");

#undef ORVEXXML_FLOAT_TRAITS

// Year, month and day are held as plain numbers, written by their own conversions and read
// through the date parser.
#define ORVEXXML_DATEPART_TRAITS(kind, type, member, setter, collection, check)                            \
    template <>                                                                                            \
    struct CItemTypeTraits<ItemType_##kind> {                                                              \
        typedef type ValueType;                                                                            \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_inline;                   \
        static constexpr bool HasFromText = true;                                                          \
        static constexpr bool HasValidate = true;                                                          \
        static constexpr const char* CollectionName = collection;                                          \
        static type& Slot(OxVariant& v) { return v.member; }                                               \
        static const type& Slot(const OxVariant& v) { return v.member; }                                   \
        static void Store(OxVariant& v, type value) { v.setter(value); }                                   \
        static std::string ToText(type value, const char*) { return CConversions::kind##ToString(value); } \
        static type FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {             \
            return CConversions::kind##FromString(text, rule);                                             \
        }                                                                                                  \
        static void Validate(const char* pszName, type value, const CPrimitiveRestrictions& r) {           \
            check(pszName, value, r);                                                                      \
        }                                                                                                  \
    }

ORVEXXML_DATEPART_TRAITS(year, uint16_t, m_usValue, SetYear, "CyearCol", ValidateYear);
ORVEXXML_DATEPART_TRAITS(month, uint8_t, m_ucValue, SetMonth, "CmonthCol", ValidateMonth);
ORVEXXML_DATEPART_TRAITS(day, uint8_t, m_ucValue, SetDay, "CdayCol", ValidateDay);

#undef ORVEXXML_DATEPART_TRAITS

template <>
struct CItemTypeTraits<ItemType_string> {
    typedef std::string ValueType;
    static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_owned;
    static constexpr bool HasFromText = true;
    static constexpr bool HasValidate = true;
    static constexpr const char* CollectionName = "CstringCol";
    static void Validate(const char* pszName, const std::string& value, const CPrimitiveRestrictions& restrictions) {
        ValidateValue(pszName, value, restrictions);
    }
    static std::string*& Slot(OxVariant& v) { return v.m_pString; }
    static std::string* const& Slot(const OxVariant& v) { return v.m_pString; }
    static void Store(OxVariant& v, std::string value) { v.SetString(std::move(value)); }
    // The item is its own text: handed on as it is, without a copy.
    static const std::string& ToText(const std::string& value, const char*) { return value; }
    static std::string FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
        return CConversions::stringFromString(text, rule);
    }
};

#define ORVEXXML_BINARY_TRAITS(kind, setter, collection, check)                                                \
    template <>                                                                                                \
    struct CItemTypeTraits<ItemType_##kind> {                                                                  \
        typedef CBinaryData ValueType;                                                                         \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_owned;                        \
        static constexpr bool HasFromText = true;                                                              \
        static constexpr bool HasValidate = true;                                                              \
        static void Validate(const char* pszName, const CBinaryData& value, const CPrimitiveRestrictions& r) { \
            check(pszName, value, r);                                                                          \
        }                                                                                                      \
        static constexpr const char* CollectionName = collection;                                              \
        static CBinaryData*& Slot(OxVariant& v) { return v.m_pBinaryData; }                                    \
        static CBinaryData* const& Slot(const OxVariant& v) { return v.m_pBinaryData; }                        \
        static void Store(OxVariant& v, const CBinaryData& value) { v.setter(value); }                         \
        static std::string ToText(const CBinaryData& value, const char*) {                                     \
            return CConversions::kind##ToString(value);                                                        \
        }                                                                                                      \
        static CBinaryData FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {          \
            return CConversions::kind##FromString(text, rule);                                                 \
        }                                                                                                      \
    }

ORVEXXML_BINARY_TRAITS(hexBinary, SetHexBinary, "ChexBinaryCol", ValidateHexBinary);
ORVEXXML_BINARY_TRAITS(base64Binary, SetBase64Binary, "Cbase64BinaryCol", ValidateBase64Binary);

#undef ORVEXXML_BINARY_TRAITS

// A value class held as an owned copy, whose text form takes no format.
#define ORVEXXML_VALUECLASS_TRAITS(kind, type, member, setter, collection)                                        \
    template <>                                                                                                   \
    struct CItemTypeTraits<ItemType_##kind> {                                                                     \
        typedef type ValueType;                                                                                   \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_owned;                           \
        static constexpr bool HasFromText = true;                                                                 \
        static constexpr bool HasValidate = true;                                                                 \
        static constexpr const char* CollectionName = collection;                                                 \
        static void Validate(const char* pszName, const type& value, const CPrimitiveRestrictions& r) {           \
            ValidateValue(pszName, value, r);                                                                     \
        }                                                                                                         \
        static type*& Slot(OxVariant& v) { return v.member; }                                                     \
        static type* const& Slot(const OxVariant& v) { return v.member; }                                         \
        static void Store(OxVariant& v, const type& value) { v.setter(value); }                                   \
        static std::string ToText(const type& value, const char*) { return CConversions::kind##ToString(value); } \
        static type FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {                    \
            return CConversions::kind##FromString(text, rule);                                                    \
        }                                                                                                         \
    }

ORVEXXML_VALUECLASS_TRAITS(duration, CDateTimeSpan, m_pDateTimeSpan, SetDuration, "CdurationCol");
ORVEXXML_VALUECLASS_TRAITS(integer, CBigInteger, m_pBigInteger, SetInteger, "CintegerCol");

#undef ORVEXXML_VALUECLASS_TRAITS

// The five date kinds share their value class; each reads its own text.
#define ORVEXXML_DATE_TRAITS(kind, setter, collection)                                                                 \
    template <>                                                                                                        \
    struct CItemTypeTraits<ItemType_##kind> {                                                                          \
        typedef CDateTime ValueType;                                                                                   \
        static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_owned;                                \
        static constexpr bool HasFromText = true;                                                                      \
        static constexpr bool HasValidate = true;                                                                      \
        static constexpr const char* CollectionName = collection;                                                      \
        static CDateTime*& Slot(OxVariant& v) { return v.m_pDateTime; }                                                \
        static CDateTime* const& Slot(const OxVariant& v) { return v.m_pDateTime; }                                    \
        static void Store(OxVariant& v, const CDateTime& value) { v.setter(value); }                                   \
        static std::string ToText(const CDateTime& value, const char*) { return CConversions::kind##ToString(value); } \
        static CDateTime FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {                    \
            return CConversions::kind##FromString(text, rule);                                                         \
        }                                                                                                              \
        static void Validate(const char* pszName, const CDateTime& value, const CPrimitiveRestrictions& r) {           \
            ValidateValue(pszName, value, r);                                                                          \
        }                                                                                                              \
    }

ORVEXXML_DATE_TRAITS(yearMonth, SetYearMonth, "CyearMonthCol");
ORVEXXML_DATE_TRAITS(monthDay, SetMonthDay, "CmonthDayCol");
ORVEXXML_DATE_TRAITS(date, SetDate, "CdateCol");
ORVEXXML_DATE_TRAITS(datetime, SetDateTime, "CdatetimeCol");
ORVEXXML_DATE_TRAITS(time, SetTime, "CtimeCol");

#undef ORVEXXML_DATE_TRAITS

template <>
struct CItemTypeTraits<ItemType_decimal> {
    typedef CDecimal ValueType;
    static constexpr CItemTypeInfo::Storage Storage = CItemTypeInfo::Storage_owned;
    static constexpr bool HasFromText = true;
    static constexpr bool HasValidate = true;
    static constexpr const char* CollectionName = "CdecimalCol";
    static void Validate(const char* pszName, const CDecimal& value, const CPrimitiveRestrictions& restrictions) {
        ValidateValue(pszName, value, restrictions);
    }
    static CDecimal*& Slot(OxVariant& v) { return v.m_pDecimal; }
    static CDecimal* const& Slot(const OxVariant& v) { return v.m_pDecimal; }
    static void Store(OxVariant& v, const CDecimal& value) { v.SetDecimal(value); }
    // The format override is a number of places.
    static std::string ToText(const CDecimal& value, const char* pszFormat) {
        return CConversions::decimalToString(value, pszFormat);
    }
    static CDecimal FromText(const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
        return CConversions::decimalFromString(text, rule);
    }
};

}  // namespace OrvexXml
