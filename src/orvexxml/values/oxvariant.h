#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/infrastructure/smartptr.h"
#include "orvexxml/values/binarydata.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXml {

class CXmlObjectBase;
class CXmlCollectionBase;
class CBinaryData;
class CDateTime;
class CDateTimeSpan;
class CDecimal;
class CBigInteger;

// The one value that crosses between a generated property and the library: a tagged union
// over the kinds of ItemType, plus a nil flag (xsi:nil) that keeps the type known.
//
// Inline kinds live in the union; string and the value-class kinds are owned heap copies;
// object and collection references hold one reference through AddRef/Release (a null
// pointer is a legal value and holds none). Copying is deep.
//
// The fields are public and laid out in this order, as a plain structure; use the members
// to change them. Declared as a class so that forward declarations agree on the tag.
class ORVEXXML_API OxVariant {
public:
    bool m_isNil;
    ItemType m_type;
    union {
        char m_cValue;                   // i1, char
        int16_t m_sValue;                // i2
        OxLong m_lValue;                 // i4
        int64_t m_llValue;               // i8
        uint8_t m_ucValue;               // ui1, month, day
        uint16_t m_usValue;              // ui2, year
        OxULong m_ulValue;               // ui4
        uint64_t m_ullValue;             // ui8
        float m_fValue;                  // r4
        double m_dValue;                 // r8
        bool m_bValue;                   // boolean
        std::string* m_pString;          // string
        CBinaryData* m_pBinaryData;      // hexBinary, base64Binary
        CDateTimeSpan* m_pDateTimeSpan;  // duration
        CDateTime* m_pDateTime;          // the five date kinds
        CDecimal* m_pDecimal;            // decimal
        CBigInteger* m_pBigInteger;      // integer
        CXmlObjectBase* m_pXmlObject;    // object reference
        CXmlCollectionBase* m_pXmlCol;   // collection reference
    };

    // Type 0, not nil, no value.
    OxVariant();
    OxVariant(const OxVariant& other);
    OxVariant& operator=(const OxVariant& other);
    virtual ~OxVariant();

    // Drops the value (deletes an owned copy, releases a reference) and returns to type 0,
    // not nil. A variant of type 0 is left as it is, nil flag included.
    void Clear();
    // Clear; the variant then holds nothing.
    void SetInvalid();
    // Keeps the type, drops the value and marks the variant nil.
    void SetNil();

    bool IsNil() const { return m_isNil; }
    // True when the variant has a type or is nil.
    bool IsValid() const { return m_type != ItemType_invalid || m_isNil; }
    ItemType GetTypeAsEnum() const { return m_type; }
    // The library's name of the type ("i4", "datetime", ...) for types 1 to 26; throws
    // COxException "Invalid Type %d" for any other.
    std::string GetType() const;

    // Setters replace the former content. Getters require the variant to hold their type
    // (and, for string, a value rather than nil).
    void SetI1(char value);
    void SetI2(int16_t value);
    void SetI4(OxLong value);
    void SetI8(int64_t value);
    void SetUI1(uint8_t value);
    void SetUI2(uint16_t value);
    void SetUI4(OxULong value);
    void SetUI8(uint64_t value);
    void SetR4(float value);
    void SetR8(double value);
    void SetYear(uint16_t value);
    void SetMonth(uint8_t value);
    void SetDay(uint8_t value);
    void SetChar(char value);
    void SetString(std::string value);
    void SetBoolean(bool value);
    // The variant keeps its own copy; later changes through value don't reach it.
    void SetHexBinary(const CBinaryData& value);
    void SetBase64Binary(const CBinaryData& value);
    void SetDuration(const CDateTimeSpan& value);
    // The five date kinds take the value as it is: its own kind decides its text form.
    void SetYearMonth(const CDateTime& value);
    void SetMonthDay(const CDateTime& value);
    void SetDate(const CDateTime& value);
    void SetDateTime(const CDateTime& value);
    void SetTime(const CDateTime& value);
    void SetDecimal(const CDecimal& value);
    void SetInteger(const CBigInteger& value);
    // Takes a reference on pObject unless it is null.
    void SetXmlObject(CXmlObjectBase* pObject);

    char GetI1() const { return m_cValue; }
    int16_t GetI2() const { return m_sValue; }
    OxLong GetI4() const { return m_lValue; }
    int64_t GetI8() const { return m_llValue; }
    uint8_t GetUI1() const { return m_ucValue; }
    uint16_t GetUI2() const { return m_usValue; }
    OxULong GetUI4() const { return m_ulValue; }
    uint64_t GetUI8() const { return m_ullValue; }
    float GetR4() const { return m_fValue; }
    double GetR8() const { return m_dValue; }
    uint16_t GetYear() const { return m_usValue; }
    uint8_t GetMonth() const { return m_ucValue; }
    uint8_t GetDay() const { return m_ucValue; }
    char GetChar() const { return m_cValue; }
    std::string GetString() const { return *m_pString; }
    bool GetBoolean() const { return m_bValue; }
    // A copy of the value; a nil variant gives the empty value.
    CBinaryData GetHexBinary() const;
    CBinaryData GetBase64Binary() const;
    CDateTimeSpan GetDuration() const;
    CDateTime GetYearMonth() const;
    CDateTime GetMonthDay() const;
    CDateTime GetDate() const;
    CDateTime GetDateTime() const;
    CDateTime GetTime() const;
    CDecimal GetDecimal() const;
    CBigInteger GetInteger() const;
    // The object held; the smart pointer takes its own reference.
    CSmartPtr<CXmlObjectBase> GetXmlObject() const;
    // A counted reference to a collection (type 28); null is a legal value.
    void SetXmlCollection(CXmlCollectionBase* pCollection);
    CSmartPtr<CXmlCollectionBase> GetXmlCollection() const;

    // The text form of the value, by type; pszFormat (may be null) is the format override
    // of the float kinds and is ignored by the others. The nil flag is not looked at.
    // Throws COxException "Invalid Type %d to convert to string" for a type without a text form.
    std::string ToString(const char* pszFormat = nullptr) const;
    // The same text without a copy where the value already is one: the held string itself
    // for a string, otherwise ToString's result, kept in strScratch. Valid while both live
    // unchanged. Throws as ToString.
    const std::string& ToText(std::string& strScratch, const char* pszFormat = nullptr) const;
    // Converts text as the given type and stores the result through that type's setter.
    // A refused text throws before anything is changed.
    void FromString(const std::string& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);
    // The same for a text the caller gives up: a string that the rule leaves as it is becomes
    // the value without a copy.
    void FromString(std::string&& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule);
};

}  // namespace OrvexXml
