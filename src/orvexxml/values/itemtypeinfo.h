#pragma once

#include <cstdint>
#include <string>

#include "orvexxml/export.h"
#include "orvexxml/values/itemtype.h"
#include "orvexxml/values/whitespaceutils.h"

namespace OrvexXml {

class OxVariant;
class CPrimitiveRestrictions;

// What the library knows of one ItemType, as one row of a table indexed by the type's number:
// its name, where a variant keeps it, how it converts to and from text, and how JSON writes it.
// OxVariant's copy, Clear, GetType, ToString and FromString read these rows, so a new kind is
// one new row (and, for a kind with a value type, one CItemTypeTraits specialisation).
//
// A null function pointer means the kind has no such operation (yet): no text form, a text
// that is refused, or, for an owned kind, a value class that is not part of the library, so no
// setter can give a variant that type.
struct ORVEXXML_API CItemTypeInfo {
    enum Storage : uint8_t {
        Storage_none,      // type 0 and numbers outside the enum: no value
        Storage_inline,    // a scalar in the union
        Storage_owned,     // a heap copy owned by the variant, deleted by Clear
        Storage_reference  // a counted reference (AddRef/Release); null is a legal value
    };

    // The text of the variant's value; pszFormat (may be null) is the format override.
    typedef std::string (*PfnToText)(const OxVariant& value, const char* pszFormat);
    // Converts text as this kind and stores it through the kind's setter; a refused text
    // throws before the variant is changed.
    typedef void (*PfnFromText)(OxVariant& target, const std::string& text, CWhitespaceUtils::WhitespaceRule rule);
    // Gives target (already of this type, not nil) its own copy or reference of source's value.
    typedef void (*PfnCopy)(OxVariant& target, const OxVariant& source);
    // Detaches the value from the variant, then deletes or releases it.
    typedef void (*PfnDrop)(OxVariant& value);
    // Checks the variant's value against the facets of its schema type under the name that a
    // refusal shows, throwing the check's exception.
    typedef void (*PfnValidate)(const char* pszName, const OxVariant& value,
                                const CPrimitiveRestrictions& restrictions);

    ItemType m_eType;
    // The name GetType gives; null where GetType refuses (0, 27, 28).
    const char* m_pszName;
    Storage m_eStorage;
    // JSON writes the text unquoted (numbers, boolean, decimal, integer).
    bool m_bJsonBare;
    PfnToText m_pfnToText;
    PfnFromText m_pfnFromText;
    PfnCopy m_pfnCopy;  // owned and reference kinds only
    PfnDrop m_pfnDrop;  // owned and reference kinds only
    // Null for the kinds without a check (char, the references) and those whose value
    // class is not part of the library yet.
    PfnValidate m_pfnValidate;

    // Number of rows: the enum's numbers 0 to 28.
    static constexpr int Count = 29;

    // The row of nType. A number outside the enum gets a row like type 0's but without
    // a name, that no operation accepts.
    static const CItemTypeInfo& Get(int nType) {
        return static_cast<unsigned>(nType) < static_cast<unsigned>(Count) ? s_rows[nType] : s_unknown;
    }

private:
    static const CItemTypeInfo s_rows[Count];
    static const CItemTypeInfo s_unknown;
};

}  // namespace OrvexXml
