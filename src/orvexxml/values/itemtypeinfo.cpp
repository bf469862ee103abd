#include "orvexxml/values/itemtypeinfo.h"

#include "orvexxml/binding/xmlobjectbase.h"
#include "orvexxml/collections/xmlcollectionbase.h"
#include "orvexxml/values/itemtypetraits.h"
#include "orvexxml/values/oxvariant.h"

namespace OrvexXml {

namespace {

template <ItemType eType>
std::string ValueToText(const OxVariant& value, const char* pszFormat) {
    typedef CItemTypeTraits<eType> Traits;
    if constexpr (Traits::Storage == CItemTypeInfo::Storage_owned) {
        // A nil value holds no copy; callers test IsNil first, this only avoids a crash.
        const typename Traits::ValueType* pValue = Traits::Slot(value);
        return pValue ? std::string(Traits::ToText(*pValue, pszFormat)) : std::string();
    } else {
        return Traits::ToText(Traits::Slot(value), pszFormat);
    }
}

template <ItemType eType>
void ValueFromText(OxVariant& target, const std::string& text, CWhitespaceUtils::WhitespaceRule rule) {
    typedef CItemTypeTraits<eType> Traits;
    // The conversion runs to the end before the former content is replaced.
    if constexpr (Traits::Storage == CItemTypeInfo::Storage_owned) {
        // The value is made where the variant keeps it, as its setter would keep a copy: a
        // decimal, a date or a string read from text costs one allocation and no copy.
        typename Traits::ValueType* pValue = new typename Traits::ValueType(Traits::FromText(text, rule));
        target.Clear();
        target.m_type = eType;
        Traits::Slot(target) = pValue;
    } else {
        Traits::Store(target, Traits::FromText(text, rule));
    }
}

template <ItemType eType>
void CopyOwned(OxVariant& target, const OxVariant& source) {
    typedef CItemTypeTraits<eType> Traits;
    // Null first, so that a failed allocation leaves nothing for Clear to delete.
    Traits::Slot(target) = nullptr;
    if (Traits::Slot(source)) Traits::Slot(target) = new typename Traits::ValueType(*Traits::Slot(source));
}

template <ItemType eType>
void DropOwned(OxVariant& value) {
    typedef CItemTypeTraits<eType> Traits;
    typename Traits::ValueType* pValue = Traits::Slot(value);
    Traits::Slot(value) = nullptr;
    delete pValue;
}

void CopyObject(OxVariant& target, const OxVariant& source) {
    target.m_pXmlObject = source.m_pXmlObject;
    if (target.m_pXmlObject) target.m_pXmlObject->AddRef();
}

void CopyCollection(OxVariant& target, const OxVariant& source) {
    target.m_pXmlCol = source.m_pXmlCol;
    if (target.m_pXmlCol) target.m_pXmlCol->AddRef();
}

// Detach before releasing: the release may destroy an object whose destructor reaches this
// variant again, and must find it empty.
void DropObject(OxVariant& value) {
    CXmlObjectBase* pObject = value.m_pXmlObject;
    value.m_pXmlObject = nullptr;
    value.m_type = ItemType_invalid;
    if (pObject) pObject->Release();
}

void DropCollection(OxVariant& value) {
    CXmlCollectionBase* pCollection = value.m_pXmlCol;
    value.m_pXmlCol = nullptr;
    value.m_type = ItemType_invalid;
    if (pCollection) pCollection->Release();
}

// The copy and drop hooks of an owned kind; an inline kind has none.
template <ItemType eType>
constexpr CItemTypeInfo::PfnCopy CopyHook() {
    if constexpr (CItemTypeTraits<eType>::Storage == CItemTypeInfo::Storage_owned) return &CopyOwned<eType>;
    return nullptr;
}

template <ItemType eType>
constexpr CItemTypeInfo::PfnDrop DropHook() {
    if constexpr (CItemTypeTraits<eType>::Storage == CItemTypeInfo::Storage_owned) return &DropOwned<eType>;
    return nullptr;
}

template <ItemType eType>
void ValidateHeld(const char* pszName, const OxVariant& value, const CPrimitiveRestrictions& restrictions) {
    typedef CItemTypeTraits<eType> Traits;
    if constexpr (Traits::Storage == CItemTypeInfo::Storage_owned) {
        // A nil value holds no copy; it is checked as the empty value. The held value is
        // passed by reference: a conditional expression of the two would copy it.
        const typename Traits::ValueType* pValue = Traits::Slot(value);
        if (pValue)
            Traits::Validate(pszName, *pValue, restrictions);
        else
            Traits::Validate(pszName, typename Traits::ValueType(), restrictions);
    } else {
        Traits::Validate(pszName, Traits::Slot(value), restrictions);
    }
}

template <ItemType eType>
constexpr CItemTypeInfo::PfnValidate ValidateHook() {
    if constexpr (CItemTypeTraits<eType>::HasValidate) return &ValidateHeld<eType>;
    return nullptr;
}

template <ItemType eType>
constexpr CItemTypeInfo::PfnFromText FromTextHook() {
    if constexpr (CItemTypeTraits<eType>::HasFromText) return &ValueFromText<eType>;
    return nullptr;
}

// A kind with a value type: everything comes from its CItemTypeTraits.
template <ItemType eType>
constexpr CItemTypeInfo Row(const char* pszName, bool bJsonBare) {
    return CItemTypeInfo{eType,
                         pszName,
                         CItemTypeTraits<eType>::Storage,
                         bJsonBare,
                         &ValueToText<eType>,
                         FromTextHook<eType>(),
                         CopyHook<eType>(),
                         DropHook<eType>(),
                         ValidateHook<eType>()};
}

}  // namespace

// Indexed by the enum's numbers; the consistency of index and m_eType is tested.
const CItemTypeInfo CItemTypeInfo::s_rows[CItemTypeInfo::Count] = {
    {ItemType_invalid, nullptr, Storage_none, false, nullptr, nullptr, nullptr, nullptr, nullptr},
    Row<ItemType_hexBinary>("hexBinary", false),
    Row<ItemType_base64Binary>("base64Binary", false),
    Row<ItemType_i1>("i1", true),
    Row<ItemType_i2>("i2", true),
    Row<ItemType_i4>("i4", true),
    Row<ItemType_i8>("i8", true),
    Row<ItemType_ui1>("ui1", true),
    Row<ItemType_ui2>("ui2", true),
    Row<ItemType_ui4>("ui4", true),
    Row<ItemType_ui8>("ui8", true),
    Row<ItemType_r4>("r4", true),
    Row<ItemType_r8>("r8", true),
    Row<ItemType_duration>("duration", false),
    Row<ItemType_yearMonth>("yearMonth", false),
    Row<ItemType_monthDay>("monthDay", false),
    Row<ItemType_year>("year", false),
    Row<ItemType_month>("month", false),
    Row<ItemType_day>("day", false),
    Row<ItemType_date>("date", false),
    Row<ItemType_datetime>("datetime", false),
    Row<ItemType_time>("time", false),
    Row<ItemType_char>("char", false),
    Row<ItemType_string>("string", false),
    Row<ItemType_boolean>("boolean", true),
    Row<ItemType_decimal>("decimal", true),
    Row<ItemType_integer>("integer", true),
    {ItemType_XmlObjectBase, nullptr, Storage_reference, false, nullptr, nullptr, &CopyObject, &DropObject, nullptr},
    {ItemType_XmlCollection, nullptr, Storage_reference, false, nullptr, nullptr, &CopyCollection, &DropCollection,
     nullptr},
};

const CItemTypeInfo CItemTypeInfo::s_unknown = {ItemType_invalid, nullptr, Storage_none, false,  nullptr,
                                                nullptr,          nullptr, nullptr,      nullptr};

}  // namespace OrvexXml
