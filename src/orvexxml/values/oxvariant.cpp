#include "orvexxml/values/oxvariant.h"

#include <cstring>

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/biginteger.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/datetime.h"
#include "orvexxml/values/datetimespan.h"
#include "orvexxml/values/decimal.h"
#include "orvexxml/values/itemtypeinfo.h"

namespace OrvexXml {

// Zeroing m_ullValue nulls whichever pointer member the union holds.
static_assert(sizeof(void*) <= sizeof(uint64_t), "the widest union member must cover a pointer");

namespace {

[[noreturn]] void ThrowNoTextForm(int nType) {
    throw COxException(FormatString("Invalid Type %d to convert to string", nType));
}

}  // namespace

OxVariant::OxVariant() : m_isNil(false), m_type(ItemType_invalid), m_ullValue(0) {}

OxVariant::OxVariant(const OxVariant& other) : m_isNil(false), m_type(ItemType_invalid), m_ullValue(0) {
    *this = other;
}

OxVariant::~OxVariant() { Clear(); }

OxVariant& OxVariant::operator=(const OxVariant& other) {
    if (this == &other) return *this;
    Clear();
    m_type = other.m_type;
    m_isNil = other.m_isNil;
    // A nil variant has its type but no value: its pointer members are null.
    if (m_isNil) {
        m_ullValue = 0;
        return *this;
    }
    if (m_type == ItemType_invalid) return *this;

    const CItemTypeInfo& info = CItemTypeInfo::Get(m_type);
    if (info.m_eStorage == CItemTypeInfo::Storage_inline) {
        // The whole union: the kind's own bytes and whatever lies beyond them, which no getter
        // of the kind reads. One move, whatever the width.
        std::memcpy(&m_ullValue, &other.m_ullValue, sizeof(m_ullValue));
    } else if (info.m_pfnCopy) {
        info.m_pfnCopy(*this, other);
    } else {
        // A number outside the enum, or a kind whose value class is not part of the library
        // yet (no setter can give a variant one of those types). The target is left empty.
        m_type = ItemType_invalid;
        m_isNil = false;
        throw COxException("Unknown Type");
    }
    return *this;
}

void OxVariant::Clear() {
    if (m_type == ItemType_invalid) return;
    m_isNil = false;
    // Inline kinds own nothing; their bytes are left as they are. An owned copy is deleted,
    // a reference released.
    CItemTypeInfo::PfnDrop pfnDrop = CItemTypeInfo::Get(m_type).m_pfnDrop;
    if (pfnDrop) pfnDrop(*this);
    m_type = ItemType_invalid;
}

void OxVariant::SetInvalid() {
    Clear();
    m_type = ItemType_invalid;
}

void OxVariant::SetNil() {
    ItemType type = m_type;
    Clear();
    m_type = type;
    m_isNil = true;
}

std::string OxVariant::GetType() const {
    const char* pszName = CItemTypeInfo::Get(m_type).m_pszName;
    if (!pszName) throw COxException(FormatString("Invalid Type %d", static_cast<int>(m_type)));
    return pszName;
}

// --- setters ------------------------------------------------------------------------------

void OxVariant::SetI1(char value) {
    Clear();
    m_type = ItemType_i1;
    m_cValue = value;
}

void OxVariant::SetI2(int16_t value) {
    Clear();
    m_type = ItemType_i2;
    m_sValue = value;
}

void OxVariant::SetI4(OxLong value) {
    Clear();
    m_type = ItemType_i4;
    m_lValue = value;
}

void OxVariant::SetI8(int64_t value) {
    Clear();
    m_type = ItemType_i8;
    m_llValue = value;
}

void OxVariant::SetUI1(uint8_t value) {
    Clear();
    m_type = ItemType_ui1;
    m_ucValue = value;
}

void OxVariant::SetUI2(uint16_t value) {
    Clear();
    m_type = ItemType_ui2;
    m_usValue = value;
}

void OxVariant::SetUI4(OxULong value) {
    Clear();
    m_type = ItemType_ui4;
    m_ulValue = value;
}

void OxVariant::SetUI8(uint64_t value) {
    Clear();
    m_type = ItemType_ui8;
    m_ullValue = value;
}

void OxVariant::SetR4(float value) {
    Clear();
    m_type = ItemType_r4;
    m_fValue = value;
}

void OxVariant::SetR8(double value) {
    Clear();
    m_type = ItemType_r8;
    m_dValue = value;
}

void OxVariant::SetYear(uint16_t value) {
    Clear();
    m_type = ItemType_year;
    m_usValue = value;
}

void OxVariant::SetMonth(uint8_t value) {
    Clear();
    m_type = ItemType_month;
    m_ucValue = value;
}

void OxVariant::SetDay(uint8_t value) {
    Clear();
    m_type = ItemType_day;
    m_ucValue = value;
}

void OxVariant::SetChar(char value) {
    Clear();
    m_type = ItemType_char;
    m_cValue = value;
}

void OxVariant::SetString(std::string value) {
    // Allocated before the former content goes, so a failed allocation changes nothing.
    std::string* pString = new std::string(std::move(value));
    Clear();
    m_type = ItemType_string;
    m_pString = pString;
}

void OxVariant::SetBoolean(bool value) {
    Clear();
    m_type = ItemType_boolean;
    m_bValue = value;
}

void OxVariant::SetHexBinary(const CBinaryData& value) {
    // Allocated before the former content goes, so a failed allocation changes nothing and
    // value may be the variant's own.
    CBinaryData* pBinaryData = new CBinaryData(value);
    Clear();
    m_type = ItemType_hexBinary;
    m_pBinaryData = pBinaryData;
}

void OxVariant::SetBase64Binary(const CBinaryData& value) {
    CBinaryData* pBinaryData = new CBinaryData(value);
    Clear();
    m_type = ItemType_base64Binary;
    m_pBinaryData = pBinaryData;
}

CBinaryData OxVariant::GetHexBinary() const { return m_pBinaryData ? *m_pBinaryData : CBinaryData(); }

CBinaryData OxVariant::GetBase64Binary() const { return m_pBinaryData ? *m_pBinaryData : CBinaryData(); }

void OxVariant::SetDuration(const CDateTimeSpan& value) {
    CDateTimeSpan* pSpan = new CDateTimeSpan(value);
    Clear();
    m_type = ItemType_duration;
    m_pDateTimeSpan = pSpan;
}

namespace {

// The date kinds differ only in their type number.
void StoreDate(OxVariant& target, ItemType eType, const CDateTime& value) {
    CDateTime* pDateTime = new CDateTime(value);
    target.Clear();
    target.m_type = eType;
    target.m_pDateTime = pDateTime;
}

}  // namespace

void OxVariant::SetYearMonth(const CDateTime& value) { StoreDate(*this, ItemType_yearMonth, value); }
void OxVariant::SetMonthDay(const CDateTime& value) { StoreDate(*this, ItemType_monthDay, value); }
void OxVariant::SetDate(const CDateTime& value) { StoreDate(*this, ItemType_date, value); }
void OxVariant::SetDateTime(const CDateTime& value) { StoreDate(*this, ItemType_datetime, value); }
void OxVariant::SetTime(const CDateTime& value) { StoreDate(*this, ItemType_time, value); }

CDateTimeSpan OxVariant::GetDuration() const { return m_pDateTimeSpan ? *m_pDateTimeSpan : CDateTimeSpan(); }
CDateTime OxVariant::GetYearMonth() const { return m_pDateTime ? *m_pDateTime : CDateTime(); }
CDateTime OxVariant::GetMonthDay() const { return m_pDateTime ? *m_pDateTime : CDateTime(); }
CDateTime OxVariant::GetDate() const { return m_pDateTime ? *m_pDateTime : CDateTime(); }
CDateTime OxVariant::GetDateTime() const { return m_pDateTime ? *m_pDateTime : CDateTime(); }
CDateTime OxVariant::GetTime() const { return m_pDateTime ? *m_pDateTime : CDateTime(); }

void OxVariant::SetDecimal(const CDecimal& value) {
    CDecimal* pDecimal = new CDecimal(value);
    Clear();
    m_type = ItemType_decimal;
    m_pDecimal = pDecimal;
}

void OxVariant::SetInteger(const CBigInteger& value) {
    CBigInteger* pBigInteger = new CBigInteger(value);
    Clear();
    m_type = ItemType_integer;
    m_pBigInteger = pBigInteger;
}

CDecimal OxVariant::GetDecimal() const { return m_pDecimal ? *m_pDecimal : CDecimal(); }

CBigInteger OxVariant::GetInteger() const { return m_pBigInteger ? *m_pBigInteger : CBigInteger(); }

void OxVariant::SetXmlObject(CXmlObjectBase* pObject) {
    // The new reference is taken before the old one is dropped, so setting the object the
    // variant already holds can't destroy it on the way.
    if (pObject) pObject->AddRef();
    Clear();
    m_type = ItemType_XmlObjectBase;
    m_pXmlObject = pObject;
}

CSmartPtr<CXmlObjectBase> OxVariant::GetXmlObject() const {
    // A collection is an object too, so a collection reference may be read as one.
    if (m_type == ItemType_XmlCollection) return CSmartPtr<CXmlObjectBase>(m_pXmlCol);
    return CSmartPtr<CXmlObjectBase>(m_pXmlObject);
}

void OxVariant::SetXmlCollection(CXmlCollectionBase* pCollection) {
    if (pCollection) pCollection->AddRef();
    Clear();
    m_type = ItemType_XmlCollection;
    m_pXmlCol = pCollection;
}

CSmartPtr<CXmlCollectionBase> OxVariant::GetXmlCollection() const { return CSmartPtr<CXmlCollectionBase>(m_pXmlCol); }

// --- text ---------------------------------------------------------------------------------

std::string OxVariant::ToString(const char* pszFormat) const {
    // Duration, the five date kinds, decimal and integer get their text with their value
    // classes; the object and collection references have no text form of their own.
    CItemTypeInfo::PfnToText pfnToText = CItemTypeInfo::Get(m_type).m_pfnToText;
    if (!pfnToText) ThrowNoTextForm(static_cast<int>(m_type));
    return pfnToText(*this, pszFormat);
}

const std::string& OxVariant::ToText(std::string& strScratch, const char* pszFormat) const {
    // A string is its own text (a nil one holds no copy, and gets ToString's empty text).
    if (m_type == ItemType_string && m_pString) return *m_pString;
    strScratch = ToString(pszFormat);
    return strScratch;
}

void OxVariant::FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    // Dispatches on the type given, not on the variant's own. The conversion runs to the end
    // before the setter replaces the former content. Year, month and day are read through the
    // date parser and arrive with it, as do the kinds with value classes still to come.
    CItemTypeInfo::PfnFromText pfnFromText = CItemTypeInfo::Get(type).m_pfnFromText;
    if (!pfnFromText) ThrowNoTextForm(static_cast<int>(type));
    pfnFromText(*this, text, rule);
}

void OxVariant::FromString(std::string&& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    if (type == ItemType_string && CWhitespaceUtils::IsUnchangedByRule(rule, text)) {
        SetString(std::move(text));
        return;
    }
    FromString(static_cast<const std::string&>(text), type, rule);
}

}  // namespace OrvexXml
