#include "orvexxml/values/oxvariant.h"

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/infrastructure/exceptions.h"
#include "orvexxml/infrastructure/formatstring.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/conversions.h"

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

    switch (m_type) {
        case ItemType_invalid:
            break;
        case ItemType_i1:
        case ItemType_char:
            m_cValue = other.m_cValue;
            break;
        case ItemType_ui1:
        case ItemType_month:
        case ItemType_day:
            m_ucValue = other.m_ucValue;
            break;
        case ItemType_boolean:
            m_bValue = other.m_bValue;
            break;
        case ItemType_i2:
            m_sValue = other.m_sValue;
            break;
        case ItemType_ui2:
        case ItemType_year:
            m_usValue = other.m_usValue;
            break;
        case ItemType_i4:
            m_lValue = other.m_lValue;
            break;
        case ItemType_ui4:
            m_ulValue = other.m_ulValue;
            break;
        case ItemType_r4:
            m_fValue = other.m_fValue;
            break;
        case ItemType_i8:
            m_llValue = other.m_llValue;
            break;
        case ItemType_ui8:
            m_ullValue = other.m_ullValue;
            break;
        case ItemType_r8:
            m_dValue = other.m_dValue;
            break;
        case ItemType_string:
            // Null first, so that a failed allocation leaves nothing for Clear to delete.
            m_pString = nullptr;
            if (other.m_pString) m_pString = new std::string(*other.m_pString);
            break;
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            // The copy shares the bytes until one side changes them.
            m_pBinaryData = nullptr;
            if (other.m_pBinaryData) m_pBinaryData = new CBinaryData(*other.m_pBinaryData);
            break;
        case ItemType_XmlObjectBase:
            m_pXmlObject = other.m_pXmlObject;
            if (m_pXmlObject) m_pXmlObject->AddRef();
            break;
        case ItemType_XmlCollection:
            m_pXmlCol = other.m_pXmlCol;
            if (m_pXmlCol) m_pXmlCol->AddRef();
            break;
        default:
            // Also the kinds whose value classes are not part of the library yet: no setter
            // can give a variant one of those types. The target is left empty.
            m_type = ItemType_invalid;
            m_isNil = false;
            throw COxException("Unknown Type");
    }
    return *this;
}

void OxVariant::Clear() {
    if (m_type == ItemType_invalid) return;
    m_isNil = false;
    switch (m_type) {
        case ItemType_string:
            delete m_pString;
            m_pString = nullptr;
            break;
        case ItemType_hexBinary:
        case ItemType_base64Binary:
            delete m_pBinaryData;
            m_pBinaryData = nullptr;
            break;
        case ItemType_XmlObjectBase: {
            // Detach before releasing: the release may destroy an object whose destructor
            // reaches this variant again.
            CXmlObjectBase* pObject = m_pXmlObject;
            m_pXmlObject = nullptr;
            m_type = ItemType_invalid;
            if (pObject) pObject->Release();
            break;
        }
        case ItemType_XmlCollection: {
            CXmlCollectionBase* pCollection = m_pXmlCol;
            m_pXmlCol = nullptr;
            m_type = ItemType_invalid;
            if (pCollection) pCollection->Release();
            break;
        }
        default:
            // Inline kinds own nothing; their bytes are left as they are.
            break;
    }
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
    switch (m_type) {
        case ItemType_hexBinary:
            return "hexBinary";
        case ItemType_base64Binary:
            return "base64Binary";
        case ItemType_i1:
            return "i1";
        case ItemType_i2:
            return "i2";
        case ItemType_i4:
            return "i4";
        case ItemType_i8:
            return "i8";
        case ItemType_ui1:
            return "ui1";
        case ItemType_ui2:
            return "ui2";
        case ItemType_ui4:
            return "ui4";
        case ItemType_ui8:
            return "ui8";
        case ItemType_r4:
            return "r4";
        case ItemType_r8:
            return "r8";
        case ItemType_duration:
            return "duration";
        case ItemType_yearMonth:
            return "yearMonth";
        case ItemType_monthDay:
            return "monthDay";
        case ItemType_year:
            return "year";
        case ItemType_month:
            return "month";
        case ItemType_day:
            return "day";
        case ItemType_date:
            return "date";
        case ItemType_datetime:
            return "datetime";
        case ItemType_time:
            return "time";
        case ItemType_char:
            return "char";
        case ItemType_string:
            return "string";
        case ItemType_boolean:
            return "boolean";
        case ItemType_decimal:
            return "decimal";
        case ItemType_integer:
            return "integer";
        default:
            throw COxException(FormatString("Invalid Type %d", static_cast<int>(m_type)));
    }
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
    switch (m_type) {
        case ItemType_hexBinary:
            // A nil value holds no bytes; callers test IsNil first, this only avoids a crash.
            return m_pBinaryData ? CConversions::hexBinaryToString(*m_pBinaryData) : std::string();
        case ItemType_base64Binary:
            return m_pBinaryData ? CConversions::base64BinaryToString(*m_pBinaryData) : std::string();
        case ItemType_i1:
            return CConversions::i1ToString(m_cValue);
        case ItemType_i2:
            return CConversions::i2ToString(m_sValue);
        case ItemType_i4:
            return CConversions::i4ToString(m_lValue);
        case ItemType_i8:
            return CConversions::i8ToString(m_llValue);
        case ItemType_ui1:
            return CConversions::ui1ToString(m_ucValue);
        case ItemType_ui2:
            return CConversions::ui2ToString(m_usValue);
        case ItemType_ui4:
            return CConversions::ui4ToString(m_ulValue);
        case ItemType_ui8:
            return CConversions::ui8ToString(m_ullValue);
        case ItemType_r4:
            return CConversions::r4ToString(m_fValue, pszFormat);
        case ItemType_r8:
            return CConversions::r8ToString(m_dValue, pszFormat);
        case ItemType_year:
            return CConversions::yearToString(m_usValue);
        case ItemType_month:
            return CConversions::monthToString(m_ucValue);
        case ItemType_day:
            return CConversions::dayToString(m_ucValue);
        case ItemType_char:
            return CConversions::charToString(m_cValue);
        case ItemType_string:
            // A nil string holds no text; callers test IsNil first, this only avoids a crash.
            return m_pString ? CConversions::stringToString(*m_pString) : std::string();
        case ItemType_boolean:
            return CConversions::booleanToString(m_bValue);
        // Duration, the five date kinds, decimal and integer get their rows with their value
        // classes. The object and collection references have
        // no text form of their own.
        default:
            ThrowNoTextForm(static_cast<int>(m_type));
    }
}

void OxVariant::FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    // Each conversion runs to the end before its setter replaces the former content.
    switch (type) {
        case ItemType_hexBinary:
            SetHexBinary(CConversions::hexBinaryFromString(text, rule));
            break;
        case ItemType_base64Binary:
            SetBase64Binary(CConversions::base64BinaryFromString(text, rule));
            break;
        case ItemType_i1:
            SetI1(CConversions::i1FromString(text, rule));
            break;
        case ItemType_i2:
            SetI2(CConversions::i2FromString(text, rule));
            break;
        case ItemType_i4:
            SetI4(CConversions::i4FromString(text, rule));
            break;
        case ItemType_i8:
            SetI8(CConversions::i8FromString(text, rule));
            break;
        case ItemType_ui1:
            SetUI1(CConversions::ui1FromString(text, rule));
            break;
        case ItemType_ui2:
            SetUI2(CConversions::ui2FromString(text, rule));
            break;
        case ItemType_ui4:
            SetUI4(CConversions::ui4FromString(text, rule));
            break;
        case ItemType_ui8:
            SetUI8(CConversions::ui8FromString(text, rule));
            break;
        case ItemType_r4:
            SetR4(CConversions::r4FromString(text, rule));
            break;
        case ItemType_r8:
            SetR8(CConversions::r8FromString(text, rule));
            break;
        case ItemType_char:
            SetChar(CConversions::charFromString(text, rule));
            break;
        case ItemType_string:
            SetString(CConversions::stringFromString(text, rule));
            break;
        case ItemType_boolean:
            SetBoolean(CConversions::booleanFromString(text, rule));
            break;
        // Duration, the date kinds, decimal and integer arrive with their value classes;
        // year, month and day are read through the date parser and arrive with it.
        default:
            ThrowNoTextForm(static_cast<int>(type));
    }
}

}  // namespace OrvexXml
